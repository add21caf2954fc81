// Texts are read as the library reads them; a text that it takes for something else than its writer meant is told.
#include "VEXMELKJudge.h"

#include "CATNumberText.h"
#include "CATQuantity.h"
#include "VEXMELKSuggestions.h"
#include "VEXMELKWording.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace {

using Judgement = std::optional<VEXMELKJudgement>;

std::string_view NounOf(VEXMELKKind kind)
{
    switch (kind)
    {
    case VEXMELKKind::Length:
        return "length";
    case VEXMELKKind::Angle:
        return "angle";
    case VEXMELKKind::Percentage:
        return "percentage";
    case VEXMELKKind::Integer:
        return "whole number";
    default:
        return "number";
    }
}

std::string WithArticle(VEXMELKKind kind)
{
    const std::string noun(NounOf(kind));
    return (noun.front() == 'a' ? "an " : "a ") + noun;
}

bool IsQuantity(VEXMELKKind kind) { return kind == VEXMELKKind::Length || kind == VEXMELKKind::Angle; }

bool IsNumeric(VEXMELKKind kind)
{
    return IsQuantity(kind) || kind == VEXMELKKind::Number || kind == VEXMELKKind::Integer ||
           kind == VEXMELKKind::Percentage;
}

std::vector<std::string> Owned(const std::vector<std::string_view>& texts) { return {texts.begin(), texts.end()}; }

std::vector<std::string> UnitsOf(VEXMELKKind kind)
{
    return Owned(kind == VEXMELKKind::Angle ? CATAngleUnits() : CATLengthUnits());
}

// The number that a text begins with, and what stands behind it.
struct Beginning
{
    bool isNumber = false;
    bool isPastRange = false;
    double number = 0.0;
    std::string_view rest;
};

Beginning BeginningOf(std::string_view text)
{
    // A comma is read like a point, except of the two where both stand.
    std::string pointed(text);
    if (text.find('.') == std::string_view::npos)
        std::replace(pointed.begin(), pointed.end(), ',', '.');
    Beginning beginning;
    std::string_view rest = pointed;
    beginning.isNumber = CATTakeNumber(rest, beginning.number);
    beginning.rest = text.substr(text.size() - rest.size());
    const std::size_t digit = text.find_first_not_of("+-.,");
    beginning.isPastRange =
        !beginning.isNumber && digit != std::string_view::npos && digit <= 2 && CATIsDigit(text[digit]);
    return beginning;
}

// The text as the library adapts it, all but the decimal separator.
// What the check gets of a text that is no number.
std::string EffectOfNone(const VEXMELKRow& row, std::string_view text)
{
    if (row.form == VEXMELKForm::Text)
        return text.empty() ? "is handed out empty"
                            : "is handed out as " + VEXMELKQuoted(text) + ", which is no number";
    if (row.form == VEXMELKForm::Integer)
        return "counts as missing";
    return "counts as 0";
}

Judgement Fault(std::string_view rule, std::string message, std::string effect, std::string suggestion = {})
{
    return VEXMELKJudgement{
        rule, VEXMELKFindRule(rule)->level, std::move(message), std::move(effect), std::move(suggestion), false};
}

Judgement NoNumber(const VEXMELKRow& row, std::string_view text)
{
    if (text.empty())
    {
        Judgement judgement = Fault(
            "not-a-number", "the text is empty where " + WithArticle(row.kind) + " belongs", EffectOfNone(row, text));
        judgement->level = VEXMELKLevel::Warning;
        return judgement;
    }
    return Fault("not-a-number", VEXMELKQuoted(text) + " is not " + WithArticle(row.kind), EffectOfNone(row, text));
}

Judgement PastRange(const VEXMELKRow& row, std::string_view text)
{
    return Fault("out-of-range", VEXMELKQuoted(text) + " is past the range of numbers", EffectOfNone(row, text));
}

Judgement JudgeSense(const VEXMELKRow& row, std::string_view text, double number)
{
    if (row.sensible.isNotNegative && number < 0.0)
        return Fault("impossible-value",
            VEXMELKQuoted(text) + " is negative: " + std::string(row.attribute) + " has no meaning below 0", {});
    if (row.sensible.upTo > 0 && number > row.sensible.upTo)
        return Fault("impossible-value",
            VEXMELKQuoted(text) + " is above " + std::to_string(row.sensible.upTo) + ", where " +
                std::string(row.attribute) + " has no meaning",
            {});
    return std::nullopt;
}

bool IsWordLike(std::string_view text)
{
    constexpr std::size_t longestUnit = 8;
    return text.size() <= longestUnit &&
           std::all_of(text.begin(), text.end(), [](unsigned char byte) { return std::isalpha(byte) || byte >= 0x80; });
}

// A number with something behind it that is not a unit of the row's kind.
Judgement JudgeUnit(const VEXMELKRow& row, std::string_view text, const Beginning& beginning)
{
    const std::string_view symbol = CATStripped(beginning.rest);
    const std::string effect = EffectOfNone(row, text);
    const VEXMELKKind other = row.kind == VEXMELKKind::Length ? VEXMELKKind::Angle : VEXMELKKind::Length;
    const std::vector<std::string> units = UnitsOf(row.kind);
    const std::vector<std::string> others = UnitsOf(other);
    if (std::find(others.begin(), others.end(), symbol) != others.end())
        return Fault("wrong-dimension",
            VEXMELKQuoted(text) + " is " + WithArticle(other) + " where " + WithArticle(row.kind) + " belongs", effect);
    if (!IsWordLike(symbol))
        return Fault("trailing-text", VEXMELKQuoted(text) + " goes on behind its number and unit", effect);
    Judgement judgement = Fault("unknown-unit",
        VEXMELKQuoted(symbol) + " is not a unit of " + std::string(NounOf(row.kind)) + " (" + VEXMELKJoined(units) +
            ")",
        effect);
    const auto same = std::find_if(units.begin(), units.end(),
        [&](const std::string& unit)
        {
            return std::equal(unit.begin(), unit.end(), symbol.begin(), symbol.end(),
                [](char left, char right)
                { return left == static_cast<char>(std::tolower(static_cast<unsigned char>(right))); });
        });
    const std::string meant = same != units.end() ? *same : VEXMELKMeant(symbol, units);
    if (!meant.empty())
    {
        judgement->suggestion = std::string(text.substr(0, text.size() - beginning.rest.size())) + meant;
        judgement->isSafe = same != units.end();
    }
    return judgement;
}

Judgement JudgeQuantity(const VEXMELKRow& row, std::string_view text)
{
    const std::string_view stripped = row.isAsWritten ? text : CATStripped(text);
    const Beginning beginning = BeginningOf(stripped);
    if (beginning.isPastRange)
        return PastRange(row, stripped);
    if (!beginning.isNumber)
        return NoNumber(row, stripped);
    const std::string adapted = VEXMELKAdapted(row, text);
    const bool isBare = CATStripped(beginning.rest).empty();
    const bool isHandedOutAsNumber = row.form != VEXMELKForm::Text || !row.countsAs.empty();
    const std::string usual = row.kind == VEXMELKKind::Angle ? "deg" : "mm";
    Judgement missing;
    if (isBare && row.kind == VEXMELKKind::Angle && row.unit == "mm")
        missing = Fault("missing-unit",
            VEXMELKQuoted(stripped) + " becomes " + VEXMELKQuoted(adapted) + " here, which is no angle: write the unit",
            "is handed out as " + VEXMELKQuoted(adapted));
    else if (isBare && !isHandedOutAsNumber && (row.unit.empty() || !CATIsDigit(stripped.back())))
        missing = Fault("missing-unit", VEXMELKQuoted(stripped) + " has no unit, and none is added here",
            "is handed out as " + VEXMELKQuoted(adapted) + ", without a unit");
    if (missing && beginning.number != 0.0)
    {
        missing->suggestion = std::string(stripped) + usual;
        missing->isSafe = true;
        return missing;
    }
    double amount = 0.0;
    const std::string_view read = isBare ? stripped : std::string_view(adapted);
    const bool isRead =
        row.kind == VEXMELKKind::Angle ? CATAngleFromText(read, amount) : CATLengthFromText(read, amount);
    const bool isPastRange = !isRead && std::isfinite(beginning.number) && std::fabs(beginning.number) > 1e300;
    if (isPastRange)
        return PastRange(row, stripped);
    if (!isRead)
        return JudgeUnit(row, stripped, beginning);
    return JudgeSense(row, stripped, amount);
}

Judgement JudgeInteger(const VEXMELKRow& row, std::string_view text)
{
    std::string_view digits = row.isAsWritten ? text : CATStripped(text);
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    int integer = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), integer);
    if (error == std::errc::result_out_of_range)
        return PastRange(row, text);
    if (error != std::errc())
        return NoNumber(row, text);
    if (end != digits.data() + digits.size())
        return Fault("trailing-text", VEXMELKQuoted(text) + " goes on behind its whole number",
            row.form == VEXMELKForm::Text ? "is handed out as it stands" : "counts as " + std::to_string(integer));
    return JudgeSense(row, text, integer);
}

Judgement JudgeNumber(const VEXMELKRow& row, std::string_view text)
{
    const std::string_view stripped = CATStripped(text);
    const Beginning beginning = BeginningOf(stripped);
    if (beginning.isPastRange)
        return PastRange(row, stripped);
    if (!beginning.isNumber)
        return NoNumber(row, stripped);
    const bool isShare = row.kind == VEXMELKKind::Percentage || row.sensible.upTo == 100;
    const std::string_view rest = CATStripped(beginning.rest);
    if (!rest.empty() && !(isShare && rest == "%"))
        return Fault("trailing-text", VEXMELKQuoted(stripped) + " goes on behind its number",
            row.form == VEXMELKForm::Text ? "is handed out as " + VEXMELKQuoted(stripped)
                                          : "what stands behind the number is ignored");
    return JudgeSense(row, stripped, beginning.number);
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
        [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    return lower;
}

Judgement JudgeFlag(const VEXMELKRow& row, std::string_view text)
{
    const std::string_view stripped = row.isAsWritten ? text : CATStripped(text);
    const std::string lower = Lower(stripped);
    const bool isOne = lower == "true" || lower == "false";
    if (isOne && (!row.isExact || stripped == lower || lower == "false"))
        return std::nullopt;
    const bool isBlank = std::string_view(lower) != CATStripped(lower);
    std::string suggestion =
        isOne || isBlank ? std::string(CATStripped(lower)) : VEXMELKMeant(lower, {"true", "false"});
    if (suggestion != "true" && suggestion != "false")
        suggestion.clear();
    for (const char* yes : {"yes", "on", "1", "y", "ja"})
        if (lower == yes)
            suggestion = "true";
    for (const char* no : {"no", "off", "0", "n", "nein"})
        if (lower == no)
            suggestion = "false";
    Judgement judgement = Fault("not-a-flag",
        VEXMELKQuoted(stripped) + (isOne ? " is not exactly \"true\"" : " is neither true nor false"),
        "counts as false", suggestion);
    judgement->isSafe = isOne;
    return judgement;
}

std::vector<std::string> TextsOf(const VEXMELKWords& words)
{
    std::vector<std::string> texts;
    for (const VEXMELKWord& word : words.list)
        if (!word.text.empty())
            texts.emplace_back(word.text);
    return texts;
}

std::string EffectOfOther(const VEXMELKRow& row)
{
    if (row.whenMissing.rule == VEXMELKWhenMissing::Skips)
        return "the element plays no part";
    for (const VEXMELKWord& word : row.words.list)
        if (row.form == VEXMELKForm::Word && word.value == row.words.otherwise)
            return "counts as " + VEXMELKQuoted(word.text);
    return row.form == VEXMELKForm::Word ? "counts as " + std::to_string(row.words.otherwise)
                                         : "is handed out as it stands";
}

// A number with a unit that is none because of a letter O or l, or a second point. No other text looks like it.
bool IsNearlyQuantity(std::string_view text)
{
    const std::size_t rest = std::min(text.find_first_not_of("0123456789OoIl.,+-"), text.size());
    const std::string_view unit = CATStripped(text.substr(rest));
    const auto isUnit = [&](VEXMELKKind kind)
    {
        const std::vector<std::string> units = UnitsOf(kind);
        return std::find(units.begin(), units.end(), unit) != units.end();
    };
    double amount = 0.0;
    return std::any_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(rest), CATIsDigit) &&
           (isUnit(VEXMELKKind::Length) || isUnit(VEXMELKKind::Angle)) && !CATLengthFromText(text, amount) &&
           !CATAngleFromText(text, amount);
}

// A text that stands for a number where it has a range: a percentile.
Judgement JudgeText(const VEXMELKRow& row, std::string_view text)
{
    if (row.sensible.upTo != 0)
    {
        VEXMELKRow number = row;
        number.kind = VEXMELKKind::Integer;
        return JudgeInteger(number, text);
    }
    if (!IsNearlyQuantity(text))
        return std::nullopt;
    Judgement judgement =
        Fault("not-a-number", VEXMELKQuoted(text) + " is nearly a number with a unit", "is handed out as it stands");
    judgement->level = VEXMELKLevel::Warning;
    return judgement;
}

Judgement JudgeWord(const VEXMELKRow& row, std::string_view text)
{
    const std::vector<std::string> known = TextsOf(row.words);
    const std::string meant = VEXMELKMeant(text, known);
    const bool isOpen = row.kind == VEXMELKKind::Text;
    if (isOpen && meant.empty())
        return JudgeText(row, text);
    if (known.empty())
        return std::nullopt;
    if (isOpen)
        return Fault("doubtful-word", VEXMELKQuoted(text) + " is nearly a word that is known here", {}, meant);
    Judgement judgement = Fault(
        "unknown-word", VEXMELKQuoted(text) + " is not one of " + VEXMELKJoined(known), EffectOfOther(row), meant);
    judgement->isSafe = Lower(text) == Lower(meant);
    return judgement;
}

Judgement JudgeBy(const VEXMELKRow& row, std::string_view text)
{
    const std::string_view word = row.isAsWritten ? text : CATStripped(text);
    for (const VEXMELKWord& known : row.words.list)
        if (known.text == word)
            return std::nullopt;
    switch (row.kind)
    {
    case VEXMELKKind::Length:
    case VEXMELKKind::Angle:
        return JudgeQuantity(row, text);
    case VEXMELKKind::Integer:
        return JudgeInteger(row, text);
    case VEXMELKKind::Number:
    case VEXMELKKind::Percentage:
        return JudgeNumber(row, text);
    case VEXMELKKind::Flag:
        return JudgeFlag(row, text);
    case VEXMELKKind::Word:
    case VEXMELKKind::Text:
        return JudgeWord(row, word);
    case VEXMELKKind::Name:
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<VEXMELKJudgement> VEXMELKJudge(const std::vector<const VEXMELKRow*>& rows, std::string_view text)
{
    Judgement worst;
    for (const VEXMELKRow* row : rows)
    {
        const Judgement judgement = JudgeBy(*row, text);
        if (!judgement)
            return std::nullopt;
        // Of a word and a number by turns, the number tells more about a text that begins with one.
        if (!worst || (IsNumeric(row->kind) && judgement->rule != "not-a-number"))
            worst = judgement;
    }
    return worst;
}

std::string VEXMELKAdapted(const VEXMELKRow& row, std::string_view text)
{
    if (row.isAsWritten)
        return std::string(text);
    std::string adapted(CATStripped(text));
    if (row.unit == "%")
        adapted.erase(std::remove(adapted.begin(), adapted.end(), '%'), adapted.end());
    else if (!adapted.empty() && CATIsDigit(adapted.back()))
        adapted += row.unit;
    return adapted;
}

std::optional<double> VEXMELKAmountOf(const VEXMELKRow& row, std::string_view text)
{
    if (!IsNumeric(row.kind))
        return std::nullopt;
    double amount = 0.0;
    if (row.kind == VEXMELKKind::Angle)
        return CATAngleFromText(text, amount) ? std::optional(amount) : std::nullopt;
    if (row.kind == VEXMELKKind::Length)
        return CATLengthFromText(VEXMELKAdapted(row, text), amount) ? std::optional(amount) : std::nullopt;
    const Beginning beginning = BeginningOf(CATStripped(text));
    return beginning.isNumber ? std::optional(beginning.number) : std::nullopt;
}
