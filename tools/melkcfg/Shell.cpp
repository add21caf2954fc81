// The process lives on, and with it the documents that were loaded: a line is answered without reading them again,
// unless a file has changed meanwhile.
#include "CommandLine.h"
#include "Explain.h"
#include "Prompt.h"
#include "VEXMELKConfigManager.h"
#include "Words.h"

#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;

// What tells that the files of the configuration directory are others than before.
class Fingerprint
{
public:
    explicit Fingerprint(std::string directory) : m_Directory(std::move(directory))
    {
        std::error_code error;
        for (fs::recursive_directory_iterator entry(m_Directory, error), end; !error && entry != end;
             entry.increment(error))
            if (entry->is_regular_file(error))
                m_Files.emplace_back(entry->path(), entry->last_write_time(error), entry->file_size(error));
    }
    bool operator==(const Fingerprint&) const = default;

private:
    std::string m_Directory;
    std::vector<std::tuple<fs::path, fs::file_time_type, std::uintmax_t>> m_Files;
};

class Session
{
public:
    Session(std::vector<std::string> commonWords, void (*addCommands)(CommandLine& line))
        : m_CommonWords(std::move(commonWords)), m_AddCommands(addCommands)
    {
    }

    ExitStatus Run()
    {
        Prompt prompt([this](const std::vector<std::string>& words) { return Completed(words); });
        ExitStatus status = Done;
        while (const std::optional<std::string> line = prompt.Next())
        {
            Words words = SplitIntoWords(*line);
            if (!words.words.empty() && words.words.front() == "melkcfg") // pasted from somewhere
                words.words.erase(words.words.begin());
            if (words.words.empty() || words.words.front().starts_with("#"))
                continue;
            if (words.words.front() == "exit" || words.words.front() == "quit")
                break;
            status = Answer(words);
            std::cout << std::flush;
        }
        return status;
    }

private:
    ExitStatus Answer(const Words& words)
    {
        try
        {
            if (words.quote != 0)
                throw RequestError(std::string("a quotation mark is not closed: ") + words.quote);
            if (words.words.front() == "shell")
                throw RequestError("this is the shell; an end of the input leaves it, and so does exit");
            CommandLine line;
            m_AddCommands(line);
            line.beforeCommand = [this] { LookAtFiles(); };
            std::vector<std::string> all = m_CommonWords;
            all.insert(all.end(), words.words.begin(), words.words.end());
            return line.Run(all);
        }
        catch (const std::exception& error)
        {
            std::cerr << "melkcfg: " << error.what() << std::endl;
            return NotDone;
        }
    }

    std::vector<Candidate> Completed(std::vector<std::string> words) const
    {
        CommandLine line;
        m_AddCommands(line);
        words.insert(words.begin(), m_CommonWords.begin(), m_CommonWords.end());
        return Complete(line, words);
    }

    // Other files are loaded anew: what is answered is what they say now.
    void LookAtFiles()
    {
        Fingerprint files = [&]
        {
            const VEXMELKSilence silence; // the command itself says what is missing
            return Fingerprint(DirectoryPath());
        }();
        if (m_Files && *m_Files != files)
            VEXMELKConfigManager::ReleaseConfigManager();
        m_Files = std::move(files);
    }

    const std::vector<std::string> m_CommonWords;
    void (*const m_AddCommands)(CommandLine& line);
    std::optional<Fingerprint> m_Files;
};

} // namespace

void AddShellCommands(CommandLine& line, void (*addCommands)(CommandLine& line))
{
    CLI::App* shell = line.Add("shell", "A prompt that takes these commands, with completion and history",
        [&line, addCommands](const Host&) { return Session(line.CommonWords(), addCommands).Run(); }, {"text"});
    shell->footer("The end of the input leaves it (Ctrl-D), and so do exit and quit.");
}
