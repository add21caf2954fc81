// The parser reports a missing command before it looks at the words that it could not place: those say more.
#include "UsageErrors.h"

#include "Json.h"

namespace {

bool IsOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

std::string NamesOf(const std::vector<const CLI::App*>& commands)
{
    std::string names;
    for (const CLI::App* command : commands)
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

std::string UnknownCommand(const CLI::App& application, const std::string& word)
{
    std::vector<std::string> names;
    for (const CLI::App* command : CommandsOf(application))
        names.push_back(command->get_name());
    return UnknownName("command", word, names).what();
}

std::string MessageFor(const CLI::App& application, const CLI::App* command, const CLI::Error& error)
{
    const std::vector<std::string> left = application.remaining(true);
    const bool isLeft = dynamic_cast<const CLI::ExtrasError*>(&error) || !command;
    if (!isLeft || (left.empty() && command))
        return error.what();
    if (left.empty())
        return "a command is required: " + NamesOf(CommandsOf(application));
    const std::string& word = left.front();
    if (IsOption(word))
        return UnknownName("option", word.substr(0, word.find('=')), OptionNamesOf(command ? *command : application))
            .what();
    return command ? command->get_name() + " takes nothing more, got " + Shown(word)
                   : UnknownCommand(application, word);
}

} // namespace

std::vector<const CLI::App*> CommandsOf(const CLI::App& application)
{
    return application.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

std::vector<std::string> OptionNamesOf(const CLI::App& parser)
{
    std::vector<std::string> names;
    for (const CLI::App* level = &parser; level; level = level->get_parent())
        for (const CLI::Option* option : level->get_options())
        {
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
            for (const std::string& name : option->get_snames())
                names.push_back("-" + name);
        }
    return names;
}

std::string UsageError(const CLI::App* application, const CLI::Error& error)
{
    const std::vector<CLI::App*> parsed = application->get_subcommands();
    const CLI::App* command = parsed.empty() ? nullptr : parsed.front();
    const std::string help = command ? "melkcfg help " + command->get_name() : "melkcfg help";
    return "melkcfg: " + MessageFor(*application, command, error) + "\n\"" + help + "\" says what can be asked.\n";
}
