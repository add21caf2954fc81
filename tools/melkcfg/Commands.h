// The commands for people.
#ifndef MELKCFG_Commands_H
#define MELKCFG_Commands_H

#include "Host.h"

#include <string>
#include <vector>

enum ExitStatus
{
    Done = 0,          // the query answered true, or has no boolean result
    AnsweredFalse = 1, // it answered false
    NotDone = 2,       // wrong command line or batch line, a file that could not be read or parsed
    NothingThere = 3   // no configuration file found
};

struct Configuration;

struct CommandOptions
{
    std::string format = "text";
    bool batch = false; // boxes and log lines go into the answers
    bool showSecrets = false;
    std::string configuration;
    std::string standard;
    std::string category = "default";
    std::string operation;
    std::vector<std::string> assignments; // NAME=VALUE
    int maxLevel = 3;
    bool unordered = false;
    std::string field; // only this one is explained
    bool steps = false;
    std::string overlay; // edited files

    bool AsJson() const { return format == "json"; }
};

// What a command that has run amounts to, given whether its query answered false.
ExitStatus StatusOf(const Configuration& configuration, const Host& host, bool answeredFalse);

#endif
