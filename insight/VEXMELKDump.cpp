// Asks configuration by configuration; only the files and questions of one are held at a time.
#include "VEXMELKDump.h"

namespace {

using Configuration = VEXMELKConfigManager::Configuration;

void DumpConfiguration(const Configuration& configuration, const VEXMELKSource& source, const VEXMELKDumpScope& scope,
    VEXMELKDumpCounts& counts)
{
    VEXMELKPlacedAsker asker(configuration, source);
    const VEXMELKSilence silence; // what is wrong with the files was told when they were loaded
    const std::vector<VEXMELKPreparedQuestion> questions = VEXMELKAllQuestions({&asker}, &counts.leftOut);
    counts.configurations += asker.Files().empty() ? 0 : 1;
    counts.questions += questions.size();
    std::size_t number = 0;
    for (const VEXMELKPreparedQuestion& question : questions)
    {
        if (scope.onQuestion)
            scope.onQuestion(++number, questions.size(), std::string(configuration.description->name));
        const VEXMELKPlacedAnswer answer = asker.Ask(question);
        for (const VEXMELKPlacedValue& value : answer.values)
        {
            ++counts.values;
            counts.tried += value.isTried ? 1 : 0;
            scope.onRow({configuration, question, answer, value});
        }
    }
}

} // namespace

VEXMELKDumpCounts VEXMELKDump(const VEXMELKSource& source, const VEXMELKDumpScope& scope)
{
    VEXMELKDumpCounts counts;
    for (const Configuration* configuration : VEXMELKAskedConfigurations(scope.configurations))
        if (VEXMELKHasFile(*configuration->description, source.directory))
            DumpConfiguration(*configuration, source, scope, counts);
    return counts;
}
