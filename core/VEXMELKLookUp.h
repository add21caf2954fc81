// Looking for elements as their descriptions say: by tag, as children or at any depth, the first or by a key.
#ifndef VEXMELKLookUp_H
#define VEXMELKLookUp_H

#include "VEXMELKDescription.h"
#include "VEXMELKElements.h"
#include "VEXMELKReadFields.h"

// Tells the watch, if there is one, that described elements are looked for.
inline void AnnounceLookUp(const CATIDOMElement_var& parent, const VEXMELKElement& described)
{
    if (VEXMELKWatch* watch = VEXMELKWatch::Installed(); watch && parent != NULL_var) [[unlikely]]
        watch->OnElements(parent, described);
}

// Calls visit(element) for each of the elements below the parent, in document order, until it returns true; tells
// whether one did. A null parent has none.
template <class Visit> bool VisitEach(const CATIDOMElement_var& parent, const VEXMELKElement& described, Visit visit)
{
    AnnounceLookUp(parent, described);
    if (described.place == VEXMELKPlace::Child)
        return VisitChildren(parent, described.tag, visit);
    return VisitElements(parent, described.tag, visit);
}

template <class Act> void ForEach(const CATIDOMElement_var& parent, const VEXMELKElement& described, Act act)
{
    VisitEach(parent, described,
        [&](const CATIDOMElement_var& element)
        {
            act(element);
            return false;
        });
}

// For an act that adds a record for each element, which are at any depth.
template <class Record, class Act>
void ForEach(const CATIDOMElement_var& parent, const VEXMELKElement& described, VEXArray<Record>& records, Act act)
{
    AnnounceLookUp(parent, described);
    ForEachElement(parent, described.tag, records, act);
}

// Acts on the elements below the parent, except those below a nested parent for which replaces(nested) is true: it is
// read later than the outer one, and then gives all that they give.
template <class Replaces, class Act>
void ForEachNotReplaced(const CATIDOMElement_var& parent, const VEXMELKElement& described, Replaces replaces, Act act)
{
    AnnounceLookUp(parent, described);
    ForEachElementOutside(parent, described.tag, described.below->tag, replaces, act);
}

// The first, or the only one; null when there is none.
inline CATIDOMElement_var Find(const CATIDOMElement_var& parent, const VEXMELKElement& described)
{
    AnnounceLookUp(parent, described);
    if (described.choice == VEXMELKChoice::Single)
        return SingleElement(parent, described.tag);
    return described.place == VEXMELKPlace::Child ? FirstChild(parent, described.tag)
                                                  : FirstElement(parent, described.tag);
}

// The first with the tag, where the description takes any.
inline CATIDOMElement_var FindTagged(
    const CATIDOMElement_var& parent, const VEXMELKElement& described, std::string_view tag)
{
    AnnounceLookUp(parent, described);
    return FirstElement(parent, tag);
}

// The first child with the key; null when there is none.
inline CATIDOMElement_var FindByKey(
    const CATIDOMElement_var& parent, const VEXMELKElement& described, std::string_view key)
{
    AnnounceLookUp(parent, described);
    return FindChild(parent, described.tag, described.key->attribute, key);
}

// That of the first parent, or else of the second; either may be null.
inline CATIDOMElement_var FindInEither(
    const CATIDOMElement_var& first, const CATIDOMElement_var& second, const VEXMELKElement& described)
{
    const CATIDOMElement_var found = Find(first, described);
    return found != NULL_var ? found : Find(second, described);
}

// The key of an element as it is written; none when it has none.
inline std::optional<VEXMELKNodeText> Key(const CATIDOMElement_var& element, const VEXMELKElement& described)
{
    return AttributeText(element, described.key->attribute);
}

// Calls visit(elements, position, key) for each of the elements that has a key, in document order, until it returns
// true.
template <class Visit> void VisitKeys(const CATIDOMElement_var& parent, const VEXMELKElement& described, Visit visit)
{
    AnnounceLookUp(parent, described);
    if (described.place == VEXMELKPlace::Child)
        VisitChildTexts(parent, described.tag, described.key->attribute, visit);
    else
        VisitTexts(parent, described.tag, described.key->attribute, visit);
}

// The keys of all children that have one, in document order. Empties the list first.
inline void CollectKeys(
    const CATIDOMElement_var& parent, const VEXMELKElement& described, CATListValCATUnicodeString& keys)
{
    AnnounceLookUp(parent, described);
    ChildAttributeValues(parent, described.tag, described.key->attribute, keys);
}

// The attribute of the first child that has it; none when none has.
inline std::optional<VEXMELKNodeText> FirstKey(const CATIDOMElement_var& parent, const VEXMELKElement& described)
{
    AnnounceLookUp(parent, described);
    return FirstChildAttribute(parent, described.tag, described.key->attribute);
}

// The descendant with the tag whose attribute is nearest to the angle (radians), and the one whose attribute is the
// largest length not above the length (millimetres); null when none is near enough.
CATIDOMElement_var NearestAngle(VEXMELKDecimals decimals, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double angle);
CATIDOMElement_var NearestLengthBelow(VEXMELKDecimals decimals, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double length);

// The same by the key of an element, as its description chooses.
inline CATIDOMElement_var FindNearest(
    VEXMELKDecimals decimals, const CATIDOMElement_var& parent, const VEXMELKElement& described, double number)
{
    AnnounceLookUp(parent, described);
    const auto nearest = described.choice == VEXMELKChoice::NearestAngle ? NearestAngle : NearestLengthBelow;
    return nearest(decimals, parent, described.tag, described.key->attribute, number);
}

#endif
