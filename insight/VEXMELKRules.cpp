// The list of rules. docs/rules.md is made from it.
#include "VEXMELKRules.h"

#include <algorithm>
#include <iterator>

namespace {

using Level = VEXMELKLevel;

constexpr VEXMELKRule rules[] = {
    {"not-well-formed", Level::Error, "The file cannot be read",
        "The parser found a fault, so nothing of the file is read. A broken Customer file hides the Default file too.",
        "<standard name=\"A\"><category name=\"suv\"></standard>",
        "<standard name=\"A\"><category name=\"suv\"/></standard>"},
    {"missing-type-definition", Level::Warning, "The document type definition is not found",
        "The file names one that is not there, or that lies outside of the configuration directory. The file is read "
        "without it: defaults of attributes that it declares are missing.",
        "<!DOCTYPE basedata SYSTEM \"basedata.dtd\">", "<!DOCTYPE basedata SYSTEM \"../../basedata.dtd\">"},
    {"unknown-element", Level::Error, "Nothing reads the element",
        "No query looks for an element of this name here, so all that stands in it is lost. Without a name that is "
        "near it is a warning.",
        "<category name=\"van\"><cylindre radius=\"150mm\"/></category>",
        "<category name=\"van\"><cylinder radius=\"150mm\"/></category>"},
    {"misplaced-element", Level::Error, "The element stands in a place where it is not looked for",
        "Elements are found as children of certain others. One that stands too deep, or in another of its own name, is "
        "not found.",
        "<standard name=\"A\"><standard name=\"B\"/></standard>", "<standard name=\"A\"/><standard name=\"B\"/>"},
    {"unknown-attribute", Level::Error, "Nothing reads the attribute",
        "What it says is lost: the checks get the value of default, or a default. Without a name that is near it is a "
        "warning.",
        "<category name=\"suv\" front_ofset=\"180mm\"/>", "<category name=\"suv\" front_offset=\"180mm\"/>"},
    {"misplaced-attribute", Level::Error, "Another element, or another type, would read the attribute",
        "The attribute is known in this file, but not here.", "<category name=\"van\" static_radius=\"true\"/>",
        "<standard name=\"A\" static_radius=\"true\">"},
    {"missing-name", Level::Error, "The element has no name",
        "It is looked for by this attribute, so it is never found.", "<category front_offset=\"180mm\"/>",
        "<category name=\"suv\" front_offset=\"180mm\"/>"},
    {"missing-attribute", Level::Warning, "An attribute that cannot be left out is missing",
        "The queries that read it fail, or drop the element.",
        "<range minValue=\"0\" minColor=\"red\" maxColor=\"red\"/>",
        "<range minValue=\"0\" maxValue=\"1\" minColor=\"red\" maxColor=\"red\"/>"},
    {"repeated-value", Level::Note, "A missing attribute repeats the value of the element before",
        "In lists of barriers and bumpers some values go on until another one is set.",
        "<barrier Overlapping=\"40\"/><barrier Position=\"rear\"/>",
        "<barrier Overlapping=\"40\"/><barrier Position=\"rear\" Overlapping=\"40\"/>"},
    {"not-a-number", Level::Error, "The text is no number",
        "It counts as 0, or is handed out as it stands. An empty text is a warning.", "front_offset=\"wide\"",
        "front_offset=\"180mm\""},
    {"wrong-dimension", Level::Error, "A length stands where an angle belongs, or the other way round",
        "The unit is known, but it is not one of this kind: the value counts as 0, or is handed out as it stands.",
        "front_offset=\"12deg\"", "front_offset=\"12mm\""},
    {"unknown-unit", Level::Error, "The unit is not known",
        "Units are written in exactly these letters: mm, cm, dm, m, km, in, ft, mic; deg, rad, grad, turn.",
        "front_offset=\"180MM\"", "front_offset=\"180mm\""},
    {"missing-unit", Level::Error, "A bare number gets no unit here, or the wrong one",
        "Most attributes get a unit when they are written without one. This one does not.",
        "<cylinder radius=\"150\"/>", "<cylinder radius=\"150mm\"/>"},
    {"trailing-text", Level::Warning, "Something stands behind the number",
        "Of a quantity it makes the text none; of a plain number it is ignored. Digits are not grouped.",
        "visibleRayCount=\"5 rays\"", "visibleRayCount=\"5\""},
    {"out-of-range", Level::Error, "The number is past the range of its type", "It counts as none.",
        "front_offset=\"1e999mm\"", "front_offset=\"1000mm\""},
    {"impossible-value", Level::Error, "The sign or size has no meaning",
        "A radius below 0, a share above 100, an index that is not there.", "radius=\"-150mm\"", "radius=\"150mm\""},
    {"limits-reversed", Level::Warning, "A lower limit is above its upper one",
        "No value can meet both. Of angles it is a note: they may go past the full turn.",
        "SMin=\"360mm\" SMax=\"140mm\"", "SMin=\"140mm\" SMax=\"360mm\""},
    {"outlier", Level::Note, "The value is tenfold or more away from that of all other standards",
        "Often a unit is wrong: 103m for 103mm.", "front_offset=\"180m\"", "front_offset=\"180mm\""},
    {"not-a-flag", Level::Error, "The text is neither true nor false",
        "Everything but true, in any letter case, counts as false. A few flags take exactly true.",
        "static_radius=\"yes\"", "static_radius=\"true\""},
    {"unknown-word", Level::Error, "The word is not in its list",
        "Words are compared exactly. Another one counts as the stated default, or the element plays no part.",
        "Position=\"Front\"", "Position=\"front\""},
    {"doubtful-word", Level::Warning, "The text is nearly a word that is known",
        "Other texts are allowed here, but this one differs from a known word by a letter or two.", "Plane=\"raod\"",
        "Plane=\"road\""},
    {"unknown-reference", Level::Error, "The name refers to nothing",
        "There is no standard, shape, profile, loading or set of settings of this name.",
        "<bumper Profile=\"Low fase\"/>", "<bumper Profile=\"Low face\"/>"},
    {"unknown-colour", Level::Warning, "The colour is not known",
        "It becomes black. Colours are names, numbers from 1 to 16, and 0xRRGGBB.", "minColor=\"#FF0000\"",
        "minColor=\"0xFF0000\""},
    {"line-break", Level::Warning, "A line break or tab stands in a name",
        "It is read as a blank, so the name is another one than it looks.", "name=\"EU&#10;Passenger\"",
        "name=\"EU Passenger\""},
    {"blanks-around-name", Level::Warning, "Blanks stand around a name", "Names are compared exactly, blanks and all.",
        "<category name=\"suv \"/>", "<category name=\"suv\"/>"},
    {"duplicate-name", Level::Warning, "Two elements have one name",
        "Of elements that are looked for by name only the first counts. Of a list both count, and a standard of "
        "several "
        "priority lists has the lowest level.",
        "<category name=\"suv\"/><category name=\"suv\"/>", "<category name=\"suv\"/><category name=\"van\"/>"},
    {"duplicate-element", Level::Warning, "An element is there twice",
        "Only one counts: the first, for minor axes the last; of elements that have to be alone, none. Of a list both "
        "count, but one that repeats another letter for letter is hardly meant.",
        "<tip_angles/><tip_angles/>", "<tip_angles/>"},
    {"row-order", Level::Warning, "A row is never chosen",
        "Rows of eye ellipses are written with decreasing travel, those of head contours with increasing travel.",
        "<radii h_point_travel=\"100mm\"/><radii h_point_travel=\"200mm\"/>",
        "<radii h_point_travel=\"200mm\"/><radii h_point_travel=\"100mm\"/>"},
    {"similar-name", Level::Warning, "A name is nearly another one",
        "A category that others call otherwise, or a Customer standard that nearly has the name of the one that it "
        "should replace.",
        "<category name=\"defualt\"/>", "<category name=\"default\"/>"},
    {"no-default", Level::Warning, "A standard has no data for a category",
        "It has neither the category nor one named default. Without any category it is not in the list of standards.",
        "<standard name=\"A\"><category name=\"suv\"/></standard>",
        "<standard name=\"A\"><category name=\"default\"/><category name=\"suv\"/></standard>"},
    {"falls-back", Level::Note, "A category that other standards have falls back to default",
        "Worth a look: it may have been forgotten.", "<standard name=\"B\"><category name=\"default\"/></standard>",
        "<standard name=\"B\"><category name=\"default\"/><category name=\"suv\"/></standard>"},
    {"obsolete-format", Level::Warning, "Data stand outside of any category",
        "The format is obsolete: the standard is not in the list of standards.",
        "<standard name=\"Old\" front_offset=\"120mm\"/>",
        "<standard name=\"Old\"><category name=\"default\" front_offset=\"120mm\"/></standard>"},
    {"customer-priorities", Level::Warning, "Priorities stand in a Customer file",
        "Only the Default file gives priorities.", "<priorities/> in Customer/OVA/UFCurb.xml",
        "<priorities/> in Default/OVA/UFCurb.xml"},
    {"customer-only-standard", Level::Note, "The Default file has no such standard",
        "It is the customer's own, or the one that it replaced has gone.", "<standard name=\"In-house 2025\"/>",
        "<standard name=\"EU Passenger Car\"/>"},
    {"customer-repeats", Level::Warning, "A Customer standard repeats that of the Default file",
        "All values are the same. It hides later changes of the Default file.", "the standard copied as it is",
        "no such standard in the Customer file"},
    {"repeated-override", Level::Note, "A Customer value is what the Default file says",
        "A Customer standard replaces the other one wholly, so it has to repeat what it does not change.",
        "front_offset=\"120mm\" in both", "front_offset=\"130mm\" in the Customer file"},
    {"default-changed", Level::Warning, "A Default value has changed since a Customer value was made against it",
        "melkcfg accept wrote the old one down. The Customer value hides the new one: look at it, then accept again.",
        "front_offset=\"140mm\" in the Default file, accepted with 130mm", "melkcfg accept, after a look"},
    {"override-equal", Level::Warning, "A Customer value has become what the Default file says",
        "It differed when it was accepted. The override may be over.",
        "front_offset=\"195mm\" in both, accepted with 130mm", "melkcfg accept, or no override"},
    {"customer-only-file", Level::Error, "A Customer file is alone", "Without the file in Default it is not read.",
        "Customer/OVA/UFCurb.xml alone", "Default/OVA/UFCurb.xml beside it"},
    {"hidden-file", Level::Warning, "A Default file hides this one",
        "The file in the directory itself is read only when there is none in Default.",
        "OVA/UFCurb.xml and Default/OVA/UFCurb.xml", "Default/OVA/UFCurb.xml"},
    {"misplaced-file", Level::Warning, "The file is in the wrong folder", "Nothing looks for it there.",
        "Default/Vision/UFCurb.xml", "Default/OVA/UFCurb.xml"},
    {"misnamed-file", Level::Warning, "The name of the file is nearly that of one that is read",
        "Names of files are written exactly.", "Default/OVA/ufcurb.xml", "Default/OVA/UFCurb.xml"},
    {"unread-file", Level::Warning, "Nothing reads the file", "No check has a file of this name.",
        "Default/OVA/Notes.xml", "Default/OVA/Notes.txt"},
    {"settings-kind", Level::Warning, "A parameter has what its type does not read",
        "A value belongs to the type simple, ranges to the type colorRanges. Values of lists are not supported.",
        "<parameter name=\"Step\" type=\"colorRanges\" value=\"5\"/>", "<parameter name=\"Step\" value=\"5\"/>"},
    {"reversed-range", Level::Warning, "A range ends before it begins", "No value lies in it.",
        "<range minValue=\"100\" maxValue=\"0\"/>", "<range minValue=\"0\" maxValue=\"100\"/>"},
    {"overlapping-ranges", Level::Warning, "Two ranges overlap", "A value in both has two colours.",
        "0 to 100 and 90 to 120", "0 to 100 and 100 to 120"},
    {"range-gap", Level::Warning, "Between two ranges is a gap", "Values in it have no colour.",
        "0 to 100 and 110 to 120", "0 to 100 and 100 to 120"},
    {"useless-allowance", Level::Warning, "A comment allows what is not there",
        "The rule finds nothing in the element behind it, or there is no such rule.",
        "<!-- melkcfg: allow outlier --> before an element without one", "no comment"},
    {"allowance-without-reason", Level::Warning, "A comment allows a rule without saying why",
        "The next reader wants to know.", "<!-- melkcfg: allow outlier -->",
        "<!-- melkcfg: allow outlier the truck stands high -->"},
};

} // namespace

std::string_view VEXMELKNameOf(VEXMELKLevel level)
{
    return level == Level::Error ? "error" : level == Level::Warning ? "warning" : "note";
}

std::span<const VEXMELKRule> VEXMELKRules() { return rules; }

const VEXMELKRule* VEXMELKFindRule(std::string_view id)
{
    const auto found =
        std::find_if(std::begin(rules), std::end(rules), [&](const VEXMELKRule& rule) { return rule.id == id; });
    return found == std::end(rules) ? nullptr : found;
}

std::string VEXMELKPageOf(const VEXMELKRule& rule)
{
    const auto text = [](std::string_view part) { return std::string(part); };
    return "## " + text(rule.id) + "\n\n" + text(rule.title) + ". (" + text(VEXMELKNameOf(rule.level)) + ")\n\n" +
           text(rule.text) + "\n\n| wrong | right |\n|---|---|\n| `" + text(rule.bad) + "` | `" + text(rule.good) +
           "` |\n";
}
