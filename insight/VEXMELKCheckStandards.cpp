// Standards and their categories: which are missing, which are nearly another's name, which values stand out.
#include "VEXMELKCheckPasses.h"

#include "CATNumberText.h"
#include "VEXMELKSuggestions.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>
#include <numeric>

namespace {

using File = VEXMELKCheckedFile;
using Names = std::vector<std::string>;

std::string InQuotes(Names names)
{
    std::transform(names.begin(), names.end(), names.begin(), VEXMELKQuoted);
    return VEXMELKJoined(names);
}

bool IsOfWord(unsigned char byte) { return std::isalnum(byte) != 0 || byte >= 0x80; }

// What stands between blanks and signs.
Names WordsOf(const std::string& name)
{
    Names words;
    for (auto begin = std::find_if(name.begin(), name.end(), IsOfWord); begin != name.end();)
    {
        const auto end = std::find_if_not(begin, name.end(), IsOfWord);
        words.emplace_back(begin, end);
        begin = std::find_if(end, name.end(), IsOfWord);
    }
    return words;
}

bool HasDigit(const std::string& word)
{
    return std::any_of(word.begin(), word.end(), [](unsigned char byte) { return std::isdigit(byte) != 0; });
}

bool IsSameInLower(const std::string& left, const std::string& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
        [](unsigned char one, unsigned char other) { return std::tolower(one) == std::tolower(other); });
}

// Whether names may differ by a slip of the pen only. Those with another number, another word or another abbreviation
// differ on purpose, as their authors tell them apart by it: "2024" and "2025", "EU" and "US", a "draft".
bool IsSlip(const Names& left, const Names& right)
{
    constexpr std::size_t abbreviation = 3;
    const auto join = [](const Names& words) { return std::accumulate(words.begin(), words.end(), std::string()); };
    if (join(left) == join(right))
        return true;
    const auto isSlip = [&](const std::string& one, const std::string& other)
    {
        const bool isAbbreviation = left.size() > 1 && std::min(one.size(), other.size()) <= abbreviation;
        return one == other || (!HasDigit(one) && !HasDigit(other) && (!isAbbreviation || IsSameInLower(one, other)));
    };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSlip);
}

class StandardPass
{
public:
    StandardPass(VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration,
        VEXMELKFindingList& findings, std::size_t& standards)
        : m_Directory(directory), m_Configuration(configuration), m_Findings(findings), m_Standards(standards)
    {
    }

    void Check()
    {
        Collect();
        FindCommon();
        for (const auto& [file, node] : m_All)
            CheckStandard(*file, node);
        if (m_Configuration.Main())
            CheckCategoryNames();
        CheckOutliers();
    }

private:
    bool HasCategories() const
    {
        const auto& elements = m_Configuration.files.front()->Places();
        const VEXMELKElement* category = elements.FindTag("category");
        return category && category->below && category->below->tag == "standard";
    }
    static bool IsStandard(const File& file, std::size_t node)
    {
        const VEXMELKElement* standard = file.Nodes()[node].place.kind->As("standard");
        return standard && !standard->below && !file.Nodes()[node].isLeftOut;
    }

    void Collect()
    {
        for (const auto& file : m_Configuration.files)
            for (std::size_t node = 1; node < file->Nodes().size(); node = file->Nodes()[node].end)
                if (IsStandard(*file, node))
                {
                    ++m_Standards;
                    m_All.emplace_back(file.get(), node);
                    for (const std::string& category : CategoriesOf(*file, node))
                        ++m_Categories[category];
                }
        if (const VEXMELKCheckedConfiguration* base = m_Directory.OfFile("BaseData.xml"))
            m_Base = m_Directory.NamesOf(*base, "category");
    }

    // The categories that other standards have too; of very many, some, so that the time stays in proportion.
    void FindCommon()
    {
        constexpr std::size_t most = 100;
        for (const auto& [name, count] : m_Categories)
            if (m_Common.size() < most && !name.empty() &&
                (count > 1 || name == "default" || VEXMELKContains(m_Base, name)))
                m_Common.push_back(name);
    }

    static Names CategoriesOf(const File& file, std::size_t standard)
    {
        Names names;
        file.ForEachChild(standard,
            [&](std::size_t node)
            {
                if (file.Is(node, "category") && !file.Nodes()[node].isLeftOut)
                    names.emplace_back(file.TextOf(node, "name").value_or(""));
            });
        return names;
    }

    void CheckStandard(const File& file, std::size_t node)
    {
        if (!HasCategories())
            return;
        const Names categories = CategoriesOf(file, node);
        const std::string name = VEXMELKQuoted(file.TextOf(node, "name").value_or(""));
        if (categories.empty())
            CheckWithoutCategory(file, node, name);
        else
            CheckFallBack(file, node, name, categories);
    }

    void CheckWithoutCategory(const File& file, std::size_t node, const std::string& name)
    {
        const VEXMELKElementPlaces::Place plain = file.Places().Below(file.Nodes()[0].place, "standard");
        const VEXMELKElementKind& kind = *file.Nodes()[node].place.kind;
        bool isObsolete = std::any_of(kind.attributes.begin(), kind.attributes.end(),
            [&](const VEXMELKElementKind::Attribute& attribute)
            { return file.TextOf(node, attribute.name) && !plain.kind->Find(attribute.name); });
        file.ForEachChild(node,
            [&](std::size_t child)
            {
                const bool isOfStandard = file.Places().Below(plain, file.TagOf(child)).kind->isKnown;
                isObsolete = isObsolete || (file.Nodes()[child].place.kind->isKnown && !isOfStandard);
            });
        if (isObsolete)
            m_Findings
                .AtElement("obsolete-format", file, node,
                    "the standard " + name + " has its data outside of any category, which is an obsolete format")
                .effect = VEXMELKAskedAs(file, node) + "the standard is not in the list of standards";
        else
        {
            VEXMELKFinding& finding = m_Findings.AtElement("no-default", file, node,
                "the standard " + name + " has no category, so it is not in the list of standards");
            if (HoldsData(file, node))
                finding.level = VEXMELKLevel::Note;
        }
    }
    // Whether elements of its own are read from it.
    static bool HoldsData(const File& file, std::size_t standard)
    {
        bool holds = false;
        file.ForEachChild(standard,
            [&](std::size_t node)
            {
                const std::string_view tag = file.TagOf(node);
                holds =
                    holds || (!file.Nodes()[node].isLeftOut && tag != "UseDefaultSettings" && !tag.starts_with("eye_"));
            });
        return holds;
    }

    void CheckFallBack(const File& file, std::size_t node, const std::string& name, const Names& categories)
    {
        Names lacking;
        for (const std::string& category : m_Common)
            if (category != "default" && !VEXMELKContains(categories, category))
                lacking.push_back(category);
        if (lacking.empty())
            return;
        if (VEXMELKContains(categories, "default"))
        {
            m_Findings.AtElement("falls-back", file, node,
                "the standard " + name + " takes " + InQuotes(lacking) +
                    " from its \"default\"; other standards set them");
            return;
        }
        VEXMELKFinding& finding = m_Findings.AtElement("no-default", file, node,
            "the standard " + name + " has no category \"default\", and none for " + InQuotes(lacking));
        finding.effect = VEXMELKAskedAs(file, node) + "queries for these categories fail";
        // Made for some categories only, a standard is complete without one.
        const std::string lack = AttributeThatLacks(file, node);
        if (!lack.empty())
            finding.message += "; its categories lack " + VEXMELKQuoted(lack);
        else if (VEXMELKNearlySame("default", categories).empty())
            finding.level = VEXMELKLevel::Note;
    }

    // An attribute that all standards with a "default" set there, and a category of this one does not; empty when none.
    std::string AttributeThatLacks(const File& file, std::size_t standard)
    {
        if (!m_Usual)
            m_Usual = UsualAttributes();
        std::string lack;
        file.ForEachChild(standard,
            [&](std::size_t node)
            {
                for (const std::string& attribute : *m_Usual)
                    if (lack.empty() && file.Is(node, "category") && !file.TextOf(node, attribute))
                        lack = attribute;
            });
        return lack;
    }
    Names UsualAttributes() const
    {
        std::optional<Names> usual;
        for (const auto& [file, standard] : m_All)
            file->ForEachChild(standard,
                [&, in = file](std::size_t node)
                {
                    if (!in->Is(node, "category") || in->TextOf(node, "name") != "default")
                        return;
                    Names set;
                    for (const VEXMELKElementKind::Attribute& attribute : in->Nodes()[node].place.kind->attributes)
                        if (attribute.name != "name" && in->TextOf(node, attribute.name))
                            set.emplace_back(attribute.name);
                    if (usual)
                        std::erase_if(*usual, [&](const std::string& name) { return !VEXMELKContains(set, name); });
                    else
                        usual = set;
                });
        return usual.value_or(Names());
    }

    void CheckCategoryNames()
    {
        Names common = m_Common;
        common.insert(common.end(), m_Base.begin(), m_Base.end());
        common.emplace_back("default");
        for (const auto& file : m_Configuration.files)
            for (std::size_t node = 1; node < file->Nodes().size(); ++node)
                if (file->TagOf(node) == "category" && !file->Nodes()[node].isLeftOut && HasCategories())
                {
                    const std::string name(file->TextOf(node, "name").value_or(""));
                    const bool hasBlanks = name != CATStripped(name); // which is told by itself
                    const std::string meant = hasBlanks ? std::string() : VEXMELKNearlySame(name, common);
                    if (VEXMELKContains(common, name) || meant.empty())
                        continue;
                    VEXMELKFinding& finding = m_Findings.AtValue("similar-name", *file, node, "name",
                        "the category " + VEXMELKQuoted(name) + " is nearly " + VEXMELKQuoted(meant));
                    finding.suggestion = meant;
                    finding.effect =
                        VEXMELKAskedAs(*file, file->Nodes()[node].parent) + meant + ": this category is not read";
                }
    }

    // A number that a standard gives, and where.
    struct Value
    {
        const File* file;
        std::size_t node;
        const VEXMELKRow* row;
        double amount;
        std::string_view standard;
    };
    using Fields = std::map<std::pair<std::vector<const VEXMELKElement*>, std::string_view>, std::vector<Value>>;

    static void AddNumber(const File& file, std::size_t standard, std::size_t node,
        const VEXMELKElementKind::Attribute& attribute, std::string_view text, Fields& fields)
    {
        for (const VEXMELKRow* row : attribute.rows)
            if (const auto amount = VEXMELKAmountOf(*row, text); amount && *amount != 0.0)
            {
                fields[{file.Nodes()[node].place.kind->described, attribute.name}].push_back(
                    {&file, node, row, std::fabs(*amount), file.TextOf(standard, "name").value_or("")});
                return;
            }
    }
    Fields NumbersOfStandards() const
    {
        Fields fields;
        for (const auto& [file, standard] : m_All)
            for (std::size_t node = standard; node < file->Nodes()[standard].end; ++node)
                for (const VEXMELKElementKind::Attribute& attribute : file->Nodes()[node].place.kind->attributes)
                    if (const auto text = file->TextOf(node, attribute.name); text && !file->Nodes()[node].isLeftOut)
                        AddNumber(*file, standard, node, attribute, *text, fields);
        return fields;
    }

    // Values that are tenfold or more away from those of all other standards.
    void CheckOutliers()
    {
        Fields fields = NumbersOfStandards();
        for (auto& field : fields)
        {
            std::vector<Value>& values = field.second;
            std::sort(values.begin(), values.end(),
                [](const Value& left, const Value& right) { return left.amount < right.amount; });
            const auto others = [&](const Value& value)
            {
                const auto isOther = [&](const Value& other) { return other.standard != value.standard; };
                const auto least = std::find_if(values.begin(), values.end(), isOther);
                const auto most = std::find_if(values.rbegin(), values.rend(), isOther);
                return least == values.end() ? std::pair(0.0, 0.0) : std::pair(least->amount, most->amount);
            };
            for (const Value* value : {&values.front(), &values.back()})
            {
                const auto [least, most] = others(*value);
                const bool isSteady = least > 0.0 && most < least * 10.0;
                if (!isSteady || (value->amount < most * 10.0 && value->amount > least / 10.0))
                    continue;
                m_Findings.AtValue("outlier", *value->file, value->node, value->row->attribute,
                    std::string(value->row->attribute) + " is tenfold or more away from that of all other standards");
            }
        }
    }

    VEXMELKCheckedDirectory& m_Directory;
    const VEXMELKCheckedConfiguration& m_Configuration;
    VEXMELKFindingList& m_Findings;
    std::size_t& m_Standards;
    std::vector<std::pair<const File*, std::size_t>> m_All;
    std::map<std::string, int> m_Categories; // how many standards have one of the name
    std::optional<Names> m_Usual;
    Names m_Common;
    Names m_Base; // the categories of BaseData.xml
};

} // namespace

std::string VEXMELKNearlySame(const std::string& name, const std::vector<std::string>& others)
{
    const Names words = WordsOf(name);
    Names slips;
    std::copy_if(others.begin(), others.end(), std::back_inserter(slips),
        [&](const std::string& other) { return IsSlip(words, WordsOf(other)); });
    return VEXMELKMeant(name, slips);
}

void VEXMELKCheckStandards(VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration,
    VEXMELKFindingList& findings, std::size_t& standards)
{
    if (!configuration.files.empty())
        StandardPass(directory, configuration, findings, standards).Check();
}
