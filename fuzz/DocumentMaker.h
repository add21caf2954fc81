// Documents and questions made from a configuration's description and a script of bytes: they look like real ones, with
// the described elements, attributes and words, and few names, so that what is asked for is often there.
#ifndef FUZZ_DocumentMaker_H
#define FUZZ_DocumentMaker_H

#include "Registry.h"

#include <array>

// The bytes of a fuzzer's input, taken one by one as numbers; 0 past the end.
class Script
{
public:
    explicit Script(std::string_view bytes) : m_Bytes(bytes) {}
    bool IsAtEnd() const { return m_Position >= m_Bytes.size(); }
    std::size_t Next(std::size_t below)
    {
        return IsAtEnd() ? 0 : static_cast<unsigned char>(m_Bytes[m_Position++]) % below;
    }
    template <class Choices> auto Any(const Choices& choices) { return choices[Next(std::size(choices))]; }

private:
    std::string_view m_Bytes;
    std::size_t m_Position = 0;
};

inline constexpr std::array<std::string_view, 5> fewNames = {"S", "default", "x", "95", "1"};
inline constexpr std::array<std::string_view, 10> valueTexts = {
    "1", "2.5", "30deg", "12mm", "true", "false", "-1e3", "", " 7 ", "50%"};

class DocumentMaker
{
public:
    DocumentMaker(Script& script, const VEXMELKDescription& description) : m_Script(script)
    {
        for (const VEXMELKDescription* level = &description; level; level = level->base)
            m_Elements.insert(m_Elements.end(), level->elements.begin(), level->elements.end());
    }
    std::string Document()
    {
        m_Left = 60;
        return "<config>" + Below(nullptr) + "</config>";
    }

private:
    std::string Below(const VEXMELKElement* parent)
    {
        std::string contents;
        for (const VEXMELKElement* element : m_Elements)
            if (element->below ? parent && element->below->tag == parent->tag : !parent)
                for (std::size_t count = m_Script.Next(3); count > 0 && m_Left > 0; --count)
                    contents += Written(*element);
        return contents;
    }
    std::string Written(const VEXMELKElement& element)
    {
        --m_Left;
        const std::string tag(element.tag == "*" ? "any" : element.tag);
        std::vector<std::string_view> known;
        std::string attributes;
        const auto add = [&](const VEXMELKRow& row, bool isKey)
        {
            if (std::find(known.begin(), known.end(), row.attribute) != known.end())
                return;
            known.push_back(row.attribute);
            const std::string_view text = Text(row, isKey);
            attributes += " " + std::string(row.attribute) + "='" + std::string(text) + "'";
        };
        if (element.key)
            add(*element.key, true);
        for (const VEXMELKRows& table : element.tables)
            for (const VEXMELKRow& row : table)
                if (m_Script.Next(2) == 1)
                    add(row, false);
        return "<" + tag + attributes + ">" + (element.hasText ? "text" : Below(&element)) + "</" + tag + ">";
    }
    std::string_view Text(const VEXMELKRow& row, bool isKey)
    {
        if (!row.words.list.empty() && m_Script.Next(8) != 0)
            return m_Script.Any(row.words.list).text;
        return isKey ? m_Script.Any(fewNames) : m_Script.Any(valueTexts);
    }

    Script& m_Script;
    std::vector<const VEXMELKElement*> m_Elements;
    int m_Left = 0;
};

inline const VEXMELKDescription& DescriptionOf(const Configuration& configuration)
{
    for (const auto& described : VEXMELKConfigManager::GetConfigurations())
        if (described.description->name == configuration.name)
            return *described.description;
    std::abort();
}

inline std::string MakeDocument(Script& script, const Configuration& configuration)
{
    return DocumentMaker(script, DescriptionOf(configuration)).Document();
}

inline Json MakeArguments(Script& script, const Operation& operation)
{
    Json arguments = Json::object();
    for (const Parameter& parameter : operation.Parameters())
        if (!parameter.isOutput)
        {
            Json& argument = arguments[parameter.name];
            if (parameter.type == "flag")
                argument = script.Next(2) == 1;
            else if (parameter.type == "integer")
                argument = script.Any(std::array{95, 3, 99, 0});
            else if (parameter.type == "number")
                argument = script.Any(std::array{0.0, 22.5, 0.4, 1e300});
            else
                argument = script.Any(fewNames);
        }
    return arguments;
}

#endif
