// The look-ups of a question, as the watch is told of them.
#include "VEXMELKOrigins.h"

namespace {

class StepRecorder : public VEXMELKWatch
{
public:
    explicit StepRecorder(const VEXMELKTrial& trial) : m_Trial(trial), m_Before(Install(this)) {}
    StepRecorder(const StepRecorder&) = delete;
    StepRecorder& operator=(const StepRecorder&) = delete;
    ~StepRecorder() override { Install(m_Before); }

    std::vector<VEXMELKStep> Take() { return std::move(m_Steps); }

private:
    void OnElements(const CATIDOMElement_var& parent, const VEXMELKElement& described) override
    {
        VEXMELKStep step{"<" + std::string(described.tag) + "> below " + PathOf(parent), false, {}, {}, {}};
        const CATIDOMNodeList_var found = parent->GetElementsByTagName(described.tag);
        const auto element = found->GetLength() > 0 ? m_Trial.ElementOf(found->Item(0)) : std::nullopt;
        if (element)
        {
            const CATIDOMElement_var original = m_Trial.Documents()[element->first].Elements()[element->second].node;
            step.isHit = true;
            step.file = m_Trial.Files()[element->first].name;
            step.position = {original->GetLineNumber(), original->GetColumnNumber()};
        }
        m_Steps.push_back(std::move(step));
    }
    void OnRows(
        const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows) override
    {
        for (const VEXMELKRow& row : rows)
            if (!AddRow(map, row))
                AddRow(defaultMap, row);
    }
    // Whether the attribute is there.
    bool AddRow(const CATIDOMNamedNodeMap_var& map, const VEXMELKRow& row)
    {
        if (map == NULL_var)
            return false;
        VEXMELKStep step{std::string(row.attribute) + " of " + PathOf(map->GetOwnerElement()), false, {}, {}, {}};
        if (const auto place = m_Trial.PlaceOf(map, row.attribute))
        {
            const VEXMELKSlot& slot = m_Trial.At(*place);
            const CATIDOMElement_var original = m_Trial.Documents()[place->document].Elements()[slot.element].node;
            step.isHit = true;
            step.file = m_Trial.Files()[place->document].name;
            step.position = {original->GetLineNumber(), original->GetColumnNumber()};
            step.text = row.isSecret ? "" : std::string(slot.text);
        }
        m_Steps.push_back(std::move(step));
        return m_Steps.back().isHit;
    }
    std::string PathOf(const CATIDOMElement_var& element) const
    {
        const auto found = m_Trial.ElementOf(element);
        return found ? m_Trial.Documents()[found->first].PathOf(found->second) : "?";
    }

    const VEXMELKTrial& m_Trial;
    std::vector<VEXMELKStep> m_Steps;
    VEXMELKWatch* m_Before;
};

} // namespace

std::vector<VEXMELKStep> VEXMELKSteps(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKAskable& askable, const CATUnicodeString& directory)
{
    const VEXMELKSilence silence;
    const VEXMELKTrial trial(configuration, directory);
    StepRecorder recorder(trial);
    trial.Ask(askable);
    return recorder.Take();
}
