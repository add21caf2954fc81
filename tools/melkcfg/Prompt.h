// Lines from a terminal, with editing, history and completion; or from any standard input, as they come.
#ifndef MELKCFG_Prompt_H
#define MELKCFG_Prompt_H

#include "Completion.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class Prompt
{
public:
    using Completer = std::function<std::vector<Candidate>(const std::vector<std::string>& words)>;

    explicit Prompt(Completer complete);
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;
    ~Prompt();

    // The next line without its end; nothing at the end of the input.
    std::optional<std::string> Next();

private:
    class Editor;
    std::unique_ptr<Editor> m_Editor; // null unless standard input and output are a terminal
};

#endif
