// What a report on a directory tells, without how it looks: each configuration with its standards and categories, their
// answers with where these come from, and their pictures.
#ifndef VEXMELKReportData_H
#define VEXMELKReportData_H

#include "VEXMELKAllQuestions.h"
#include "VEXMELKDrawing.h"
#include "VEXMELKOrigins.h"

#include <functional>

// A question with its answer. Origins are those of the first question of an operation in a cell: the others, which
// differ in a travel or a name, have values alone, because proving where a value comes from takes a thousand times its
// query.
struct VEXMELKReportAnswer
{
    std::string operation;
    std::string arguments; // beside standard and category
    VEXMELKExplanation explanation;
};

// What a standard says for one of its categories.
struct VEXMELKReportCell
{
    std::string standard;
    std::string category;
    VEXMELKDrawing drawing; // without panels where there is nothing to draw
    std::vector<VEXMELKReportAnswer> answers;
};

struct VEXMELKReportStandard
{
    std::string name;
    bool isCustomers = false;            // the Customer file has it
    bool isReplaced = false;             // and the Default file too: that one plays no part
    std::vector<std::string> categories; // of the element that counts
};

struct VEXMELKReportConfiguration
{
    const VEXMELKConfigManager::Configuration* configuration = nullptr;
    std::vector<VEXMELKSourceFile> files;
    std::vector<VEXMELKReportStandard> standards; // one without a name where the file has none
    std::vector<std::string> categories;          // of all standards
    std::vector<VEXMELKReportCell> cells;
};

// The configurations that have a file, one after the other; "onConfiguration" hears of each before it is asked: its
// number, from 1, of how many, and its name.
using VEXMELKReportProgress = std::function<void(std::size_t, std::size_t, const std::string&)>;
std::vector<VEXMELKReportConfiguration> VEXMELKReportOn(
    const CATUnicodeString& directory, const VEXMELKReportProgress& onConfiguration = {});

#endif
