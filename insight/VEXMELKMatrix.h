// One value of all standards and categories side by side.
#ifndef VEXMELKMatrix_H
#define VEXMELKMatrix_H

#include "VEXMELKPlacedAnswers.h"

// Standards go down, categories across. Of an operation without categories there is one column, without a name.
struct VEXMELKMatrix
{
    const VEXMELKConfigManager::Configuration* configuration = nullptr;
    std::string operation;
    std::string arguments; // besides standard and category: "position=left"
    std::string field;
    std::vector<std::string> standards;
    std::vector<std::string> categories;
    // By standard and category; nothing where the question has no answer.
    std::vector<std::vector<std::optional<VEXMELKPlacedValue>>> cells;
};

struct VEXMELKMatrixScope
{
    // Whole ("definition.FrontOffset"), or their last names ("FrontOffset"); all when there are none.
    std::vector<std::string> fields;
    std::string operation; // only this one, unless it is empty
    std::function<void(std::size_t, std::size_t, const std::string&)> onQuestion = {};
};

// A matrix for each field that fits and each combination of further arguments, in the order of the questions.
std::vector<VEXMELKMatrix> VEXMELKMatrices(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKSource& source, const VEXMELKMatrixScope& scope);

// Who answers: 'C' the Customer file, 'f' a fall-back, 'b' built in, '-' nobody, ' ' the Default or single file.
char VEXMELKMarkOf(const std::optional<VEXMELKPlacedValue>& cell);

// The number of an amount in a unit of lengths or angles; nothing when the unit is of another dimension.
std::optional<double> VEXMELKAmountInUnit(const VEXMELKAmount& amount, std::string_view unit);

#endif
