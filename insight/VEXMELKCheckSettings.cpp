// Default settings: ranges of values with their colours, and what belongs to which type of parameter.
#include "VEXMELKCheckPasses.h"

#include "VEXMELKSuggestions.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <cctype>

namespace {

using File = VEXMELKCheckedFile;

struct Range
{
    std::size_t node;
    double least;
    double most;
};

class SettingsPass
{
public:
    SettingsPass(const File& file, VEXMELKFindingList& findings) : m_File(file), m_Findings(findings) {}

    void Check()
    {
        for (std::size_t node = 1; node < m_File.Nodes().size(); ++node)
            if (!m_File.Nodes()[node].isLeftOut && m_File.Is(node, "parameter"))
                CheckParameter(node);
    }

private:
    void CheckParameter(std::size_t parameter)
    {
        const std::string_view type = m_File.TextOf(parameter, "type").value_or("simple");
        const bool hasValue = m_File.TextOf(parameter, "value").has_value();
        const std::vector<std::size_t> ranges = RangesOf(parameter);
        if (type == "list")
            Report(parameter, "values of lists are not supported: this parameter sets no value");
        else if (type == "simple" && !ranges.empty())
            Report(parameter, "this parameter has ranges, which only the type \"colorRanges\" has: they are not read");
        else if (type == "colorRanges" && hasValue)
            Report(parameter, "this parameter of the type \"colorRanges\" has a value, which is not read");
        else if (type == "colorRanges" && ranges.empty())
            Report(parameter, "this parameter of the type \"colorRanges\" has no range: it takes all ranges away");
        if (type == "colorRanges")
            CheckRanges(ranges);
    }
    void Report(std::size_t parameter, const std::string& message)
    {
        m_Findings.AtElement("settings-kind", m_File, parameter, message);
    }

    std::vector<std::size_t> RangesOf(std::size_t parameter) const
    {
        std::vector<std::size_t> ranges;
        for (std::size_t node = parameter + 1; node < m_File.Nodes()[parameter].end; ++node)
            if (!m_File.Nodes()[node].isLeftOut && m_File.Is(node, "range"))
                ranges.push_back(node);
        return ranges;
    }

    void CheckRanges(const std::vector<std::size_t>& nodes)
    {
        std::vector<Range> ranges;
        for (const std::size_t node : nodes)
        {
            for (const char* color : {"minColor", "maxColor"})
                CheckColour(node, color);
            const std::optional<double> least = NumberOf(node, "minValue");
            const std::optional<double> most = NumberOf(node, "maxValue");
            if (!least || !most)
                continue;
            if (*least > *most)
                m_Findings.AtValue("reversed-range", m_File, node, "minValue",
                    "the range begins at " + TextAt(node, "minValue") + ", above its end " + TextAt(node, "maxValue"));
            else
                ranges.push_back({node, *least, *most});
        }
        std::stable_sort(ranges.begin(), ranges.end(),
            [](const Range& left, const Range& right) { return left.least < right.least; });
        for (std::size_t next = 1; next < ranges.size(); ++next)
            CompareNeighbours(ranges[next - 1], ranges[next]);
    }
    void CompareNeighbours(const Range& left, const Range& right)
    {
        const std::string place = " (" + VEXMELKPlaceText(VEXMELKPositionOf(m_File, left.node)) + ")";
        if (right.least < left.most)
            m_Findings.AtValue("overlapping-ranges", m_File, right.node, "minValue",
                "the range begins at " + TextAt(right.node, "minValue") + ", before the one" + place + " ends at " +
                    TextAt(left.node, "maxValue"));
        else if (right.least > left.most)
            m_Findings.AtValue("range-gap", m_File, right.node, "minValue",
                "nothing covers the values from " + TextAt(left.node, "maxValue") + place + " to " +
                    TextAt(right.node, "minValue"));
    }

    std::string TextAt(std::size_t node, std::string_view attribute) const
    {
        return std::string(m_File.TextOf(node, attribute).value_or(""));
    }
    std::optional<double> NumberOf(std::size_t node, std::string_view attribute)
    {
        const auto text = m_File.TextOf(node, attribute);
        const VEXMELKElementKind::Attribute* described = m_File.Nodes()[node].place.kind->Find(attribute);
        if (!text)
            m_Findings.AtElement("missing-attribute", m_File, node,
                "<range> has no " + VEXMELKQuoted(attribute) + ": the range is dropped");
        return text && described ? VEXMELKAmountOf(*described->rows.front(), *text) : std::nullopt;
    }

    void CheckColour(std::size_t node, std::string_view attribute)
    {
        const auto text = m_File.TextOf(node, attribute);
        if (!text)
        {
            m_Findings.AtElement("missing-attribute", m_File, node,
                "<range> has no " + VEXMELKQuoted(attribute) + ": the range is dropped");
            return;
        }
        if (IsColour(*text))
            return;
        VEXMELKFinding& finding = m_Findings.AtValue("unknown-colour", m_File, node, attribute,
            VEXMELKQuoted(*text) + " is not a colour: a name, a number from 1 to 16, or 0xRRGGBB");
        finding.effect = VEXMELKAskedAs(m_File, node) + std::string(attribute) + " is black";
        finding.suggestion = VEXMELKMeant(*text, VEXMELKColourNames());
    }
    static bool IsColour(std::string_view text)
    {
        const std::size_t begin = text.find("0x");
        if (begin != std::string_view::npos)
            return std::count_if(text.begin() + static_cast<std::ptrdiff_t>(begin) + 2, text.end(),
                       [](unsigned char byte) { return std::isxdigit(byte); }) == 6 &&
                   text.size() == begin + 8;
        const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
        if (digits > 0)
            return digits == text.size() && digits <= 2 && std::stoi(std::string(text)) >= 1 &&
                   std::stoi(std::string(text)) <= VEXMELKUtilities::GetNumberOfVGAColors();
        std::string lower(text);
        std::transform(lower.begin(), lower.end(), lower.begin(),
            [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
        return VEXMELKContains(VEXMELKColourNames(), lower);
    }

    const File& m_File;
    VEXMELKFindingList& m_Findings;
};

} // namespace

void VEXMELKCheckSettings(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings)
{
    SettingsPass(file, findings).Check();
}
