// A walk over the description of the commands: which of them is meant, which argument the last word is, and what may
// stand there. Arguments are known by the names that the commands give them.
#include "Completion.h"

#include "Explain.h"
#include "Manual.h"
#include "NamesThere.h"
#include "Registry.h"
#include "UsageErrors.h"
#include "VEXMELKRules.h"
#include "Words.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>

namespace {

using Candidates = std::vector<Candidate>;

// The words before the one that is being typed.
struct Typed
{
    const CLI::App* command = nullptr; // the application as long as none is named
    std::vector<std::string> positionals;
    const CLI::Option* waiting = nullptr; // an option whose value comes next
    std::map<std::string, std::string> values;
};

const CLI::Option* FindOption(const CLI::App& command, const std::string& name)
{
    for (const CLI::App* level = &command; level; level = level->get_parent())
        for (const CLI::Option* option : level->get_options())
            if (!option->get_positional() && option->check_name(name))
                return option;
    return nullptr;
}

bool TakesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

Typed Follow(const CLI::App& application, const std::vector<std::string>& words)
{
    Typed typed{&application, {}, nullptr, {}};
    for (std::size_t position = 0; position + 1 < words.size(); ++position)
    {
        const std::string& word = words[position];
        if (typed.waiting)
            typed.values[std::exchange(typed.waiting, nullptr)->get_name()] = word;
        else if (word.size() > 1 && word.front() == '-')
        {
            const std::size_t equals = word.find('=');
            const CLI::Option* option = FindOption(*typed.command, word.substr(0, equals));
            if (option && equals != std::string::npos)
                typed.values[option->get_name()] = word.substr(equals + 1);
            else if (option && TakesValue(*option))
                typed.waiting = option;
        }
        else if (typed.command == &application)
        {
            for (const CLI::App* command : application.get_subcommands([](const CLI::App*) { return true; }))
                if (command->get_name() == word)
                    typed.command = command;
        }
        else
            typed.positionals.push_back(word);
    }
    return typed;
}

// The argument that a further word is: the last one takes all words that follow.
const CLI::Option* ArgumentAt(const CLI::App& command, std::size_t position)
{
    const auto arguments = command.get_options([](const CLI::Option* option) { return option->get_positional(); });
    if (arguments.empty())
        return nullptr;
    if (position < arguments.size())
        return arguments[position];
    return arguments.back()->get_items_expected_max() > 1 ? arguments.back() : nullptr;
}

// The words of a list such as "TEXT:{error,warning,note}", as which the parser describes what it accepts.
Candidates ChoicesOf(const CLI::Option& option)
{
    Candidates candidates;
    const std::string type = option.get_type_name();
    const std::size_t begin = type.find('{');
    const std::size_t end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos)
        return candidates;
    for (const std::string& choice : CLI::detail::split(type.substr(begin + 1, end - begin - 1), ','))
        candidates.push_back({choice, ""});
    return candidates;
}

Candidates WithoutDescription(const std::vector<std::string>& words)
{
    Candidates candidates;
    for (const std::string& word : words)
        candidates.push_back({word, ""});
    return candidates;
}

std::string TextBefore(const std::string& text, char end) { return text.substr(0, text.find(end)); }

class Completer
{
public:
    Completer(const CommandLine& line, Typed typed, const std::string& word)
        : m_Line(line), m_Typed(std::move(typed)), m_Word(word)
    {
    }

    Candidates All() const
    {
        if (m_Typed.waiting)
            return ForValue(*m_Typed.waiting);
        if (m_Word.starts_with("-"))
            return Options();
        if (m_Typed.command == &m_Line.Application())
            return Commands();
        const CLI::Option* argument = ArgumentAt(*m_Typed.command, m_Typed.positionals.size());
        return argument ? ForValue(*argument) : Candidates();
    }

private:
    Candidates Options() const
    {
        Candidates candidates;
        for (const CLI::App* level = m_Typed.command; level; level = level->get_parent())
            for (const CLI::Option* option : level->get_options())
                for (const std::string& name : option->get_lnames())
                    candidates.push_back({"--" + name, option->get_description()});
        return candidates;
    }

    Candidates Commands() const
    {
        Candidates candidates;
        for (const CLI::App* command : CommandsOf(m_Line.Application()))
            candidates.push_back({command->get_name(), command->get_description()});
        return candidates;
    }

    Candidates ForValue(const CLI::Option& option) const
    {
        const std::string name = option.get_positional() ? option.get_name(true) : option.get_name();
        if (name == "--format")
        {
            const std::vector<std::string>* formats = m_Line.FormatsOf(*m_Typed.command);
            return WithoutDescription(formats ? *formats : std::vector<std::string>{"text", "json"});
        }
        if (name == "COMMAND")
            return Commands();
        if (name.starts_with("CONFIG"))
            return Configurations();
        if (name == "ID")
            return Rules();
        Candidates choices = ChoicesOf(option);
        const Configuration* configuration = Named();
        if (!choices.empty() || !configuration)
            return choices;
        if (name == "OPERATION")
            return Operations(*configuration);
        if (name == "STANDARD")
            return WithoutDescription(NamesThere(*configuration).Standards());
        if (name == "--category" || name == "CATEGORY")
            return WithoutDescription(NamesThere(*configuration).Categories(""));
        if (name == "NAME=VALUE")
            return Assignments(*configuration);
        return {};
    }

    static Candidates Configurations()
    {
        Candidates candidates;
        for (const Configuration& configuration : AllConfigurations())
            candidates.push_back({configuration.name, std::string(configuration.entry->description->meaning)});
        return candidates;
    }

    static Candidates Rules()
    {
        Candidates candidates;
        for (const VEXMELKRule& rule : VEXMELKRules())
            candidates.push_back({std::string(rule.id), std::string(rule.title)});
        return candidates;
    }

    const Configuration* Named() const
    {
        return m_Typed.positionals.empty() ? nullptr : LookForConfiguration(m_Typed.positionals.front());
    }

    // For a command that takes a standard in the place of the operation, the standards too.
    Candidates Operations(const Configuration& configuration) const
    {
        Candidates candidates;
        if (m_Typed.command->get_name() == "explain")
            candidates = WithoutDescription(NamesThere(configuration).Standards());
        for (const Operation& operation : configuration.operations)
            candidates.push_back({std::string(operation.name), ""});
        return candidates;
    }

    // NAME=VALUE by the operation; the category behind a standard.
    Candidates Assignments(const Configuration& configuration) const
    {
        const std::string& asked = m_Typed.positionals.size() > 1 ? m_Typed.positionals[1] : "";
        const auto operation = std::find_if(configuration.operations.begin(), configuration.operations.end(),
            [&](const Operation& known) { return known.name == asked; });
        if (operation == configuration.operations.end())
            return WithoutDescription(NamesThere(configuration).Categories(asked));
        std::map<std::string, std::string> given;
        for (std::size_t position = 2; position < m_Typed.positionals.size(); ++position)
        {
            const std::string& assignment = m_Typed.positionals[position];
            const std::string name = TextBefore(assignment, '=');
            given[name] = assignment.substr(std::min(assignment.size(), name.size() + 1));
        }
        Candidates candidates;
        const auto parameters = operation->Described().Parameters();
        for (std::size_t position = 0; position < parameters.size(); ++position)
        {
            const Parameter& parameter = operation->Parameters()[position];
            if (parameter.isOutput || given.contains(parameter.name))
                continue;
            if (m_Word.starts_with(parameter.name + "="))
                return Values(configuration, parameters[position], parameter, given["standard"]);
            candidates.push_back(
                {parameter.name + "=", parameter.type + (parameter.unit.empty() ? "" : " [" + parameter.unit + "]")});
        }
        return candidates;
    }

    static Candidates Values(const Configuration& configuration, const VEXMELKParameter& described,
        const Parameter& parameter, const std::string& standard)
    {
        std::vector<std::string> values;
        if (described.role == VEXMELKRole::Standard)
            values = NamesThere(configuration).Standards();
        else if (described.role == VEXMELKRole::Category)
            values = NamesThere(configuration).Categories(standard);
        else if (parameter.type == "flag")
            values = {"true", "false"};
        for (std::string& value : values)
            value = parameter.name + "=" + value;
        return WithoutDescription(values);
    }

    const CommandLine& m_Line;
    const Typed m_Typed;
    const std::string& m_Word;
};

std::string ValueOf(const Typed& typed, const std::string& option)
{
    const auto found = typed.values.find(option);
    return found == typed.values.end() ? std::string() : found->second;
}

constexpr const char* bashScript =
    R"script(# Completion of melkcfg for bash: source it, or install it as share/bash-completion/completions/melkcfg.
_melkcfg() {
    local IFS=$'\n'
    COMPREPLY=($("${COMP_WORDS[0]}" complete --line "${COMP_LINE:0:COMP_POINT}" --word "$2" 2>/dev/null))
    if [ ${#COMPREPLY[@]} -eq 0 ]; then
        compopt -o default
    elif [[ ${COMPREPLY[0]} == *[=/] ]]; then
        compopt -o nospace
    fi
}
complete -F _melkcfg melkcfg
)script";

constexpr const char* zshScript = R"script(#compdef melkcfg
# Completion of melkcfg for zsh: install it as _melkcfg in a folder of $fpath.
_melkcfg() {
    local -a words_there descriptions
    local candidate
    for candidate in "${(@f)$("${(Q)words[1]}" complete -- "${(@Q)words[2,CURRENT]}" 2>/dev/null)}"; do
        [[ -n $candidate ]] || continue
        words_there+=("${candidate%%$'\t'*}")
        descriptions+=("${candidate/$'\t'/  }")
    done
    if (( ! $#words_there )); then
        _files
    elif [[ $words_there[1] == *[=/] ]]; then
        compadd -S '' -l -d descriptions -a words_there
    else
        compadd -l -d descriptions -a words_there
    fi
}
if [ "$funcstack[1]" = "_melkcfg" ]; then
    _melkcfg "$@"
else
    compdef _melkcfg melkcfg
fi
)script";

constexpr const char* fishScript =
    R"script(# Completion of melkcfg for fish: install it as share/fish/vendor_completions.d/melkcfg.fish.
function __melkcfg_complete
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    $words[1] complete -- $words[2..-1] (commandline --current-token --cut-at-cursor | string unescape) 2>/dev/null
end
complete -c melkcfg -n 'test -n "$(__melkcfg_complete)"' -f
complete -c melkcfg -a '(__melkcfg_complete)'
)script";

ExitStatus PrintScript(const std::string& shell)
{
    std::cout << (shell == "bash" ? bashScript : shell == "zsh" ? zshScript : fishScript);
    return Done;
}

struct CompleteOptions
{
    std::vector<std::string> words;
    std::string line; // of bash, up to the cursor
    std::string word; // what bash takes for the last word, which begins behind each "=" and ":"
};

// The rest of each candidate, as bash is to put it in the place of its word.
void PrintForBash(const CommandLine& line, const CompleteOptions& options)
{
    Words typed = SplitIntoWords(options.line);
    if (!typed.words.empty())
        typed.words.erase(typed.words.begin());
    if (!typed.isLastOpen || typed.words.empty())
        typed.words.emplace_back();
    const Words last = SplitIntoWords(options.word);
    const std::size_t kept = last.words.empty() ? 0 : last.words.back().size();
    const std::size_t before = typed.words.back().size() - std::min(kept, typed.words.back().size());
    for (const Candidate& candidate : Complete(line, typed.words))
        std::cout << (typed.quote == 0 ? QuotedForShell(candidate.word.substr(before), 0)
                                       : candidate.word.substr(before))
                  << '\n';
}

ExitStatus RunComplete(const CommandLine& line, const CompleteOptions& options)
{
    if (!options.line.empty())
        PrintForBash(line, options);
    else
        for (const Candidate& candidate : Complete(line, options.words))
            std::cout << candidate.word << (candidate.description.empty() ? "" : "\t") << candidate.description << '\n';
    return Done;
}

} // namespace

std::vector<Candidate> Complete(const CommandLine& line, const std::vector<std::string>& words)
{
    if (words.empty())
        return {};
    const Typed typed = Follow(line.Application(), words);
    std::unique_ptr<Host> host; // of the directory that is being typed
    if (const std::string directory = ValueOf(typed, "--config"); !directory.empty())
    {
        host = std::make_unique<Host>(false);
        host->SetConfigurationDirectory(directory);
    }
    std::vector<Candidate> candidates = Completer(line, typed, words.back()).All();
    std::erase_if(candidates, [&](const Candidate& candidate) { return !candidate.word.starts_with(words.back()); });
    return candidates;
}

void AddCompletionCommands(CommandLine& line)
{
    line.Add("manual", "The manual page, in the language of man",
        [&line](const Host&)
        {
            std::cout << ManualOf(line.Application());
            return Done;
        },
        {"text"});

    const auto shell = std::make_shared<std::string>();
    CLI::App* completion = line.Add("completion", "The script that completes command lines in a shell",
        [shell](const Host&) { return PrintScript(*shell); }, {"text"});
    completion->add_option("SHELL", *shell, "The shell")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
    completion->footer("For example: source <(melkcfg completion bash)");

    const auto options = std::make_shared<CompleteOptions>();
    CLI::App* complete = line.Add("complete", "What may stand in the place of the last word; for the shells' scripts",
        [&line, options](const Host&) { return RunComplete(line, *options); }, {"text"});
    complete->group(""); // the scripts call it
    complete->add_option("WORD", options->words, "The words behind the program's name");
    complete->add_option("--line", options->line, "The line up to the cursor, for bash");
    complete->add_option("--word", options->word, "What bash takes for the last word");
}
