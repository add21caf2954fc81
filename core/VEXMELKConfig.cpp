// Loading documents and finding standards, categories and default settings in them. What a box runs may ask again.
#include "VEXMELKConfig.h"

#include "CATPath.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKGUI.h"
#include "VEXMELKReader.h"
#include "VEXMELKSAXErrorHandler.h"
#include "VEXMELKSettings.h"
#include "VEXMELKStandardCatalogue.h"
#include "VEXMELKUtilities.h"
#include "VEXMELKValues.h"

namespace {

constexpr const char* loadingMeaning = "the loading state that the check uses";
constexpr const char* rearLoadingMeaning = "the same for the rear axle";
constexpr VEXMELKOutputTable<CATUnicodeString> standardLoading{Name("loading", "loading", loadingMeaning, AsWritten())};
constexpr VEXMELKOutputTable<CATUnicodeString> standardRearLoading{
    Name("rear_loading", "loading", rearLoadingMeaning, AsWritten())};
constexpr VEXMELKOutputTable<CATUnicodeString> categoryLoading{
    Name("loading", "loading", "overrides that of the standard", Keep)};
constexpr VEXMELKOutputTable<CATUnicodeString> categoryRearLoading{
    Name("rear_loading", "loading", "overrides that of the standard", Keep)};
constexpr VEXMELKElement standardElements = VEXMELKCommon::StandardWith(standardLoading.rows, standardRearLoading.rows);
constexpr VEXMELKElement categoryElements =
    CategoryWith(categoryLoading.rows, VEXMELKFallBack::None, categoryRearLoading.rows);

constexpr VEXMELKWord levels[] = {{"1", 1}, {"2", 2}, {"3", 3}};
constexpr VEXMELKRow priorityLevel =
    Word("level", {levels}, "exactly `1`, `2` or `3`; others are ignored", AsWritten(), Skip);
constexpr VEXMELKRow prioritizedName =
    Name("name", "standard", "its name; one element without `name` empties all levels", AsWritten(), Fail);
constexpr VEXMELKElement prioritiesElement{.tag = "priorities",
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Single,
    .meaning = "the levels; in the Default document only"};
constexpr VEXMELKElement priorityElements{.tag = "priority",
    .below = &prioritiesElement,
    .choice = VEXMELKChoice::ByKey,
    .key = &priorityLevel,
    .meaning = "one level"};
constexpr VEXMELKElement prioritizedElements{.tag = "standard",
    .below = &priorityElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .key = &prioritizedName,
    .meaning = "one standard of the level"};

constexpr const VEXMELKElement* elements[] = {&standardElements, &categoryElements, &prioritiesElement,
    &priorityElements, &prioritizedElements, &VEXMELKSettings::defaults, &VEXMELKSettings::ofStandard,
    &VEXMELKSettings::usedByEntry, &VEXMELKSettings::usedByStandard, &VEXMELKSettings::set, &VEXMELKSettings::parameter,
    &VEXMELKSettings::range};

using SettingsNameOf = unsigned char (VEXMELKConfig::*)(const CATUnicodeString&, CATUnicodeString&);

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKConfig::GetLoading>("GetLoading", standardArgument, Output("loading"), categoryArgument,
        VEXMELKParameter{.name = "rear", .role = VEXMELKRole::Switch}),
    VEXMELKDescribe<static_cast<SettingsNameOf>(&VEXMELKConfig::GetDefaultSettingsName)>(
        "GetDefaultSettingsName", standardArgument, Output("name")),
    VEXMELKDescribe<&VEXMELKConfig::FindStandardLevel>("FindStandardLevel", standardArgument),
    VEXMELKDescribe<&VEXMELKConfig::InitStandardData>("InitStandardData", standardArgument, Output("attributes")),
    VEXMELKDescribe<&VEXMELKConfig::FillCFGAttributes>(
        "FillCFGAttributes", VEXMELKParameter{.name = "settings", .role = VEXMELKRole::Settings}, Output("attributes")),
};

constinit const VEXMELKDescription VEXMELKConfig::description{.elements = elements, .operations = operations};

constinit std::atomic<CATIXMLDOMDocumentBuilder*> VEXMELKConfig::m_spDOMParser = nullptr;

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

void VEXMELKConfig::SetXMLFilePath(const CATUnicodeString& path)
{
    Answer(*this, [&] { m_XMLFilePath = path; });
}

void VEXMELKConfig::SetXMLFileName(const CATUnicodeString& fileName)
{
    Answer(*this, [&] { m_XMLFileName = fileName; });
}

// Public queries ----------------------------------------------------------------------

unsigned char VEXMELKConfig::GetLoading(
    const CATUnicodeString& standard, CATUnicodeString& loading, const CATUnicodeString& category, unsigned char rear)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATUnicodeString found = loading; // handed over at the end: the names may be the caller's same text
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element != NULL_var)
                ReadFields(Decimals(), element, rear ? standardRearLoading : standardLoading, found);
            if (!category.IsEmpty() && !standard.IsEmpty())
                ReadFields(Decimals(), GetStandardDataAttributeMap(standard, category, 1), NULL_var,
                    rear ? categoryRearLoading : categoryLoading, found);
            if (rear && found.IsEmpty())
                GetLoading(standard, found, category, 0);
            loading = found;
            return 1;
        });
}

unsigned char VEXMELKConfig::GetDefaultSettingsName(const CATUnicodeString& standard, CATUnicodeString& name)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            CATIDOMElement_var settings = GetDefaultSettingsElement(roots.CustomerRootElement);
            CATIDOMElement_var inSettings = GetStandardElement(settings, standard);
            CATIDOMElement_var element = GetStandardElement(standard);
            CATUnicodeString settingsName = name; // handed over at the end: the standard may be the caller's same text
            const bool found = GetDefaultSettingsName(inSettings, settingsName) ||
                               GetDefaultSettingsName(element, settingsName) ||
                               GetDefaultSettingsName(roots.DefaultRootElement, standard, settingsName);
            name = settingsName;
            return found;
        });
}

int VEXMELKConfig::FindStandardLevel(const CATUnicodeString& standard)
{
    return Answer(*this, [&] { return HasDocuments() ? m_Catalogue->FindLevel(standard) : 0; });
}

unsigned char VEXMELKConfig::BooleanFromString(const CATUnicodeString& text)
{
    return OrElse<unsigned char>(0, [&] { return FlagFromText(text); });
}

unsigned char VEXMELKConfig::CompareStrings(const CATUnicodeString& left, const CATUnicodeString& right)
{
    return OrElse<unsigned char>(0,
        [&]
        {
            CATUnicodeString upperLeft = left;
            CATUnicodeString upperRight = right;
            upperLeft.ToUpper();
            upperRight.ToUpper();
            return upperLeft == upperRight;
        });
}

// Documents ----------------------------------------------------------------------

CATIXMLDOMDocumentBuilder* VEXMELKConfig::GetDOMParser()
{
    CATIXMLDOMDocumentBuilder* parser = m_spDOMParser;
    CATIXMLDOMDocumentBuilder_var created;
    if (parser || FAILED(CreateCATIXMLDOMDocumentBuilder(created, CLSID_XML4C_DOM)))
        return parser;
    if (!m_spDOMParser.compare_exchange_strong(parser, created.Get()))
        return parser; // of another thread
    created->AddRef();
    return created.Get();
}

unsigned char VEXMELKConfig::GetRootDOMElement(const CATUnicodeString& filePath, CATIDOMElement_var& root)
{
    root = NULL_var;
    CATIXMLDOMDocumentBuilder* parser = GetDOMParser();
    if (!parser)
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
    m_ShowErrors = 0;
    VEXMELKGUI::ShowError(filePath + VEXMELKUtilities::GetNLSMessage("NotFoundCFGFile.MSG") + "\n" +
                              VEXMELKUtilities::GetNLSMessage("CheckCFGDir.MSG"),
        "Error", 0, nullptr);
}

bool VEXMELKConfig::MayExist(const CATUnicodeString& filePath) const
{
    return !m_XMLFilePath.IsEmpty() && VEXMELKUtilities::FileExists(filePath);
}

unsigned char VEXMELKConfig::GetRootDOMElement(CATIDOMElement_var& root)
{
    const BoxScope box(*this);
    const CATUnicodeString filePath = m_XMLFilePath + "\\" + m_XMLFileName;
    if (MayExist(filePath))
        return GetRootDOMElement(filePath, root);
    ReportMissingFile(filePath);
    return 0;
}

VEXMELKConfig::LoadResult VEXMELKConfig::Load()
{
    if (m_Query.load != LoadResult::Loaded)
        return m_Query.load;
    if (m_spRootElement != NULL_var)
        return LoadResult::Loaded;
    const LoadResult result = LoadDocuments();
    if (m_Query.running > 0)
        m_Query.load = result;
    return result;
}

unsigned char VEXMELKConfig::GetRootDOMElements(VEXMELKRootDOMElementsDefinition& roots)
{
    const LoadResult result = Load();
    if (result == LoadResult::Missing)
        return 0;
    const bool loaded = result == LoadResult::Loaded;
    roots.DefaultRootElement = loaded ? m_spRootElement : NULL_var;
    roots.CustomerRootElement = loaded ? m_spCustomerRootElement : NULL_var;
    return loaded;
}

// Nothing is kept of a load that fails in either document, so nothing of the "Default" file is handed out in the place
// of a broken "Customer" file.
VEXMELKConfig::LoadResult VEXMELKConfig::LoadDocuments()
{
    // A host that asks again inside every box comes to an end.
    constexpr int mostBoxes = 2;
    if (m_Query.boxes >= mostBoxes)
        return LoadResult::Broken;
    const BoxScope box(*this);
    CATIDOMElement_var root;
    CATIDOMElement_var customerRoot;
    const CATUnicodeString defaultFile = CATMakePath(m_XMLFilePath + "\\" + "Default", m_XMLFileName);
    if (MayExist(defaultFile))
    {
        const CATUnicodeString customerFile = CATMakePath(m_XMLFilePath + "\\" + "Customer", m_XMLFileName);
        if (!GetRootDOMElement(defaultFile, root) ||
            (MayExist(customerFile) && !GetRootDOMElement(customerFile, customerRoot)))
            return LoadResult::Broken;
    }
    else
    {
        const CATUnicodeString singleFile = CATMakePath(m_XMLFilePath, m_XMLFileName);
        if (!MayExist(singleFile))
        {
            ReportMissingFile(singleFile);
            return LoadResult::Missing;
        }
        if (!GetRootDOMElement(singleFile, root))
            return LoadResult::Broken;
    }
    if (m_spRootElement != NULL_var) // loaded by a query inside a box, from newer files
        return LoadResult::Loaded;

    auto catalogue = std::make_shared<VEXMELKStandardCatalogue>();
    if (customerRoot != NULL_var)
        catalogue->AddDocument(customerRoot);
    catalogue->AddDocument(root);
    FillStandardLevelList(root, *catalogue);
    m_Catalogue = catalogue;
    m_spRootElement = root;
    m_spCustomerRootElement = customerRoot;
    return LoadResult::Loaded;
}

// The customer document has no say in the levels.
unsigned char VEXMELKConfig::FillStandardLevelList(const CATIDOMElement_var& root, VEXMELKStandardCatalogue& catalogue)
{
    for (StandardLevel& level : m_StandardLevels)
        level.Standards.RemoveAll();
    const CATIDOMElement_var priorities = Find(root, prioritiesElement);
    for (StandardLevel& level : m_StandardLevels)
    {
        CATUnicodeString levelText;
        levelText.BuildFromNum(level.Level);
        const CATIDOMElement_var priority = FindByKey(priorities, priorityElements, levelText);
        const bool nameless = VisitEach(priority, prioritizedElements,
            [&](const CATIDOMElement_var& prioritized)
            {
                const std::optional<VEXMELKNodeText> name = Key(prioritized, prioritizedElements);
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
    catch (...) // not even the box could be shown
    {
    }
}

// Standards and categories ----------------------------------------------------------------------

CATIDOMElement_var VEXMELKConfig::GetStandardElement(const CATUnicodeString& standard)
{
    return HasDocuments() ? m_Catalogue->FindStandard(standard) : CATIDOMElement_var();
}

CATIDOMElement_var VEXMELKConfig::GetRootChildElement(const VEXMELKElement& described, std::string_view key)
{
    if (!HasDocuments())
        return NULL_var;
    return m_Catalogue->FindRootChild(m_spCustomerRootElement, m_spRootElement, described, key);
}

void VEXMELKConfig::GetRootChildNames(const VEXMELKElement& described, CATListValCATUnicodeString& keys)
{
    keys.RemoveAll();
    if (!HasDocuments())
        return;
    CATListValCATUnicodeString ofBase;
    CollectKeys(m_spCustomerRootElement, described, keys);
    CollectKeys(m_spRootElement, described, ofBase);
    if (m_spCustomerRootElement == NULL_var)
        std::swap(keys, ofBase);
    else
        AppendMissing(keys, ofBase);
}

CATIDOMElement_var VEXMELKConfig::GetStandardElement(CATIDOMElement_var& parent, const CATUnicodeString& standard)
{
    return FindByKey(parent, VEXMELKCommon::standards, standard);
}

VEXMELKConfig::StandardData VEXMELKConfig::FindStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category)
{
    if (!HasDocuments())
        return {};
    auto found = m_Catalogue->FindCategories(standard, category, defaultCategory);
    return {std::move(found.standard), std::move(found.category), std::move(found.defaultCategory)};
}

// The category, or in its place the standard itself where that is allowed: for "default", and when the standard has no
// category at all.
const CATIDOMElement_var& VEXMELKConfig::CategoryOrObsolete(
    const StandardData& data, std::string_view category, unsigned char allowObsolete)
{
    const bool isDefault = CATTextEqual(category, defaultCategory);
    const CATIDOMElement_var& found = isDefault ? data.defaultCategory : data.category;
    if (found != NULL_var || !isDefault || !allowObsolete || !m_Catalogue || m_Catalogue->HasCategories(data.standard))
        return found;
    if (data.standard != NULL_var && !m_ObsoleteFormatWarned)
    {
        const BoxScope box(*this);
        m_ObsoleteFormatWarned = 1;
        VEXMELKGUI::ShowWarning(VEXMELKUtilities::GetNLSMessage("ObsoleteCfgFormat.MSG"), "Warning", 0, nullptr);
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
    const CATIDOMElement_var& element = CategoryOrObsolete(data, category, 1);
    defaultMap = AttributesOf(CategoryOrObsolete(data, defaultCategory, element == NULL_var));
    return AttributesOf(element);
}

CATIDOMElement_var VEXMELKConfig::GetCategoryElement(const CATUnicodeString& standard, const CATUnicodeString& category,
    CATIDOMNamedNodeMap_var& map, CATIDOMNamedNodeMap_var& defaultMap)
{
    const StandardData data = FindStandardData(standard, category);
    CATIDOMElement_var element = CategoryOrObsolete(data, category, 1);
    const CATIDOMElement_var& defaultElement = CategoryOrObsolete(data, defaultCategory, element == NULL_var);
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
    found = NearestAngle(Decimals(), parent, tag, attribute, angle);
    return found != NULL_var;
}

unsigned char VEXMELKConfig::GetChildElementWithLengthRangeAttributeValue(const CATIDOMElement_var& parent,
    const CATUnicodeString& tag, const CATUnicodeString& attribute, double length, CATIDOMElement_var& found)
{
    found = NearestLengthBelow(Decimals(), parent, tag, attribute, length);
    return found != NULL_var;
}

// Values ----------------------------------------------------------------------

void VEXMELKConfig::AddUnits(const CATUnicodeString& unit, CATUnicodeString& value)
{
    value = NormalizedValue(unit, Decimals().WritesCommas(), value);
}

// NOLINTBEGIN(performance-unnecessary-value-param): the signature is given
unsigned char VEXMELKConfig::GetAttributeMapItemValue(CATIDOMNamedNodeMap_var map, const CATUnicodeString& name,
    const CATUnicodeString& unit, CATUnicodeString& value, CATIDOMNamedNodeMap_var defaultMap)
{
    CATUnicodeString found; // handed over at the end: name and unit may be the caller's same text
    const bool isFound = ReadNamedText(Decimals(), map, defaultMap, name, unit, found);
    if (isFound)
        value = found;
    return isFound;
}

double VEXMELKConfig::GetNumber(CATUnicodeString text) { return NumberFromText(text); }
// NOLINTEND(performance-unnecessary-value-param)

VEXMELKDecimals VEXMELKConfig::Decimals() { return VEXMELKDecimals(VEXMELKConfigManager::WritesCommas); }

// Default settings ----------------------------------------------------------------------

CATIDOMElement_var VEXMELKConfig::GetDefaultSettingsElement(CATIDOMElement_var& root)
{
    return Find(root, VEXMELKSettings::defaults);
}

CATIDOMElement_var VEXMELKConfig::GetDefaultSettingsElement(const CATUnicodeString& settingsName)
{
    VEXMELKRootDOMElementsDefinition roots;
    if (!GetRootDOMElements(roots))
        return NULL_var;
    CATIDOMElement_var settings = GetDefaultSettingsElement(roots.CustomerRootElement);
    if (settings == NULL_var)
        settings = GetDefaultSettingsElement(roots.DefaultRootElement);
    return FindByKey(settings, VEXMELKSettings::set, settingsName);
}

unsigned char VEXMELKConfig::GetDefaultSettingsName(CATIDOMElement_var& element, CATUnicodeString& name)
{
    if (element == NULL_var)
        return 0;
    CATListValCATUnicodeString names;
    CollectKeys(element, VEXMELKSettings::usedByStandard, names);
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
