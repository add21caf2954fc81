// The arguments of a question are all combinations of what each parameter can be, up to a bound for each operation.
#include "VEXMELKAllQuestions.h"

#include "VEXMELKUtilities.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace {

using Documents = std::vector<const VEXMELKDocumentText*>;
using Input = VEXMELKPreparedQuestion::Input;
using Choices = std::vector<VEXMELKPlainValue>;

constexpr std::size_t mostOfOperation = 200000;

void Add(Choices& choices, VEXMELKPlainValue value)
{
    if (std::find(choices.begin(), choices.end(), value) == choices.end())
        choices.push_back(std::move(value));
}

class Generator
{
public:
    Generator(const VEXMELKDescription& description, const Documents& documents)
        : m_Description(description), m_Documents(documents)
    {
    }

    std::size_t LeftOut() const { return m_LeftOut; }

    std::vector<VEXMELKPreparedQuestion> All()
    {
        std::set<std::string_view> known;
        for (const VEXMELKDescription* level = &m_Description; level; level = level->base)
            for (const VEXMELKOperation& operation : level->operations)
                if (known.insert(operation.Name()).second)
                    AddOperation(operation);
        return std::move(m_Questions);
    }

private:
    void AddOperation(const VEXMELKOperation& operation)
    {
        std::vector<std::vector<Input>> questions = {{}};
        std::size_t all = 1;
        const auto question = operation.NewQuestion();
        for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
        {
            const Choices choices = ChoicesFor(operation.Parameters()[position], question->Parameter(position));
            if (choices.empty())
                continue;
            all *= choices.size();
            std::vector<std::vector<Input>> longer;
            for (const std::vector<Input>& inputs : questions)
                for (const VEXMELKPlainValue& choice : choices)
                    if (longer.size() < mostOfOperation)
                    {
                        longer.push_back(inputs);
                        longer.back().push_back({position, choice});
                    }
            questions = std::move(longer);
        }
        m_LeftOut += all - questions.size();
        for (std::vector<Input>& inputs : questions)
            m_Questions.emplace_back(operation, std::move(inputs));
    }

    // None for an output that is only filled.
    Choices ChoicesFor(const VEXMELKParameter& parameter, const VEXMELKValue& variable) const
    {
        switch (parameter.role)
        {
        case VEXMELKRole::Standard:
            return Names("standard");
        case VEXMELKRole::Category:
            return CategoryNames();
        case VEXMELKRole::Settings:
            return Names("Settings");
        case VEXMELKRole::Key:
            return Keys(*parameter.element);
        case VEXMELKRole::Tag:
            return Tags(*parameter.element);
        case VEXMELKRole::Travel:
        case VEXMELKRole::BackAngle:
            return Numbers(parameter);
        case VEXMELKRole::CutOff:
            return CutOffs(parameter.element);
        case VEXMELKRole::Choice:
            return Range(parameter.choices);
        case VEXMELKRole::Switch:
            return {false, true};
        case VEXMELKRole::Word:
            return Words();
        case VEXMELKRole::Level:
            return {3L};
        case VEXMELKRole::Output:
            break;
        }
        if (std::holds_alternative<VEXMELKAttributeValues*>(variable))
            return {VEXMELKPlainValue(AttributeNames())};
        return Range(parameter.choices);
    }

    static Choices Range(int count)
    {
        Choices range;
        for (long choice = 0; choice < count; ++choice)
            range.emplace_back(choice);
        return range;
    }

    template <class Act> void ForEachElement(std::string_view tag, Act act) const
    {
        for (const VEXMELKDocumentText* document : m_Documents)
            for (std::size_t element = 0; element < document->Elements().size(); ++element)
                if (tag == "*" || document->Elements()[element].node->GetTagName() == tag)
                    act(*document, element);
    }
    Choices Names(std::string_view tag, std::string_view attribute = "name") const
    {
        Choices names;
        std::set<std::string> known;
        ForEachElement(tag,
            [&](const VEXMELKDocumentText& document, std::size_t element)
            {
                const std::size_t slot = document.SlotOf(element, attribute);
                if (slot != VEXMELKDocumentText::none && known.emplace(document.Slots()[slot].text).second)
                    names.emplace_back(std::string(document.Slots()[slot].text));
            });
        return names;
    }
    Choices CategoryNames() const
    {
        Choices names = Names("category");
        Add(names, std::string("default"));
        return names;
    }
    Choices Keys(const VEXMELKElement& element) const
    {
        Choices keys = Names(element.tag, element.key->attribute);
        for (const VEXMELKWord& word : element.key->words.list)
            Add(keys, std::string(word.text));
        return keys;
    }
    // Of the elements that stand where the described one does.
    Choices Tags(const VEXMELKElement& element) const
    {
        Choices tags;
        const std::string_view above = element.below ? element.below->tag : "";
        ForEachElement("*",
            [&](const VEXMELKDocumentText& document, std::size_t found)
            {
                const std::size_t parent = document.Elements()[found].parent;
                if (parent != VEXMELKDocumentText::none && document.Elements()[parent].node->GetTagName() == above)
                    Add(tags, std::string(document.Elements()[found].node->GetTagName()));
            });
        return tags;
    }
    // Each number of a row, one between each two, and one beyond each end.
    Choices Numbers(const VEXMELKParameter& parameter) const
    {
        const bool isAngle = parameter.role == VEXMELKRole::BackAngle;
        std::vector<double> numbers;
        for (const VEXMELKPlainValue& text : Names(parameter.element->tag, parameter.element->key->attribute))
        {
            const CATUnicodeString value(std::get<std::string>(text));
            const double number =
                isAngle ? VEXMELKUtilities::GetValueInRadians(value) : VEXMELKUtilities::GetValueInMeters(value);
            numbers.push_back(parameter.unit == "mm" ? number * 1000.0 : number);
        }
        std::sort(numbers.begin(), numbers.end());
        Choices choices;
        const double beyond = isAngle ? 0.1 : parameter.unit == "mm" ? 10.0 : 0.01;
        if (!numbers.empty())
            Add(choices, numbers.front() - beyond);
        for (std::size_t index = 0; index < numbers.size(); ++index)
        {
            Add(choices, numbers[index]);
            Add(choices,
                index + 1 < numbers.size() ? (numbers[index] + numbers[index + 1]) / 2.0 : numbers[index] + beyond);
        }
        return choices;
    }
    Choices CutOffs(const VEXMELKElement* element) const
    {
        Choices choices = {90L, 95L, 99L};
        if (element && element->key)
            for (const VEXMELKPlainValue& text : Names(element->tag, element->key->attribute))
            {
                int number = 0;
                if (CATUnicodeString(std::get<std::string>(text)).ConvertToNum(&number, "%d"))
                    Add(choices, static_cast<long>(number));
            }
        return choices;
    }
    // All words of the configuration.
    Choices Words() const
    {
        Choices words;
        for (const VEXMELKElement* element : m_Description.elements)
            for (const VEXMELKRows rows : element->tables)
                for (const VEXMELKRow& row : rows)
                    for (const VEXMELKWord& word : row.words.list)
                        Add(words, std::string(word.text));
        return words;
    }
    // "0 Offset\n2 Distance\n": the kind and the name of each attribute that settings fill.
    std::string AttributeNames() const
    {
        std::set<std::string> names;
        ForEachElement("parameter",
            [&](const VEXMELKDocumentText& document, std::size_t element)
            {
                const std::size_t name = document.SlotOf(element, "name");
                const std::size_t type = document.SlotOf(element, "type");
                const bool hasRanges =
                    type != VEXMELKDocumentText::none && document.Slots()[type].text == "colorRanges";
                if (name != VEXMELKDocumentText::none)
                    names.insert((hasRanges ? "2 " : "0 ") + std::string(document.Slots()[name].text));
            });
        std::string text;
        for (const std::string& name : names)
            text += name + "\n";
        return text;
    }

    const VEXMELKDescription& m_Description;
    const Documents& m_Documents;
    std::vector<VEXMELKPreparedQuestion> m_Questions;
    std::size_t m_LeftOut = 0;
};

void AppendAttributes(VEXMELKAttributeValues& attributes, std::string_view names)
{
    while (!names.empty())
    {
        const std::string_view line = names.substr(0, names.find('\n'));
        names.remove_prefix(line.size() + 1);
        VEXMELKCFGAttributeStr attribute;
        attribute.kind = line.front() - '0';
        attribute.name = line.substr(2);
        attribute.firstAccess = attributes.NewAccess();
        if (attribute.kind != 0)
        {
            attribute.secondAccess = attributes.NewAccess();
            attribute.thirdAccess = attributes.NewAccess();
        }
        attributes.Append(attribute);
    }
}

// The first integer of a record.
void SetFirstInteger(VEXMELKRecordView& record, long number)
{
    for (std::size_t position = 0; position < record.Size(); ++position)
    {
        const VEXMELKValue field = record.At(position);
        if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&field))
            return (*integer)->Set(static_cast<int>(number));
    }
}

void Assign(const VEXMELKValue& variable, const VEXMELKPlainValue& value)
{
    if (const auto* text = std::get_if<CATUnicodeString*>(&variable))
        **text = CATUnicodeString(std::get<std::string>(value));
    else if (const auto* flag = std::get_if<unsigned char*>(&variable))
        **flag = std::get<bool>(value) ? 1 : 0;
    else if (const auto* number = std::get_if<double*>(&variable))
        **number = std::get<double>(value);
    else if (const auto* attributes = std::get_if<VEXMELKAttributeValues*>(&variable))
        AppendAttributes(**attributes, std::get<std::string>(value));
    else if (const auto* record = std::get_if<std::shared_ptr<VEXMELKRecordView>>(&variable))
        SetFirstInteger(**record, std::get<long>(value));
    else if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&variable))
        (*integer)->Set(
            std::holds_alternative<bool>(value) ? int{std::get<bool>(value)} : static_cast<int>(std::get<long>(value)));
}

} // namespace

std::unique_ptr<VEXMELKQuestion> VEXMELKPreparedQuestion::New() const
{
    std::unique_ptr<VEXMELKQuestion> question = m_Operation->NewQuestion();
    for (const Input& input : m_Inputs)
        Assign(question->Parameter(input.parameter), input.value);
    return question;
}

std::string VEXMELKPreparedQuestion::ArgumentText() const
{
    std::string text;
    for (const Input& input : m_Inputs)
        // The names of the attributes that are to be filled would fill pages.
        if (!m_Operation->Parameters()[input.parameter].IsOutput() || std::holds_alternative<long>(input.value))
            text += (text.empty() ? "" : " ") + std::string(m_Operation->Parameters()[input.parameter].name) + "=" +
                    VEXMELKTextOf(input.value);
    return text;
}

std::vector<VEXMELKPreparedQuestion> VEXMELKAllQuestions(
    const VEXMELKDescription& description, const Documents& documents, std::size_t* leftOut)
{
    Generator generator(description, documents);
    std::vector<VEXMELKPreparedQuestion> questions = generator.All();
    if (leftOut)
        *leftOut += generator.LeftOut();
    return questions;
}
