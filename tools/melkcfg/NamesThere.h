// The standards and categories that the files of a configuration have.
#ifndef MELKCFG_NamesThere_H
#define MELKCFG_NamesThere_H

#include "Registry.h"
#include "VEXMELKTrial.h"

#include <memory>

class NamesThere
{
public:
    // Reads the files of the current directory; nothing is said of those that do not load.
    explicit NamesThere(const Configuration& configuration);
    std::vector<std::string> Standards() const;
    // Of a standard; of all of them when none is named.
    std::vector<std::string> Categories(const std::string& standard) const;

private:
    std::unique_ptr<VEXMELKTrial> m_Trial; // null for a configuration that cannot be made
};

#endif
