#include "VEXMELKReportGenConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"

VEXMELKReportGenConfig::VEXMELKReportGenConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, "ReportTemplates.xml")
{
}

void VEXMELKReportGenConfig::GetTemplates(CATListValCATUnicodeString& names)
{
    Answer([&] { GetRootChildNames("template", names); });
}

CATIDOMElement_var VEXMELKReportGenConfig::GetTemplateElement(const CATUnicodeString& templateName)
{
    return GetRootChildElement("template", templateName);
}

unsigned char VEXMELKReportGenConfig::GetChildNode(
    const CATIDOMElement_var& parent, const CATUnicodeString& name, CATIDOMNode_var& node, CATIDOMNode::NodeType type)
{
    if (parent == NULL_var)
        return 0;
    const CATIDOMNode_var first =
        name.IsEmpty() ? parent->GetFirstChild() : CATIDOMNode_var(FirstElement(parent, name));
    if (first == NULL_var || first->GetNodeType() != type)
        return 0;
    node = first;
    return 1;
}

unsigned char VEXMELKReportGenConfig::GetTemplateChildText(
    const CATUnicodeString& templateName, const CATUnicodeString& childName, CATUnicodeString& text)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNode_var child;
            CATIDOMNode_var textNode;
            if (!GetChildNode(GetTemplateElement(templateName), childName, child, CATIDOMNode::ELEMENT_NODE) ||
                !GetChildNode(CATIDOMElement_var(child), "", textNode, CATIDOMNode::TEXT_NODE))
                return 0;
            text = CATIDOMText_var(textNode)->GetData();
            return 1;
        });
}

unsigned char VEXMELKReportGenConfig::GetTemplateHeaderData(
    const CATUnicodeString& templateName, CATUnicodeString& text)
{
    return GetTemplateChildText(templateName, "header", text);
}

unsigned char VEXMELKReportGenConfig::GetTemplateFooterData(
    const CATUnicodeString& templateName, CATUnicodeString& text)
{
    return GetTemplateChildText(templateName, "footer", text);
}

unsigned char VEXMELKReportGenConfig::GetTemplateFeatureData(
    const CATUnicodeString& templateName, const CATUnicodeString& featureType, CATUnicodeString& text)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var templateElement = GetTemplateElement(templateName);
            CATIDOMElement_var feature = FindChild(templateElement, "feature", "type", featureType);
            if (feature == NULL_var)
                feature = FindChild(templateElement, "feature", "type", "default");
            CATIDOMNode_var textNode;
            if (!GetChildNode(feature, "", textNode, CATIDOMNode::TEXT_NODE))
                return 0;
            text = CATIDOMText_var(textNode)->GetData();
            return 1;
        });
}
