// What may stand at a place of a command line, from the commands' own description.
#ifndef MELKCFG_Completion_H
#define MELKCFG_Completion_H

#include "CommandLine.h"

struct Candidate
{
    std::string word; // whole
    std::string description;
};

// The candidates for the last of the words behind the program's name, which may be empty. Names of standards and
// categories are those of the configuration directory. None where a file or directory is due, or any text.
std::vector<Candidate> Complete(const CommandLine& line, const std::vector<std::string>& words);

#endif
