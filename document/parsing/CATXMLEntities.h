// What a document declares as entities, and where its references lead.
//
// The parser underneath drops a reference to an unknown entity silently when there are declarations that it could not
// read, and follows chains of references by recursion. Both are caught here before they happen.
#ifndef CATXMLEntities_H
#define CATXMLEntities_H

#include "CATXMLDocument.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

class CATXMLEntities
{
public:
    // Records an internal entity: its kind is '&' (general) or '%' (parameter). False when the chain of entities that
    // refer to entities of the same kind becomes too long, or runs in a circle.
    bool DeclareInternal(char kind, std::string_view name, std::string_view text);
    // Records a general entity that lies in another file.
    void DeclareExternal(std::string_view name);

    // Whether the references in a piece of markup lead to declared general entities only, through whatever entities lie
    // between.
    bool AreDeclared(std::string_view markup);

private:
    using Symbol = CATXMLNames::Symbol;

    struct Entity
    {
        std::string text;
        bool declared = false;
        bool complete = false; // all that it leads to is known to be declared
        int depth = 0;         // of the longest chain below it
        std::vector<Symbol> referrers;
    };

    Symbol SymbolOf(const std::string& key);
    bool RaiseReferrers(Symbol symbol);

    CATXMLNames m_Keys;            // kinds and names
    std::deque<Entity> m_Entities; // by symbol; also those that are only referred to
};

#endif
