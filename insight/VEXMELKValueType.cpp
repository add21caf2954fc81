// Expressions use only what every validator knows alike: groups, choices, ranges of characters, counts.
#include "VEXMELKValueType.h"

#include "CATQuantity.h"
#include "VEXMELKRowText.h"
#include "VEXMELKUtilities.h"
#include "VEXMELKWording.h"

#include <algorithm>
#include <cctype>

namespace {

using Row = VEXMELKRow;

// Exponents of a double; a number past its range by its digits alone is left to check.
constexpr const char* exponent = "([eE](-[0-9]+|\\+?0*([0-9]{1,2}|[12][0-9]{2}|30[0-9])))?";
constexpr const char* anyMantissa = "([0-9]+([.,][0-9]*)?|[.,][0-9]+)";
constexpr const char* mantissaUpToADigit = "([0-9]+([.,][0-9]+)?|[.,][0-9]+)";
constexpr const char* zeroMantissa = "(0+([.,]0*)?|[.,]0+)";

std::string WithAnySign(const std::string& mantissa) { return "(\\+|-)?" + mantissa + exponent; }

// Where a number may not be negative, a zero may.
std::string WithSign(const std::string& mantissa, const Row& row)
{
    return row.sensible.isNotNegative
               ? "(\\+?" + mantissa + exponent + "|-" + std::string(zeroMantissa) + exponent + ")"
               : WithAnySign(mantissa);
}

std::string Choice(const std::vector<std::string>& texts)
{
    std::string choice;
    for (const std::string& text : texts)
        choice += (choice.empty() ? "" : "|") + text;
    return "(" + choice + ")";
}

std::string Digits(std::size_t count) { return count == 0 ? "" : "[0-9]{" + std::to_string(count) + "}"; }

// The whole numbers from 0 to the limit.
std::string UpTo(int limit)
{
    const std::string last = std::to_string(limit);
    std::vector<std::string> parts{last};
    if (last.size() > 1)
        parts.push_back("[0-9]{1," + std::to_string(last.size() - 1) + "}");
    for (std::size_t at = 0; at < last.size(); ++at)
    {
        const char least = at == 0 && last.size() > 1 ? '1' : '0';
        if (last[at] > least)
            parts.push_back(last.substr(0, at) + "[" + least + "-" + static_cast<char>(last[at] - 1) + "]" +
                            Digits(last.size() - at - 1));
    }
    return Choice(parts);
}

std::string QuantityPattern(const Row& row)
{
    const bool isHandedOutAsNumber = row.form != VEXMELKForm::Text || !row.countsAs.empty();
    std::vector<std::string> parts{WithSign(anyMantissa, row) + " *" + Choice(VEXMELKUnitsOf(row.kind))};
    // The unit is put behind a digit only. A zero needs none.
    if (VEXMELKMayBeBare(row))
        parts.push_back(WithSign(isHandedOutAsNumber ? anyMantissa : mantissaUpToADigit, row));
    if (!VEXMELKMayBeBare(row) || !isHandedOutAsNumber)
        parts.push_back(WithAnySign(zeroMantissa));
    return Choice(parts);
}

std::string NumberPattern(const Row& row)
{
    const int limit = row.sensible.upTo;
    const bool isShare = row.kind == VEXMELKKind::Percentage || limit == 100;
    const std::string mantissa =
        limit == 0 ? anyMantissa
                   : "0*(" + std::to_string(limit) + "([.,]0*)?|" + UpTo(limit - 1) + "([.,][0-9]*)?|[.,][0-9]+)";
    return WithSign(mantissa, row) + (isShare ? "( *%)?" : "");
}

std::string IntegerPattern(const Row& row)
{
    const std::string digits = "0*" + (row.sensible.upTo == 0 ? "[12]?[0-9]{1,9}" : UpTo(row.sensible.upTo));
    return row.sensible.isNotNegative ? "(\\+?" + digits + "|-0+)" : "(\\+|-)?" + digits;
}

std::string InAnyCase(std::string_view word)
{
    std::string pattern;
    for (const char character : word)
    {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalpha(byte) == 0)
            pattern += character;
        else
            pattern += {'[', static_cast<char>(std::tolower(byte)), static_cast<char>(std::toupper(byte)), ']'};
    }
    return pattern;
}

std::string ColourPattern()
{
    std::vector<std::string> parts{".*0x[0-9a-fA-F]{6}"};
    const std::vector<std::string> names = VEXMELKColourNames();
    for (std::size_t colour = 0; colour < names.size(); ++colour)
    {
        parts.push_back(InAnyCase(names[colour]));
        parts.push_back((colour < 9 ? "0?" : "") + std::to_string(colour + 1));
    }
    return Choice(parts);
}

// A text that stands for a number, such as a percentile.
bool IsNumeral(const Row& row) { return row.kind == VEXMELKKind::Text && row.sensible.upTo > 0; }

// Other texts than words; empty when there are none.
std::string PatternOf(const Row& row)
{
    switch (row.kind)
    {
    case VEXMELKKind::Length:
    case VEXMELKKind::Angle:
        return QuantityPattern(row);
    case VEXMELKKind::Integer:
        return IntegerPattern(row);
    case VEXMELKKind::Number:
    case VEXMELKKind::Percentage:
        return NumberPattern(row);
    case VEXMELKKind::Flag:
        return row.isExact ? InAnyCase("false") : Choice({InAnyCase("true"), InAnyCase("false")});
    case VEXMELKKind::Name:
        return row.names == "colour" ? ColourPattern() : "";
    default:
        return IsNumeral(row) ? IntegerPattern(row) : "";
    }
}

bool IsAnyText(const Row& row)
{
    return (row.kind == VEXMELKKind::Text && !IsNumeral(row)) ||
           (row.kind == VEXMELKKind::Name && row.names != "colour");
}

void AddWords(std::vector<std::string>& words, const Row& row)
{
    const auto add = [&](const std::string& word)
    {
        if (std::find(words.begin(), words.end(), word) == words.end())
            words.push_back(word);
    };
    for (const VEXMELKWord& word : row.words.list)
        add(std::string(word.text));
    if (row.kind == VEXMELKKind::Flag)
        for (const char* word : {"true", "false"})
            add(word);
    if (row.names == "colour")
        for (const std::string& colour : VEXMELKColourNames())
            add(colour);
}

std::string NounOf(const Row& row)
{
    constexpr const char* nouns[] = {
        "text", "text", "word", "flag", "number", "integer", "percentage", "length", "angle"};
    std::string noun = nouns[static_cast<std::size_t>(row.kind)];
    if (row.names == "colour")
        noun = "colour";
    else if (row.isAsWritten && IsAnyText(row))
        noun = "name";
    else if (row.kind == VEXMELKKind::Word)
        noun = std::string(row.attribute) + "Word";
    else if (!row.words.list.empty())
        noun += "OrWord";
    if (row.isExact)
        noun = "exact" + VEXMELKCapitalized(noun);
    if (VEXMELKIsQuantity(row.kind) && !VEXMELKMayBeBare(row))
        noun += "WithUnit";
    if (row.sensible.upTo > 0)
        return noun + "UpTo" + std::to_string(row.sensible.upTo);
    return noun + (row.sensible.isNotNegative ? "NotNegative" : "");
}

} // namespace

bool VEXMELKValueType::IsSame(const VEXMELKValueType& other) const
{
    return words == other.words && pattern == other.pattern && isAnyText == other.isAnyText &&
           isAsWritten == other.isAsWritten;
}

VEXMELKValueType VEXMELKValueTypeOf(const std::vector<const VEXMELKRow*>& rows)
{
    VEXMELKValueType type;
    type.isAsWritten = std::all_of(rows.begin(), rows.end(), [](const Row* row) { return row->isAsWritten; });
    std::vector<std::string> patterns;
    for (const Row* row : rows)
    {
        AddWords(type.words, *row);
        const std::string noun = NounOf(*row);
        if (type.name.empty())
            type.name = noun;
        else if (type.name.find(noun) == std::string::npos &&
                 type.name.find(VEXMELKCapitalized(noun)) == std::string::npos)
            type.name += "Or" + VEXMELKCapitalized(noun);
        type.isAnyText = type.isAnyText || IsAnyText(*row);
        const std::string pattern = PatternOf(*row);
        if (!pattern.empty() && std::find(patterns.begin(), patterns.end(), pattern) == patterns.end())
            patterns.push_back(pattern);
    }
    if (type.isAnyText && type.isAsWritten && !rows.front()->isSecret)
    {
        type.isAnyText = false;
        patterns = {"(\\S(.*\\S)?)?"}; // names are compared exactly
    }
    if (type.isAnyText)
        patterns.clear();
    if (!patterns.empty())
        type.pattern = patterns.size() == 1 ? patterns[0] : Choice(patterns);
    if (!type.pattern.empty() && !type.isAsWritten)
        type.pattern = " *" + type.pattern + " *";
    return type;
}

std::vector<std::string> VEXMELKUnitsOf(VEXMELKKind kind)
{
    const std::vector<std::string_view> units = kind == VEXMELKKind::Angle ? CATAngleUnits() : CATLengthUnits();
    return {units.begin(), units.end()};
}

bool VEXMELKIsQuantity(VEXMELKKind kind) { return kind == VEXMELKKind::Length || kind == VEXMELKKind::Angle; }

bool VEXMELKMayBeBare(const VEXMELKRow& row)
{
    if (row.kind == VEXMELKKind::Angle && row.unit == "mm")
        return false;
    return row.form != VEXMELKForm::Text || !row.countsAs.empty() || !row.unit.empty();
}
