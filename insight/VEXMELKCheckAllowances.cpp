// Comments that allow a rule for the element behind them:
//
//     <!-- melkcfg: allow outlier the truck stands high -->
//
// They hold for the element and all that is in it.
#include "VEXMELKCheckPasses.h"

#include <algorithm>

namespace {

struct Allowance
{
    VEXMELKPosition position;
    VEXMELKPosition end; // of the comment
    std::string rule;
    std::string reason;
    VEXMELKWrittenFile::Span element; // that it holds for; empty when none follows
    bool isUsed = false;
};

std::string_view Stripped(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(VEXMELKBlanks);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(VEXMELKBlanks) + 1 - begin);
}

std::vector<Allowance> AllowancesOf(const VEXMELKWrittenFile& file)
{
    constexpr std::string_view opening = "melkcfg:";
    constexpr std::string_view verb = "allow";
    std::vector<Allowance> allowances;
    for (const VEXMELKWrittenFile::Comment& comment : file.Comments())
    {
        const std::string_view whole = file.Text(comment.span);
        std::string_view text = Stripped(whole.substr(4, whole.size() < 7 ? 0 : whole.size() - 7));
        if (!text.starts_with(opening))
            continue;
        text = Stripped(text.substr(opening.size()));
        if (text.substr(0, text.find_first_of(VEXMELKBlanks)) == verb)
            text = Stripped(text.substr(verb.size()));
        const std::size_t end = std::min(text.find_first_of(VEXMELKBlanks), text.size());
        Allowance allowance;
        allowance.position = comment.position;
        allowance.end = {comment.position.line, comment.position.column + 4};
        allowance.rule = text.substr(0, end);
        allowance.reason = Stripped(text.substr(end));
        const auto tag = std::lower_bound(file.Tags().begin(), file.Tags().end(), comment.span.end,
            [](const VEXMELKWrittenFile::Tag& each, std::size_t offset) { return each.span.begin < offset; });
        if (tag != file.Tags().end())
            allowance.element = {tag->span.begin, file.EndOfElement(*tag)};
        allowances.push_back(std::move(allowance));
    }
    return allowances;
}

} // namespace

void VEXMELKApplyAllowances(const VEXMELKCheckedFile& file, std::vector<VEXMELKFinding>& findings)
{
    if (!file.Written() || file.Written()->Comments().empty())
        return;
    std::vector<Allowance> allowances = AllowancesOf(*file.Written());
    if (allowances.empty())
        return;
    const auto isAllowed = [&](const VEXMELKFinding& finding)
    {
        if (finding.file != file.Name())
            return false;
        const std::size_t offset = file.Written()->OffsetOf(finding.begin);
        bool isSilent = false;
        for (Allowance& allowance : allowances)
            if (allowance.rule == finding.rule->id && allowance.element.begin <= offset &&
                offset < allowance.element.end)
                isSilent = allowance.isUsed = true;
        return isSilent;
    };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isAllowed), findings.end());
    const auto add = [&](std::string_view rule, const Allowance& allowance, std::string message)
    {
        VEXMELKFinding finding;
        finding.rule = VEXMELKFindRule(rule);
        finding.level = finding.rule->level;
        finding.file = file.Name();
        finding.begin = allowance.position;
        finding.end = allowance.end;
        finding.message = std::move(message);
        findings.push_back(std::move(finding));
    };
    for (const Allowance& allowance : allowances)
    {
        const std::string rule = VEXMELKQuoted(allowance.rule);
        if (!VEXMELKFindRule(allowance.rule))
            add("useless-allowance", allowance, "there is no rule " + rule);
        else if (!allowance.isUsed)
            add("useless-allowance", allowance, "the rule " + rule + " finds nothing here");
        else if (allowance.reason.empty())
            add("allowance-without-reason", allowance, "the rule " + rule + " is allowed here without a reason");
    }
}
