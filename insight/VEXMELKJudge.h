// Judges a text by the rows that read it: whether it is what they take, and what comes of it when it is not.
#ifndef VEXMELKJudge_H
#define VEXMELKJudge_H

#include "VEXMELKRow.h"
#include "VEXMELKRules.h"

#include <optional>
#include <string>
#include <vector>

struct VEXMELKJudgement
{
    std::string_view rule;
    VEXMELKLevel level = VEXMELKLevel::Error;
    std::string message;
    std::string effect;     // of the attribute: "counts as 0"
    std::string suggestion; // the text that was probably meant
    bool isSafe = false;    // the suggestion says what the writer surely meant
};

// Nothing when the text is right for one of the rows. Not for names: whether they refer to something takes other files.
std::optional<VEXMELKJudgement> VEXMELKJudge(const std::vector<const VEXMELKRow*>& rows, std::string_view text);

// The quantity or number that a row takes the text for: metres, radians or plain; nothing for other texts and rows.
std::optional<double> VEXMELKAmountOf(const VEXMELKRow& row, std::string_view text);

// The text as a row that hands out texts gives it, with decimal points: stripped, with its unit.
std::string VEXMELKAdapted(const VEXMELKRow& row, std::string_view text);

#endif
