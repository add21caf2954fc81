// A field has the place of the row that is named after it when as many rows of the name were read as there are fields,
// and each text, converted as its row says, is the value in the same place of the order.
#include "VEXMELKPlacedAnswers.h"

#include "CATNumberText.h"
#include "CATQuantity.h"
#include "VEXMELKJudge.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

using Value = VEXMELKPlacedValue;

// Whether the text of a row, or that of none, makes the value.
bool IsNear(double left, double right) { return std::fabs(left - right) <= 1e-12 * std::fabs(right); }

double NumberOf(const VEXMELKRow& row, std::string_view text)
{
    const std::optional<double> amount = VEXMELKAmountOf(row, text);
    const double number = amount.value_or(0.0);
    return row.form == VEXMELKForm::Millimetres ? number * 1000.0
           : row.form == VEXMELKForm::Fraction  ? number / 100.0
                                                : number;
}

long IntegerOf(const VEXMELKRow& row, std::string_view text)
{
    if (row.form != VEXMELKForm::Word)
    {
        int integer = 0;
        return CATUnicodeString(CATStripped(text)).ConvertToNum(&integer, "%d") ? integer : row.whenMissing.integer;
    }
    for (const VEXMELKWord& word : row.words.list)
        if (word.text == VEXMELKAdapted(row, text))
            return word.value;
    return row.words.otherwise;
}

bool IsSameText(std::string left, std::string right)
{
    std::replace(left.begin(), left.end(), ',', '.');
    std::replace(right.begin(), right.end(), ',', '.');
    return left == right;
}

bool Makes(const VEXMELKRow& row, std::string_view text, const VEXMELKPlainValue& value)
{
    if (const auto* answered = std::get_if<std::string>(&value))
        return row.form == VEXMELKForm::Text && IsSameText(VEXMELKAdapted(row, text), *answered);
    if (const auto* flag = std::get_if<bool>(&value))
        return row.form == VEXMELKForm::Flag &&
               *flag == (VEXMELKConfig::BooleanFromString(CATUnicodeString(CATStripped(text))) != 0);
    if (const auto* number = std::get_if<double>(&value))
        return IsNear(NumberOf(row, text), *number);
    const auto* integer = std::get_if<long>(&value);
    return integer && IntegerOf(row, text) == *integer;
}

// The value that a missing attribute gives.
bool GivesMissing(const VEXMELKRow& row, const VEXMELKPlainValue& value)
{
    const VEXMELKWhenMissing& missing = row.whenMissing;
    if (const auto* text = std::get_if<std::string>(&value))
        return *text == missing.text;
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag == missing.flag;
    if (const auto* number = std::get_if<double>(&value))
        return *number == missing.number;
    const auto* integer = std::get_if<long>(&value);
    return integer && *integer == missing.integer;
}

// Of all arguments but the names of standard, category and settings.
std::size_t HashOfFurtherArguments(const VEXMELKAskable& askable)
{
    const std::unique_ptr<VEXMELKQuestion> question = askable.New();
    const auto parameters = askable.Operation().Parameters();
    std::vector<VEXMELKNamedValue> values;
    for (std::size_t position = 0; position < parameters.size(); ++position)
        if (parameters[position].role > VEXMELKRole::Settings)
            VEXMELKFlatten(std::string(parameters[position].name), question->Parameter(position), {}, values);
    std::string text;
    for (const VEXMELKNamedValue& value : values)
        text += value.field + "=" + VEXMELKTextOf(value.value) + "\n";
    return std::hash<std::string>()(text);
}

std::optional<double> Quantity(const VEXMELKRow& row, std::string_view text)
{
    double number = 0.0;
    const bool isNumber = row.kind == VEXMELKKind::Length  ? CATLengthFromText(text, number)
                          : row.kind == VEXMELKKind::Angle ? CATAngleFromText(text, number)
                                                           : CATRealFromText(text, number);
    return isNumber ? std::optional(number) : std::nullopt;
}

CATIDOMElement_var Around(CATIDOMElement_var element, std::string_view tag)
{
    while (element != NULL_var && element->GetTagName() != tag)
        element = CATIDOMElement_var(element->GetParentNode());
    return element;
}

std::size_t DocumentOf(const CATIDOMElement_var& element, const std::vector<VEXMELKSourceFile>& files)
{
    for (std::size_t number = files.size(); number-- > 1;)
        if (files[number].root == element || files[number].root->Contains(element))
            return number;
    return 0;
}

// The element that stands in the same place of the same files.
CATIDOMElement_var SameElement(const CATIDOMElement_var& element, const std::vector<VEXMELKSourceFile>& files,
    const std::vector<VEXMELKSourceFile>& others)
{
    const CATIDOMElement_var& root = others[DocumentOf(element, files)].root;
    const CATIDOMNodeList_var all = root->GetElementsByTagName(element->GetTagName());
    const auto placeOf = [](const CATIDOMElement_var& one)
    { return std::pair(one->GetLineNumber(), one->GetColumnNumber()); };
    int first = 0; // those before it stand before the place
    for (int count = all->GetLength(); count > 0;)
    {
        const int half = count / 2;
        const bool isBefore = placeOf(all->Item(first + half)) < placeOf(element);
        first += isBefore ? half + 1 : 0;
        count = isBefore ? count - half - 1 : half;
    }
    const bool isFound = first < all->GetLength() && placeOf(all->Item(first)) == placeOf(element);
    return isFound ? all->Item(first) : root;
}

Value::Level LevelOf(
    const CATIDOMElement_var& element, const std::string& file, const std::optional<std::string>& category)
{
    const CATIDOMElement_var around = Around(element, "category");
    if (category && *category != "default" && around != NULL_var &&
        around->GetAttributes()->GetNamedItemValue("name") == std::string_view("default"))
        return Value::FallBack;
    return file.starts_with("Customer/")  ? Value::Customer
           : file.starts_with("Default/") ? Value::Default
                                          : Value::Single;
}

} // namespace

// Keeps what was read: each row that fills something, with the element that has its attribute, and which elements with
// keys were looked for.
class VEXMELKPlacedAsker::Watcher : public VEXMELKWatch
{
public:
    struct Read
    {
        const VEXMELKRow* row;
        CATIDOMElement_var element; // null when the attribute is missing
        std::string_view text;
    };
    using Reads = std::unordered_map<std::string_view, std::vector<Read>>; // by the field
    using LookUp = std::pair<CATIDOMElement_var, const VEXMELKElement*>;   // below which, and for what

    explicit Watcher(const VEXMELKLastingRows& rows) : m_Rows(rows), m_Before(Install(this)) {}
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    ~Watcher() override { Install(m_Before); }

    const Reads& All() const { return m_Reads; }
    const std::vector<LookUp>& LookUps() const { return m_LookUps; }
    bool HasSeenTexts() const { return m_HasSeenTexts; }
    // The rows and elements in their order: what a question with the same sequence read is the same.
    const std::vector<std::uintptr_t>& Sequence() const { return m_Sequence; }

private:
    void OnElements(const CATIDOMElement_var& parent, const VEXMELKElement& described) override
    {
        m_HasSeenTexts = m_HasSeenTexts || described.hasText;
        if (described.key)
            m_LookUps.emplace_back(parent, &described);
    }
    void OnRows(
        const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows) override
    {
        for (const VEXMELKRow& announced : rows)
        {
            const VEXMELKRow* row = m_Rows.Find(announced, map, defaultMap);
            if (!row || row->field.empty())
                continue;
            const Read read = Find(*row, map, defaultMap);
            m_Sequence.push_back(reinterpret_cast<std::uintptr_t>(row));
            if (read.element != NULL_var)
                m_Sequence.push_back(reinterpret_cast<std::uintptr_t>(read.text.data()));
            m_Reads[row->field].push_back(read);
        }
    }
    static Read Find(
        const VEXMELKRow& row, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap)
    {
        for (const CATIDOMNamedNodeMap_var* attributes : {&map, &defaultMap})
            if (*attributes != NULL_var)
                if (const auto text = (*attributes)->GetNamedItemValue(row.attribute))
                    return {&row, (*attributes)->GetOwnerElement(), *text};
        return {&row, NULL_var, {}};
    }

    const VEXMELKLastingRows& m_Rows;
    Reads m_Reads;
    std::vector<LookUp> m_LookUps;
    bool m_HasSeenTexts = false;
    std::vector<std::uintptr_t> m_Sequence;
    VEXMELKWatch* m_Before;
};

// Gives the values of one answer their places.
class VEXMELKPlacedAsker::Matcher
{
public:
    using Read = Watcher::Read;

    Matcher(const VEXMELKPlacedAsker& asker, const VEXMELKAskable& askable, const Watcher& watcher,
        std::vector<Value>& values)
        : m_Asker(asker), m_Askable(askable), m_Watcher(watcher), m_Values(values)
    {
    }

    // Those for which there is a doubt.
    std::set<std::size_t> Match()
    {
        for (std::size_t value = 0; value < m_Values.size(); ++value)
            m_Groups[VEXMELKLastName(m_Values[value].named.field)].push_back(value);
        for (const auto& [name, group] : m_Groups)
        {
            const auto found = m_Watcher.All().find(name);
            if (found == m_Watcher.All().end())
                m_Unplaced.insert(group.begin(), group.end());
            else if (group.size() == found->second.size())
                MatchInOrder(group, found->second);
            else
                MatchByValue(group, found->second);
        }
        if (!m_Unplaced.empty())
            PlaceRest();
        return std::move(m_Unplaced);
    }

private:
    void MatchInOrder(const std::vector<std::size_t>& group, const std::vector<Read>& reads)
    {
        const Read* before = nullptr;
        for (std::size_t place = 0; place < group.size(); ++place)
        {
            const Read* read = &reads[place];
            m_Values[group[place]].row = read->row;
            if (read->element == NULL_var && read->row->whenMissing.rule == VEXMELKWhenMissing::Repeats && before)
                read = before;
            before = read;
            if (Fits(*read, m_Values[group[place]]))
                Place(group[place], *read);
            else
                m_Unplaced.insert(group[place]);
        }
    }
    // Where one text alone makes the value.
    void MatchByValue(const std::vector<std::size_t>& group, const std::vector<Read>& reads)
    {
        for (const std::size_t place : group)
        {
            m_Values[place].row = reads.front().row;
            const Read* only = nullptr;
            std::size_t count = 0;
            for (const Read& read : reads)
                if (read.element != NULL_var && Makes(*read.row, read.text, m_Values[place].named.value))
                {
                    ++count;
                    only = &read;
                }
            if (count == 1)
                Place(place, *only);
            else
                m_Unplaced.insert(place);
        }
    }
    void Place(std::size_t place, const Read& read)
    {
        m_Values[place].row = read.row;
        if (read.element == NULL_var)
            return;
        m_Values[place].element = read.element;
        m_Values[place].attribute = read.row->attribute;
    }
    static bool Fits(const Read& read, const Value& value)
    {
        if (read.element != NULL_var)
            return Makes(*read.row, read.text, value.named.value);
        return read.row->whenMissing.rule != VEXMELKWhenMissing::Gives || GivesMissing(*read.row, value.named.value);
    }

    // Whether something was read that fills no field by itself, or a word, of which several fields may be computed.
    bool CanBeComputed() const
    {
        for (const auto& [field, reads] : m_Watcher.All())
            if (m_Groups.count(field) == 0 ||
                std::any_of(reads.begin(), reads.end(), [](const Read& read) { return !read.row->words.list.empty(); }))
                return true;
        return false;
    }

    // Lists of names and keys; and values that nothing was read for, which are the caller's.
    void PlaceRest()
    {
        const bool hasReads = !m_Watcher.All().empty();
        const bool isAboutStandard = VEXMELKArgumentOf(m_Askable, VEXMELKRole::Standard).has_value();
        const bool canBeComputed = m_Watcher.HasSeenTexts() || CanBeComputed();
        const auto before = VEXMELKFlatAnswer::Of(*m_Askable.New(), m_Askable.Operation()).outputs;
        for (auto unplaced = m_Unplaced.begin(); unplaced != m_Unplaced.end();)
        {
            Value& value = m_Values[*unplaced];
            const bool isText = std::holds_alternative<std::string>(value.named.value);
            const bool isCallers = std::find(before.begin(), before.end(), value.named) != before.end();
            const bool isRead = m_Watcher.All().count(VEXMELKLastName(value.named.field)) != 0;
            bool isSure = false;
            if (isCallers)
                isSure = !canBeComputed && !(isRead && isText);
            else if (!hasReads && !m_Watcher.HasSeenTexts())
                isSure = PlaceAtKey(value, isAboutStandard) || !isText;
            unplaced = isSure ? m_Unplaced.erase(unplaced) : std::next(unplaced);
        }
    }
    // At the first element with that key, of those that were looked for; or at the standard of that name.
    bool PlaceAtKey(Value& value, bool isAboutStandard) const
    {
        for (const auto& [parent, described] : m_Watcher.LookUps())
        {
            const CATIDOMNodeList_var elements = parent->GetElementsByTagName(described->tag);
            for (int position = 0; position < elements->GetLength(); ++position)
            {
                const CATIDOMElement_var element = elements->Item(position);
                const auto key = element->GetAttributes()->GetNamedItemValue(described->key->attribute);
                if (!key || !Makes(*described->key, *key, value.named.value))
                    continue;
                value.element = element;
                value.attribute = described->key->attribute;
                value.row = described->key;
                return true;
            }
        }
        const auto* name = std::get_if<std::string>(&value.named.value);
        const auto found = name && !isAboutStandard ? m_Asker.m_Standards.find(*name) : m_Asker.m_Standards.end();
        if (found == m_Asker.m_Standards.end())
            return false;
        value.element = found->second;
        value.attribute = "name";
        return true;
    }

    const VEXMELKPlacedAsker& m_Asker;
    const VEXMELKAskable& m_Askable;
    const Watcher& m_Watcher;
    std::vector<Value>& m_Values;
    std::unordered_map<std::string_view, std::vector<std::size_t>> m_Groups; // by the last name of the field
    std::set<std::size_t> m_Unplaced;
};

std::string VEXMELKPlacedValue::Text() const
{
    if (!HasPlace())
        return {};
    if (!attribute.empty())
        return std::string(element->GetAttributes()->GetNamedItemValue(attribute).value_or(std::string_view()));
    std::string text;
    for (CATIDOMNode_var node = element->GetFirstChild(); node != NULL_var; node = node->GetNextSibling())
        if (node->GetNodeType() == CATIDOMNode::TEXT_NODE || node->GetNodeType() == CATIDOMNode::CDATA_SECTION_NODE)
            text += node->GetNodeValue();
    return text;
}

std::string_view VEXMELKNameOf(VEXMELKPlacedValue::Level level)
{
    constexpr std::string_view names[] = {"Customer", "Default", "default", "builtin", "single"};
    return names[level];
}

std::optional<VEXMELKAmount> VEXMELKAmountIn(const VEXMELKPlacedValue& value)
{
    const VEXMELKRow* row = value.row;
    const VEXMELKPlainValue& plain = value.named.value;
    const bool isWord = row && (row->form == VEXMELKForm::Word || !row->words.list.empty());
    if (const auto* number = std::get_if<double>(&plain))
    {
        if (value.named.unit == "mm")
            return VEXMELKAmount{*number / 1000.0, "m"};
        const std::string_view unit = value.named.unit;
        return VEXMELKAmount{*number, unit == "m" || unit == "rad" ? (unit == "m" ? "m" : "rad") : ""};
    }
    if (const auto* integer = std::get_if<long>(&plain))
        return isWord ? std::nullopt : std::optional(VEXMELKAmount{static_cast<double>(*integer)});
    const auto* text = std::get_if<std::string>(&plain);
    if (!text || !row || row->kind < VEXMELKKind::Number)
        return std::nullopt;
    const std::optional<double> number = Quantity(*row, *text);
    if (!number)
        return std::nullopt;
    if (row->kind == VEXMELKKind::Percentage)
        return VEXMELKAmount{*number / 100.0};
    return VEXMELKAmount{*number, row->kind == VEXMELKKind::Length  ? "m"
                                  : row->kind == VEXMELKKind::Angle ? "rad"
                                                                    : ""};
}

const VEXMELKPlacedValue* VEXMELKPlacedAnswer::Find(std::string_view field) const
{
    const auto found =
        std::find_if(values.begin(), values.end(), [&](const Value& value) { return value.named.field == field; });
    return found == values.end() ? nullptr : &*found;
}

VEXMELKPlacedAsker::VEXMELKPlacedAsker(
    const VEXMELKConfigManager::Configuration& configuration, const VEXMELKSource& source)
    : m_Configuration(configuration),
      m_Source(source),
      m_Rows(*configuration.description),
      m_Asker(configuration, source),
      m_Places(source.directory.ConvertToChar())
{
    for (std::size_t document = Files().size(); document-- > 0;)
    {
        const CATIDOMElement_var& root = Files()[document].root;
        const CATIDOMNodeList_var standards = root->GetElementsByTagName("standard");
        for (int position = 0; position < standards->GetLength(); ++position)
        {
            const CATIDOMElement_var standard = standards->Item(position);
            const auto name = standard->GetAttributes()->GetNamedItemValue("name");
            if (name && CATIDOMElement_var(standard->GetParentNode()) == root)
                m_Standards.emplace(*name, standard);
        }
    }
}

VEXMELKPlacedAnswer VEXMELKPlacedAsker::Ask(const VEXMELKAskable& askable)
{
    const Watcher watcher(m_Rows);
    VEXMELKFlatAnswer flat = m_Asker.Ask(askable);
    VEXMELKPlacedAnswer answer;
    answer.result = flat.result;
    const auto add = [&](VEXMELKNamedValue named)
    {
        answer.values.emplace_back();
        answer.values.back().named = std::move(named);
    };
    std::vector<VEXMELKNamedValue> before;
    if (answer.IsFalse())
        before = VEXMELKFlatAnswer::Of(*askable.New(), askable.Operation()).outputs;
    if (!std::holds_alternative<std::monostate>(flat.result))
        add({"result", flat.result, std::string(askable.Operation().ResultUnit())});
    for (VEXMELKNamedValue& output : flat.outputs)
    {
        output.variable = {};
        if (std::find(before.begin(), before.end(), output) == before.end())
            add(std::move(output));
        else
            answer.left.push_back(std::move(output));
    }
    std::set<std::size_t> unplaced = Matcher(*this, askable, watcher, answer.values).Match();
    if (std::holds_alternative<bool>(flat.result))
        unplaced.erase(0); // whether it succeeded stands nowhere
    const std::optional<std::string> category = VEXMELKArgumentOf(askable, VEXMELKRole::Category);
    for (Value& value : answer.values)
        if (value.HasPlace())
            FindInFile(value, Files(), category);
    if (!unplaced.empty() && !Files().empty())
        TryFor(askable, watcher, answer, unplaced);
    return answer;
}

void VEXMELKPlacedAsker::FindInFile(
    VEXMELKPlacedValue& value, const std::vector<VEXMELKSourceFile>& files, const std::optional<std::string>& category)
{
    const std::string& file = files[DocumentOf(value.element, files)].name;
    const VEXMELKFilePlaces::Found found = m_Places.Find(file, value.element, value.attribute);
    value.level = LevelOf(value.element, file, category);
    value.file = found.file;
    value.position = found.position;
}

void VEXMELKPlacedAsker::TryFor(const VEXMELKAskable& askable, const Watcher& watcher, VEXMELKPlacedAnswer& answer,
    const std::set<std::size_t>& unplaced)
{
    // Questions that read the same come to the same, unless an argument chooses among what was read.
    std::vector<std::uintptr_t> key = watcher.Sequence();
    key.push_back(reinterpret_cast<std::uintptr_t>(&askable.Operation()));
    key.push_back(HashOfFurtherArguments(askable));
    key.push_back(answer.values.size());
    key.insert(key.end(), unplaced.begin(), unplaced.end());
    if (m_Tried.size() > mostTried)
        m_Tried.clear();
    const auto [known, isNew] = m_Tried.try_emplace(std::move(key));
    if (isNew)
    {
        VEXMELKTrial& trial = TrialFor(VEXMELKArgumentOf(askable, VEXMELKRole::Standard));
        std::set<std::string> fields;
        for (const std::size_t number : unplaced)
            fields.insert(answer.values[number].named.field);
        const VEXMELKExplanation explanation =
            VEXMELKExplainByReads(*m_Configuration.description, askable, trial, m_Places, fields);
        for (const std::size_t number : unplaced)
            known->second.push_back(PlaceIn(explanation, answer.values[number].named.field));
    }
    const std::optional<std::string> category = VEXMELKArgumentOf(askable, VEXMELKRole::Category);
    auto place = known->second.begin();
    for (const std::size_t number : unplaced)
    {
        Value& value = answer.values[number];
        value.isTried = true;
        value.element = place->first;
        value.attribute = place->second;
        if (value.HasPlace())
            FindInFile(value, Files(), category);
        ++place;
    }
}

std::pair<CATIDOMElement_var, std::string_view> VEXMELKPlacedAsker::PlaceIn(
    const VEXMELKExplanation& explanation, const std::string& field) const
{
    const VEXMELKOrigin* origin = explanation.OriginOf(field);
    if (!origin || origin->places.empty())
        return {};
    const VEXMELKOriginPlace& place = origin->places.front();
    if (place.role != VEXMELKOriginPlace::Value || place.element == NULL_var)
        return {};
    // The trial loaded documents of its own: the same element of these.
    const CATIDOMElement_var element = SameElement(place.element, m_Trial->Files(), Files());
    const CATIDOMNamedNodeMap_var attributes = element->GetAttributes();
    for (int position = 0; position < attributes->GetLength(); ++position)
        if (attributes->Item(position)->GetNodeName() == place.attribute)
            return {element, attributes->Item(position)->GetNodeName()};
    return {element, {}};
}

VEXMELKTrial& VEXMELKPlacedAsker::TrialFor(const std::optional<std::string>& standard)
{
    if (!m_Trial || m_TrialStandard != standard)
    {
        m_Trial = std::make_unique<VEXMELKTrial>(m_Configuration, m_Source, standard, 0);
        m_TrialStandard = standard;
    }
    return *m_Trial;
}

std::vector<VEXMELKPreparedQuestion> VEXMELKAllQuestions(
    const std::vector<const VEXMELKPlacedAsker*>& askers, std::size_t* leftOut)
{
    std::vector<VEXMELKDocumentText> documents;
    for (const VEXMELKPlacedAsker* asker : askers)
        for (const VEXMELKSourceFile& file : asker->Files())
            documents.emplace_back(file.root, 1);
    std::vector<const VEXMELKDocumentText*> all;
    all.reserve(documents.size());
    for (const VEXMELKDocumentText& document : documents)
        all.push_back(&document);
    if (all.empty())
        return {};
    return VEXMELKAllQuestions(*askers.front()->Configuration().description, all, leftOut);
}

bool VEXMELKHasFile(const VEXMELKDescription& description, const CATUnicodeString& directory)
{
    const CATUnicodeString file(description.file);
    const bool isInParts = description.layout == VEXMELKLayout::Parts;
    return !directory.IsEmpty() &&
           (VEXMELKUtilities::FileExists(directory + "\\" + file) != 0 ||
               (isInParts && VEXMELKUtilities::FileExists(directory + "\\Default\\" + file) != 0));
}

std::vector<const VEXMELKConfigManager::Configuration*> VEXMELKAskedConfigurations(
    const std::vector<const VEXMELKConfigManager::Configuration*>& wanted)
{
    std::vector<const VEXMELKConfigManager::Configuration*> asked;
    for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
        if (configuration.create &&
            (wanted.empty() || std::find(wanted.begin(), wanted.end(), &configuration) != wanted.end()))
            asked.push_back(&configuration);
    return asked;
}
