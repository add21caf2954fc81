#include "VEXMELKConfig.h"

#include "CATPath.h"
#include "VEXMELKAnswer.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"
#include "VEXMELKGUI.h"
#include "VEXMELKSAXErrorHandler.h"
#include "VEXMELKStandardCatalogue.h"
#include "VEXMELKUtilities.h"

const CATUnicodeString VEXMELKConfig::defaultCategory("default");
CATIXMLDOMDocumentBuilder_var VEXMELKConfig::m_spDOMParser;

VEXMELKConfig::VEXMELKConfig(CATUnicodeString path, CATUnicodeString fileName)
    : m_StandardLevels{{{1, {}}, {2, {}}, {3, {}}}},
      m_ShowErrors(1),
      m_XMLFilePath(std::move(path)),
      m_XMLFileName(std::move(fileName)),
      m_ObsoleteFormatWarned(0)
{
}

VEXMELKConfig::VEXMELKConfig(const VEXMELKConfig& other) = default;
VEXMELKConfig& VEXMELKConfig::operator=(const VEXMELKConfig& other) = default;
VEXMELKConfig::~VEXMELKConfig() = default;

void VEXMELKConfig::SetXMLFilePath(const CATUnicodeString& path) { m_XMLFilePath = path; }

void VEXMELKConfig::SetXMLFileName(const CATUnicodeString& fileName) { m_XMLFileName = fileName; }

// Public queries ----------------------------------------------------------------------

unsigned char VEXMELKConfig::GetLoading(
    const CATUnicodeString& standard, CATUnicodeString& loading, const CATUnicodeString& category, unsigned char rear)
{
    return Answer(
        [&]() -> unsigned char
        {
            const char* attribute = rear ? "rear_loading" : "loading";
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element != NULL_var)
                loading = AttributeText(element, attribute).value_or(VEXMELKNodeText());
            if (!category.IsEmpty() && !standard.IsEmpty())
                GetAttributeMapItemValue(
                    GetStandardDataAttributeMap(standard, category, 1), attribute, "", loading, NULL_var);
            return rear && loading.IsEmpty() ? GetLoading(standard, loading, category, 0) : 1;
        });
}

unsigned char VEXMELKConfig::GetDefaultSettingsName(const CATUnicodeString& standard, CATUnicodeString& name)
{
    return Answer(
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            CATIDOMElement_var settings = GetDefaultSettingsElement(roots.CustomerRootElement);
            CATIDOMElement_var inSettings = GetStandardElement(settings, standard);
            CATIDOMElement_var element = GetStandardElement(standard);
            return GetDefaultSettingsName(inSettings, name) || GetDefaultSettingsName(element, name) ||
                   GetDefaultSettingsName(roots.DefaultRootElement, standard, name);
        });
}

int VEXMELKConfig::FindStandardLevel(const CATUnicodeString& standard)
{
    return Answer([&] { return HasDocuments() ? m_Catalogue->FindLevel(standard) : 0; });
}

unsigned char VEXMELKConfig::BooleanFromString(const CATUnicodeString& text) { return CompareStrings(text, "TRUE"); }

unsigned char VEXMELKConfig::CompareStrings(const CATUnicodeString& left, const CATUnicodeString& right)
{
    CATUnicodeString upperLeft = left;
    CATUnicodeString upperRight = right;
    upperLeft.ToUpper();
    upperRight.ToUpper();
    return upperLeft == upperRight;
}

// Documents ----------------------------------------------------------------------

CATIXMLDOMDocumentBuilder_var VEXMELKConfig::GetDOMParser()
{
    if (m_spDOMParser == NULL_var)
        CreateCATIXMLDOMDocumentBuilder(m_spDOMParser, CLSID_XML4C_DOM);
    return m_spDOMParser;
}

unsigned char VEXMELKConfig::GetRootDOMElement(const CATUnicodeString& filePath, CATIDOMElement_var& root)
{
    root = NULL_var;
    const CATIXMLDOMDocumentBuilder_var parser = GetDOMParser();
    if (parser == NULL_var)
        return 0;

    CATListValCATUnicodeString supported;
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    parser->GetSupportedOptions(supported);
    const auto set = [&](const CATUnicodeString& option, const CATUnicodeString& value)
    {
        if (supported.Locate(option) == 0)
            return;
        names.Append(option);
        values.Append(value);
    };
    set("CATDoValidation", "false");
    set("CATDocumentTypeDirectory", m_XMLFilePath);
    const auto handler = CATHandle<VEXMELKSAXErrorHandler>::Create();
    const auto errorHandler =
        CATISAXErrorHandler_var::Adopt(CreateTIECATISAXErrorHandlerVEXMELKSAXErrorHandler(handler.Get()));

    CATIDOMDocument_var document;
    const CATResult result = parser->Parse(filePath, names, values, errorHandler, NULL_var, document);
    if (SUCCEEDED(result) && document != NULL_var)
    {
        root = document->GetDocumentElement();
        return 1;
    }
    VEXMELKGUI::ShowError(VEXMELKUtilities::GetNLSMessage("NotFoundCFGFile.MSG") + filePath, "Error", 0, nullptr);
    return 0;
}

void VEXMELKConfig::ReportMissingFile(const CATUnicodeString& filePath)
{
    if (!m_ShowErrors)
        return;
    VEXMELKGUI::ShowError(filePath + VEXMELKUtilities::GetNLSMessage("NotFoundCFGFile.MSG") + "\n" +
                              VEXMELKUtilities::GetNLSMessage("CheckCFGDir.MSG"),
        "Error", 0, nullptr);
    m_ShowErrors = 0;
}

unsigned char VEXMELKConfig::GetRootDOMElement(CATIDOMElement_var& root)
{
    const CATUnicodeString filePath = m_XMLFilePath + "\\" + m_XMLFileName;
    if (VEXMELKUtilities::FileExists(filePath))
        return GetRootDOMElement(filePath, root);
    ReportMissingFile(filePath);
    return 0;
}

unsigned char VEXMELKConfig::HasDocuments()
{
    if (m_spRootElement != NULL_var)
        return 1;
    const bool loaded = !m_LoadFailed && LoadDocuments();
    m_LoadFailed = !loaded && m_RunningQueries > 0;
    return loaded;
}

unsigned char VEXMELKConfig::GetRootDOMElements(VEXMELKRootDOMElementsDefinition& roots)
{
    if (!HasDocuments())
        return 0;
    roots.DefaultRootElement = m_spRootElement;
    roots.CustomerRootElement = m_spCustomerRootElement;
    return 1;
}

// Nothing is kept of a load that fails in either document, so nothing of the "Default" file is handed out in the place
// of a broken "Customer" file.
unsigned char VEXMELKConfig::LoadDocuments()
{
    CATIDOMElement_var root;
    CATIDOMElement_var customerRoot;
    const CATUnicodeString defaultFile = CATMakePath(m_XMLFilePath + "\\" + "Default", m_XMLFileName);
    if (VEXMELKUtilities::FileExists(defaultFile))
    {
        const CATUnicodeString customerFile = CATMakePath(m_XMLFilePath + "\\" + "Customer", m_XMLFileName);
        if (!GetRootDOMElement(defaultFile, root) ||
            (VEXMELKUtilities::FileExists(customerFile) && !GetRootDOMElement(customerFile, customerRoot)))
            return 0;
    }
    else
    {
        const CATUnicodeString singleFile = CATMakePath(m_XMLFilePath, m_XMLFileName);
        if (!VEXMELKUtilities::FileExists(singleFile))
        {
            ReportMissingFile(singleFile);
            return 0;
        }
        if (!GetRootDOMElement(singleFile, root))
            return 0;
    }

    auto catalogue = std::make_shared<VEXMELKStandardCatalogue>();
    if (customerRoot != NULL_var)
        catalogue->AddDocument(customerRoot);
    catalogue->AddDocument(root);
    FillStandardLevelList(root, *catalogue);
    m_Catalogue = catalogue;
    m_spRootElement = root;
    m_spCustomerRootElement = customerRoot;
    return 1;
}

// The customer document has no say in the levels.
unsigned char VEXMELKConfig::FillStandardLevelList(const CATIDOMElement_var& root, VEXMELKStandardCatalogue& catalogue)
{
    for (StandardLevel& level : m_StandardLevels)
        level.Standards.RemoveAll();
    const CATIDOMElement_var priorities = SingleElement(root, "priorities");
    for (StandardLevel& level : m_StandardLevels)
    {
        CATUnicodeString levelText;
        levelText.BuildFromNum(level.Level);
        const CATIDOMElement_var priority = FindChild(priorities, "priority", "level", levelText);
        const bool nameless = VisitElements(priority, "standard",
            [&](const CATIDOMElement_var& standard)
            {
                const std::optional<VEXMELKNodeText> name = AttributeText(standard, "name");
                if (name)
                    level.Standards.Append(CATUnicodeString(*name));
                return !name;
            });
        if (!nameless)
            continue;
        for (StandardLevel& filled : m_StandardLevels)
            filled.Standards.RemoveAll();
        return 0;
    }
    for (const StandardLevel& level : m_StandardLevels)
        for (const CATUnicodeString& standard : level.Standards)
            catalogue.SetLevel(standard, level.Level);
    return 1;
}

void VEXMELKConfig::ReportFailure(const char* reason) noexcept
{
    try
    {
        VEXMELKGUI::ShowError(CATUnicodeString("The configuration query failed: ") + reason, "Error", 0, nullptr);
    }
    catch (const std::exception&) // not even the box could be shown
    {
    }
}

// Standards and categories ----------------------------------------------------------------------

CATIDOMElement_var VEXMELKConfig::GetStandardElement(const CATUnicodeString& standard)
{
    return HasDocuments() ? m_Catalogue->FindStandard(standard) : CATIDOMElement_var();
}

CATIDOMElement_var VEXMELKConfig::GetRootChildElement(std::string_view tag, std::string_view name)
{
    if (!HasDocuments())
        return NULL_var;
    const CATIDOMElement_var found = FindChild(m_spCustomerRootElement, tag, "name", name);
    return found != NULL_var ? found : FindChild(m_spRootElement, tag, "name", name);
}

void VEXMELKConfig::GetRootChildNames(std::string_view tag, CATListValCATUnicodeString& names)
{
    names.RemoveAll();
    if (!HasDocuments())
        return;
    CATListValCATUnicodeString ofBase;
    ChildAttributeValues(m_spCustomerRootElement, tag, "name", names);
    ChildAttributeValues(m_spRootElement, tag, "name", ofBase);
    if (m_spCustomerRootElement == NULL_var)
        std::swap(names, ofBase);
    else
        AppendMissing(names, ofBase);
}

CATIDOMElement_var VEXMELKConfig::GetStandardElement(CATIDOMElement_var& parent, const CATUnicodeString& standard)
{
    return FindChild(parent, "standard", "name", standard);
}

VEXMELKConfig::StandardData VEXMELKConfig::FindStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category)
{
    if (!HasDocuments())
        return {};
    const auto found = m_Catalogue->FindCategories(standard, category, defaultCategory);
    return {found.standard, found.category, found.defaultCategory};
}

// The category, or in its place the standard itself where that is allowed: for "default", and when the standard has no
// category at all.
CATIDOMElement_var VEXMELKConfig::CategoryOrObsolete(
    const StandardData& data, const CATUnicodeString& category, unsigned char allowObsolete)
{
    const bool isDefault = category == defaultCategory;
    const CATIDOMElement_var& found = isDefault ? data.defaultCategory : data.category;
    if (found != NULL_var || !isDefault || !allowObsolete || FirstChild(data.standard, "category") != NULL_var)
        return found;
    if (data.standard != NULL_var && !m_ObsoleteFormatWarned)
    {
        VEXMELKGUI::ShowWarning(VEXMELKUtilities::GetNLSMessage("ObsoleteCfgFormat.MSG"), "Warning", 0, nullptr);
        m_ObsoleteFormatWarned = 1;
    }
    return data.standard;
}

CATIDOMNamedNodeMap_var VEXMELKConfig::GetStandardDataAttributeMap(
    const CATUnicodeString& standard, const CATUnicodeString& category, unsigned char allowObsolete)
{
    CATIDOMElement_var element;
    return GetCategoryAttrMapElement(standard, category, element, allowObsolete);
}

CATIDOMNamedNodeMap_var VEXMELKConfig::GetCategoryAttrMapElement(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATIDOMElement_var& element, unsigned char allowObsolete)
{
    element = CategoryOrObsolete(FindStandardData(standard, category), category, allowObsolete);
    return AttributesOf(element);
}

CATIDOMNamedNodeMap_var VEXMELKConfig::GetCategoryAttributeMap(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATIDOMNamedNodeMap_var& defaultMap)
{
    const StandardData data = FindStandardData(standard, category);
    const CATIDOMElement_var element = CategoryOrObsolete(data, category, 1);
    defaultMap = AttributesOf(CategoryOrObsolete(data, defaultCategory, element == NULL_var));
    return AttributesOf(element);
}

CATIDOMElement_var VEXMELKConfig::GetCategoryElement(const CATUnicodeString& standard, const CATUnicodeString& category,
    CATIDOMNamedNodeMap_var& map, CATIDOMNamedNodeMap_var& defaultMap)
{
    const StandardData data = FindStandardData(standard, category);
    CATIDOMElement_var element = CategoryOrObsolete(data, category, 1);
    const CATIDOMElement_var defaultElement = CategoryOrObsolete(data, defaultCategory, element == NULL_var);
    if (element == NULL_var)
        element = defaultElement;
    map = AttributesOf(element);
    defaultMap = AttributesOf(defaultElement);
    return element;
}

CATIDOMElement_var VEXMELKConfig::GetCategoryElement(const CATUnicodeString& standard, const CATUnicodeString& category)
{
    const StandardData data = FindStandardData(standard, category);
    const CATIDOMElement_var element = CategoryOrObsolete(data, category, 1);
    return element != NULL_var ? element : CategoryOrObsolete(data, defaultCategory, 1);
}

// Children ----------------------------------------------------------------------

unsigned char VEXMELKConfig::GetChildElementWithAtrributeValue(const CATIDOMElement_var& parent,
    const CATUnicodeString& tag, const CATUnicodeString& attribute, const CATUnicodeString& value,
    CATIDOMElement_var& found)
{
    found = FindChild(parent, tag, attribute, value);
    return found != NULL_var;
}

unsigned char VEXMELKConfig::GetChildElementWithAttributeMap(const CATIDOMElement_var& parent,
    const CATUnicodeString& tag, CATIDOMElement_var& found, CATIDOMNamedNodeMap_var& map)
{
    found = FirstChild(parent, tag);
    map = AttributesOf(found);
    return found != NULL_var;
}

void VEXMELKConfig::GetChildElementAttributeValues(CATIDOMElement_var& parent, const CATUnicodeString& tag,
    const CATUnicodeString& attribute, CATListValCATUnicodeString& values)
{
    ChildAttributeValues(parent, tag, attribute, values);
}

unsigned char VEXMELKConfig::GetChildElementWithAngleAttributeValue(const CATIDOMElement_var& parent,
    const CATUnicodeString& tag, const CATUnicodeString& attribute, double angle, CATIDOMElement_var& found)
{
    found = NearestAngle(parent, tag, attribute, angle);
    return found != NULL_var;
}

unsigned char VEXMELKConfig::GetChildElementWithLengthRangeAttributeValue(const CATIDOMElement_var& parent,
    const CATUnicodeString& tag, const CATUnicodeString& attribute, double length, CATIDOMElement_var& found)
{
    found = NearestLengthBelow(parent, tag, attribute, length);
    return found != NULL_var;
}

// Values ----------------------------------------------------------------------

void VEXMELKConfig::AddUnits(const CATUnicodeString& unit, CATUnicodeString& value)
{
    value = NormalizedValue(unit, value);
}

// NOLINTBEGIN(performance-unnecessary-value-param): the signature is given
unsigned char VEXMELKConfig::GetAttributeMapItemValue(CATIDOMNamedNodeMap_var map, const CATUnicodeString& name,
    const CATUnicodeString& unit, CATUnicodeString& value, CATIDOMNamedNodeMap_var defaultMap)
{
    return ReadFields(map, defaultMap, {{name, unit, value, Keep}});
}
// NOLINTEND(performance-unnecessary-value-param)

double VEXMELKConfig::GetNumber(CATUnicodeString text) { return NumberFromText(std::move(text)); }

unsigned char VEXMELKConfig::ReadCategory(
    const CATUnicodeString& standard, const CATUnicodeString& category, std::initializer_list<VEXMELKField> fields)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard, category, defaultMap);
            if (map == NULL_var && defaultMap == NULL_var)
                return 0;
            ReadFields(map, defaultMap, fields);
            return 1;
        });
}

// Default settings ----------------------------------------------------------------------

CATIDOMElement_var VEXMELKConfig::GetDefaultSettingsElement(CATIDOMElement_var& root)
{
    return SingleElement(root, "DefaultSettings");
}

CATIDOMElement_var VEXMELKConfig::GetDefaultSettingsElement(const CATUnicodeString& settingsName)
{
    VEXMELKRootDOMElementsDefinition roots;
    if (!GetRootDOMElements(roots))
        return NULL_var;
    CATIDOMElement_var settings = GetDefaultSettingsElement(roots.CustomerRootElement);
    if (settings == NULL_var)
        settings = GetDefaultSettingsElement(roots.DefaultRootElement);
    return FindChild(settings, "Settings", "name", settingsName);
}

unsigned char VEXMELKConfig::GetDefaultSettingsName(CATIDOMElement_var& element, CATUnicodeString& name)
{
    if (element == NULL_var)
        return 0;
    CATListValCATUnicodeString names;
    ChildAttributeValues(element, "UseDefaultSettings", "name", names);
    if (names.Size() == 1)
        name = names[1];
    return !name.IsEmpty();
}

unsigned char VEXMELKConfig::GetDefaultSettingsName(
    CATIDOMElement_var& root, const CATUnicodeString& standard, CATUnicodeString& name)
{
    CATIDOMElement_var settings = GetDefaultSettingsElement(root);
    CATIDOMElement_var inSettings = GetStandardElement(settings, standard);
    CATIDOMElement_var element = GetStandardElement(standard);
    return GetDefaultSettingsName(inSettings, name) || GetDefaultSettingsName(element, name);
}
