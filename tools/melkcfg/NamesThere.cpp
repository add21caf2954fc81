// Each name once, those of the Customer file first.
#include "NamesThere.h"

#include "Explain.h"
#include "VEXMELKNames.h"

#include <algorithm>

NamesThere::NamesThere(const Configuration& configuration)
{
    const VEXMELKSilence silence;
    if (configuration.entry->create)
        m_Trial = std::make_unique<VEXMELKTrial>(*configuration.entry, CurrentDirectory());
}

std::vector<std::string> NamesThere::Standards() const
{
    return m_Trial ? VEXMELKNamesOfStandards(m_Trial->Documents()) : std::vector<std::string>();
}

std::vector<std::string> NamesThere::Categories(const std::string& standard) const
{
    std::vector<std::string> all;
    if (!m_Trial)
        return all;
    for (const std::string& one : standard.empty() ? Standards() : std::vector<std::string>{standard})
        for (const std::string& name : VEXMELKNamesOfCategories(m_Trial->Documents(), one))
            if (std::find(all.begin(), all.end(), name) == all.end())
                all.push_back(name);
    return all;
}
