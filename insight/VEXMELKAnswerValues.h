// An answer as a flat list of values, each with the name that people know it by: "definition.FrontOffset",
// "barriers[1].Overlapping", "result".
#ifndef VEXMELKAnswerValues_H
#define VEXMELKAnswerValues_H

#include "VEXMELKQuestion.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

// Nothing (of an operation without a result, or a list or record without members), a text, a flag, a number or an
// integer.
using VEXMELKPlainValue = std::variant<std::monostate, std::string, bool, double, long>;

struct VEXMELKNamedValue
{
    std::string field;
    VEXMELKPlainValue value;
    std::string unit;           // see UnitShown
    VEXMELKValue variable = {}; // where the value is, as long as that lives; nothing when it has no place of its own
    bool isSecret = false;

    bool operator==(const VEXMELKNamedValue& other) const { return field == other.field && value == other.value; }
};

// "Overlapping" of "barriers[1].Overlapping".
inline std::string_view VEXMELKLastName(std::string_view field) { return field.substr(field.rfind('.') + 1); }

// Where a variable is; null for nothing and for what consists of others.
const void* VEXMELKAddressOf(const VEXMELKValue& variable);

// The value as a reader of the tool's text output sees it.
std::string VEXMELKTextOf(const VEXMELKPlainValue& value);

// A value with all that is in it.
void VEXMELKFlatten(
    const std::string& field, const VEXMELKValue& value, std::string_view unit, std::vector<VEXMELKNamedValue>& values);

// What a question answered.
struct VEXMELKFlatAnswer
{
    VEXMELKPlainValue result;
    std::vector<VEXMELKNamedValue> outputs;

    static VEXMELKFlatAnswer Of(VEXMELKQuestion& question, const VEXMELKOperation& operation);

    // The outputs, and the result as the field "result" when it is more than whether the operation succeeded.
    std::vector<VEXMELKNamedValue> Fields() const;
    bool operator==(const VEXMELKFlatAnswer&) const = default;
};

#endif
