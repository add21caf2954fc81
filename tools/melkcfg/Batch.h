// Requests and their answers as JSON Lines.
#ifndef MELKCFG_Batch_H
#define MELKCFG_Batch_H

#include "Host.h"
#include "Registry.h"

#include <iosfwd>

// What the password is printed as.
constexpr const char* hiddenSecret = "********";

// Runs an operation. Throws RequestError for an argument or output that it does not have, for a value of the wrong
// type, and when there is no configuration object. Secrets among the outputs are hidden unless they are to be shown.
Answered RunOperation(const Configuration& configuration, const Operation& operation, const Json& arguments,
    const Json& outputs, bool showSecrets);

// Answers requests, one a line, until the input ends. False when one of them could not be understood. Throws
// RequestError when a request cannot be read or an answer not be written.
bool RunBatch(std::istream& input, std::ostream& output, Host& host, bool showSecrets);

#endif
