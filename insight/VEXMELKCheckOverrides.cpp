// What a Customer file makes of the Default file: repeats, standards of its own, priorities that nobody reads.
#include "VEXMELKBaseline.h"
#include "VEXMELKCheckPasses.h"
#include "VEXMELKTrial.h"

#include <algorithm>

namespace {

using File = VEXMELKCheckedFile;
// Each attribute below a standard: the way to it, and its node and text.
struct Text
{
    std::size_t node;
    std::string_view attribute;
    std::string_view text;
};
using Texts = std::map<std::string, Text>;

class OverridePass
{
public:
    OverridePass(const File& main, const File& customer, VEXMELKFindingList& findings)
        : m_Main(main), m_Customer(customer), m_Findings(findings)
    {
    }

    // Compares with what was accepted before.
    void Check(const std::map<std::string, std::optional<std::string>>& accepted)
    {
        ForEachReplaced(
            [&](const std::string& way, const Text& customers, const Text* own)
            {
                const auto found = accepted.find(way);
                if (found == accepted.end())
                    return;
                const std::optional<std::string> now = own ? std::optional(std::string(own->text)) : std::nullopt;
                if (found->second == now)
                    return;
                const bool isEqual = now && *now == customers.text;
                const auto shown = [](const std::optional<std::string>& text)
                { return text ? VEXMELKQuoted(*text) : std::string("nothing"); };
                m_Findings.AtValue(isEqual ? "override-equal" : "default-changed", m_Customer, customers.node,
                    customers.attribute,
                    std::string(customers.attribute) + " was accepted over " + shown(found->second) +
                        "; the Default file now says " + (isEqual ? "the same as here, " : "") + shown(now) +
                        (own ? " (" + VEXMELKPlaceText(VEXMELKPositionOf(m_Main, own->node)) + ")" : ""));
            });
    }
    std::map<std::string, std::optional<std::string>> Replaced() const
    {
        std::map<std::string, std::optional<std::string>> replaced;
        ForEachReplaced([&](const std::string& way, const Text& /*customers*/, const Text* own)
            { replaced.emplace(way, own ? std::optional(std::string(own->text)) : std::nullopt); });
        return replaced;
    }

    void Check()
    {
        for (std::size_t node = 1; node < m_Customer.Nodes().size(); ++node)
            if (m_Customer.Is(node, "priorities") && !m_Customer.Nodes()[node].isLeftOut)
                m_Findings.AtElement("customer-priorities", m_Customer, node,
                    "the priorities of a Customer file are never read; those of the Default file count");
        const std::map<std::string, std::size_t> standards = StandardsOf(m_Main);
        for (const auto& [name, node] : StandardsOf(m_Customer))
        {
            const auto found = standards.find(name);
            if (found == standards.end())
                CheckOwn(name, node, standards);
            else
                CompareStandards(name, found->second, node);
        }
    }

private:
    static std::map<std::string, std::size_t> StandardsOf(const File& file)
    {
        std::map<std::string, std::size_t> standards;
        file.ForEachChild(0,
            [&](std::size_t node)
            {
                if (file.TagOf(node) == "standard" && file.TextOf(node, "name"))
                    standards.emplace(*file.TextOf(node, "name"), node);
            });
        return standards;
    }

    void CheckOwn(const std::string& name, std::size_t node, const std::map<std::string, std::size_t>& standards)
    {
        std::vector<std::string> names;
        names.reserve(standards.size());
        for (const auto& [known, place] : standards)
            names.push_back(known);
        const std::string meant = ++m_Own <= mostCompared ? VEXMELKNearlySame(name, names) : std::string();
        const bool isSimilar = !meant.empty();
        VEXMELKFinding& finding = m_Findings.AtValue(isSimilar ? "similar-name" : "customer-only-standard", m_Customer,
            node, "name",
            isSimilar
                ? "the standard " + VEXMELKQuoted(name) + " is nearly " + VEXMELKQuoted(meant) + " of the Default file"
                : "the Default file has no standard " + VEXMELKQuoted(name));
        if (isSimilar)
        {
            finding.suggestion = meant;
            finding.effect = m_Customer.Description().name;
            finding.effect += ", " + meant + ": the Default file answers";
        }
    }

    void CompareStandards(const std::string& name, std::size_t node, std::size_t customerNode)
    {
        const Texts own = TextsOf(m_Main, node);
        const Texts customers = TextsOf(m_Customer, customerNode);
        const auto isSame = [&](const auto& each)
        {
            const auto found = own.find(each.first);
            return found != own.end() && found->second.text == each.second.text;
        };
        if (own.size() == customers.size() && std::all_of(customers.begin(), customers.end(), isSame))
        {
            m_Findings.AtElement("customer-repeats", m_Customer, customerNode,
                "the standard " + VEXMELKQuoted(name) + " repeats that of the Default file, value for value");
            return;
        }
        for (const auto& each : customers)
            if (isSame(each) && m_Customer.Nodes()[each.second.node].place.kind->Find(each.second.attribute) &&
                each.second.attribute != "name")
                m_Findings.AtValue("repeated-override", m_Customer, each.second.node, each.second.attribute,
                    std::string(each.second.attribute) + " is what the Default file says (" +
                        VEXMELKPlaceText(VEXMELKPositionOf(m_Main, own.at(each.first).node)) + ")");
    }

    // Every value of a Customer standard that replaces one of the Default file, with the Default value: that of the
    // same place, or else that of its "default".
    template <class Act> void ForEachReplaced(Act act) const
    {
        const std::map<std::string, std::size_t> standards = StandardsOf(m_Main);
        for (const auto& [name, node] : StandardsOf(m_Customer))
        {
            const auto replaced = standards.find(name);
            if (replaced == standards.end())
                continue;
            const Texts own = TextsOf(m_Main, replaced->second);
            for (const auto& [way, text] : TextsOf(m_Customer, node))
            {
                if (text.attribute.empty() || text.attribute == "name")
                    continue;
                auto found = own.find(way);
                if (found == own.end())
                    found = own.find(OfDefault(way));
                act(way, text, found == own.end() ? nullptr : &found->second);
            }
        }
    }
    static std::string OfDefault(std::string way)
    {
        const std::string category = "/category[";
        const std::size_t begin = way.find(category);
        const std::size_t end = begin == std::string::npos ? begin : way.find(']', begin);
        return end == std::string::npos ? way : way.replace(begin, end - begin + 1, "/category[default]");
    }

    // Elements of one way are told apart by their names, else by their order.
    static Texts TextsOf(const File& file, std::size_t standard)
    {
        Texts texts;
        std::map<std::string, int> seen;
        std::vector<std::string> ways(file.Nodes()[standard].end - standard);
        for (std::size_t node = standard; node < file.Nodes()[standard].end; ++node)
        {
            std::string way = node == standard ? "" : ways[file.Nodes()[node].parent - standard];
            way +=
                "/" + std::string(file.TagOf(node)) + "[" + std::string(file.TextOf(node, "name").value_or("")) + "]";
            if (const int count = ++seen[way]; count > 1)
                way += "#" + std::to_string(count);
            ways[node - standard] = way;
            texts.emplace(way, Text{node, "", ""});
            const CATIDOMNamedNodeMap_var attributes = file.Nodes()[node].element->GetAttributes();
            for (int position = 0; position < attributes->GetLength(); ++position)
            {
                const CATIDOMNode_var attribute = attributes->Item(position);
                texts.emplace(way + " " + std::string(attribute->GetNodeName()),
                    Text{node, attribute->GetNodeName(), attribute->GetNodeValue()});
            }
        }
        return texts;
    }

    static constexpr int mostCompared = 100;

    const File& m_Main;
    const File& m_Customer;
    VEXMELKFindingList& m_Findings;
    int m_Own = 0;
};

} // namespace

void VEXMELKCheckOverrides(const VEXMELKCheckedConfiguration& configuration, VEXMELKFindingList& findings)
{
    const VEXMELKCheckedFile* main = configuration.Main();
    const VEXMELKCheckedFile* customer = configuration.Customer();
    if (main && customer && !main->Nodes().empty() && !customer->Nodes().empty())
        OverridePass(*main, *customer, findings).Check();
}

void VEXMELKCheckBaseline(
    const VEXMELKCheckedConfiguration& configuration, const VEXMELKBaseline& baseline, VEXMELKFindingList& findings)
{
    const VEXMELKCheckedFile* main = configuration.Main();
    const VEXMELKCheckedFile* customer = configuration.Customer();
    const auto found = baseline.find(VEXMELKFileOf(*configuration.description));
    if (main && customer && !main->Nodes().empty() && !customer->Nodes().empty() && found != baseline.end())
        OverridePass(*main, *customer, findings).Check(found->second);
}

VEXMELKBaseline VEXMELKCurrentBaseline(const CATUnicodeString& directory)
{
    const VEXMELKSilence silence;
    VEXMELKBaseline baseline;
    VEXMELKFindingList findings;
    VEXMELKCheckedDirectory checked(directory.ConvertToChar());
    for (const VEXMELKConfigManager::Configuration& one : VEXMELKConfigManager::GetConfigurations())
    {
        if (!one.create)
            continue;
        const VEXMELKCheckedConfiguration& configuration = checked.Of(*one.description);
        if (!configuration.Customer() || configuration.Customer()->Nodes().empty() ||
            configuration.Main()->Nodes().empty())
            continue;
        auto values = OverridePass(*configuration.Main(), *configuration.Customer(), findings).Replaced();
        if (!values.empty())
            baseline.emplace(VEXMELKFileOf(*one.description), std::move(values));
    }
    return baseline;
}
