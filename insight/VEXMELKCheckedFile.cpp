// Says of each element of a file which described ones it is. What stands at any depth is told from the elements around.
#include "VEXMELKCheckedFile.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "VEXMELKTrial.h"

#include <algorithm>

namespace {

class ProblemList : public CATISAXErrorHandler
{
public:
    explicit ProblemList(std::vector<VEXMELKCheckedFile::Problem>& problems) : m_Problems(problems) {}

private:
    CATResult Add(bool isFatal, const CATSAXParseException* exception)
    {
        if (exception)
            m_Problems.push_back({isFatal, exception->GetMessage().ConvertToChar(),
                {exception->GetLineNumber(), exception->GetColumnNumber()}});
        return S_OK;
    }
    CATResult Warning(const CATSAXParseException* exception) override { return Add(false, exception); }
    CATResult Error(const CATSAXParseException* exception) override { return Add(true, exception); }
    CATResult FatalError(const CATSAXParseException* exception) override { return Add(true, exception); }

    std::vector<VEXMELKCheckedFile::Problem>& m_Problems;
};

} // namespace

VEXMELKElementPlaces::VEXMELKElementPlaces(const VEXMELKDescription& description)
    : m_Elements(VEXMELKElementsWithParents(description))
{
    for (std::size_t number = 0; number < m_Elements.size(); ++number)
    {
        const VEXMELKElement* below = m_Elements[number]->below ? m_Elements[number]->below : m_Elements[number];
        m_Below.push_back(
            static_cast<std::size_t>(std::find(m_Elements.begin(), m_Elements.end(), below) - m_Elements.begin()));
        m_ByTag[m_Elements[number]->tag].push_back(number);
    }
}

const VEXMELKElementKind* VEXMELKElementPlaces::KindOf(const Set& own) const
{
    std::unique_ptr<VEXMELKElementKind>& kind = m_Kinds[own];
    if (kind)
        return kind.get();
    std::vector<const VEXMELKElement*> elements;
    for (std::size_t number = 0; number < m_Elements.size(); ++number)
        if (own[number])
            elements.push_back(m_Elements[number]);
    kind = std::make_unique<VEXMELKElementKind>(std::move(elements));
    return kind.get();
}

VEXMELKElementPlaces::Place VEXMELKElementPlaces::Root() const
{
    Place root;
    for (std::size_t number = 0; number < m_Elements.size(); ++number)
        root.own[number] = !m_Elements[number]->below && m_Elements[number]->tag == "*";
    root.around = root.own;
    root.kind = KindOf(root.own);
    root.isRoot = true;
    return root;
}

VEXMELKElementPlaces::Place VEXMELKElementPlaces::Below(const Place& parent, std::string_view tag) const
{
    Place place;
    const auto match = [&](std::string_view of)
    {
        const auto found = m_ByTag.find(of);
        if (found == m_ByTag.end())
            return;
        for (const std::size_t number : found->second)
        {
            const VEXMELKElement& element = *m_Elements[number];
            const bool isChild = element.place == VEXMELKPlace::Child;
            if (element.below)
                place.own[number] = isChild ? parent.own[m_Below[number]] : parent.around[m_Below[number]];
            else
                place.own[number] = of != "*" && (!isChild || parent.isRoot);
        }
    };
    match(tag);
    match("*");
    place.around = parent.around | place.own;
    place.kind = KindOf(place.own);
    return place;
}

VEXMELKElementPlaces::Place VEXMELKElementPlaces::Both(const Place& one, const Place& other) const
{
    Place both;
    both.own = one.own | other.own;
    both.around = one.around | other.around;
    both.kind = KindOf(both.own);
    return both;
}

bool VEXMELKElementPlaces::IsByFreeTag(const Place& place) const
{
    const auto& described = place.kind->described;
    return std::all_of(
        described.begin(), described.end(), [](const VEXMELKElement* element) { return element->tag == "*"; });
}

std::vector<std::string> VEXMELKElementPlaces::TagsBelow(const Place& parent) const
{
    std::vector<std::string> tags;
    for (std::size_t number = 0; number < m_Elements.size(); ++number)
    {
        const VEXMELKElement& element = *m_Elements[number];
        const bool isBelow = element.below
                                 ? (element.place == VEXMELKPlace::Child ? parent.own : parent.around)[m_Below[number]]
                                 : element.place == VEXMELKPlace::AnyDepth || parent.isRoot;
        if (isBelow && element.tag != "*" && std::find(tags.begin(), tags.end(), element.tag) == tags.end())
            tags.emplace_back(element.tag);
    }
    return tags;
}

const VEXMELKElement* VEXMELKElementPlaces::FindTag(std::string_view tag) const
{
    const auto found = m_ByTag.find(tag);
    return tag == "*" || found == m_ByTag.end() ? nullptr : m_Elements[found->second.front()];
}

const VEXMELKElement* VEXMELKElementPlaces::FindReaderOf(std::string_view attribute) const
{
    for (const VEXMELKElement* element : m_Elements)
        for (const VEXMELKRows table : element->tables)
            for (const VEXMELKRow& row : table)
                if (row.attribute == attribute)
                    return element;
    return nullptr;
}

VEXMELKCheckedFile::VEXMELKCheckedFile(
    const VEXMELKDescription& description, Layer layer, std::string name, const std::string& directory)
    : m_Description(description), m_Layer(layer), m_Name(std::move(name)), m_Places(description)
{
    Load(directory);
}

void VEXMELKCheckedFile::Load(const std::string& directory)
{
    const std::string path = directory + "/" + m_Name;
    CATIXMLDOMDocumentBuilder_var parser;
    if (FAILED(CreateCATIXMLDOMDocumentBuilder(parser, CLSID_XML4C_DOM)))
        return;
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    names.Append(CATUnicodeString("CATDocumentTypeDirectory"));
    values.Append(CATUnicodeString(directory));
    const auto list = CATISAXErrorHandler_var::Adopt(new ProblemList(m_Problems));
    CATIDOMDocument_var document;
    const CATResult result = parser->Parse(CATUnicodeString(path), names, values, list, NULL_var, document);
    m_Written = VEXMELKWrittenFile::Read(path);
    if (SUCCEEDED(result) && document != NULL_var)
        AddNodes(document->GetDocumentElement());
}

void VEXMELKCheckedFile::AddNodes(const CATIDOMElement_var& root)
{
    const CATIDOMNodeList_var elements = root->GetElementsByTagName("*");
    const std::size_t count = static_cast<std::size_t>(elements->GetLength()) + 1;
    m_Nodes.reserve(count);
    std::vector<std::size_t> open; // from the root to the element before
    for (std::size_t number = 0; number < count; ++number)
    {
        Node node;
        node.element = number == 0 ? root : elements->Item(static_cast<int>(number) - 1);
        while (!open.empty() && !m_Nodes[open.back()].element->Contains(node.element))
        {
            m_Nodes[open.back()].end = number;
            open.pop_back();
        }
        node.parent = open.empty() ? none : open.back();
        node.place = number == 0 ? m_Places.Root() : PlaceOf(node);
        if (m_Written)
            node.tag = m_Written->TagAt({node.element->GetLineNumber(), node.element->GetColumnNumber()});
        m_Nodes.push_back(std::move(node));
        open.push_back(number);
    }
    for (const std::size_t number : open)
        m_Nodes[number].end = count;
}

// A standard without any category serves as its own one.
VEXMELKElementPlaces::Place VEXMELKCheckedFile::PlaceOf(const Node& node) const
{
    const VEXMELKElementPlaces::Place place = m_Places.Below(m_Nodes[node.parent].place, node.element->GetTagName());
    const bool isStandard = node.parent == 0 && node.element->GetTagName() == "standard";
    if (!isStandard || node.element->GetElementsByTagName("category")->GetLength() > 0)
        return place;
    return m_Places.Both(place, m_Places.Below(place, "category"));
}

std::optional<std::string_view> VEXMELKCheckedFile::TextOf(std::size_t node, std::string_view attribute) const
{
    return m_Nodes[node].element->GetAttributes()->GetNamedItemValue(attribute);
}

std::size_t VEXMELKCheckedFile::Around(std::size_t node, std::string_view tag) const
{
    while (node != none && !Is(node, tag))
        node = m_Nodes[node].parent;
    return node;
}

void VEXMELKCheckedFile::ForEachChild(std::size_t node, const std::function<void(std::size_t)>& act) const
{
    for (std::size_t child = node + 1; child < m_Nodes[node].end; child = m_Nodes[child].end)
        act(child);
}
