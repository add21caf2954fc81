// Markdown is what descriptions are written in; editors show some of it as it stands.
#include "VEXMELKRowText.h"

#include "VEXMELKValueType.h"
#include "VEXMELKWording.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

std::string Number(double number)
{
    char text[32];
    return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

std::string ValueWhenMissing(const VEXMELKRow& row)
{
    const VEXMELKWhenMissing& missing = row.whenMissing;
    switch (row.form)
    {
    case VEXMELKForm::Flag:
        return missing.flag ? "true" : "false";
    case VEXMELKForm::Text:
        return missing.text.empty() ? "empty" : VEXMELKInBackticks(missing.text);
    case VEXMELKForm::Integer:
        return std::to_string(missing.integer);
    case VEXMELKForm::Word:
        for (const VEXMELKWord& word : row.words.list)
            if (word.value == missing.integer)
                return VEXMELKInBackticks(word.text);
        return std::to_string(missing.integer);
    default:
        return Number(missing.number);
    }
}

std::string Listed(const std::vector<std::string>& texts)
{
    std::string listed;
    for (const std::string& text : texts)
        listed += (listed.empty() ? "" : ", ") + text;
    return listed;
}

std::string QuantityText(const VEXMELKRow& row)
{
    const bool isAngle = row.kind == VEXMELKKind::Angle;
    const std::string noun = isAngle ? "An angle" : "A length";
    const std::string units = " (" + Listed(VEXMELKUnitsOf(row.kind)) + ")";
    if (!VEXMELKMayBeBare(row))
        return noun + " with its unit" + units;
    return noun + units + "; a bare number is in " + (isAngle ? "deg" : "mm");
}

std::string NameText(const VEXMELKRow& row)
{
    if (row.names == "colour")
        return "A colour: a name, a number from 1 to 16, or 0xRRGGBB";
    if (row.names == "settings")
        return "The name of a set of settings";
    return row.names.empty() ? "A name" : "The name of a " + std::string(row.names);
}

std::string WordsText(const VEXMELKRow& row)
{
    std::vector<std::string> words;
    for (const VEXMELKWord& word : row.words.list)
        if (!word.text.empty())
            words.push_back(VEXMELKInBackticks(word.text));
    return Listed(words);
}

std::string RangeText(const VEXMELKRange& range)
{
    if (range.upTo > 0)
        return ", up to " + std::to_string(range.upTo) + (range.isNotNegative ? " and not negative" : "");
    return range.isNotNegative ? ", not negative" : "";
}

std::string PlainKindText(const VEXMELKRow& row)
{
    switch (row.kind)
    {
    case VEXMELKKind::Text:
        return row.words.list.empty() ? "A text" : "A text, such as " + WordsText(row);
    case VEXMELKKind::Name:
        return NameText(row);
    case VEXMELKKind::Word:
        return "One of " + WordsText(row);
    case VEXMELKKind::Flag:
        return row.isExact ? "Exactly `true`, or `false`" : "`true` or `false`";
    case VEXMELKKind::Number:
        return "A number";
    case VEXMELKKind::Integer:
        return "A whole number";
    case VEXMELKKind::Percentage:
        return "A percentage, with or without %";
    default:
        return QuantityText(row);
    }
}

} // namespace

std::string VEXMELKWhenMissingText(const VEXMELKRow& row)
{
    switch (row.whenMissing.rule)
    {
    case VEXMELKWhenMissing::Keeps:
        return "kept";
    case VEXMELKWhenMissing::Repeats:
        return "**that of the one before it**";
    case VEXMELKWhenMissing::Skips:
        return "skipped";
    case VEXMELKWhenMissing::Fails:
        return "kept; the query fails";
    default:
        return ValueWhenMissing(row);
    }
}

std::string_view VEXMELKHandedOutAs(VEXMELKForm form)
{
    switch (form)
    {
    case VEXMELKForm::Millimetres:
        return "a number in millimetres";
    case VEXMELKForm::Metres:
        return "a number in metres";
    case VEXMELKForm::Radians:
        return "a number in radians";
    case VEXMELKForm::Number:
        return "a plain number";
    case VEXMELKForm::Integer:
        return "an integer";
    default:
        return {};
    }
}

std::string VEXMELKKindText(const VEXMELKRow& row)
{
    const bool hasOtherWords = row.kind >= VEXMELKKind::Flag && !row.words.list.empty();
    return PlainKindText(row) + RangeText(row.sensible) + (hasOtherWords ? "; or " + WordsText(row) : "") + ".";
}

std::string VEXMELKPlainText(std::string_view markdown)
{
    std::string plain;
    for (std::size_t at = 0; at < markdown.size(); ++at)
        if (markdown.substr(at).starts_with("**"))
            ++at;
        else if (markdown[at] == ']' && markdown.substr(at).starts_with("]("))
            at = std::min(markdown.find(')', at), markdown.size());
        else if (markdown[at] != '[')
            plain += markdown[at];
    return plain;
}

std::string VEXMELKCapitalized(std::string text)
{
    if (!text.empty())
        text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

std::string VEXMELKSentence(std::string text)
{
    if (text.empty() || text.back() == '.')
        return VEXMELKCapitalized(std::move(text));
    return VEXMELKCapitalized(std::move(text)) + ".";
}
