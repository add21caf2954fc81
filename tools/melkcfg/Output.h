// Files that the tool writes.
#ifndef MELKCFG_Output_H
#define MELKCFG_Output_H

#include <string>

// Writes the bytes to a file, or to standard output when the name is empty or "-". A file that could not be written
// whole is not left there. Throws RequestError.
void WriteOutput(const std::string& name, const std::string& bytes);

#endif
