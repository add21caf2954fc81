// Follows references without recursion, so that no chain of entities can exhaust the stack.
#include "CATXMLEntities.h"

#include "CATXMLBounds.h"

#include <algorithm>

namespace {

constexpr std::string_view predefined[] = {"lt", "gt", "amp", "apos", "quot"};

// Takes the next reference of that kind off the text: its key (kind and name), empty when there is none left.
// References to characters are none.
std::string TakeReference(char kind, std::string_view& text)
{
    for (;;)
    {
        const std::size_t begin = text.find(kind);
        if (begin == std::string_view::npos)
            return {};
        text.remove_prefix(begin);
        const std::size_t end = text.find_first_of(";& <\"'\t\n\r", 1);
        const std::string_view key = text.substr(0, end);
        const bool ended = end != std::string_view::npos && text[end] == ';';
        text.remove_prefix(key.size());
        if (ended && key.size() > 1 && key[1] != '#' &&
            std::find(std::begin(predefined), std::end(predefined), key.substr(1)) == std::end(predefined))
            return std::string(key);
    }
}

} // namespace

CATXMLEntities::Symbol CATXMLEntities::SymbolOf(const std::string& key)
{
    const Symbol symbol = m_Keys.Intern(key.c_str());
    if (symbol == m_Entities.size())
        m_Entities.emplace_back();
    return symbol;
}

bool CATXMLEntities::DeclareInternal(char kind, std::string_view name, std::string_view text)
{
    const Symbol symbol = SymbolOf(kind + std::string(name));
    Entity& entity = m_Entities[symbol];
    entity.text = text;
    entity.declared = true;
    while (true)
    {
        const std::string reference = TakeReference(kind, text);
        if (reference.empty())
            break;
        Entity& target = m_Entities[SymbolOf(reference)]; // leaves "entity" where it is
        if (target.referrers.empty() || target.referrers.back() != symbol)
            target.referrers.push_back(symbol);
        entity.depth = std::max(entity.depth, target.depth + 1);
    }
    return RaiseReferrers(symbol);
}

// An entity that comes to lead deeper takes along those that refer to it. No depth rises past the bound, so this ends
// in a circle too.
bool CATXMLEntities::RaiseReferrers(Symbol symbol)
{
    std::vector<Symbol> raised{symbol};
    while (!raised.empty())
    {
        const Entity& target = m_Entities[raised.back()];
        raised.pop_back();
        if (target.depth >= CATXMLBounds::entityDepth)
            return false;
        for (const Symbol referrer : target.referrers)
        {
            Entity& entity = m_Entities[referrer];
            if (entity.depth > target.depth)
                continue;
            entity.depth = target.depth + 1;
            raised.push_back(referrer);
        }
    }
    return true;
}

void CATXMLEntities::DeclareExternal(std::string_view name)
{
    m_Entities[SymbolOf('&' + std::string(name))].declared = true;
}

bool CATXMLEntities::AreDeclared(std::string_view markup)
{
    std::vector<std::string_view> texts{markup};
    while (!texts.empty())
    {
        const std::string key = TakeReference('&', texts.back());
        if (key.empty())
        {
            texts.pop_back();
            continue;
        }
        Entity& entity = m_Entities[SymbolOf(key)];
        if (!entity.declared)
            return false;
        if (entity.complete)
            continue;
        entity.complete = true; // an undeclared one fails the whole document, so it need not be taken back
        texts.push_back(entity.text);
    }
    return true;
}
