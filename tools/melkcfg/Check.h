// melkcfg check, fix and rule.
#ifndef MELKCFG_Check_H
#define MELKCFG_Check_H

#include "Commands.h"

struct CheckOptions
{
    std::vector<std::string> names; // of configurations and files
    std::string format = "text";    // "json", "sarif", "github", "junit"
    std::string level = "warning";  // the lowest one that counts
    bool writes = false;            // fix: in place
};

ExitStatus RunCheck(const CheckOptions& options);
ExitStatus RunFix(const CheckOptions& options);
// The page of a rule, or of all.
ExitStatus RunRule(const std::string& id);

#endif
