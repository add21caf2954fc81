// The list of standards that a check offers. It looks at any depth, unlike queries, which find children of the root.
#include "VEXMELKCheckConfig.h"

#include "VEXMELKReader.h"

#include <array>

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKCheckConfig::GetStandardNames>("GetStandardNames", Output("names"), categoryArgument,
        VEXMELKParameter{.name = "unordered", .role = VEXMELKRole::Switch},
        VEXMELKParameter{.name = "maxLevel", .role = VEXMELKRole::Level}),
};

constinit const VEXMELKDescription VEXMELKCheckConfig::description{
    .operations = operations,
    .base = &VEXMELKConfig::description,
};

VEXMELKCheckConfig::VEXMELKCheckConfig(CATUnicodeString path, CATUnicodeString fileName)
    : VEXMELKConfig(std::move(path), std::move(fileName))
{
}

VEXMELKCheckConfig::VEXMELKCheckConfig(const VEXMELKCheckConfig& other) = default;
VEXMELKCheckConfig& VEXMELKCheckConfig::operator=(const VEXMELKCheckConfig& other) = default;
VEXMELKCheckConfig::~VEXMELKCheckConfig() = default;

void VEXMELKCheckConfig::GetStandardNames(
    CATListValCATUnicodeString& names, const CATUnicodeString& category, unsigned char unordered, int maxLevel)
{
    Answer(*this,
        [&]
        {
            CATListValCATUnicodeString listed; // handed over at the end: the category may be a text of the list
            const auto handOver = [&] { std::swap(names, listed); };
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return handOver();
            CATListValCATUnicodeString found;
            CATListValCATUnicodeString ofBase;
            if (roots.CustomerRootElement != NULL_var)
                GetStandardWithCategoryList(roots.CustomerRootElement, category, found);
            GetStandardWithCategoryList(
                roots.DefaultRootElement, category, roots.CustomerRootElement != NULL_var ? ofBase : found);
            AppendMissing(found, ofBase);

            constexpr int highestLevel = 3;
            std::array<CATListValCATUnicodeString, highestLevel + 1> groups;
            for (const CATUnicodeString& name : found)
            {
                const int level = unordered ? 0 : FindStandardLevel(name);
                if (unordered || level <= maxLevel)
                    groups[static_cast<std::size_t>(level)].Append(name);
            }
            for (const CATListValCATUnicodeString& group : groups)
                for (const CATUnicodeString& name : group)
                    listed.Append(name);
            handOver();
        });
}

void VEXMELKCheckConfig::GetStandardWithCategoryList(
    const CATIDOMElement_var& root, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    Answer(*this,
        [&]
        {
            const std::string_view standardTag = VEXMELKCommon::standards.tag;
            std::vector<CATIDOMElement_var> offering;
            ForEachElement(root, VEXMELKCommon::categories.tag,
                [&](const CATIDOMElement_var& element)
                {
                    const std::optional<VEXMELKNodeText> name = Key(element, VEXMELKCommon::categories);
                    if (name && (category == *name || *name == defaultCategory) &&
                        element->GetParentNode()->GetNodeName() == standardTag)
                        offering.push_back(element);
                });
            ForEachElement(root, standardTag,
                [&](const CATIDOMElement_var& standard)
                {
                    const std::optional<VEXMELKNodeText> name = Key(standard, VEXMELKCommon::standards);
                    if (name && FirstBelow(standard, offering) != NULL_var)
                        names.Append(CATUnicodeString(*name));
                });
        });
}
