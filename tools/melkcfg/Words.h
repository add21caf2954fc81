// A command line as a shell splits it into words.
#ifndef MELKCFG_Words_H
#define MELKCFG_Words_H

#include <string>
#include <string_view>
#include <vector>

struct Words
{
    std::vector<std::string> words;
    bool isLastOpen = false; // no blank follows the last word
    char quote = 0;          // the quotation mark that is still open
};

// Quotation marks and backslashes mean what they do to a POSIX shell; nothing else does.
Words SplitIntoWords(std::string_view line);

// The text with a backslash before each character that means something to a shell, or as it stands between quotation
// marks of that kind.
std::string QuotedForShell(std::string_view text, char quote);

#endif
