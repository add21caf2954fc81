// Standards are children of the root, and categories children of a standard, as the catalogue takes them.
#include "VEXMELKNames.h"

#include <algorithm>

namespace {

bool IsStandard(const VEXMELKDocumentText& document, std::size_t element)
{
    return document.Elements()[element].parent == 0;
}

} // namespace

std::vector<std::string> VEXMELKNames(const std::vector<VEXMELKDocumentText>& documents, std::string_view tag,
    std::string_view attribute,
    const std::function<bool(const VEXMELKDocumentText& document, std::size_t element)>& isWanted)
{
    std::vector<std::string> names;
    for (std::size_t number = documents.size(); number-- > 0;)
        for (std::size_t element = 0; element < documents[number].Elements().size(); ++element)
        {
            const VEXMELKDocumentText& document = documents[number];
            if (document.Elements()[element].node->GetTagName() != tag || !isWanted(document, element))
                continue;
            const std::string name(document.TextOf(element, attribute));
            if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
        }
    return names;
}

std::vector<std::string> VEXMELKNamesOfStandards(const std::vector<VEXMELKDocumentText>& documents)
{
    return VEXMELKNames(documents, "standard", "name", IsStandard);
}

std::vector<std::string> VEXMELKNamesOfCategories(
    const std::vector<VEXMELKDocumentText>& documents, std::string_view standard)
{
    for (std::size_t number = documents.size(); number-- > 0;)
        for (std::size_t element = 0; element < documents[number].Elements().size(); ++element)
        {
            const VEXMELKDocumentText& document = documents[number];
            if (document.Elements()[element].node->GetTagName() != "standard" || !IsStandard(document, element) ||
                document.TextOf(element, "name") != standard)
                continue;
            return VEXMELKNames(documents, "category", "name",
                [&](const VEXMELKDocumentText& other, std::size_t category)
                { return &other == &document && other.Elements()[category].parent == element; });
        }
    return {};
}
