// Texts of a configuration's files that differ, although no answer differs for it.
#ifndef VEXMELKTextChanges_H
#define VEXMELKTextChanges_H

#include "VEXMELKComparison.h"

#include <span>

// The texts that none of the configuration's changes of answers is placed at, and that can be taken back without any
// answer to the questions becoming another one: each is tried. "leftOut" grows by those that were too many to be tried.
std::vector<VEXMELKChange> VEXMELKTextChanges(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKSource& before, const VEXMELKSource& after, const std::vector<VEXMELKPreparedQuestion>& questions,
    std::span<const VEXMELKChange> told, std::size_t& leftOut);

#endif
