// The editor is that of libedit, which is loaded when there is a terminal. Without it, lines are read as they come.
#include "Prompt.h"

#include "Console.h"
#include "Words.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#ifdef MELKCFG_HAS_LIBEDIT
#include "LoadedLibrary.h"

#include <histedit.h>

namespace {

struct EditLibrary
{
    EditLibrary()
    {
        LoadedLibrary library("libedit.so.2");
        library.Find(begin, "el_init");
        library.Find(end, "el_end");
        library.Find(set, "el_set");
        library.Find(get, "el_get");
        library.Find(source, "el_source");
        library.Find(read, "el_gets");
        library.Find(line, "el_line");
        library.Find(insert, "el_insertstr");
        library.Find(beginHistory, "history_init");
        library.Find(endHistory, "history_end");
        library.Find(history, "history");
        isWhole = library.IsWhole();
    }
    static const EditLibrary& Get()
    {
        static const EditLibrary library;
        return library;
    }

    bool isWhole = false;
    decltype(&el_init) begin = nullptr;
    decltype(&el_end) end = nullptr;
    decltype(&el_set) set = nullptr;
    decltype(&el_get) get = nullptr;
    decltype(&el_source) source = nullptr;
    decltype(&el_gets) read = nullptr;
    decltype(&el_line) line = nullptr;
    decltype(&el_insertstr) insert = nullptr;
    decltype(&history_init) beginHistory = nullptr;
    decltype(&history_end) endHistory = nullptr;
    decltype(&::history) history = nullptr;
};

// Empty when there is no place for it.
std::string HistoryFile()
{
    namespace fs = std::filesystem;
    const char* state = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    if ((!state || !*state) && (!home || !*home))
        return {};
    const fs::path folder = (state && *state ? fs::path(state) : fs::path(home) / ".local/state") / "melkcfg";
    std::error_code error;
    fs::create_directories(folder, error);
    return error ? std::string() : (folder / "history").string();
}

std::string CommonStart(const std::vector<Candidate>& candidates)
{
    std::string start = candidates.front().word;
    for (const Candidate& candidate : candidates)
        start.erase(
            std::mismatch(start.begin(), start.end(), candidate.word.begin(), candidate.word.end()).first, start.end());
    return start;
}

} // namespace

class Prompt::Editor
{
public:
    explicit Editor(Completer complete)
        : m_Complete(std::move(complete)),
          m_Edit(m_Library.begin("melkcfg", stdin, stdout, stderr)),
          m_History(m_Library.beginHistory()),
          m_HistoryFile(HistoryFile())
    {
        HistEvent event;
        m_Library.history(m_History, &event, H_SETSIZE, 1000);
        m_Library.history(m_History, &event, H_SETUNIQUE, 1);
        if (!m_HistoryFile.empty())
            m_Library.history(m_History, &event, H_LOAD, m_HistoryFile.c_str());
        m_Library.set(m_Edit, EL_CLIENTDATA, this);
        m_Library.set(m_Edit, EL_PROMPT, PromptText);
        m_Library.set(m_Edit, EL_EDITOR, "emacs");
        m_Library.set(m_Edit, EL_SIGNAL, 1);
        m_Library.set(m_Edit, EL_HIST, m_Library.history, m_History);
        m_Library.set(m_Edit, EL_ADDFN, "melkcfg-complete", "complete the word", CompleteWord);
        m_Library.set(m_Edit, EL_BIND, "^I", "melkcfg-complete", nullptr);
        m_Library.source(m_Edit, nullptr);
    }
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor()
    {
        m_Library.endHistory(m_History);
        m_Library.end(m_Edit);
    }

    std::optional<std::string> Next()
    {
        int length = 0;
        const char* read = m_Library.read(m_Edit, &length);
        if (!read || length <= 0)
        {
            std::cout << std::endl;
            return std::nullopt;
        }
        std::string line(read, static_cast<std::size_t>(length));
        line.erase(line.find_last_not_of("\r\n") + 1);
        HistEvent event;
        if (line.find_first_not_of(' ') != std::string::npos)
            m_Library.history(m_History, &event, H_ENTER, line.c_str());
        if (!m_HistoryFile.empty())
            m_Library.history(m_History, &event, H_SAVE, m_HistoryFile.c_str());
        return line;
    }

private:
    static const char* PromptText(EditLine* /*edit*/) { return "melkcfg> "; }

    static unsigned char CompleteWord(EditLine* edit, int /*key*/)
    {
        Editor* self = nullptr;
        EditLibrary::Get().get(edit, EL_CLIENTDATA, &self);
        return self->Complete();
    }

    unsigned char Complete()
    {
        const LineInfo* info = m_Library.line(m_Edit);
        Words typed = SplitIntoWords({info->buffer, static_cast<std::size_t>(info->cursor - info->buffer)});
        if (!typed.isLastOpen)
            typed.words.emplace_back();
        const std::vector<Candidate> candidates = m_Complete(typed.words);
        if (candidates.empty())
            return CC_ERROR;
        const std::string start = CommonStart(candidates);
        std::string rest = QuotedForShell(start.substr(typed.words.back().size()), typed.quote);
        if (candidates.size() == 1 && !start.ends_with('='))
            rest += typed.quote == 0 ? std::string(" ") : std::string{typed.quote, ' '};
        if (!rest.empty())
            return m_Library.insert(m_Edit, rest.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
        std::cout << '\n';
        for (const Candidate& candidate : candidates)
            std::cout << candidate.word << (candidate.description.empty() ? "" : "  ") << candidate.description << '\n';
        std::cout << std::flush;
        return CC_REDISPLAY;
    }

    const EditLibrary& m_Library = EditLibrary::Get();
    const Completer m_Complete;
    EditLine* const m_Edit;
    History* const m_History;
    const std::string m_HistoryFile;
};

#else

// Never made.
class Prompt::Editor
{
public:
    explicit Editor(const Completer& /*complete*/) {}
    std::optional<std::string> Next() { return std::nullopt; }
};

#endif

Prompt::Prompt(Completer complete)
{
#ifdef MELKCFG_HAS_LIBEDIT
    if (IsTerminal(StandardStream::Input) && IsTerminal(StandardStream::Output) && EditLibrary::Get().isWhole)
        m_Editor = std::make_unique<Editor>(std::move(complete));
#else
    static_cast<void>(complete);
#endif
}

Prompt::~Prompt() = default;

std::optional<std::string> Prompt::Next()
{
    if (m_Editor)
        return m_Editor->Next();
    std::string line;
    if (!std::getline(std::cin, line))
        return std::nullopt;
    return line;
}
