// What differs between systems for a program in a shell: its arguments, its streams, the terminal.
#ifndef MELKCFG_Console_H
#define MELKCFG_Console_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// The arguments of main as UTF-8.
class ProgramArguments
{
public:
    ProgramArguments(int argc, char** argv);
    int Count() const { return static_cast<int>(m_Values.size()); }
    char** Values() { return m_Values.data(); }

private:
    std::vector<std::string> m_Texts; // where they are not what main was given
    std::vector<char*> m_Values;
};

// Streams of bytes: UTF-8, lines that end in "\n".
void PrepareStreams();

enum class StandardStream
{
    Input = 0,
    Output = 1,
    Error = 2
};
bool IsTerminal(StandardStream stream);

// Waits for bytes of standard input and reads those that are there: how many, 0 at its end, -1 when it cannot be read.
long ReadStandardInput(char* bytes, std::size_t size);

// The columns of the terminal on standard output; nothing when it cannot be told.
std::optional<std::size_t> TerminalWidth();

// Where the running program is; empty when that cannot be told.
std::string ProgramPath();

// A new folder for temporary files; empty when none can be made.
std::string NewTemporaryFolder();

#endif
