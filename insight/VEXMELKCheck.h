// Finds what is wrong with the files of a configuration directory. The rules speak from the descriptions of the files,
// so that what a reader reads and what a rule knows cannot differ.
#ifndef VEXMELKCheck_H
#define VEXMELKCheck_H

#include "CATUnicodeString.h"
#include "VEXMELKRules.h"
#include "VEXMELKWrittenFile.h"

#include <functional>

struct VEXMELKDescription;

struct VEXMELKFinding
{
    const VEXMELKRule* rule = nullptr;
    VEXMELKLevel level = VEXMELKLevel::Error;
    std::string file; // below the configuration directory, with "/"
    VEXMELKPosition begin;
    VEXMELKPosition end; // behind the last character
    std::string message;
    std::string suggestion; // what was probably meant; empty when nothing is near
    std::string effect;     // what the checks get now; empty when nothing changes
    // The one safe mend, in the file as it is written, or its other name; none when somebody has to decide.
    std::vector<VEXMELKTextEdit> edits;
    std::string renamed;
};

struct VEXMELKCheckScope
{
    // Only these; all when both are empty. Files as findings name them.
    std::vector<const VEXMELKDescription*> configurations;
    std::vector<std::string> files;
    // Hears of each file before it is looked at: its number, from 1, of how many, and its name.
    std::function<void(std::size_t, std::size_t, const std::string&)> onFile;
};

struct VEXMELKCheckResult
{
    std::vector<std::string> files;
    std::size_t standards = 0;
    std::size_t values = 0;               // attributes that something reads
    std::vector<VEXMELKFinding> findings; // in the order of files and places, of all levels
};

VEXMELKCheckResult VEXMELKCheck(const CATUnicodeString& directory, const VEXMELKCheckScope& scope = {});

// Whether a line of the file may be shown: not when it holds a text that is a secret.
bool VEXMELKMayShow(const VEXMELKFinding& finding);

#endif
