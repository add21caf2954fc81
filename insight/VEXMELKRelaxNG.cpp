// A schema is made as patterns first, which are then written in either syntax.
#include "VEXMELKRelaxNG.h"

#include "VEXMELKDocumentText.h"
#include "VEXMELKRowText.h"

#include <algorithm>

namespace {

struct Pattern
{
    enum Kind
    {
        Element,   // "text" is its name, empty for any but those of "except"
        Attribute, // likewise
        Foreign,   // attributes of XML itself and of schema instances
        Reference, // to the definition of that name
        Group,
        Interleave,
        Choice,
        Optional,
        ZeroOrMore,
        Text,
        Empty,
        Value, // exactly that text
        Data   // a text that fits the expression "text", or any, but those of "except"
    };
    Kind kind = Empty;
    std::string text = {};
    std::vector<Pattern> children = {};
    std::string documentation = {};
    std::vector<std::string> except = {};
    bool isAsWritten = false;
};

// One alone needs no group, and nothing is empty.
Pattern Several(Pattern::Kind kind, std::vector<Pattern> patterns)
{
    if (patterns.empty())
        return {};
    return patterns.size() == 1 ? patterns.front() : Pattern{kind, {}, std::move(patterns)};
}

using Definitions = std::vector<std::pair<std::string, Pattern>>;

std::string TypeName(const VEXMELKValueType& type) { return type.name + ".value"; }

Pattern TextsOf(const VEXMELKValueType& type, const std::vector<std::string>& except)
{
    std::vector<Pattern> choices;
    for (const std::string& word : type.words)
        if (std::find(except.begin(), except.end(), word) == except.end())
            choices.push_back({Pattern::Value, word, {}, {}, {}, type.isAsWritten});
    if (type.isAnyText && except.empty())
        choices.push_back({Pattern::Text});
    else if (type.isAnyText || !type.pattern.empty())
        choices.push_back({Pattern::Data, type.pattern, {}, {}, except, type.isAsWritten});
    return Several(Pattern::Choice, std::move(choices));
}

class Writer
{
public:
    explicit Writer(const VEXMELKGrammar& grammar) : m_Grammar(grammar) {}

    Definitions All() const
    {
        Definitions definitions{{"start", {Pattern::Reference, m_Grammar.Elements().front().name}}};
        for (const VEXMELKGrammar::Element& element : m_Grammar.Elements())
            definitions.emplace_back(element.name, DefinitionOf(element));
        for (const VEXMELKValueType& type : m_Grammar.Types())
            definitions.emplace_back(TypeName(type), TextsOf(type, {}));
        return definitions;
    }

private:
    // The tag stands where it is referred to, but for tags that are free.
    Pattern DefinitionOf(const VEXMELKGrammar::Element& element) const
    {
        Pattern pattern{Pattern::Element, TagOf(element), {}, element.documentation};
        if (pattern.text.empty())
            pattern.except = TagsBeside(element);
        pattern.children.push_back(AttributesOf(element));
        if (!element.hasFreeAttributes)
            pattern.children.push_back({Pattern::Foreign});
        if (element.hasText)
            pattern.children.push_back({Pattern::Text});
        if (!element.children.empty())
            pattern.children.push_back(ContentOf(element));
        std::erase_if(pattern.children, [](const Pattern& child) { return child.kind == Pattern::Empty; });
        return pattern;
    }
    // Empty for the root and for free tags.
    static std::string TagOf(const VEXMELKGrammar::Element& element)
    {
        const bool isFree = element.kind.described.empty() || element.kind.described.front()->tag == "*";
        return isFree ? "" : std::string(element.kind.described.front()->tag);
    }
    std::vector<std::string> TagsBeside(const VEXMELKGrammar::Element& free) const
    {
        std::vector<std::string> tags;
        for (const VEXMELKGrammar::Element& element : m_Grammar.Elements())
            if (element.FreeChild() && &m_Grammar.Elements()[element.FreeChild()->element] == &free)
                for (const VEXMELKGrammar::Child& child : element.children)
                    if (child.tag != "*")
                        tags.emplace_back(child.tag);
        return tags;
    }

    Pattern AttributesOf(const VEXMELKGrammar::Element& element) const
    {
        if (element.hasFreeAttributes)
            return {Pattern::ZeroOrMore, {}, {{Pattern::Attribute, {}, {{Pattern::Text}}}}};
        std::vector<Pattern> cases;
        for (const std::vector<VEXMELKGrammar::Attribute>& attributes : element.cases)
            if (const auto pattern = CaseOf(attributes))
                cases.push_back(*pattern);
        return Several(Pattern::Choice, std::move(cases));
    }
    std::optional<Pattern> CaseOf(const std::vector<VEXMELKGrammar::Attribute>& attributes) const
    {
        std::vector<Pattern> patterns;
        for (const VEXMELKGrammar::Attribute& attribute : attributes)
        {
            const Pattern value = ValueOf(attribute);
            Pattern pattern{Pattern::Attribute, std::string(attribute.name), {value}, attribute.documentation};
            if (value.kind == Pattern::Empty && attribute.isNeeded)
                return std::nullopt; // no type is left
            if (value.kind == Pattern::Empty)
                continue;
            if (!attribute.isNeeded)
                pattern = {Pattern::Optional, {}, {pattern}};
            patterns.push_back(std::move(pattern));
        }
        return Several(Pattern::Interleave, std::move(patterns)); // some validators try each subset of a group
    }
    Pattern ValueOf(const VEXMELKGrammar::Attribute& attribute) const
    {
        const VEXMELKValueType& type = m_Grammar.Types()[attribute.type];
        if (!attribute.only.empty())
            return {Pattern::Value, attribute.only, {}, {}, {}, true};
        if (!attribute.except.empty())
            return TextsOf(type, attribute.except);
        return {Pattern::Reference, TypeName(type)};
    }

    // In any order.
    Pattern ContentOf(const VEXMELKGrammar::Element& element) const
    {
        std::vector<Pattern> parts;
        std::vector<Pattern> repeated;
        for (const VEXMELKGrammar::Child& child : element.children)
        {
            const Pattern reference{Pattern::Reference, m_Grammar.Elements()[child.element].name};
            if (child.isAtMostOne)
                parts.push_back({Pattern::Optional, {}, {reference}});
            else
                repeated.push_back(reference);
        }
        if (!repeated.empty())
            parts.push_back({Pattern::ZeroOrMore, {}, {Several(Pattern::Choice, std::move(repeated))}});
        return Several(Pattern::Interleave, std::move(parts));
    }

    const VEXMELKGrammar& m_Grammar;
};

class XmlPrinter
{
public:
    std::string Print(const Definitions& definitions)
    {
        m_Text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<grammar xmlns=\"http://relaxng.org/ns/structure/1.0\"\n"
                 "    xmlns:a=\"http://relaxng.org/ns/compatibility/annotations/1.0\"\n"
                 "    datatypeLibrary=\"http://www.w3.org/2001/XMLSchema-datatypes\">\n";
        for (const auto& [name, pattern] : definitions)
            if (name == "start")
                Enclose("start", "", {pattern}, 1);
            else
                Enclose("define", Named("name", name), {pattern}, 1);
        return m_Text + "</grammar>\n";
    }

private:
    static std::string Named(const char* attribute, const std::string& value)
    {
        return std::string(" ") + attribute + "=\"" + VEXMELKEscaped(value) + "\"";
    }
    void Line(int depth, const std::string& text)
    {
        m_Text += std::string(static_cast<std::size_t>(depth) * 2, ' ') + text + "\n";
    }
    void Simple(int depth, const std::string& tag, const std::string& attributes, const std::string& content)
    {
        Line(depth,
            "<" + tag + attributes + (content.empty() ? "/>" : ">" + VEXMELKEscaped(content) + "</" + tag + ">"));
    }
    void Enclose(const std::string& tag, const std::string& attributes, const std::vector<Pattern>& patterns, int depth)
    {
        Line(depth, "<" + tag + attributes + ">");
        for (const Pattern& pattern : patterns)
            Print(pattern, depth + 1);
        Line(depth, "</" + tag + ">");
    }

    void Print(const Pattern& pattern, int depth)
    {
        switch (pattern.kind)
        {
        case Pattern::Element:
        case Pattern::Attribute:
            return PrintNamed(pattern, depth);
        case Pattern::Foreign:
            return PrintForeign(depth);
        case Pattern::Reference:
            return Simple(depth, "ref", Named("name", pattern.text), "");
        case Pattern::Group:
            return Enclose("group", "", pattern.children, depth);
        case Pattern::Interleave:
            return Enclose("interleave", "", pattern.children, depth);
        case Pattern::Choice:
            return Enclose("choice", "", pattern.children, depth);
        case Pattern::Optional:
            return Enclose("optional", "", pattern.children, depth);
        case Pattern::ZeroOrMore:
            return Enclose("zeroOrMore", "", pattern.children, depth);
        case Pattern::Text:
            return Line(depth, "<text/>");
        case Pattern::Empty:
            return Line(depth, "<empty/>");
        case Pattern::Value:
            return PrintValue(pattern.text, pattern.isAsWritten, depth);
        case Pattern::Data:
            return PrintData(pattern, depth);
        }
    }
    void PrintNamed(const Pattern& pattern, int depth)
    {
        const std::string tag = pattern.kind == Pattern::Element ? "element" : "attribute";
        Line(depth, "<" + tag + (pattern.text.empty() ? "" : Named("name", pattern.text)) + ">");
        if (!pattern.documentation.empty())
            Simple(depth + 1, "a:documentation", "", pattern.documentation);
        if (pattern.text.empty())
            PrintAnyName(pattern.except, depth + 1);
        for (const Pattern& child : pattern.children)
            Print(child, depth + 1);
        if (pattern.children.empty())
            Line(depth + 1, "<empty/>");
        Line(depth, "</" + tag + ">");
    }
    void PrintAnyName(const std::vector<std::string>& except, int depth)
    {
        if (except.empty())
            return Line(depth, "<anyName/>");
        Line(depth, "<anyName>");
        Line(depth + 1, "<except>");
        for (const std::string& name : except)
            Simple(depth + 2, "name", "", name);
        Line(depth + 1, "</except>");
        Line(depth, "</anyName>");
    }
    void PrintForeign(int depth)
    {
        Line(depth, "<zeroOrMore>");
        Line(depth + 1, "<attribute>");
        Line(depth + 2, "<choice>");
        Line(depth + 3, "<nsName ns=\"http://www.w3.org/XML/1998/namespace\"/>");
        Line(depth + 3, "<nsName ns=\"http://www.w3.org/2001/XMLSchema-instance\"/>");
        Line(depth + 2, "</choice>");
        Line(depth + 2, "<text/>");
        Line(depth + 1, "</attribute>");
        Line(depth, "</zeroOrMore>");
    }
    void PrintValue(const std::string& text, bool isAsWritten, int depth)
    {
        Line(depth, std::string("<value type=\"") + (isAsWritten ? "string" : "token") + "\">" + VEXMELKEscaped(text) +
                        "</value>");
    }
    void PrintData(const Pattern& pattern, int depth)
    {
        Line(depth, std::string("<data type=\"") + (pattern.isAsWritten ? "string" : "token") + "\">");
        if (!pattern.text.empty())
            Simple(depth + 1, "param", " name=\"pattern\"", pattern.text);
        if (!pattern.except.empty())
        {
            Line(depth + 1, "<except>");
            Line(depth + 2, "<choice>");
            for (const std::string& text : pattern.except)
                PrintValue(text, true, depth + 3);
            Line(depth + 2, "</choice>");
            Line(depth + 1, "</except>");
        }
        Line(depth, "</data>");
    }

    std::string m_Text;
};

class CompactPrinter
{
public:
    static std::string Print(const Definitions& definitions)
    {
        std::string text = "namespace xsi = \"http://www.w3.org/2001/XMLSchema-instance\"\n"
                           "datatypes xsd = \"http://www.w3.org/2001/XMLSchema-datatypes\"\n";
        for (const auto& [name, pattern] : definitions)
            text += "\n" + name + " =\n" + Printed(pattern, 1, false) + "\n";
        return text;
    }

private:
    static std::string Indented(int depth) { return std::string(static_cast<std::size_t>(depth) * 2, ' '); }

    // Texts that are no quotes and hold no escapes.
    static std::string Literal(const std::string& text) { return "\"" + text + "\""; }

    static std::string Joined(const std::vector<Pattern>& patterns, const char* separator, int depth)
    {
        std::string joined;
        for (const Pattern& pattern : patterns)
            joined += (joined.empty() ? "" : separator + std::string("\n")) + Printed(pattern, depth, true);
        return joined;
    }
    static std::string InBraces(const std::vector<Pattern>& patterns, int depth)
    {
        if (patterns.empty())
            return " { empty }";
        const bool isShort =
            patterns.size() == 1 && (patterns[0].kind == Pattern::Reference || patterns[0].kind == Pattern::Text ||
                                        patterns[0].kind == Pattern::Value);
        if (isShort)
            return " { " + Printed(patterns[0], 0, false) + " }";
        return " {\n" + Joined(patterns, ",", depth + 1) + "\n" + Indented(depth) + "}";
    }
    static std::string InParentheses(const std::vector<Pattern>& patterns, const char* separator, int depth)
    {
        return Indented(depth) + "(\n" + Joined(patterns, separator, depth + 1) + "\n" + Indented(depth) + ")";
    }
    static std::string Name(const Pattern& pattern)
    {
        if (!pattern.text.empty())
            return pattern.text;
        std::string except;
        for (const std::string& name : pattern.except)
            except += (except.empty() ? "" : " | ") + name;
        return except.empty() ? "*" : "* - (" + except + ")";
    }
    static std::string Documentation(const Pattern& pattern, int depth)
    {
        return pattern.documentation.empty() ? "" : Indented(depth) + "## " + pattern.documentation + "\n";
    }
    static std::string Value(const std::string& text, bool isAsWritten)
    {
        return (isAsWritten ? "string " : "token ") + Literal(text);
    }
    static std::string Data(const Pattern& pattern)
    {
        std::string text = pattern.isAsWritten ? "xsd:string" : "xsd:token";
        if (!pattern.text.empty())
            text += " { pattern = " + Literal(pattern.text) + " }";
        std::string except;
        for (const std::string& word : pattern.except)
            except += (except.empty() ? "" : " | ") + Value(word, true);
        return except.empty() ? text : text + " - (" + except + ")";
    }

    // Inside of others, what has parts of its own needs parentheses.
    static std::string Printed(const Pattern& pattern, int depth, bool isInside)
    {
        const std::string indented = Indented(depth);
        switch (pattern.kind)
        {
        case Pattern::Element:
            return Documentation(pattern, depth) + indented + "element " + Name(pattern) +
                   InBraces(pattern.children, depth);
        case Pattern::Attribute:
            return Documentation(pattern, depth) + indented + "attribute " + Name(pattern) +
                   InBraces(pattern.children, depth);
        case Pattern::Foreign:
            return indented + "attribute xml:* | xsi:* { text }*";
        case Pattern::Reference:
            return indented + pattern.text;
        case Pattern::Group:
            return isInside ? InParentheses(pattern.children, ",", depth) : Joined(pattern.children, ",", depth);
        case Pattern::Interleave:
            return isInside ? InParentheses(pattern.children, " &", depth) : Joined(pattern.children, " &", depth);
        case Pattern::Choice:
            return isInside ? InParentheses(pattern.children, " |", depth) : Joined(pattern.children, " |", depth);
        case Pattern::Optional:
            return Printed(pattern.children.front(), depth, true) + "?";
        case Pattern::ZeroOrMore:
            return Printed(pattern.children.front(), depth, true) + "*";
        case Pattern::Text:
            return indented + "text";
        case Pattern::Value:
            return indented + Value(pattern.text, pattern.isAsWritten);
        case Pattern::Data:
            return indented + Data(pattern);
        case Pattern::Empty:
            break;
        }
        return indented + "empty";
    }
};

} // namespace

std::string VEXMELKRelaxNG(const VEXMELKGrammar& grammar) { return XmlPrinter().Print(Writer(grammar).All()); }

std::string VEXMELKRelaxNGCompact(const VEXMELKGrammar& grammar)
{
    return CompactPrinter::Print(Writer(grammar).All());
}
