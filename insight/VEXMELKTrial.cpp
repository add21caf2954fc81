// Fresh objects read documents that are in memory only, so that neither the files nor the objects of the host are
// touched.
#include "VEXMELKTrial.h"

#include "VEXMELKGUI.h"
#include "VEXMELKLog.h"
#include "VEXMELKUtilities.h"

#include <algorithm>

class VEXMELKSilence::Drain : public VEXMELKMessagePresenter, public VEXMELKLogSink
{
public:
    Drain() : m_Presenter(VEXMELKGUI::InstallPresenter(this)), m_Sink(VEXMELKLog::InstallSink(this)) {}
    Drain(const Drain&) = delete;
    Drain& operator=(const Drain&) = delete;
    ~Drain() override
    {
        VEXMELKGUI::InstallPresenter(m_Presenter);
        VEXMELKLog::InstallSink(m_Sink);
    }

private:
    void Show(Kind /*kind*/, const CATUnicodeString& /*title*/, const CATUnicodeString& /*text*/) override {}
    void Write(const CATUnicodeString& /*line*/) override {}

    VEXMELKMessagePresenter* m_Presenter;
    VEXMELKLogSink* m_Sink;
};

VEXMELKSilence::VEXMELKSilence() : m_Drain(std::make_unique<Drain>()) {}
VEXMELKSilence::~VEXMELKSilence() = default;

namespace {

// Loads as every configuration does.
class Loader : public VEXMELKConfig
{
public:
    Loader(const VEXMELKDescription& described, const CATUnicodeString& directory, const CATUnicodeString& file)
        : VEXMELKConfig(directory, file), m_IsSingle(described.layout == VEXMELKLayout::Single)
    {
    }
    VEXMELKRootDOMElementsDefinition Roots()
    {
        VEXMELKRootDOMElementsDefinition roots;
        if (m_IsSingle)
            GetRootDOMElement(roots.DefaultRootElement);
        else
            GetRootDOMElements(roots);
        return roots;
    }

private:
    bool m_IsSingle;
};

// Shares what another object has loaded.
class Sharer : public VEXMELKConfig
{
public:
    explicit Sharer(const VEXMELKConfig& loaded) : VEXMELKConfig("", "") { VEXMELKConfig::operator=(loaded); }
    using VEXMELKConfig::FindStandardData;
};

// Tells which attributes were read by which rows.
class Recorder : public VEXMELKWatch
{
public:
    Recorder(const VEXMELKTrial& trial, std::vector<VEXMELKTrial::Read>& reads)
        : m_Trial(trial), m_Reads(reads), m_Before(Install(this))
    {
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() override { Install(m_Before); }

private:
    void OnElements(const CATIDOMElement_var& /*parent*/, const VEXMELKElement& /*described*/) override {}
    void OnRows(
        const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows) override
    {
        for (const VEXMELKRow& row : rows)
            for (const CATIDOMNamedNodeMap_var* attributes : {&map, &defaultMap})
                if (const auto place = m_Trial.PlaceOf(*attributes, row.attribute))
                    if (const VEXMELKRow* lasting = m_Trial.Rows().Find(row, *attributes, NULL_var))
                        m_Reads.push_back({*place, lasting});
    }

    const VEXMELKTrial& m_Trial;
    std::vector<VEXMELKTrial::Read>& m_Reads;
    VEXMELKWatch* m_Before;
};

// Standards of other names, unless there are standards in them.
bool IsOtherStandard(const CATIDOMElement_var& element, std::string_view standard)
{
    return element->GetTagName() == "standard" && element->GetAttributes()->GetNamedItemValue("name") != standard &&
           element->GetElementsByTagName("standard")->GetLength() == 0;
}

} // namespace

std::vector<const VEXMELKElement*> VEXMELKElementsOf(const VEXMELKDescription& description)
{
    std::vector<const VEXMELKElement*> elements;
    for (const VEXMELKDescription* level = &description; level; level = level->base)
        elements.insert(elements.end(), level->elements.begin(), level->elements.end());
    return elements;
}

std::vector<const VEXMELKElement*> VEXMELKElementsWithParents(const VEXMELKDescription& description)
{
    std::vector<const VEXMELKElement*> all;
    for (const VEXMELKElement* element : VEXMELKElementsOf(description))
    {
        const auto begin = static_cast<std::ptrdiff_t>(all.size());
        for (; element && std::find(all.begin(), all.end(), element) == all.end(); element = element->below)
            all.push_back(element);
        std::reverse(all.begin() + begin, all.end());
    }
    return all;
}

bool VEXMELKHasSecrets(const VEXMELKDescription& description)
{
    for (const VEXMELKElement* element : description.elements)
        for (const VEXMELKRows table : element->tables)
            if (std::any_of(table.begin(), table.end(), [](const VEXMELKRow& row) { return row.isSecret; }))
                return true;
    return false;
}

std::string VEXMELKFileOf(const VEXMELKDescription& description)
{
    std::string file(description.file);
    std::replace(file.begin(), file.end(), '\\', '/');
    return file;
}

VEXMELKLastingRows::VEXMELKLastingRows(const VEXMELKDescription& description)
    : m_Elements(VEXMELKElementsOf(description))
{
    for (const VEXMELKElement* element : m_Elements)
    {
        m_Tables.insert(m_Tables.end(), element->tables.begin(), element->tables.end());
        if (element->key)
            m_Tables.emplace_back(element->key, 1);
    }
    std::erase_if(m_Tables, [](VEXMELKRows rows) { return rows.empty(); });
    std::sort(m_Tables.begin(), m_Tables.end(),
        [](VEXMELKRows left, VEXMELKRows right)
        { return std::pair(left.data(), left.size()) < std::pair(right.data(), right.size()); });
}

const VEXMELKRow* VEXMELKLastingRows::Find(
    const VEXMELKRow& row, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap) const
{
    // The last table that begins at the row or before it.
    const auto behind = std::upper_bound(m_Tables.begin(), m_Tables.end(), &row,
        [](const VEXMELKRow* wanted, VEXMELKRows table) { return wanted < table.data(); });
    if (behind != m_Tables.begin())
        if (const VEXMELKRows table = *std::prev(behind); &row < table.data() + table.size())
            return &row;
    const CATIDOMNamedNodeMap_var& owner = map != NULL_var ? map : defaultMap;
    const VEXMELKRow* found = nullptr;
    if (owner != NULL_var)
        found = FindBelow(owner->GetOwnerElement()->GetTagName(), row.attribute);
    return found ? found : FindBelow("*", row.attribute);
}

const VEXMELKRow* VEXMELKLastingRows::FindBelow(std::string_view tag, std::string_view attribute) const
{
    for (const VEXMELKElement* element : m_Elements)
        if (tag == "*" || element->tag == tag || element->tag == "*")
            for (const VEXMELKRows rows : element->tables)
                for (const VEXMELKRow& row : rows)
                    if (row.attribute == attribute)
                        return &row;
    return nullptr;
}

VEXMELKLoaded VEXMELKLoad(const VEXMELKDescription& description, const VEXMELKSource& source)
{
    const CATUnicodeString& directory = source.directory;
    const std::string name = VEXMELKFileOf(description);
    const bool isSplit = description.layout == VEXMELKLayout::Parts &&
                         VEXMELKUtilities::FileExists(directory + CATUnicodeString("/Default/" + name)) != 0;
    // A Default file that is taken for a single one has no Customer file beside it.
    const std::string above = isSplit && source.isDefaultAlone ? "Default\\" : "";
    const CATUnicodeString file(above + std::string(description.file));
    const auto loader = CATHandle<Loader>::Create(description, directory, file);
    const VEXMELKRootDOMElementsDefinition roots = loader->Roots();
    VEXMELKLoaded loaded{{}, CATHandle<VEXMELKConfig>(loader.Get())};
    const auto add = [&](const char* folder, const CATIDOMElement_var& root)
    {
        if (root != NULL_var)
            loaded.files.push_back({folder + name, directory.ConvertToChar() + std::string("/") + folder + name, root});
    };
    add(isSplit ? "Default/" : "", roots.DefaultRootElement);
    add("Customer/", roots.CustomerRootElement);
    return loaded;
}

bool VEXMELKHasCategory(const VEXMELKConfig& loaded, const CATUnicodeString& standard, const CATUnicodeString& category)
{
    return CATHandle<Sharer>::Create(loaded)->FindStandardData(standard, category).category != NULL_var;
}

std::vector<VEXMELKSourceFile> VEXMELKLoadFiles(const VEXMELKDescription& description, const VEXMELKSource& source)
{
    return VEXMELKLoad(description, source).files;
}

VEXMELKTrial::VEXMELKTrial(const Configuration& configuration, const VEXMELKSource& source,
    std::optional<std::string_view> standard, int wholeUpTo)
    : m_Configuration(configuration),
      m_Rows(*configuration.description),
      m_Files(VEXMELKLoadFiles(*configuration.description, source))
{
    int line = 1;
    for (const VEXMELKSourceFile& file : m_Files)
    {
        const bool isCut = standard && file.root->GetElementsByTagName("*")->GetLength() > wholeUpTo;
        const auto isLeftOut = [&](const CATIDOMElement_var& element) { return IsOtherStandard(element, *standard); };
        m_Documents.emplace_back(file.root, line, isCut ? isLeftOut : std::function<bool(const CATIDOMElement_var&)>());
        line = m_Documents.back().LastLine() + 1;
    }
    for (int number = 0; m_UnknownWord.empty(); ++number)
    {
        const std::string word = "unknown" + std::to_string(number) + "word";
        const auto has = [&](const VEXMELKDocumentText& text) { return text.Text().find(word) != std::string::npos; };
        if (std::none_of(m_Documents.begin(), m_Documents.end(), has))
            m_UnknownWord = word;
    }
    for (std::size_t document = 0; document < m_Documents.size(); ++document)
        WriteDocument(document, m_Documents[document].Text());
}

void VEXMELKTrial::WriteDocument(std::size_t document, std::string text)
{
    m_Directory.Write(m_Files[document].name, std::move(text));
}

VEXMELKFlatAnswer VEXMELKTrial::Ask(VEXMELKQuestion& question, const VEXMELKOperation& operation) const
{
    const auto object = CATHandle<VEXMELKConfig>::Adopt(m_Configuration.create(m_Directory.Path()));
    if (object != NULL_var)
        question.Ask(*object.Get());
    return VEXMELKFlatAnswer::Of(question, operation);
}

VEXMELKFlatAnswer VEXMELKTrial::Ask(const VEXMELKAskable& askable, std::vector<Read>* reads) const
{
    const std::unique_ptr<VEXMELKQuestion> question = askable.New();
    std::optional<Recorder> recorder;
    if (reads)
        recorder.emplace(*this, *reads);
    return Ask(*question, askable.Operation());
}

std::optional<std::pair<std::size_t, std::size_t>> VEXMELKTrial::ElementOf(const CATIDOMElement_var& element) const
{
    for (std::size_t document = 0; document < m_Documents.size(); ++document)
    {
        const std::size_t found = m_Documents[document].ElementAt(element->GetLineNumber(), element->GetColumnNumber());
        if (found != VEXMELKDocumentText::none)
            return std::pair(document, found);
    }
    return std::nullopt;
}

std::optional<VEXMELKTrial::Place> VEXMELKTrial::PlaceOf(
    const CATIDOMNamedNodeMap_var& attributes, std::string_view name) const
{
    const auto element = attributes == NULL_var ? std::nullopt : ElementOf(attributes->GetOwnerElement());
    const std::size_t slot =
        element ? m_Documents[element->first].SlotOf(element->second, name) : VEXMELKDocumentText::none;
    return slot == VEXMELKDocumentText::none ? std::nullopt : std::optional(Place{element->first, slot});
}

std::vector<std::string> VEXMELKTrial::OtherTexts(const VEXMELKRow& row) const
{
    std::vector<std::string> texts = {m_UnknownWord};
    for (const VEXMELKWord& word : row.words.list)
        texts.emplace_back(word.text);
    if (row.kind == VEXMELKKind::Flag)
        texts.insert(texts.end(), {"true", "false"});
    else if (row.kind == VEXMELKKind::Name)
        for (const VEXMELKDocumentText& document : m_Documents)
            for (const VEXMELKSlot& slot : document.Slots())
                if (slot.attribute == "name" && texts.size() < 20)
                    texts.emplace_back(slot.text);
    if (row.kind != VEXMELKKind::Flag && row.kind != VEXMELKKind::Word)
        for (const char* number : {"1", "2", "54321.5"})
            texts.push_back(number + std::string(row.unit.empty() ? "" : row.unit));
    return texts;
}

VEXMELKTrial::Replacement::Replacement(VEXMELKTrial& trial, Place place, std::string_view text)
    : m_Trial(trial), m_Document(place.document)
{
    trial.WriteDocument(m_Document, trial.m_Documents[m_Document].With(trial.At(place), text));
}

VEXMELKTrial::Replacement::Replacement(VEXMELKTrial& trial, Place place) : m_Trial(trial), m_Document(place.document)
{
    trial.WriteDocument(m_Document, trial.m_Documents[m_Document].Without(trial.At(place)));
}

VEXMELKTrial::Replacement::Replacement(VEXMELKTrial& trial, std::size_t document, std::size_t element)
    : m_Trial(trial), m_Document(document)
{
    trial.WriteDocument(document, trial.m_Documents[document].Without(element));
}

VEXMELKTrial::Replacement::~Replacement() { m_Trial.WriteDocument(m_Document, m_Trial.m_Documents[m_Document].Text()); }
