// VEXMELKConfig: one configuration file, and the look-ups that all configurations are built from.
//
// An object stands for one XML file NAME below a configuration directory DIR, in one of two layouts:
//   split   DIR\Default\NAME, and optionally DIR\Customer\NAME, whose standards and settings take precedence;
//   single  DIR\NAME, used only when DIR\Default\NAME does not exist.
// The first look-up loads the documents, which live as long as the object. When a file is missing or cannot be parsed,
// the query answers false and the next one tries again. The message box for a missing file is shown once, the one for a
// parse error at each attempt. A box may run the host's own code: whatever that asks, reloads or releases, the query
// that showed the box goes on from the state that it has seen.
//
// A file holds elements "standard" with a "name" below its root; inside a standard, elements "category" with a "name"
// carry the data. The category "default" supplies what a specific category leaves out.
//
// Results of type unsigned char are booleans. No operation throws. An object belongs to the thread
// that made it, and so do the documents that it loads.
#ifndef VEXMELKConfig_H
#define VEXMELKConfig_H

#include "CATIDOM.h"
#include "CATIXMLDOMDocumentBuilder.h"
#include "VEXMELKCFGAttributeStr.h"
#include "VEXMELKConfigurationExport.h"

#include <array>
#include <atomic>
#include <memory>
#include <string_view>

class VEXMELKDecimals;
class VEXMELKQuery;
struct VEXMELKDescription;
struct VEXMELKElement;
class VEXMELKStandardCatalogue;

// The roots of an object's documents.
struct VEXMELKRootDOMElementsDefinition
{
    CATIDOMElement_var DefaultRootElement;  // of the "Default" or the single file
    CATIDOMElement_var CustomerRootElement; // null when there is no "Customer" file
};

class ExportedByVEXMELKConfiguration VEXMELKConfig : public CATBaseUnknown
{
public:
    static const VEXMELKDescription description;

    // "path" is the configuration directory; "fileName" carries the sub-folder ("OVA\UFCurb.xml"). Opens nothing.
    VEXMELKConfig(CATUnicodeString path, CATUnicodeString fileName);
    // A copy shares the documents that are loaded.
    VEXMELKConfig(const VEXMELKConfig& other);
    VEXMELKConfig& operator=(const VEXMELKConfig& other);
    ~VEXMELKConfig() override;

    // Replace directory and file name for the next load; a document that is loaded stays loaded.
    void SetXMLFilePath(const CATUnicodeString& path);
    void SetXMLFileName(const CATUnicodeString& fileName);

    // The loading of a standard: its attribute "rear_loading" or "loading", which the same attribute of the category
    // overrides. An empty rear loading is replaced by the plain one. A missing attribute gives "", an unknown standard
    // leaves the caller's text. Always true.
    unsigned char GetLoading(const CATUnicodeString& standard, CATUnicodeString& loading,
        const CATUnicodeString& category, unsigned char rear);

    // The name of the standard's default settings. False when it has none, or more than one. Where an entry or a
    // standard was found without such a name, a text that the caller's variable holds is kept and counts as the name.
    unsigned char GetDefaultSettingsName(const CATUnicodeString& standard, CATUnicodeString& name);

    // The priority level of a standard: 1, 2 or 3, or 0 when it is in no list.
    int FindStandardLevel(const CATUnicodeString& standard);

    // Makes every attribute editable, then fills the list from the standard's default settings. False when the
    // standard has none.
    unsigned char InitStandardData(const CATUnicodeString& standard, CATListValVEXMELKCFGAttributeStr& attributes);

    // Fills the attributes from the settings of that name: values, colour ranges, read-only flags. Attributes that the
    // settings do not mention stay as they are, and so do those of another kind than the settings say. Always true.
    unsigned char FillCFGAttributes(const CATUnicodeString& settingsName, CATListValVEXMELKCFGAttributeStr& attributes);

    // True exactly for "TRUE" in any letter case.
    static unsigned char BooleanFromString(const CATUnicodeString& text);
    // Equality in any letter case.
    static unsigned char CompareStrings(const CATUnicodeString& left, const CATUnicodeString& right);

protected:
    // The category that supplies what others leave out.
    static constexpr std::string_view defaultCategory = "default";

    // Documents ----------------------------------------------------------------------

    // Loads the documents unless they are. False when that fails: the record is then untouched for a missing file, and
    // null for one that cannot be read.
    unsigned char GetRootDOMElements(VEXMELKRootDOMElementsDefinition& roots);
    // The root of DIR\NAME, whatever lies in "Default" and "Customer". The file is read afresh each time.
    unsigned char GetRootDOMElement(CATIDOMElement_var& root);

    // Standards and categories ----------------------------------------------------------------------

    // A standard with one of its categories and its "default"; each is null where there is none.
    struct StandardData
    {
        CATIDOMElement_var standard;
        CATIDOMElement_var category;
        CATIDOMElement_var defaultCategory;
    };
    StandardData FindStandardData(const CATUnicodeString& standard, const CATUnicodeString& category);

    // The standard of that name, of the customer document before the base document; null when there is none.
    CATIDOMElement_var GetStandardElement(const CATUnicodeString& standard);
    CATIDOMElement_var GetStandardElement(CATIDOMElement_var& parent, const CATUnicodeString& standard);

    // The described child of the root with the key, of the customer document before the base document; null when there
    // is none.
    CATIDOMElement_var GetRootChildElement(const VEXMELKElement& described, std::string_view key);
    // The keys of the described children of the root: those of the customer document, then those that only the base
    // document has. Empties the list first.
    void GetRootChildNames(const VEXMELKElement& described, CATListValCATUnicodeString& keys);

    // The element of a category, or else that of "default"; "map" holds its attributes and "defaultMap" those of
    // "default". In the obsolete format, where a standard has no category at all, the standard itself serves as
    // "default", and a warning says so once per object. All three are null when there are no data.
    CATIDOMElement_var GetCategoryElement(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATIDOMNamedNodeMap_var& map, CATIDOMNamedNodeMap_var& defaultMap);
    CATIDOMElement_var GetCategoryElement(const CATUnicodeString& standard, const CATUnicodeString& category);
    // The attributes of a category, null when there is none, and those of "default".
    CATIDOMNamedNodeMap_var GetCategoryAttributeMap(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATIDOMNamedNodeMap_var& defaultMap);

    // Children ----------------------------------------------------------------------
    // A child is a descendant whose parent has the tag of the element searched, so it may lie deeper. Files rely on
    // that rule (docs/format.md, Children).

    // The first child with the tag and with that attribute value.
    unsigned char GetChildElementWithAtrributeValue(const CATIDOMElement_var& parent, const CATUnicodeString& tag,
        const CATUnicodeString& attribute, const CATUnicodeString& value, CATIDOMElement_var& found);
    // The first child with the tag, and its attributes.
    unsigned char GetChildElementWithAttributeMap(const CATIDOMElement_var& parent, const CATUnicodeString& tag,
        CATIDOMElement_var& found, CATIDOMNamedNodeMap_var& map);
    // The values of the attribute of all children with the tag that have it, in document order. Empties the list first.
    void GetChildElementAttributeValues(CATIDOMElement_var& parent, const CATUnicodeString& tag,
        const CATUnicodeString& attribute, CATListValCATUnicodeString& values);
    // The descendant with the tag whose attribute is nearest to the angle (radians); the first of several. One that is
    // 100 or more away is never taken.
    unsigned char GetChildElementWithAngleAttributeValue(const CATIDOMElement_var& parent, const CATUnicodeString& tag,
        const CATUnicodeString& attribute, double angle, CATIDOMElement_var& found);
    // The descendant with the tag whose attribute is the largest length not above "length" (millimetres); the first of
    // several. One that is 900 mm or more below is never taken.
    unsigned char GetChildElementWithLengthRangeAttributeValue(const CATIDOMElement_var& parent,
        const CATUnicodeString& tag, const CATUnicodeString& attribute, double length, CATIDOMElement_var& found);

    // Values ----------------------------------------------------------------------

    // The value of an attribute, of "map" before "defaultMap" (either may be null), with AddUnits applied. False, and
    // the value untouched, when neither has it.
    unsigned char GetAttributeMapItemValue(CATIDOMNamedNodeMap_var map, const CATUnicodeString& name,
        const CATUnicodeString& unit, CATUnicodeString& value, CATIDOMNamedNodeMap_var defaultMap);
    // Strips blanks, turns "." into "," when the application writes commas, appends the unit to a text that ends in a
    // digit, and removes "%" when the unit is "%".
    void AddUnits(const CATUnicodeString& unit, CATUnicodeString& value);
    // The number that the text begins with, 0 when there is none.
    double GetNumber(CATUnicodeString text);

    // How numbers are written now.
    static VEXMELKDecimals Decimals();

    // Default settings ----------------------------------------------------------------------

    // The one element "DefaultSettings" below the root, null when there is none or more than one.
    CATIDOMElement_var GetDefaultSettingsElement(CATIDOMElement_var& root);
    // The settings of that name, of the customer document if it has the one "DefaultSettings", else of the base
    // document.
    CATIDOMElement_var GetDefaultSettingsElement(const CATUnicodeString& settingsName);
    unsigned char GetDefaultSettingsName(CATIDOMElement_var& element, CATUnicodeString& name);
    unsigned char GetDefaultSettingsName(
        CATIDOMElement_var& root, const CATUnicodeString& standard, CATUnicodeString& name);

    // Each writes one attribute record, as FillCFGAttributes states it.
    void ClearCFGAttributes(CATListValVEXMELKCFGAttributeStr& attributes);
    void CFGAttributeSetSimpleValue(VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& parameter);
    void CFGAttributeSetListValues(VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& parameter);
    void CFGAttributeSetColorRanges(
        VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& parameter, const CATIDOMElement_var& element);
    void CFGAttributeAddColorRange(VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& range);
    void CFGAttributeSetReadOnly(VEXMELKCFGAttributeStr& attribute, unsigned char readOnly);
    unsigned int CFGAttributeColor(const CATUnicodeString& text);

private:
    friend class VEXMELKQuery; // the frame around every operation
    class BoxScope;
    enum class LoadResult : unsigned char
    {
        Loaded,
        Missing, // there is no file
        Broken
    };
    // The outermost query that runs: how deep its operations are nested, whether loading failed for it, and how many
    // boxes it runs inside of.
    struct QueryState
    {
        int running = 0;
        LoadResult load = LoadResult::Loaded;
        int boxes = 0;
    };
    // The state of an object, which neither a copy nor an assignment takes over.
    struct OwnQueryState : QueryState
    {
        OwnQueryState() = default;
        OwnQueryState(const OwnQueryState& /*other*/) : QueryState() {}
        OwnQueryState& operator=(const OwnQueryState& /*other*/) { return *this; }
        const QueryState& State() const { return *this; }
        void SetState(const QueryState& state) { static_cast<QueryState&>(*this) = state; }
    };
    struct StandardLevel
    {
        int Level = 0;
        CATListValCATUnicodeString Standards;
    };

    static CATIXMLDOMDocumentBuilder* GetDOMParser();
    unsigned char GetRootDOMElement(const CATUnicodeString& filePath, CATIDOMElement_var& root);
    void ReportMissingFile(const CATUnicodeString& filePath);
    // Whether the file may exist: an empty directory has none.
    bool MayExist(const CATUnicodeString& filePath) const;
    // Loads the documents unless they are there already, or could not be loaded for the running query.
    LoadResult Load();
    bool HasDocuments() { return Load() == LoadResult::Loaded; }
    LoadResult LoadDocuments();
    unsigned char FillStandardLevelList(const CATIDOMElement_var& root, VEXMELKStandardCatalogue& catalogue);

    const CATIDOMElement_var& CategoryOrObsolete(
        const StandardData& data, std::string_view category, unsigned char allowObsolete);
    CATIDOMNamedNodeMap_var GetStandardDataAttributeMap(
        const CATUnicodeString& standard, const CATUnicodeString& category, unsigned char allowObsolete);
    CATIDOMNamedNodeMap_var GetCategoryAttrMapElement(const CATUnicodeString& standard,
        const CATUnicodeString& category, CATIDOMElement_var& element, unsigned char allowObsolete);
    static void ReportFailure(const char* reason) noexcept;

    std::array<StandardLevel, 3> m_StandardLevels;
    unsigned char m_ShowErrors;
    CATUnicodeString m_XMLFilePath;
    CATUnicodeString m_XMLFileName;
    CATIDOMElement_var m_spRootElement;
    CATIDOMElement_var m_spCustomerRootElement;
    unsigned char m_ObsoleteFormatWarned;

    // Beside the documents: the standards by name, and the running query.
    std::shared_ptr<VEXMELKStandardCatalogue> m_Catalogue;
    OwnQueryState m_Query;

    // One parser for all objects of all threads, created on first use, and never counted after that. It keeps its
    // reference for good: objects may still load when the library's other statics are gone.
    static std::atomic<CATIXMLDOMDocumentBuilder*> m_spDOMParser;
};

#endif
