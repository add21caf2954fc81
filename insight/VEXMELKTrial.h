// Asking a configuration again, with one text of its files replaced in memory: what changes an answer decides it.
#ifndef VEXMELKTrial_H
#define VEXMELKTrial_H

#include "CATMemoryDirectory.h"
#include "VEXMELKAnswerValues.h"
#include "VEXMELKConfig.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKDescription.h"
#include "VEXMELKDocumentText.h"
#include "VEXMELKWatch.h"

#include <memory>
#include <optional>

// While it lives, message boxes and log lines are dropped.
class VEXMELKSilence
{
public:
    VEXMELKSilence();
    VEXMELKSilence(const VEXMELKSilence&) = delete;
    VEXMELKSilence& operator=(const VEXMELKSilence&) = delete;
    ~VEXMELKSilence();

private:
    class Drain;
    std::unique_ptr<Drain> m_Drain;
};

// A question with its arguments, as often as it is wanted: each has the outputs that the caller had.
class VEXMELKAskable
{
public:
    virtual ~VEXMELKAskable() = default;
    virtual const VEXMELKOperation& Operation() const = 0;
    virtual std::unique_ptr<VEXMELKQuestion> New() const = 0;
};

// What is asked: a configuration directory, whole or as it would be without its Customer files.
struct VEXMELKSource
{
    VEXMELKSource(CATUnicodeString path, bool withoutCustomer = false)
        : directory(std::move(path)), isDefaultAlone(withoutCustomer)
    {
    }
    CATUnicodeString directory;
    bool isDefaultAlone;
};

// One of the files that a configuration reads.
struct VEXMELKSourceFile
{
    std::string name; // below the directory, with "/": "Customer/OVA/UFCurb.xml"
    std::string path;
    CATIDOMElement_var root;
};

// The files of a configuration as the library loads them: the Default or single one first, then the Customer file. None
// when they do not load.
std::vector<VEXMELKSourceFile> VEXMELKLoadFiles(const VEXMELKDescription& description, const VEXMELKSource& source);

// The same, with an object that has loaded them: others of the configuration take the documents over by assignment.
struct VEXMELKLoaded
{
    std::vector<VEXMELKSourceFile> files;
    CATHandle<VEXMELKConfig> object;
};
VEXMELKLoaded VEXMELKLoad(const VEXMELKDescription& description, const VEXMELKSource& source);

// Whether the standard that counts has the category itself, in the documents that the object has loaded.
bool VEXMELKHasCategory(
    const VEXMELKConfig& loaded, const CATUnicodeString& standard, const CATUnicodeString& category);

// The elements that a configuration reads, those of its bases too.
std::vector<const VEXMELKElement*> VEXMELKElementsOf(const VEXMELKDescription& description);
// The same with those that others are described below, each behind the one that it is below.
std::vector<const VEXMELKElement*> VEXMELKElementsWithParents(const VEXMELKDescription& description);

// Whether the file has texts that are not to be shown; none of its texts is then shown without being asked for.
bool VEXMELKHasSecrets(const VEXMELKDescription& description);

// "OVA/UFCurb.xml"; empty when its creator gives it.
std::string VEXMELKFileOf(const VEXMELKDescription& description);

// The rows that a watch is told of may end with their look-up; the descriptions have the same ones for good.
class VEXMELKLastingRows
{
public:
    explicit VEXMELKLastingRows(const VEXMELKDescription& description);
    // Null when nothing describes the row. One of the maps has, or would have, the attribute; either may be null.
    const VEXMELKRow* Find(
        const VEXMELKRow& row, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap) const;

private:
    const VEXMELKRow* FindBelow(std::string_view tag, std::string_view attribute) const;

    std::vector<const VEXMELKElement*> m_Elements;
    std::vector<VEXMELKRows> m_Tables; // by address
};

class VEXMELKTrial
{
public:
    using Configuration = VEXMELKConfigManager::Configuration;

    // A text of one of the documents.
    struct Place
    {
        std::size_t document = 0;
        std::size_t slot = 0;
        auto operator<=>(const Place&) const = default;
    };
    // An attribute that was read, with the row that it was read by.
    struct Read
    {
        Place place;
        const VEXMELKRow* row;
    };

    // Up to this size documents are asked whole.
    static constexpr int largeDocument = 5000; // elements

    // With a standard, documents that are larger than that leave out the other standards.
    VEXMELKTrial(const Configuration& configuration, const VEXMELKSource& source,
        std::optional<std::string_view> standard = std::nullopt, int wholeUpTo = largeDocument);

    const std::vector<VEXMELKSourceFile>& Files() const { return m_Files; }
    const std::vector<VEXMELKDocumentText>& Documents() const { return m_Documents; }
    const VEXMELKLastingRows& Rows() const { return m_Rows; }
    const VEXMELKSlot& At(Place place) const { return m_Documents[place.document].Slots()[place.slot]; }
    // A word that stands nowhere in the documents.
    const std::string& UnknownWord() const { return m_UnknownWord; }

    // The answer of a fresh object, with the documents as they are; "reads" gets what it read.
    VEXMELKFlatAnswer Ask(const VEXMELKAskable& askable, std::vector<Read>* reads = nullptr) const;
    VEXMELKFlatAnswer Ask(VEXMELKQuestion& question, const VEXMELKOperation& operation) const;

    // While it lives, a text of the documents is another one.
    class Replacement
    {
    public:
        Replacement(VEXMELKTrial& trial, Place place, std::string_view text);
        // Without the text, and the attribute whose text it is.
        Replacement(VEXMELKTrial& trial, Place place);
        // Without an element of a document.
        Replacement(VEXMELKTrial& trial, std::size_t document, std::size_t element);
        Replacement(const Replacement&) = delete;
        Replacement& operator=(const Replacement&) = delete;
        ~Replacement();

    private:
        VEXMELKTrial& m_Trial;
        std::size_t m_Document;
    };

    // Texts that would be something else than what a row's text is now.
    std::vector<std::string> OtherTexts(const VEXMELKRow& row) const;
    const CATUnicodeString& Directory() const { return m_Directory.Path(); }

    // The document and the element there of a handle to an element that was asked; none when it is in none of them.
    std::optional<std::pair<std::size_t, std::size_t>> ElementOf(const CATIDOMElement_var& element) const;
    // The place of an attribute of such an element; none also when the element does not have it.
    std::optional<Place> PlaceOf(const CATIDOMNamedNodeMap_var& attributes, std::string_view name) const;

private:
    void WriteDocument(std::size_t document, std::string text);

    const Configuration& m_Configuration;
    VEXMELKLastingRows m_Rows;
    std::vector<VEXMELKSourceFile> m_Files;
    std::vector<VEXMELKDocumentText> m_Documents;
    std::string m_UnknownWord;
    CATMemoryDirectory m_Directory;
};

#endif
