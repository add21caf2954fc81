// The texts of report templates. A text has to be the first thing in its element. The file has no standards.
#include "VEXMELKReportGenConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr const char* defaultFeature = "default";

constexpr VEXMELKRow templateKey = Text("name", "its name", AsWritten(), Skip);
constexpr VEXMELKElement templates{.tag = "template",
    .choice = VEXMELKChoice::ByKey,
    .key = &templateKey,
    .meaning = "a template",
    .whenMissing = "fails"};
constexpr VEXMELKElement TextOf(const char* tag)
{
    return {.tag = tag,
        .below = &templates,
        .place = VEXMELKPlace::AnyDepth,
        .meaning = "its text; the first of each counts",
        .whenMissing = "fails",
        .hasText = true};
}
constexpr VEXMELKElement header = TextOf("header");
constexpr VEXMELKElement footer = TextOf("footer");
constexpr VEXMELKRow featureKey = Text("type", "the type", AsWritten(), Skip);
constexpr VEXMELKElement features{.tag = "feature",
    .below = &templates,
    .choice = VEXMELKChoice::ByKey,
    .key = &featureKey,
    .meaning = "the text for a type of feature; the first of a type counts",
    .whenMissing = "that of the type `default`, else fails",
    .hasText = true};
constexpr const VEXMELKElement* elements[] = {&templates, &header, &footer, &features};

constexpr VEXMELKParameter templateParameter{.name = "templateName", .role = VEXMELKRole::Key, .element = &templates};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKReportGenConfig::GetTemplates>("GetTemplates", Output("names")),
    VEXMELKDescribe<&VEXMELKReportGenConfig::GetTemplateHeaderData>(
        "GetTemplateHeaderData", templateParameter, Output("text")),
    VEXMELKDescribe<&VEXMELKReportGenConfig::GetTemplateFooterData>(
        "GetTemplateFooterData", templateParameter, Output("text")),
    VEXMELKDescribe<&VEXMELKReportGenConfig::GetTemplateFeatureData>("GetTemplateFeatureData", templateParameter,
        VEXMELKParameter{.name = "featureType", .role = VEXMELKRole::Key, .element = &features}, Output("text")),
};

constinit const VEXMELKDescription VEXMELKReportGenConfig::description{
    .name = "ReportGen",
    .file = "ReportTemplates.xml",
    .meaning = "The texts of report templates.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKConfig::description,
    .root = "templates",
};

VEXMELKReportGenConfig::VEXMELKReportGenConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, description.file)
{
}

void VEXMELKReportGenConfig::GetTemplates(CATListValCATUnicodeString& names)
{
    Answer(*this, [&] { GetRootChildNames(templates, names); });
}

CATIDOMElement_var VEXMELKReportGenConfig::GetTemplateElement(const CATUnicodeString& templateName)
{
    return GetRootChildElement(templates, templateName);
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
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var templateElement = GetTemplateElement(templateName);
            for (const VEXMELKElement* described : {&header, &footer})
                if (childName == described->tag)
                    AnnounceLookUp(templateElement, *described);
            CATIDOMNode_var child;
            CATIDOMNode_var textNode;
            if (!GetChildNode(templateElement, childName, child, CATIDOMNode::ELEMENT_NODE) ||
                !GetChildNode(CATIDOMElement_var(child), "", textNode, CATIDOMNode::TEXT_NODE))
                return 0;
            text = CATIDOMText_var(textNode)->GetData();
            return 1;
        });
}

unsigned char VEXMELKReportGenConfig::GetTemplateHeaderData(
    const CATUnicodeString& templateName, CATUnicodeString& text)
{
    return GetTemplateChildText(templateName, header.tag, text);
}

unsigned char VEXMELKReportGenConfig::GetTemplateFooterData(
    const CATUnicodeString& templateName, CATUnicodeString& text)
{
    return GetTemplateChildText(templateName, footer.tag, text);
}

unsigned char VEXMELKReportGenConfig::GetTemplateFeatureData(
    const CATUnicodeString& templateName, const CATUnicodeString& featureType, CATUnicodeString& text)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var templateElement = GetTemplateElement(templateName);
            CATIDOMElement_var feature = FindByKey(templateElement, features, featureType);
            if (feature == NULL_var)
                feature = FindByKey(templateElement, features, defaultFeature);
            CATIDOMNode_var textNode;
            if (!GetChildNode(feature, "", textNode, CATIDOMNode::TEXT_NODE))
                return 0;
            text = CATIDOMText_var(textNode)->GetData();
            return 1;
        });
}
