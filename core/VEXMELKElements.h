// Walking the elements of a document.
//
// A child here is a descendant whose parent has the tag of the element searched, so it may lie deeper. Files rely on
// that rule (docs/format.md, Children).
#ifndef VEXMELKElements_H
#define VEXMELKElements_H

#include "CATIDOM.h"
#include "CATListOf.h"
#include "CATTextHash.h"
#include "VEXArray.h"

#include <optional>
#include <tuple>
#include <utility>
#include <vector>

// What a node's text comes as; a view into the document, which its handles keep alive.
using VEXMELKNodeText = decltype(std::declval<CATIDOMNode>().GetNodeValue());

// The attribute as it is written; none when the element does not have it.
inline std::optional<VEXMELKNodeText> AttributeText(const CATIDOMElement_var& element, std::string_view name)
{
    return element->GetAttributes()->GetNamedItemValue(name);
}

// Assigns the attribute as it is written; a missing one leaves the text, and the result is false.
inline bool AssignAttribute(const CATIDOMElement_var& element, std::string_view name, CATUnicodeString& text)
{
    const std::optional<VEXMELKNodeText> written = AttributeText(element, name);
    if (written)
        text = *written;
    return written.has_value();
}

// The attributes of an element; null for a null element.
inline CATIDOMNamedNodeMap_var AttributesOf(const CATIDOMElement_var& element)
{
    return element == NULL_var ? CATIDOMNamedNodeMap_var() : element->GetAttributes();
}

// Whether the element has any attribute: some readers leave everything as it is for one without.
inline bool HasAttributes(const CATIDOMElement_var& element) { return element->GetAttributes()->GetLength() > 0; }

// Calls visit(element) for every descendant with the tag, in document order, until it returns true; tells whether one
// did. A null root has no descendants.
template <class Visit> bool VisitElements(const CATIDOMElement_var& root, std::string_view tag, Visit visit)
{
    if (root == NULL_var)
        return false;
    const CATIDOMNodeList_var elements = root->GetElementsByTagName(tag);
    for (int position = 0; position < elements->GetLength(); ++position)
        if (visit(elements->Item(position)))
            return true;
    return false;
}

template <class Visit> bool VisitChildren(const CATIDOMElement_var& parent, std::string_view tag, Visit visit)
{
    return VisitElements(parent, tag,
        [&](const CATIDOMElement_var& element) { return parent->IsTagOfParent(element.GetView()) && visit(element); });
}

template <class Act> void ForEachElement(const CATIDOMElement_var& root, std::string_view tag, Act act)
{
    VisitElements(root, tag,
        [&](const CATIDOMElement_var& element)
        {
            act(element);
            return false;
        });
}

// For an act that adds a record for each element: the array has room for all of them beforehand, where growing step by
// step would move them over and over.
template <class Record, class Act>
void ForEachElement(const CATIDOMElement_var& root, std::string_view tag, VEXArray<Record>& records, Act act)
{
    constexpr int oneStep = 20;
    const int count = root == NULL_var ? 0 : root->GetElementsByTagName(tag)->GetLength();
    if (count > oneStep)
    {
        records.changeSize(count);
        records.changeSize(-count);
    }
    ForEachElement(root, tag, act);
}

template <class Act> void ForEachChild(const CATIDOMElement_var& parent, std::string_view tag, Act act)
{
    VisitChildren(parent, tag,
        [&](const CATIDOMElement_var& element)
        {
            act(element);
            return false;
        });
}

// Calls act(element) for every descendant with the tag that does not lie below one of the nested elements for which
// isLeftOut(nested) is true. A walk below each of many nested elements then costs no more than one below the outermost.
template <class IsLeftOut, class Act>
void ForEachElementOutside(
    const CATIDOMElement_var& root, std::string_view tag, std::string_view nestedTag, IsLeftOut isLeftOut, Act act)
{
    const CATIDOMNodeList_var elements = root->GetElementsByTagName(tag);
    const CATIDOMNodeList_var allNested = root->GetElementsByTagName(nestedTag);
    int next = 0; // of the nested ones
    const auto nextLeftOut = [&]
    {
        while (next < allNested->GetLength())
        {
            const CATIDOMElement_var nested = allNested->Item(next++);
            if (!isLeftOut(nested))
                continue;
            next += nested->GetElementsByTagName(nestedTag)->GetLength();
            const CATIDOMNodeList_var leftOut = nested->GetElementsByTagName(tag);
            if (leftOut->GetLength() > 0)
                return std::pair(leftOut->Item(0), leftOut->GetLength());
        }
        return std::pair(CATIDOMElement_var(), 0);
    };
    auto [first, count] = nextLeftOut();
    for (int position = 0; position < elements->GetLength();)
    {
        const CATIDOMElement_var element = elements->Item(position);
        if (element == first)
        {
            position += count;
            std::tie(first, count) = nextLeftOut();
            continue;
        }
        act(element);
        ++position;
    }
}

// The first descendant with the tag; null when there is none.
inline CATIDOMElement_var FirstElement(const CATIDOMElement_var& root, std::string_view tag)
{
    CATIDOMElement_var found;
    VisitElements(root, tag,
        [&](const CATIDOMElement_var& element)
        {
            found = element;
            return true;
        });
    return found;
}

// The first child with the tag; null when there is none.
inline CATIDOMElement_var FirstChild(const CATIDOMElement_var& parent, std::string_view tag)
{
    CATIDOMElement_var found;
    VisitChildren(parent, tag,
        [&](const CATIDOMElement_var& element)
        {
            found = element;
            return true;
        });
    return found;
}

// The first child with the tag of the first element, or else of the second; either may be null.
inline CATIDOMElement_var FirstChildOfEither(
    const CATIDOMElement_var& first, const CATIDOMElement_var& second, std::string_view tag)
{
    const CATIDOMElement_var found = FirstChild(first, tag);
    return found != NULL_var ? found : FirstChild(second, tag);
}

// Calls visit(list, position, text) for every descendant with the tag that has the attribute, in document order, until
// it returns true. A null root has no descendants.
template <class Visit>
void VisitTexts(const CATIDOMElement_var& root, std::string_view tag, std::string_view attribute, Visit visit)
{
    if (root == NULL_var)
        return;
    const CATIDOMNodeList_var elements = root->GetElementsByTagName(tag);
    const auto texts = elements->GetValues(attribute);
    for (int position = 0; position < elements->GetLength(); ++position)
        if (const std::optional<VEXMELKNodeText> text = texts.At(position))
            if (visit(elements.GetView(), position, *text))
                return;
}

// The same for children.
template <class Visit>
void VisitChildTexts(const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, Visit visit)
{
    VisitTexts(parent, tag, attribute,
        [&](const CATIDOMNodeList& elements, int position, VEXMELKNodeText text)
        { return elements.IsChild(position, parent.GetView()) && visit(elements, position, text); });
}

// The attribute of the first child with the tag that has it; none when none has.
inline std::optional<VEXMELKNodeText> FirstChildAttribute(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute)
{
    std::optional<VEXMELKNodeText> first;
    VisitChildTexts(parent, tag, attribute,
        [&](const CATIDOMNodeList& /*elements*/, int /*position*/, VEXMELKNodeText text)
        {
            first = text;
            return true;
        });
    return first;
}

// The first child with the tag whose attribute has exactly that value; null when there is none.
inline CATIDOMElement_var FindChild(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, std::string_view value)
{
    CATIDOMElement_var found;
    VisitTexts(parent, tag, attribute,
        [&](const CATIDOMNodeList& elements, int position, VEXMELKNodeText text)
        {
            if (!CATTextEqual(text, value) || !elements.IsChild(position, parent.GetView()))
                return false;
            found = elements.Item(position);
            return true;
        });
    return found;
}

// The descendant with the tag whose attribute lies nearest, the first of several; "distance(text)" gives the distance
// of a value, or none when it is not to be taken. One that is "farthest" or more away is never taken.
template <class Distance>
CATIDOMElement_var NearestElement(const CATIDOMElement_var& root, std::string_view tag, std::string_view attribute,
    double farthest, Distance distance)
{
    CATIDOMElement_var nearest;
    double best = farthest;
    VisitTexts(root, tag, attribute,
        [&](const CATIDOMNodeList& elements, int position, VEXMELKNodeText text)
        {
            const std::optional<double> away = distance(text);
            if (away && *away < best)
            {
                nearest = elements.Item(position);
                best = *away;
            }
            return false;
        });
    return nearest;
}

// The values of the attribute of all children with the tag that have it, in document order. Empties the list first.
inline void ChildAttributeValues(const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute,
    CATListValCATUnicodeString& values)
{
    values.RemoveAll();
    VisitChildTexts(parent, tag, attribute,
        [&](const CATIDOMNodeList& /*elements*/, int /*position*/, VEXMELKNodeText text)
        {
            values.Append(CATUnicodeString(text));
            return false;
        });
}

// The first of these elements, which are in document order, that lies below the other one; null when none does. Asked
// of many elements that are nested in each other, this costs less than a walk below each.
CATIDOMElement_var FirstBelow(const CATIDOMElement_var& parent, const std::vector<CATIDOMElement_var>& elements);

// Appends each of the names that the list does not hold yet.
void AppendMissing(CATListValCATUnicodeString& list, const CATListValCATUnicodeString& names);

// The one descendant with the tag; null when there is none or more than one.
inline CATIDOMElement_var SingleElement(const CATIDOMElement_var& root, std::string_view tag)
{
    if (root == NULL_var)
        return NULL_var;
    const CATIDOMNodeList_var elements = root->GetElementsByTagName(tag);
    return elements->GetLength() == 1 ? elements->Item(0) : CATIDOMElement_var();
}

#endif
