// melkcfg schema: what the descriptions say of each file, for people and for other programs.
#include "CommandLine.h"
#include "Registry.h"
#include "VEXMELKFormatTable.h"

#include <iostream>

namespace {

ExitStatus RunSchema(const CommandOptions& options)
{
    const std::string only = options.configuration.empty() ? "" : FindConfiguration(options.configuration).name;
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
        if (only.empty() || configuration.description->name == only)
            std::cout << "## " << configuration.description->name << "\n\n"
                      << VEXMELKFormatTable(*configuration.description) << '\n';
    return Done;
}

} // namespace

void AddSchemaCommands(CommandLine& line)
{
    CLI::App* schema = line.Add("schema", "The elements and attributes of each file, as tables in Markdown",
        [&](const Host&) { return RunSchema(line.options); });
    schema->add_option("CONFIG", line.options.configuration, "Only those of this configuration");
}
