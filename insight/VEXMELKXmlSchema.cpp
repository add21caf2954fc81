// Elements that stand beside a free tag are declared globally: a wildcard finds them there, where the schema would be
// ambiguous if they stood beside it.
#include "VEXMELKXmlSchema.h"

#include "VEXMELKDocumentText.h"
#include "VEXMELKTrial.h"

#include <algorithm>

namespace {

class SchemaWriter
{
public:
    SchemaWriter(const VEXMELKGrammar& grammar, const VEXMELKFreeTags& tags) : m_Grammar(grammar), m_Tags(tags) {}

    std::string Write()
    {
        m_Text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n";
        Document(1, Root().documentation);
        for (const std::string& tag : m_Tags.roots)
            Declare(1, tag, Root());
        for (const VEXMELKGrammar::Element& element : m_Grammar.Elements())
            if (const VEXMELKGrammar::Child* free = element.FreeChild())
                DeclareBeside(element, *free);
        for (const VEXMELKGrammar::Element& element : m_Grammar.Elements())
            Define(element);
        for (const VEXMELKValueType& type : m_Grammar.Types())
            Define(type);
        return m_Text + "</xs:schema>\n";
    }

private:
    const VEXMELKGrammar::Element& Root() const { return m_Grammar.Elements().front(); }
    const VEXMELKGrammar::Element& ElementOf(const VEXMELKGrammar::Child& child) const
    {
        return m_Grammar.Elements()[child.element];
    }
    static std::string TypeName(const VEXMELKGrammar::Element& element) { return element.name + "Element"; }

    void Line(int depth, const std::string& text)
    {
        m_Text += std::string(static_cast<std::size_t>(depth) * 2, ' ') + text + "\n";
    }
    static std::string Named(const char* attribute, std::string_view value)
    {
        return std::string(" ") + attribute + "=\"" + VEXMELKEscaped(value) + "\"";
    }
    void Document(int depth, const std::string& text)
    {
        if (text.empty())
            return;
        Line(depth, "<xs:annotation>");
        Line(depth + 1, "<xs:documentation>" + VEXMELKEscaped(text) + "</xs:documentation>");
        Line(depth, "</xs:annotation>");
    }

    void Declare(int depth, std::string_view tag, const VEXMELKGrammar::Element& element, const char* occurs = "")
    {
        Line(depth, "<xs:element" + Named("name", tag) + Named("type", TypeName(element)) + occurs + ">");
        Document(depth + 1, element.documentation);
        for (const VEXMELKGrammar::Child& child : element.children)
            if (!child.uniqueBy.empty() && child.tag != "*")
                DeclareUnique(depth + 1, child);
        Line(depth, "</xs:element>");
    }
    void DeclareUnique(int depth, const VEXMELKGrammar::Child& child)
    {
        Line(depth, "<xs:unique" + Named("name", "unique" + std::to_string(++m_Uniques)) + ">");
        Line(depth + 1, "<xs:selector" + Named("xpath", child.tag) + "/>");
        Line(depth + 1, "<xs:field" + Named("xpath", "@" + std::string(child.uniqueBy)) + "/>");
        Line(depth, "</xs:unique>");
    }
    void DeclareBeside(const VEXMELKGrammar::Element& element, const VEXMELKGrammar::Child& free)
    {
        for (const VEXMELKGrammar::Child& child : element.children)
            if (child.tag != "*")
                Declare(1, child.tag, ElementOf(child));
        const auto isBeside = [&](const std::string& tag)
        {
            return std::any_of(element.children.begin(), element.children.end(),
                [&](const VEXMELKGrammar::Child& child) { return child.tag == tag; });
        };
        for (const std::string& tag : m_Tags.others)
            if (!isBeside(tag) && m_Tags.roots.count(tag) == 0)
                Declare(1, tag, ElementOf(free));
    }

    void Define(const VEXMELKGrammar::Element& element)
    {
        Line(1, "<xs:complexType" + Named("name", TypeName(element)) + ">");
        if (element.hasText)
        {
            Line(2, "<xs:simpleContent>");
            Line(3, "<xs:extension base=\"xs:string\">");
            DefineAttributes(4, element);
            Line(3, "</xs:extension>");
            Line(2, "</xs:simpleContent>");
        }
        else
        {
            DefineContent(element);
            DefineAttributes(2, element);
        }
        Line(1, "</xs:complexType>");
    }
    void DefineContent(const VEXMELKGrammar::Element& element)
    {
        const auto& children = element.children;
        if (children.empty())
            return;
        if (element.FreeChild())
        {
            Line(2, "<xs:sequence>");
            Line(3, "<xs:any namespace=\"##local\" processContents=\"lax\" minOccurs=\"0\" maxOccurs=\"unbounded\"/>");
            Line(2, "</xs:sequence>");
            return;
        }
        const bool isEachOnce = std::all_of(
            children.begin(), children.end(), [](const VEXMELKGrammar::Child& child) { return child.isAtMostOne; });
        Line(2, isEachOnce ? "<xs:all>" : "<xs:choice minOccurs=\"0\" maxOccurs=\"unbounded\">");
        for (const VEXMELKGrammar::Child& child : children)
            Declare(3, child.tag, ElementOf(child), isEachOnce ? " minOccurs=\"0\"" : "");
        Line(2, isEachOnce ? "</xs:all>" : "</xs:choice>");
    }
    void DefineAttributes(int depth, const VEXMELKGrammar::Element& element)
    {
        for (const VEXMELKGrammar::Attribute& attribute : element.attributes)
        {
            Line(depth, "<xs:attribute" + Named("name", attribute.name) +
                            Named("type", m_Grammar.Types()[attribute.type].name) +
                            (attribute.isNeeded ? " use=\"required\">" : ">"));
            Document(depth + 1, attribute.documentation);
            Line(depth, "</xs:attribute>");
        }
        const char* foreign = element.hasFreeAttributes ? "##any" : "http://www.w3.org/XML/1998/namespace";
        Line(depth, "<xs:anyAttribute" + Named("namespace", foreign) + " processContents=\"skip\"/>");
    }

    void Define(const VEXMELKValueType& type)
    {
        Line(1, "<xs:simpleType" + Named("name", type.name) + ">");
        const bool isOther = type.isAnyText || !type.pattern.empty();
        if (type.words.empty() || !isOther)
            Restrict(2, type, !isOther);
        else
        {
            Line(2, "<xs:union>");
            for (const bool isWords : {true, false})
            {
                Line(3, "<xs:simpleType>");
                Restrict(4, type, isWords);
                Line(3, "</xs:simpleType>");
            }
            Line(2, "</xs:union>");
        }
        Line(1, "</xs:simpleType>");
    }
    void Restrict(int depth, const VEXMELKValueType& type, bool toWords)
    {
        const char* base = type.isAsWritten || (!toWords && type.isAnyText) ? "xs:string" : "xs:token";
        Line(depth, "<xs:restriction" + Named("base", base) + ">");
        if (toWords)
            for (const std::string& word : type.words)
                Line(depth + 1, "<xs:enumeration" + Named("value", word) + "/>");
        else if (!type.pattern.empty())
            Line(depth + 1, "<xs:pattern" + Named("value", type.pattern) + "/>");
        Line(depth, "</xs:restriction>");
    }

    const VEXMELKGrammar& m_Grammar;
    const VEXMELKFreeTags& m_Tags;
    std::string m_Text;
    int m_Uniques = 0;
};

// Adds the tags at the free places below an element of the grammar.
void AddFreeTags(std::set<std::string>& tags, const CATIDOMElement_var& parent, const VEXMELKGrammar& grammar,
    const VEXMELKGrammar::Element& described)
{
    const CATIDOMNodeList_var elements = parent->GetElementsByTagName("*");
    for (int position = 0; position < elements->GetLength();)
    {
        const CATIDOMElement_var child = elements->Item(position);
        position += 1 + child->GetElementsByTagName("*")->GetLength();
        const auto is = [&](const VEXMELKGrammar::Child& each)
        { return each.tag == child->GetTagName() || each.tag == "*"; };
        const auto found = std::find_if(described.children.begin(), described.children.end(), is);
        if (found == described.children.end())
            continue;
        if (found->tag == "*")
            tags.emplace(child->GetTagName());
        AddFreeTags(tags, child, grammar, grammar.Elements()[found->element]);
    }
}

} // namespace

VEXMELKFreeTags VEXMELKFreeTagsOf(const VEXMELKGrammar& grammar, const CATUnicodeString& directory)
{
    VEXMELKFreeTags tags;
    tags.roots.emplace(grammar.Description().root);
    for (const VEXMELKSourceFile& file : VEXMELKLoadFiles(grammar.Description(), directory))
    {
        tags.roots.emplace(file.root->GetTagName());
        AddFreeTags(tags.others, file.root, grammar, grammar.Elements().front());
    }
    return tags;
}

std::string VEXMELKXmlSchema(const VEXMELKGrammar& grammar, const VEXMELKFreeTags& tags)
{
    return SchemaWriter(grammar, tags).Write();
}
