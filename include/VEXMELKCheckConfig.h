// VEXMELKCheckConfig: the base of all configurations that describe one check. It lists the standards of a file.
#ifndef VEXMELKCheckConfig_H
#define VEXMELKCheckConfig_H

#include "VEXMELKConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKCheckConfig : public VEXMELKConfig
{
public:
    static const VEXMELKDescription description;

    VEXMELKCheckConfig(CATUnicodeString path, CATUnicodeString fileName);
    VEXMELKCheckConfig(const VEXMELKCheckConfig& other);
    VEXMELKCheckConfig& operator=(const VEXMELKCheckConfig& other);
    ~VEXMELKCheckConfig() override;

    // The names of the standards that have the category or a category "default": those of the customer document, then
    // those that only the base document has. Unless "unordered", sorted by priority level (0 for a standard that is in
    // no priority list, then 1, 2, 3), without the levels above maxLevel. Empty when the documents do not load.
    void GetStandardNames(
        CATListValCATUnicodeString& names, const CATUnicodeString& category, unsigned char unordered, int maxLevel);

    // Appends the names of the standards below the root that have the category or a category "default", in document
    // order. A standard without a name is skipped.
    void GetStandardWithCategoryList(
        const CATIDOMElement_var& root, const CATUnicodeString& category, CATListValCATUnicodeString& names);

protected:
    // For derived classes, to use as they see fit.
    CATIDOMElement_var m_spWorkingElement1;
    CATIDOMElement_var m_spWorkingElement2;
};

#endif
