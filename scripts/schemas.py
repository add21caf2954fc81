#!/usr/bin/env python3
"""scripts/schemas.py MELKCFG: what scripts/schemas.sh checks. The sample is valid under each validator; each mistake
of tests/cases/check/mistakes.txt is refused by the schemas that can express its rule, and by no other; habits are
valid."""
import json
import pathlib
import re
import shutil
import subprocess
import sys
import xml.dom.minidom
import xml.parsers.expat

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build/schemas"
SAMPLE = ROOT / "configuration"
CASES = ROOT / "tests/cases/check"
MELKCFG = pathlib.Path(sys.argv[1]).resolve()

# The rules that a schema can express. All others are about names elsewhere, orders, numbers compared, other files.
BOTH = {
    "unknown-attribute", "misplaced-attribute", "unknown-element", "misplaced-element", "missing-name",
    "missing-attribute", "not-a-number", "wrong-dimension", "unknown-unit", "missing-unit", "trailing-text",
    "out-of-range", "impossible-value", "not-a-flag", "unknown-word", "unknown-colour", "blanks-around-name",
    "obsolete-format", "not-well-formed",
}
EXPRESSIBLE = {"rng": BOTH | {"duplicate-element"}, "xsd": BOTH | {"duplicate-name"}}
# Mistakes that are otherwise than their rule: a part of the mistake, the schemas, whether they refuse it, and why.
EXCEPTIONS = [
    (' maxValue="300" | |', "rng xsd", False, "only the rules of settings know that a range needs its ends"),
    ('<area type="all_round" front_offset', "xsd", False, "attributes that depend on another one"),
    ("side_area_default=\"on\" cut_out_width", "xsd", False, "attributes that depend on another one"),
    ('<hpoint value="10.2cm"', "xsd", False, "the same length in another unit"),
    ('value="12Omm"', "rng xsd", False, "a text that may say anything, of which check doubts some"),
    ('<barrier Position="front" Overlapping="15"/><barrier', "rng", False, "an element that a list takes again"),
    ('<priority level="3"><standard name="EU', "xsd", False, "a name that another list has"),
    ('<loading name="gross"/><loading', "xsd", False, "a name that a list takes again"),
    ("allow not-a-number --><category", "rng xsd", True, "the mistake that the comment is about"),
]

failures = []


def expect(holds, message):
    if not holds:
        failures.append(message)
        print("FAILED:", message)


def run(*command, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)


def melkcfg(*arguments):
    return run(MELKCFG, "--config", SAMPLE, *arguments)


def rows(name):
    text = (CASES / name).read_text().replace("\\\n", "")
    for line in text.splitlines():
        if line and not line.startswith("//"):
            cells = [cell.strip() for cell in line.split("|")]
            yield line, [cell.replace("\\n", "\n").replace("\\s", " ") for cell in cells]


def edited(number, file, what, marked):
    """The sample's file with one edit, where its path ends as it should; None when the row is not about a text."""
    if file.startswith("+") or " > " in file or marked == "basedata.dtd":
        return None
    text = (SAMPLE / file).read_text()
    if what not in text:
        raise SystemExit(f"{file} does not say {what}")
    path = WORK / "cases" / str(number) / file
    path.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(SAMPLE / "basedata.dtd", WORK / "cases" / str(number))
    path.write_text(text.replace(what, marked, 1))
    return path


def stem_of(path):
    parts = path.with_suffix("").parts
    return parts[-1] if parts[-1] in ("ReportTemplates", "DBAccess") else "/".join(parts[-2:])


def by_schema(documents, folder, extension):
    groups = {}
    for document in documents:
        groups.setdefault(WORK / folder / f"{stem_of(document)}.{extension}", []).append(document)
    return groups.items()


def refused_by_xmllint(documents, folder, extension, option):
    refused = set()
    for schema, group in by_schema(documents, folder, extension):
        said = run("xmllint", "--nonet", "--noout", option, schema, *group).stderr
        expect("failed to compile" not in said, f"xmllint: {schema}: {said[:300]}")
        valid = set(re.findall(r"^(.*) validates$", said, re.M))
        refused |= {document for document in group if str(document) not in valid}
    return refused


def is_well_formed(document):
    try:
        xml.dom.minidom.parse(str(document))
    except xml.parsers.expat.ExpatError:
        return False
    return True


def refused_by_jing(documents, folder, extension):
    """jing ends with the first document that is not well-formed, so these are shown to it one by one."""
    refused = {document for document in documents if not is_well_formed(document)
               and run("jing", WORK / folder / f"{stem_of(document)}.{extension}", document).returncode == 1}
    documents = [document for document in documents if is_well_formed(document)]
    for schema, group in by_schema(documents, folder, extension):
        done = run("jing", schema, *group)
        named = set(re.findall(r"^(/[^:]*):\d+:\d+: (?:error|fatal)", done.stdout, re.M))
        expect(done.returncode in (0, 1) and str(schema) not in named and (done.returncode == 0) == (not named),
               f"jing: {schema}: {done.stdout[:300]}{done.stderr[:300]}")
        refused |= {document for document in group if str(document) in named}
    return refused


def refused_by_emacs(documents):
    """As an engineer has it: the schema is found by the path of the file."""
    (WORK / "list").write_text("".join(f"{document}\n" for document in documents))
    done = run("emacs", "-Q", "--batch", "-l", WORK / "editors/melkcfg.el", "-l", ROOT / "scripts/schemas.el",
               WORK / "list")
    told = [line.split("\t") for line in done.stdout.splitlines() if line.count("\t") == 2]
    expect(len(told) == len(documents), f"emacs looked at {len(told)} of {len(documents)} files: {done.stderr[-500:]}")
    for path, schema, _ in told:
        wanted = WORK / "editors" / f"{stem_of(pathlib.Path(path))}.rnc"
        expect(pathlib.Path(schema) == wanted, f"emacs: {path} has the schema {schema}")
    return {pathlib.Path(path) for path, _, errors in told if errors != "0"}


def check_documents():
    clean = [path for path in sorted(SAMPLE.rglob("*.xml"))]
    mistakes = {}
    for number, (line, (rules, file, what, marked, _)) in enumerate(rows("mistakes.txt")):
        path = edited(number, file, what, marked.replace("@", ""))
        if path:
            mistakes[path] = (line.replace("@", ""), rules.split(", ")[0])
    habits = {}
    for number, (line, (file, what, marked)) in enumerate(rows("habits.txt"), 1000):
        path = edited(number, file, what, marked)
        if path:
            habits[path] = line
    documents = [*clean, *mistakes, *habits]
    validators = [
        ("xmllint, RELAX NG", "rng", lambda: refused_by_xmllint(documents, "rng", "rng", "--relaxng")),
        ("jing, RELAX NG", "rng", lambda: refused_by_jing(documents, "rng", "rng")),
        ("Emacs nxml-mode, RELAX NG compact", "rng", lambda: refused_by_emacs(documents)),
        ("xmllint, XML Schema", "xsd", lambda: refused_by_xmllint(documents, "editors", "xsd", "--schema")),
        ("jing (Xerces), XML Schema", "xsd", lambda: refused_by_jing(documents, "editors", "xsd")),
    ]
    for name, kind, validate in validators:
        refused = validate()
        for document in clean:
            expect(document not in refused, f"{name} refuses {document.relative_to(ROOT)}")
        wanted = {path for path, (line, rule) in mistakes.items() if is_expressible(line, rule, kind)}
        for path in wanted - refused:
            expect(False, f"{name} takes {mistakes[path][0]}")
        for path in (mistakes.keys() - wanted) & refused:
            expect(False, f"{name} refuses, what is left to check: {mistakes[path][0]}")
        for path, line in habits.items():
            if is_usual_place(line):
                expect(path not in refused, f"{name} refuses the habit {line}")
        print(f"{name}: {len(clean)} sample files valid: {len(clean) - len(refused & set(clean))}; "
              f"{len(mistakes)} mistakes: {len(refused & mistakes.keys())} refused, of {len(wanted)} that it can tell; "
              f"{len(habits)} habits: {len(refused & habits.keys())} refused")


def is_expressible(line, rule, kind):
    for part, kinds, refuses, _ in EXCEPTIONS:
        if part in line and kind in kinds.split():
            return refuses
    return rule in EXPRESSIBLE[kind]


def is_usual_place(line):
    """Schemas ask for elements at their usual places, where the library finds some at any depth."""
    return "<group>" not in line


def check_document_types():
    for document in SAMPLE.rglob("BaseData.xml"):
        done = run("xmllint", "--nonet", "--noout", "--valid", document)
        expect(done.returncode == 0, f"{document} is not valid by its document type: {done.stderr[:300]}")


def check_editor_files():
    settings = json.loads((WORK / "editors/settings.json").read_text())
    for file in SAMPLE.rglob("*.xml"):
        fitting = [each for each in settings["xml.fileAssociations"] if str(file).endswith(each["pattern"][2:])]
        expect(len(fitting) == 1 and pathlib.Path(fitting[0]["systemId"]).is_file(), f"VS Code has {fitting} for {file}")
    for catalog in settings["xml.catalogs"]:
        done = run("xmlcatalog", catalog, "urn:melkcfg:OVA/UFCurb.xsd")
        expect(done.stdout.strip().endswith("editors/OVA/UFCurb.xsd"), f"the catalogue says {done.stdout}")


def check_reports():
    """Of the sample, whole and with every mistake that a report of its own can have."""
    schema = json.loads((ROOT / "tests/schemas/sarif-2.1.0-rtm.5.json").read_text())
    validator = jsonschema.Draft4Validator(schema, format_checker=jsonschema.FormatChecker())
    reports = WORK / "reports"
    reports.mkdir()
    results = 0
    directories = [SAMPLE, *sorted((WORK / "cases").iterdir())]
    for number, directory in enumerate(directories):
        said = run(MELKCFG, "--config", directory, "--format", "sarif", "check", "--level", "note").stdout
        report = json.loads(said)
        results += len(report["runs"][0]["results"])
        for error in validator.iter_errors(report):
            expect(False, f"SARIF of {directory}: {error.message[:300]}")
        (reports / f"{number}.xml").write_text(
            run(MELKCFG, "--config", directory, "--format", "junit", "check", "--level", "note").stdout)
    done = run("jing", "-c", ROOT / "tests/schemas/junit.rnc", *reports.iterdir())
    expect(done.returncode == 0, f"JUnit: {done.stdout[:300]}")
    for report in reports.iterdir():
        suite = xml.dom.minidom.parse(str(report)).documentElement.getElementsByTagName("testsuite")[0]
        for attribute, tag in (("tests", "testcase"), ("failures", "failure")):
            count = len(suite.getElementsByTagName(tag))
            expect(int(suite.getAttribute(attribute)) == count, f"JUnit: {report} has {count} {tag}")
    print(f"reports: {len(directories)} of each kind valid, SARIF with {results} results")


shutil.rmtree(WORK, ignore_errors=True)
WORK.mkdir(parents=True)
for arguments in (("--rng", "--output", WORK / "rng"), ("--editors", WORK / "editors")):
    written = melkcfg("schema", *arguments)
    expect(written.returncode == 0, written.stderr)
check_documents()
check_document_types()
check_editor_files()
check_reports()
if failures:
    sys.exit(f"{len(failures)} failures")
