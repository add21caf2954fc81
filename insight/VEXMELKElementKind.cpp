// Several descriptions may speak of one element; each adds its attributes.
#include "VEXMELKElementKind.h"

#include <algorithm>

VEXMELKTwins VEXMELKTwinsOf(const VEXMELKElement& element)
{
    const bool isRead =
        std::any_of(element.tables.begin(), element.tables.end(), [](VEXMELKRows table) { return !table.empty(); });
    if (element.tag == "*" && (!element.below || !isRead))
        return VEXMELKTwins::Nothing;
    switch (element.choice)
    {
    case VEXMELKChoice::First:
    case VEXMELKChoice::Last:
    case VEXMELKChoice::Single:
        return VEXMELKTwins::One;
    case VEXMELKChoice::Each:
        return element.key && element.fallBack == VEXMELKFallBack::Overlay ? VEXMELKTwins::Overlay : VEXMELKTwins::Each;
    case VEXMELKChoice::ByKey:
        return element.key ? VEXMELKTwins::ByKey : VEXMELKTwins::Each;
    default:
        return VEXMELKTwins::ByRow;
    }
}

VEXMELKElementKind::VEXMELKElementKind(std::vector<const VEXMELKElement*> elements) : described(std::move(elements))
{
    const auto add = [&](const VEXMELKRow& row)
    {
        auto found = std::find_if(
            attributes.begin(), attributes.end(), [&](const Attribute& each) { return each.name == row.attribute; });
        if (found == attributes.end())
            found = attributes.insert(found, {row.attribute, {}});
        found->rows.push_back(&row);
    };
    for (const VEXMELKElement* element : described)
    {
        for (const VEXMELKRows table : element->tables)
            std::for_each(table.begin(), table.end(), add);
        if (element->key && !Find(element->key->attribute))
            add(*element->key);
        isKnown = isKnown || element->tag != "*" || !attributes.empty();
    }
}

const VEXMELKElementKind::Attribute* VEXMELKElementKind::Find(std::string_view attribute) const
{
    const auto found = std::find_if(
        attributes.begin(), attributes.end(), [&](const Attribute& each) { return each.name == attribute; });
    return found == attributes.end() ? nullptr : &*found;
}

const VEXMELKElement* VEXMELKElementKind::As(std::string_view tag) const
{
    const auto found = std::find_if(
        described.begin(), described.end(), [&](const VEXMELKElement* element) { return element->tag == tag; });
    return found == described.end() ? nullptr : *found;
}

const VEXMELKElement* VEXMELKElementKind::Ruling() const
{
    const VEXMELKElement* ruling = nullptr;
    for (const VEXMELKElement* element : described)
    {
        const VEXMELKTwins twins = VEXMELKTwinsOf(*element);
        const bool saysMore = !ruling || ruling->tag == "*" || twins > VEXMELKTwinsOf(*ruling);
        if (twins != VEXMELKTwins::Nothing && saysMore && (!ruling || element->tag != "*"))
            ruling = element;
    }
    return ruling;
}

bool VEXMELKElementKind::IsFoundBy(const Attribute& attribute) const
{
    return std::any_of(described.begin(), described.end(),
        [&](const VEXMELKElement* element)
        {
            return element->key && element->key->attribute == attribute.name &&
                   (element->key->whenMissing.rule == VEXMELKWhenMissing::Skips ||
                       element->key->whenMissing.rule == VEXMELKWhenMissing::Fails);
        });
}

bool VEXMELKElementKind::Needs(const Attribute& attribute) const
{
    return IsFoundBy(attribute) || attribute.rows.front()->whenMissing.rule == VEXMELKWhenMissing::Fails;
}
