// The types of values in words, as the tool's list of operations shows them.
#include "VEXMELKValue.h"

namespace {

std::string TextOf(const std::shared_ptr<VEXMELKRecordView>& record)
{
    std::string text;
    for (std::size_t position = 0; position < record->Size(); ++position)
        text += (text.empty() ? "{" : ", ") + std::string(record->Name(position)) + ": " +
                VEXMELKTypeText(record->At(position), record->Unit(position));
    return text + "}";
}

std::string TextOf(const std::shared_ptr<VEXMELKListView>& list)
{
    const std::size_t size = list->FixedSize();
    return size == 0 ? "list of " + VEXMELKTypeText(list->NewElement())
                     : std::to_string(size) + " of " + VEXMELKTypeText(list->At(0));
}

std::string TextOf(std::monostate /*nothing*/) { return {}; }
std::string TextOf(const CATUnicodeString* /*text*/) { return "text"; }
std::string TextOf(const unsigned char* /*flag*/) { return "flag"; }
std::string TextOf(const double* /*number*/) { return "number"; }
std::string TextOf(const std::shared_ptr<VEXMELKIntegerView>& /*integer*/) { return "integer"; }
std::string TextOf(const CATMathPoint* /*point*/) { return "[x, y, z]"; }
std::string TextOf(const VEXMELKAttributeValues* /*attributes*/)
{
    return "list of attributes {kind, name, objects: [object or null, ...]}";
}

} // namespace

std::string VEXMELKTypeText(const VEXMELKValue& value, std::string_view unit)
{
    const std::string text = std::visit([](const auto& held) { return TextOf(held); }, value);
    return unit.empty() ? text : text + " [" + std::string(unit) + "]";
}

void VEXMELKSort(std::span<VEXMELKFieldPlace> places)
{
    std::sort(places.begin(), places.end(),
        [](const VEXMELKFieldPlace& left, const VEXMELKFieldPlace& right)
        { return std::pair(left.isCallers, left.offset) < std::pair(right.isCallers, right.offset); });
}
