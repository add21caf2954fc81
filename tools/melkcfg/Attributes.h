// Lists of configurable attributes as JSON. The access objects of an attribute exist for one call.
#ifndef MELKCFG_Attributes_H
#define MELKCFG_Attributes_H

#include "Codec.h"
#include "VEXMELKCFGAttributeStr.h"

#include <memory>

// An attribute list that owns its access objects.
class AttributeList : public CATListValVEXMELKCFGAttributeStr
{
public:
    VEXMELKAttrAccessBase* NewAccess()
    {
        m_Accesses.push_back(std::make_shared<VEXMELKAttrAccessBase>());
        return m_Accesses.back().get();
    }

private:
    std::vector<std::shared_ptr<VEXMELKAttrAccessBase>> m_Accesses;
};

template <> struct Codec<AttributeList>
{
    static std::string Type() { return "list of attributes {kind, name, objects: [object or null, ...]}"; }
    static Json Write(const AttributeList& attributes);
    static void Read(const Json& json, AttributeList& attributes, const std::string& where);
};

#endif
