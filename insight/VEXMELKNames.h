// The names of standards and categories that documents hold, for whoever suggests or completes them.
#ifndef VEXMELKNames_H
#define VEXMELKNames_H

#include "VEXMELKDocumentText.h"

// The texts of an attribute of the elements with the tag for which isWanted(document, element) is true, each once. The
// Customer document, the last one, comes first.
std::vector<std::string> VEXMELKNames(const std::vector<VEXMELKDocumentText>& documents, std::string_view tag,
    std::string_view attribute,
    const std::function<bool(const VEXMELKDocumentText& document, std::size_t element)>& isWanted);

std::vector<std::string> VEXMELKNamesOfStandards(const std::vector<VEXMELKDocumentText>& documents);

// Of the first standard of that name, which hides all others; empty when there is none.
std::vector<std::string> VEXMELKNamesOfCategories(
    const std::vector<VEXMELKDocumentText>& documents, std::string_view standard);

#endif
