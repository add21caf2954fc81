// Finds origins in three steps: what was read is recorded, each text is replaced and the question asked again, and what
// changed the answer is found again in the file as it is written.
#include "VEXMELKOrigins.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <map>
#include <set>

namespace {

using Place = VEXMELKTrial::Place;
using Values = std::vector<VEXMELKNamedValue>;

// How long the trials of one question may take together.
constexpr double secondsForTrials = 3.0;

// "barriers" of "barriers[1].Overlapping".
std::string_view OutputName(std::string_view field) { return field.substr(0, field.find_first_of(".[")); }
// "barriers[].Overlapping" of "barriers[1].Overlapping".
std::string WithoutPositions(std::string_view field)
{
    std::string name;
    for (std::size_t at = 0; at < field.size(); ++at)
    {
        name += field[at];
        if (field[at] == '[')
            at = field.find(']', at) - 1;
    }
    return name;
}

// Makes a variable another one than it is.
void Disturb(const VEXMELKValue& variable, const std::string& word)
{
    if (const auto* text = std::get_if<CATUnicodeString*>(&variable))
        **text = CATUnicodeString(word);
    else if (const auto* flag = std::get_if<unsigned char*>(&variable))
        **flag = **flag == 0 ? 1 : 0;
    else if (const auto* number = std::get_if<double*>(&variable))
        **number += 12345.5;
    else if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&variable))
        (*integer)->Set((*integer)->Get() == 1 ? 2 : 1);
}

class Explainer
{
public:
    Explainer(const VEXMELKDescription& description, const VEXMELKAskable& askable, VEXMELKTrial& trial,
        VEXMELKFilePlaces& places)
        : m_Description(description),
          m_Elements(VEXMELKElementsOf(m_Description)),
          m_Askable(askable),
          m_Category(VEXMELKArgumentOf(askable, VEXMELKRole::Category)),
          m_Trial(trial),
          m_Places(places)
    {
    }

    VEXMELKExplanation Explain()
    {
        // In processor time, so that what else the machine does leaves nothing out.
        const std::clock_t begin = std::clock();
        Ask();
        const double once = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        VEXMELKExplanation explanation;
        explanation.result = m_Answer.result;
        explanation.reason = VEXMELKReason(m_Trial, m_Askable, m_Answer);
        explanation.leftOut = TryAll(secondsForTrials / std::max(once, 1e-6));
        FindKept();
        AddOrigins(explanation);
        return explanation;
    }
    VEXMELKExplanation ExplainByReads(const std::set<std::string>& fields)
    {
        Ask();
        TryReads();
        VEXMELKExplanation explanation;
        explanation.result = m_Answer.result;
        const auto addOrigins = [&]
        {
            for (std::size_t field = 0; field < m_Fields.size(); ++field)
                if (fields.count(m_Fields[field].field) != 0)
                    explanation.fields.push_back(OriginOf(field));
        };
        addOrigins();
        const auto isOpen = [](const VEXMELKOrigin& origin) { return origin.places.front().file.empty(); };
        if (std::any_of(explanation.fields.begin(), explanation.fields.end(), isOpen))
        {
            TryKeys();
            TryContents();
            explanation.fields.clear();
            addOrigins();
        }
        return explanation;
    }

private:
    void Ask()
    {
        m_Answer = m_Trial.Ask(m_Askable, &m_Reads);
        m_Fields = m_Answer.Fields();
        m_Changes.resize(m_Fields.size());
    }
    void AddOrigins(VEXMELKExplanation& explanation)
    {
        for (std::size_t field = 0; field < m_Fields.size(); ++field)
            explanation.fields.push_back(OriginOf(field));
    }

    // Trying ----------------------------------------------------------------------

    // Replaces texts, at most so many, and notes what that changes. Gives the number of texts that were left out.
    std::size_t TryAll(double atMost)
    {
        std::map<Place, std::set<std::string>> texts;
        // A key is a choice where it was matched, not where another key would match: it gets no text that others have.
        for (const VEXMELKTrial::Read& read : m_Reads)
            if (!IsKey(read.place))
                for (const std::string& text : m_Trial.OtherTexts(*read.row))
                    texts[read.place].insert(text);
        const auto elements = ElementsOfReads();
        std::size_t leftOut = 0;
        for (std::size_t document = 0; document < m_Trial.Documents().size(); ++document)
            for (std::size_t slot = 0; slot < m_Trial.Documents()[document].Slots().size(); ++slot)
            {
                const Place place{document, slot};
                if (texts.count(place) != 0 || static_cast<double>(texts.size()) < atMost ||
                    elements.count({document, m_Trial.At(place).element}) != 0)
                    texts[place].insert(m_Trial.UnknownWord());
                else
                    ++leftOut;
            }
        for (const auto& [place, others] : texts)
            for (const std::string& text : others)
                Try(place, text);
        return leftOut;
    }

    // Each text that was read, until something changes; words all, for several fields may come from one.
    void TryReads()
    {
        std::set<Place> done;
        for (const VEXMELKTrial::Read& read : m_Reads)
        {
            if (IsKey(read.place) || done.count(read.place) != 0)
                continue;
            for (const std::string& text : m_Trial.OtherTexts(*read.row))
                if (Try(read.place, text) && read.row->words.list.empty())
                {
                    done.insert(read.place);
                    break;
                }
        }
    }
    void TryKeys()
    {
        for (const auto& [document, element] : ElementsOfReads())
        {
            const VEXMELKDocumentText::Element& around = m_Trial.Documents()[document].Elements()[element];
            for (std::size_t slot = around.firstSlot; slot < around.firstSlot + around.slotCount; ++slot)
                if (IsKey({document, slot}))
                    Try({document, slot}, m_Trial.UnknownWord());
        }
    }

    // The texts between tags, which no row reads: those that a field repeats.
    void TryContents()
    {
        for (std::size_t document = 0; document < m_Trial.Documents().size(); ++document)
            for (std::size_t slot = 0; slot < m_Trial.Documents()[document].Slots().size(); ++slot)
            {
                const auto& content = m_Trial.At({document, slot});
                const auto repeats = [&](const VEXMELKNamedValue& value)
                { return value.value == VEXMELKPlainValue(std::string(content.text)); };
                if (content.attribute.empty() && std::any_of(m_Fields.begin(), m_Fields.end(), repeats))
                    Try({document, slot}, m_Trial.UnknownWord());
            }
    }

    // The elements that were read, and those around them: document and element.
    std::set<std::pair<std::size_t, std::size_t>> ElementsOfReads() const
    {
        std::set<std::pair<std::size_t, std::size_t>> elements;
        for (const VEXMELKTrial::Read& read : m_Reads)
            for (std::size_t at = m_Trial.At(read.place).element;
                 at != VEXMELKDocumentText::none && elements.emplace(read.place.document, at).second;
                 at = DocumentOf(read.place).Elements()[at].parent)
                ;
        return elements;
    }

    // Whether the answer is another one with that text there.
    bool Try(Place place, const std::string& text)
    {
        if (m_Trial.At(place).text == text)
            return false;
        const VEXMELKTrial::Replacement replacement(m_Trial, place, text);
        const VEXMELKFlatAnswer answer = m_Trial.Ask(m_Askable);
        if (answer == m_Answer)
            return false;
        const bool isOtherResult = answer.result != m_Answer.result;
        const Values fields = answer.Fields();
        std::map<std::string_view, const VEXMELKPlainValue*> values;
        for (const VEXMELKNamedValue& value : fields)
            values.emplace(value.field, &value.value);
        std::set<std::string_view> outputsThatGrew;
        for (std::size_t field = 0; field < m_Fields.size(); ++field)
        {
            const auto found = values.find(m_Fields[field].field);
            if (isOtherResult || found == values.end() || *found->second != m_Fields[field].value)
                m_Changes[field].insert(place);
            if (found != values.end())
                values.erase(found);
        }
        for (const auto& [name, value] : values)
            outputsThatGrew.insert(OutputName(name));
        for (std::size_t field = 0; field < m_Fields.size(); ++field)
            if (outputsThatGrew.count(OutputName(m_Fields[field].field)) != 0)
                m_Changes[field].insert(place);
        return true;
    }

    // Which fields hold what the caller had: they follow it.
    void FindKept()
    {
        const auto outputsOf = [&](VEXMELKQuestion& question)
        { return VEXMELKFlatAnswer::Of(question, m_Askable.Operation()).outputs; };
        const std::size_t count = outputsOf(*m_Askable.New()).size();
        for (std::size_t output = 0; output < count; ++output)
        {
            const std::unique_ptr<VEXMELKQuestion> question = m_Askable.New();
            Disturb(outputsOf(*question)[output].variable, m_Trial.UnknownWord());
            const Values disturbed = outputsOf(*question);
            const VEXMELKFlatAnswer answer = m_Trial.Ask(*question, m_Askable.Operation());
            for (const VEXMELKNamedValue& value : answer.outputs)
                if (value == disturbed[output] && !IsAnswered(value))
                    m_Kept.insert(value.field);
        }
    }

    bool IsAnswered(const VEXMELKNamedValue& value) const
    {
        return std::find(m_Answer.outputs.begin(), m_Answer.outputs.end(), value) != m_Answer.outputs.end();
    }

    // Telling ---------------------------------------------------------------------

    VEXMELKOrigin OriginOf(std::size_t field)
    {
        VEXMELKOrigin origin{m_Fields[field], {}};
        origin.value.variable = {};
        origin.value.isSecret = m_Fields[field].isSecret;
        const std::set<Place>& places = m_Changes[field];
        std::vector<VEXMELKOriginPlace> choices;
        bool hasValue = std::any_of(places.begin(), places.end(), [&](Place place) { return IsValue(place, field); });
        const bool takesKeys = !hasValue;
        std::ptrdiff_t filling = 0; // those that are read into the field come first
        for (const Place place : places)
        {
            const bool isValue = takesKeys ? IsKeyAsValue(place, field) : IsValue(place, field);
            hasValue = hasValue || isValue;
            if (isValue)
                origin.places.insert(Fills(place, field) ? origin.places.begin() + filling++ : origin.places.end(),
                    Told(place, field, true));
            else
                choices.push_back(Told(place, field, false));
        }
        if (!hasValue)
            origin.places.push_back(WithoutPlace(m_Kept.count(m_Fields[field].field) != 0));
        const std::size_t values = origin.places.size();
        origin.places.insert(origin.places.end(), choices.begin(), choices.end());
        if (hasValue)
            AddHidden(field, values, origin);
        return origin;
    }

    static VEXMELKOriginPlace WithoutPlace(bool isKept)
    {
        VEXMELKOriginPlace place;
        place.how = isKept ? "kept" : "builtin";
        place.why = isKept ? "kept: the caller's value" : "built in";
        return place;
    }

    const VEXMELKDocumentText& DocumentOf(Place place) const { return m_Trial.Documents()[place.document]; }
    CATIDOMElement_var ElementOf(Place place) const
    {
        return DocumentOf(place).Elements()[m_Trial.At(place).element].node;
    }

    std::size_t Around(Place place, std::string_view tag) const
    {
        return DocumentOf(place).Around(m_Trial.At(place).element, tag);
    }
    std::string NameAround(Place place, std::string_view tag) const
    {
        return std::string(DocumentOf(place).TextOf(Around(place, tag), "name"));
    }

    const VEXMELKElement* DescribedOf(Place place) const
    {
        const std::string_view tag = ElementOf(place)->GetTagName();
        for (const VEXMELKElement* element : m_Elements)
            if (element->tag == tag)
                return element;
        return nullptr;
    }
    bool IsKey(Place place) const
    {
        const std::string_view tag = ElementOf(place)->GetTagName();
        return std::any_of(m_Elements.begin(), m_Elements.end(),
            [&](const VEXMELKElement* element)
            { return element->tag == tag && element->key && element->key->attribute == m_Trial.At(place).attribute; });
    }
    const VEXMELKRow* RowOf(Place place) const
    {
        for (const VEXMELKTrial::Read& read : m_Reads)
            if (read.place == place)
                return read.row;
        return nullptr;
    }
    // Whether the text is read into the field, or is one of what it is computed from.
    bool IsValue(Place place, std::size_t field) const
    {
        const VEXMELKRow* row = RowOf(place);
        return m_Trial.At(place).attribute.empty() || Fills(place, field) ||
               (row && row->kind != VEXMELKKind::Name && !IsKey(place));
    }
    bool Fills(Place place, std::size_t field) const
    {
        return std::any_of(m_Reads.begin(), m_Reads.end(),
            [&](const VEXMELKTrial::Read& read)
            { return read.place == place && read.row->field == VEXMELKLastName(m_Fields[field].field); });
    }
    // Whether a key is what the field was made of: a list of names, or a length that an element is found by.
    bool IsKeyAsValue(Place place, std::size_t field) const
    {
        const VEXMELKPlainValue text = std::string(m_Trial.At(place).text);
        const VEXMELKElement* described = DescribedOf(place);
        const bool isNumber =
            !RowOf(place) && described && described->key && described->key->form == VEXMELKForm::Millimetres;
        return IsKey(place) && (m_Fields[field].value == text || isNumber);
    }

    VEXMELKOriginPlace Told(Place place, std::size_t field, bool isValue)
    {
        VEXMELKOriginPlace told = Found(place);
        told.role = isValue ? VEXMELKOriginPlace::Value : VEXMELKOriginPlace::Choice;
        if (told.how == "dtd")
            told.why = "default of the document type";
        else if (told.role == VEXMELKOriginPlace::Choice)
            TellChoice(place, told);
        else
            TellValue(place, field, told);
        return told;
    }

    void TellChoice(Place place, VEXMELKOriginPlace& told) const
    {
        told.how = "own";
        told.why = "chosen by " + std::string(m_Trial.At(place).attribute);
        const bool isStandard = ElementOf(place)->GetTagName() == "standard";
        if (Around(place, "standard") == VEXMELKDocumentText::none)
            told.how = "root";
        else if (isStandard && place.document > 0 && IsInDefault(told.text))
        {
            told.how = "customer";
            told.why = "Customer before Default";
        }
        else if (ElementOf(place)->GetTagName() == "category" && m_Category && told.text != *m_Category)
        {
            told.how = "default";
            told.why = "stands in for \"" + *m_Category + "\"";
        }
    }
    bool IsInDefault(const std::string& standard) const
    {
        for (const VEXMELKSlot& slot : m_Trial.Documents().front().Slots())
            if (slot.attribute == "name" && slot.text == standard &&
                m_Trial.Documents().front().Elements()[slot.element].node->GetTagName() == "standard")
                return true;
        return false;
    }

    void TellValue(Place place, std::size_t field, VEXMELKOriginPlace& told) const
    {
        const std::string category = NameAround(place, "category");
        const VEXMELKElement* described = DescribedOf(place);
        const bool isOfDefault = m_Category && category == "default" && *m_Category != "default";
        const bool isAttribute = ElementOf(place)->GetTagName() == "category";
        if (IsCarried(place, field))
        {
            told.how = "carried";
            told.why = "carried over from the one before";
        }
        else if (Around(place, "standard") == VEXMELKDocumentText::none)
        {
            told.how = "root";
            told.why = "for all standards";
        }
        else if (!isOfDefault)
        {
            told.how = "own";
            told.why = category.empty() ? NameAround(place, "standard") : category;
        }
        else if (!isAttribute && described && described->fallBack == VEXMELKFallBack::Overlay)
        {
            told.how = "overlay";
            told.why = "default, below " + *m_Category;
        }
        else if (!isAttribute && described && described->fallBack == VEXMELKFallBack::WholeElement)
        {
            told.how = "element";
            told.why = "default, taken whole: " + *m_Category + " does not have the element";
        }
        else
        {
            told.how = "default";
            told.why = "default: " + *m_Category + " does not set it";
        }
    }

    // Whether it decides the same field of a record before.
    bool IsCarried(Place place, std::size_t field) const
    {
        const VEXMELKRow* row = RowOf(place);
        if (!row || row->whenMissing.rule != VEXMELKWhenMissing::Repeats)
            return false;
        const std::string name = WithoutPositions(m_Fields[field].field);
        for (std::size_t before = 0; before < field; ++before)
            if (WithoutPositions(m_Fields[before].field) == name && m_Changes[before].count(place) != 0)
                return true;
        return false;
    }

    // Texts that would be in the place of the value if another did not stand before them: in the same place of another
    // document, of "default", or of a further element with the name.
    void AddHidden(std::size_t field, std::size_t values, VEXMELKOrigin& origin)
    {
        for (const Place value : m_Changes[field])
            if (IsValue(value, field))
                for (std::size_t document = 0; document < m_Trial.Documents().size(); ++document)
                    for (std::size_t slot = 0; slot < m_Trial.Documents()[document].Slots().size(); ++slot)
                        if (const Place place{document, slot}; IsHiddenBy(place, value))
                        {
                            VEXMELKOriginPlace told = Found(place);
                            told.role = VEXMELKOriginPlace::Hidden;
                            TellHidden(place, value, told);
                            origin.places.push_back(std::move(told));
                            if (origin.places.size() > values + mostHidden)
                                return;
                        }
    }
    static constexpr std::size_t mostHidden = 20;

    bool IsHiddenBy(Place place, Place value) const
    {
        if (place == value || m_Trial.At(place).attribute != m_Trial.At(value).attribute || Decides(place))
            return false;
        if (NameAround(place, "standard") != NameAround(value, "standard") || !HasSameTags(place, value))
            return false;
        const std::string category = NameAround(place, "category");
        if (category != NameAround(value, "category") && category != "default")
            return false;
        const bool isElsewhere = place.document != value.document || category != NameAround(value, "category") ||
                                 Around(place, "category") != Around(value, "category");
        return isElsewhere && KeyAt(place) == KeyAt(value);
    }
    bool Decides(Place place) const
    {
        return std::any_of(
            m_Changes.begin(), m_Changes.end(), [&](const auto& places) { return places.count(place) != 0; });
    }
    bool HasSameTags(Place left, Place right) const
    {
        std::size_t at = m_Trial.At(left).element;
        std::size_t other = m_Trial.At(right).element;
        while (at != VEXMELKDocumentText::none && other != VEXMELKDocumentText::none)
        {
            const auto& element = DocumentOf(left).Elements()[at];
            const auto& otherElement = DocumentOf(right).Elements()[other];
            // The root may have any name.
            if (element.parent != VEXMELKDocumentText::none &&
                element.node->GetTagName() != otherElement.node->GetTagName())
                return false;
            at = element.parent;
            other = otherElement.parent;
        }
        return at == other;
    }
    // The text of the attribute by which the element is found.
    std::string_view KeyAt(Place place) const
    {
        const VEXMELKElement* described = DescribedOf(place);
        if (!described || !described->key || described->tag == "category")
            return {};
        return DocumentOf(place).TextOf(m_Trial.At(place).element, described->key->attribute);
    }
    void TellHidden(Place place, Place value, VEXMELKOriginPlace& told) const
    {
        if (place.document != value.document)
        {
            told.how = "customer";
            told.why = "hidden: Customer replaces the standard wholly";
        }
        else if (NameAround(place, "category") != NameAround(value, "category"))
        {
            told.how = "default";
            told.why = "hidden: " + NameAround(value, "category") + " sets it";
        }
        else
        {
            told.how = "own";
            told.why = "hidden: the first of the name counts";
        }
    }

    // In the files ------------------------------------------------------------------

    VEXMELKOriginPlace Found(Place place)
    {
        const VEXMELKSlot& slot = m_Trial.At(place);
        const VEXMELKFilePlaces::Found written =
            m_Places.Find(m_Trial.Files()[place.document].name, ElementOf(place), slot.attribute);
        VEXMELKOriginPlace found;
        found.how = written.isOfDocumentType ? "dtd" : "";
        found.file = written.file;
        found.position = written.position;
        found.element = ElementOf(place);
        found.path = DocumentOf(place).PathOf(slot.element);
        found.attribute = slot.attribute;
        found.text = slot.text;
        found.isSecret = VEXMELKHasSecrets(m_Description);
        return found;
    }

    const VEXMELKDescription& m_Description;
    const std::vector<const VEXMELKElement*> m_Elements;
    const VEXMELKAskable& m_Askable;
    const std::optional<std::string> m_Category;
    VEXMELKTrial& m_Trial;
    VEXMELKFilePlaces& m_Places;
    VEXMELKFlatAnswer m_Answer;
    Values m_Fields;
    std::vector<VEXMELKTrial::Read> m_Reads;
    std::vector<std::set<Place>> m_Changes; // for each field, what changes it
    std::set<std::string> m_Kept;
};

} // namespace

const VEXMELKOrigin* VEXMELKExplanation::OriginOf(std::string_view field) const
{
    const auto found = std::find_if(
        fields.begin(), fields.end(), [&](const VEXMELKOrigin& origin) { return origin.value.field == field; });
    return found == fields.end() ? nullptr : &*found;
}

void VEXMELKExplanation::CompareWith(const VEXMELKFlatAnswer& answer)
{
    const Values before = answer.Fields();
    filesHaveChanged =
        answer.result != result ||
        !std::equal(before.begin(), before.end(), fields.begin(), fields.end(),
            [](const VEXMELKNamedValue& value, const VEXMELKOrigin& origin) { return value == origin.value; });
    if (filesHaveChanged)
        for (VEXMELKOrigin& origin : fields)
            origin.places.clear();
}

std::optional<std::string> VEXMELKArgumentOf(const VEXMELKAskable& askable, VEXMELKRole role)
{
    const auto parameters = askable.Operation().Parameters();
    for (std::size_t position = 0; position < parameters.size(); ++position)
        if (parameters[position].role == role)
            return (*std::get<CATUnicodeString*>(askable.New()->Parameter(position))).ConvertToChar();
    return std::nullopt;
}

VEXMELKExplanation VEXMELKExplain(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKAskable& askable, const CATUnicodeString& directory)
{
    const VEXMELKSilence silence;
    VEXMELKTrial trial(configuration, directory, VEXMELKArgumentOf(askable, VEXMELKRole::Standard));
    VEXMELKFilePlaces places(directory.ConvertToChar());
    return VEXMELKExplain(*configuration.description, askable, trial, places);
}

VEXMELKExplanation VEXMELKExplain(const VEXMELKDescription& description, const VEXMELKAskable& askable,
    VEXMELKTrial& trial, VEXMELKFilePlaces& places)
{
    const VEXMELKSilence silence;
    return Explainer(description, askable, trial, places).Explain();
}

VEXMELKExplanation VEXMELKExplainByReads(const VEXMELKDescription& description, const VEXMELKAskable& askable,
    VEXMELKTrial& trial, VEXMELKFilePlaces& places, const std::set<std::string>& fields)
{
    const VEXMELKSilence silence;
    return Explainer(description, askable, trial, places).ExplainByReads(fields);
}
