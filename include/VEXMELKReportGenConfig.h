// VEXMELKReportGenConfig: the texts of report templates, from "ReportTemplates.xml".
//
//     <template name="Standard">
//       <header>...</header><footer>...</footer>
//       <feature type="Mirror">...</feature><feature type="default">...</feature>
//     </template>
//
// The file knows no standards: templates stand below the root. A template is taken whole from the customer document,
// else from the base document. A text counts only when it is the first thing in its element: a comment, a CDATA section
// or an element before it makes it missing. Texts are handed out as written.
#ifndef VEXMELKReportGenConfig_H
#define VEXMELKReportGenConfig_H

#include "VEXMELKConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKReportGenConfig : public VEXMELKConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKReportGenConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the list by the names of the templates: those of the customer document, then those that only the base
    // document has.
    void GetTemplates(CATListValCATUnicodeString& names);

    // The first header or footer of a template. False, with the text untouched, when there is none.
    unsigned char GetTemplateHeaderData(const CATUnicodeString& templateName, CATUnicodeString& text);
    unsigned char GetTemplateFooterData(const CATUnicodeString& templateName, CATUnicodeString& text);

    // The text for a feature type: of the "feature" of that type, or else of the one of type "default". False, with the
    // text untouched, when there is none.
    unsigned char GetTemplateFeatureData(
        const CATUnicodeString& templateName, const CATUnicodeString& featureType, CATUnicodeString& text);

private:
    CATIDOMElement_var GetTemplateElement(const CATUnicodeString& templateName);
    unsigned char GetTemplateChildText(
        const CATUnicodeString& templateName, const CATUnicodeString& childName, CATUnicodeString& text);
    // The first node with that name below the parent, or for an empty name its first child; only if it is of that type.
    static unsigned char GetChildNode(const CATIDOMElement_var& parent, const CATUnicodeString& name,
        CATIDOMNode_var& node, CATIDOMNode::NodeType type);
};

#endif
