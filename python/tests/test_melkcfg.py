"""The package as people use it, over the sample configuration and over copies of it with mistakes."""

import pathlib
import shutil

import pandas
import pytest

import melkcfg

SAMPLE = pathlib.Path(__file__).parents[2] / "configuration"


@pytest.fixture
def sample():
    return melkcfg.open(SAMPLE)


@pytest.fixture
def mine(tmp_path):
    """A copy that may be changed."""
    shutil.copytree(SAMPLE, tmp_path / "mine")
    return tmp_path / "mine"


def test_a_value_has_number_unit_and_origin(sample):
    offset = sample.UFCurb["EU Passenger Car"]["suv"].FrontOffset
    assert (offset.raw, offset.number, offset.unit, offset.si, offset.si_unit) == ("180mm", 180.0, "mm", 0.18, "m")
    assert (offset.origin.file, offset.origin.line, offset.origin.how) == ("Default/OVA/UFCurb.xml", 37, "own")
    assert offset == "180mm" and float(offset) == 180.0 and str(offset) == "180mm"
    assert "Default/OVA/UFCurb.xml:37" in repr(offset)


def test_numbers_have_the_unit_that_they_are_handed_out_in(sample):
    ellipses = sample.EyeEllipses
    standard = next(name for name in ellipses if ellipses.IsStandard2002(name).result)
    by_number = ellipses.GetRadii2002(standard, 133.0, 95)
    by_length = ellipses.GetRadii2002(standard=standard, hPointTravel="13.3cm", cutoff="95%")
    assert by_number.result is True and by_number.to_dict() == by_length.to_dict()
    assert by_length.radiusX.unit == "mm" and by_length.radiusX.si == by_length.radiusX.number / 1000


@pytest.mark.parametrize(
    ("ask", "error", "message"),
    [
        (lambda d: d.UFCurbs, AttributeError, "unknown configuration UFCurbs; did you mean UFCurb?"),
        (lambda d: d["UFCurbs"], KeyError, "did you mean UFCurb?"),
        (lambda d: d.UFCurb["EU Pasenger Car"], KeyError, "did you mean EU Passenger Car?"),
        (lambda d: d.UFCurb.GetStandartData, AttributeError, "did you mean GetStandardData?"),
        (lambda d: d.UFCurb.GetStandardData(standart="x"), TypeError, "no argument standart; did you mean standard?"),
        (lambda d: d.UFCurb.GetStandardData(1), TypeError, "standard: expected a text, got 1"),
        (lambda d: d.UFCurb.GetStandardData("S", standard="S"), TypeError, "standard is given twice"),
        (lambda d: d.UFCurb["EU Passenger Car"]["suv"].FrontOfset, AttributeError, "FrontOffset"),
        (lambda d: d.EyeEllipses.GetRadii2002(hPointTravel="7deg"), ValueError, "7deg is an angle, where a length"),
        (lambda d: d.EyeEllipses.GetRadii2002(cutoff=2**40), TypeError, "cutoff: expected an integer of 32 bits"),
        (lambda d: d.DBAccess["S"], KeyError, "DBAccess.xml has no standard S"),
        (lambda d: d.check("UFCurb", level="errors"), ValueError, "expected one of error, warning, note"),
        (lambda d: d.dump("UFCurbs"), AttributeError, "did you mean UFCurb?"),
        (lambda d: d.check("UFCurbs"), AttributeError, "did you mean UFCurb?"),
    ],
)
def test_what_is_mistyped_is_answered_with_what_is_known(sample, ask, error, message):
    with pytest.raises(error, match=message.replace("?", r"\?")):
        ask(sample)


def test_a_directory_that_is_not_there_is_said(tmp_path):
    with pytest.raises(FileNotFoundError, match="does not exist"):
        melkcfg.open(tmp_path / "none")
    with pytest.raises(NotADirectoryError, match="is no directory"):
        melkcfg.open(__file__)


def test_another_category_is_answered_by_default_and_the_reason_says_so(sample):
    answer = sample.UFSpaceToRoad["EU Passenger Car"]["no such category"]
    assert answer.result is True and '"default" answers' in answer.reason


def test_every_operation_of_every_configuration_can_be_asked(sample):
    asked = 0
    for name in sample:
        configuration = sample[name]
        standards = configuration.standards()
        for operation in configuration.operations():
            ask = getattr(configuration, operation)
            takes_standard = "    standard: text" in ask.__doc__
            answer = ask(standard=standards[0]) if takes_standard and standards else ask()
            assert isinstance(answer.values(), list)
            asked += 1
    assert asked > 300


def test_lists_and_records_are_reached_by_name(sample):
    barriers = sample.CrashBarriers
    standard = barriers.standards()[0]
    category = barriers[standard].categories()[0]
    answer = barriers[standard][category]
    first = answer.barriers[0]
    assert first.Overlapping.field == "barriers[0].Overlapping"
    assert set(first) <= set(dir(first)) and "barriers" in dir(answer)
    assert {value.field for value in answer.values()} >= {"barriers[0].Overlapping"}


def test_a_standard_without_categories_answers_by_itself(sample):
    standard = sample.HeadImpact[sample.HeadImpact.standards()[0]]
    assert len(list(standard.APillar)) > 0


def test_secrets_stay_hidden(sample):
    assert sample.DBAccess.GetDBAccessParameters().password.raw == "********"


def test_files_are_read_anew_after_reload(mine):
    directory = melkcfg.open(mine)
    path = mine / "Default/OVA/UFCurb.xml"
    assert directory.UFCurb["EU Passenger Car"]["suv"].FrontOffset == "180mm"
    path.write_text(path.read_text().replace('front_offset="180"', 'front_offset="185"'))
    assert directory.UFCurb["EU Passenger Car"]["suv"].FrontOffset == "180mm"
    directory.reload()
    assert directory.UFCurb["EU Passenger Car"]["suv"].FrontOffset == "185mm"
    assert melkcfg.open(SAMPLE).UFCurb["EU Passenger Car"]["suv"].FrontOffset == "180mm"


def test_a_file_that_cannot_be_parsed_is_an_error_that_names_it(mine):
    (mine / "Default/OVA/UFCurb.xml").write_text("<broken>")
    with pytest.raises(melkcfg.FileError, match="UFCurb.xml"):
        melkcfg.open(mine).UFCurb.GetStandardData("EU Passenger Car", "suv")


def test_findings_of_check_are_objects(sample, mine):
    assert sample.check() == []
    path = mine / "Default/OVA/UFCurb.xml"
    path.write_text(path.read_text().replace('"suv" front_offset', '"suv" front_ofset'))
    (finding,) = melkcfg.open(mine).check("UFCurb")
    assert (finding.rule, finding.level, finding.line) == ("unknown-attribute", "error", 37)
    assert finding.suggestion == "front_offset" and str(finding).startswith("Default/OVA/UFCurb.xml:37:26: error:")


def test_a_dump_is_what_pandas_takes(sample):
    frame = pandas.DataFrame(sample.dump("UFCurb", "EyeEllipses"))
    offsets = frame[(frame.field == "definition.FrontOffset") & (frame.category == "suv")].set_index("standard")
    assert offsets.loc["EU Passenger Car", "si"] == 0.18 and offsets.loc["EU Passenger Car", "unit"] == "m"
    assert set(frame.config) == {"UFCurb", "EyeEllipses"}
    assert frame[frame.field == "radiusX"].unit.unique().tolist() == ["m"]


def test_a_dump_names_file_and_level(sample):
    rows = {
        (row["operation"], row["standard"], row["category"], row["field"]): row
        for row in sample.dump("UFOilTub")
    }
    row = rows["GetStandardData", "EU Passenger Car", "suv", "out_offset"]
    origin = sample.UFOilTub["EU Passenger Car"]["suv"].out_offset.origin
    assert (row["file"], row["line"], row["column"]) == (origin.file, origin.line, origin.column)
    assert row["level"] in ("Default", "default")
    assert all(row["file"] for row in rows.values() if row["level"] != "builtin")


def test_help_tells_arguments_outputs_and_units(sample):
    assert "hPointTravel: number [mm], or a text with its unit" in sample.EyeEllipses.GetRadii2002.__doc__
    assert "FrontOffset: text [mm]" in sample.UFCurb.GetStandardData.__doc__


def test_the_stubs_know_every_configuration_and_field():
    stub = pathlib.Path(melkcfg.__file__).with_suffix(".pyi").read_text()
    assert all(f"def {name}(self) -> {name}_Configuration" in stub for name in melkcfg.open(SAMPLE))
    assert "FrontOffset: Value  # text [mm]" in stub
    assert pathlib.Path(melkcfg.__file__).with_name("py.typed").exists()
