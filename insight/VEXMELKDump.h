// Every answer of every question, value by value.
#ifndef VEXMELKDump_H
#define VEXMELKDump_H

#include "VEXMELKPlacedAnswers.h"

struct VEXMELKDumpRow
{
    const VEXMELKConfigManager::Configuration& configuration;
    const VEXMELKPreparedQuestion& question;
    const VEXMELKPlacedAnswer& answer;
    const VEXMELKPlacedValue& value; // one of the answer's
};

struct VEXMELKDumpScope
{
    std::vector<const VEXMELKConfigManager::Configuration*> configurations; // all when empty
    std::function<void(const VEXMELKDumpRow&)> onRow;
    // Hears of each question before it is asked: its number, from 1, of how many of the configuration, and its name.
    std::function<void(std::size_t, std::size_t, const std::string&)> onQuestion = {};
};

struct VEXMELKDumpCounts
{
    std::size_t configurations = 0; // that have files
    std::size_t questions = 0;
    std::size_t values = 0;
    std::size_t tried = 0;   // values whose place was found by trials
    std::size_t leftOut = 0; // questions: see VEXMELKAllQuestions
};

// The rows come one by one, so that no tree is too large. Configurations without a file have none; boxes tell of files
// that cannot be read.
VEXMELKDumpCounts VEXMELKDump(const VEXMELKSource& source, const VEXMELKDumpScope& scope);

#endif
