// Values that are written in different units are shown in millimetres or degrees, so that they can be compared.
#include "ChangeOutput.h"

#include "Batch.h"
#include "Explain.h"
#include "VEXMELKMatrix.h"

#include <cstdio>

namespace {

Json PlaceToJson(const VEXMELKChangedSide& side)
{
    if (!side.HasPlace())
        return nullptr;
    return {{"file", side.file}, {"line", side.position.line}, {"column", side.position.column}};
}

Json ValueToJson(const std::optional<VEXMELKPlainValue>& value, bool isMasked)
{
    if (!value)
        return nullptr;
    return isMasked ? Json(hiddenSecret) : ToJson(*value);
}

// What stands behind the number.
std::string UnitOf(const VEXMELKChangedSide& side)
{
    const auto* text = side.value ? std::get_if<std::string>(&*side.value) : nullptr;
    return text ? text->substr(std::min(text->find_last_of("0123456789.,") + 1, text->size())) : "";
}

std::string TextOfSide(const VEXMELKChangedSide& side, bool inUsualUnit)
{
    if (!side.value)
        return "–";
    if (!inUsualUnit)
        return VEXMELKTextOf(*side.value);
    const std::string_view unit = side.amount->unit == "m" ? "mm" : "deg";
    char number[40];
    std::snprintf(number, sizeof number, "%.12g", VEXMELKAmountInUnit(*side.amount, unit).value_or(0.0));
    return std::string(number) + std::string(unit);
}

} // namespace

Json ChangesToJson(const VEXMELKComparison& comparison, bool showSecrets)
{
    Json changes = Json::array();
    for (const VEXMELKChange& change : comparison.changes)
    {
        const bool isMasked = change.isSecret && !showSecrets;
        Json json = change.question ? QuestionToJson(*change.configuration, *change.question)
                                    : Json{{"config", change.configuration->description->name}, {"operation", nullptr},
                                          {"arguments", Json::object()}};
        json.update(Json{{"field", change.field}, {"kind", VEXMELKNameOf(change.kind)},
            {"old", ValueToJson(change.before.value, isMasked)}, {"new", ValueToJson(change.after.value, isMasked)},
            {"percent", change.percent ? Json(*change.percent) : Json()}, {"oldPlace", PlaceToJson(change.before)},
            {"newPlace", PlaceToJson(change.after)}});
        changes.push_back(std::move(json));
    }
    return {{"version", 1}, {"questions", comparison.questions}, {"changes", changes}};
}

std::string ValuesText(const VEXMELKChange& change, bool showSecrets)
{
    if (change.isSecret && !showSecrets)
        return hiddenSecret;
    const bool areQuantities = change.before.amount && change.after.amount && !change.before.amount->unit.empty() &&
                               change.before.amount->unit == change.after.amount->unit;
    const bool inUsualUnit = areQuantities && UnitOf(change.before) != UnitOf(change.after);
    const std::string before = TextOfSide(change.before, inUsualUnit);
    const std::string after = TextOfSide(change.after, inUsualUnit);
    return before == after && change.before.value == change.after.value ? before : before + " → " + after;
}

std::string PercentText(const VEXMELKChange& change)
{
    if (!change.percent)
        return {};
    const std::string number = Json(*change.percent).dump();
    return (*change.percent > 0 ? "+" : "") + (number.ends_with(".0") ? number.substr(0, number.size() - 2) : number) +
           " %";
}

std::string PlaceText(const VEXMELKChangedSide& side)
{
    return side.HasPlace()
               ? side.file + ":" + std::to_string(side.position.line) + ":" + std::to_string(side.position.column)
               : "";
}
