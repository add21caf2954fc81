// Requests and their answers as JSON Lines.
#ifndef MELKCFG_Batch_H
#define MELKCFG_Batch_H

#include "Host.h"
#include "Registry.h"

#include <array>
#include <iosfwd>
#include <memory>
#include <streambuf>

// What the password is printed as.
constexpr const char* hiddenSecret = "********";

// Asks an operation. Throws RequestError for an argument or output that it does not have, for a value of the wrong
// type, and when there is no configuration object.
std::unique_ptr<VEXMELKQuestion> AskQuestion(
    const Configuration& configuration, const Operation& operation, const Json& arguments, const Json& outputs);
// The same, with the answer as JSON. Secrets among the outputs are hidden unless they are to be shown.
Answered RunOperation(const Configuration& configuration, const Operation& operation, const Json& arguments,
    const Json& outputs, bool showSecrets);

// Standard input, which writes out what has been answered before it waits for more: so a peer that waits for each
// answer gets it at once, and many requests that are there already are answered in one piece.
class BatchInput final : public std::streambuf
{
public:
    explicit BatchInput(std::ostream& output) : m_Output(output) {}
    // Whether the system could not read it.
    bool HasFailed() const { return m_HasFailed; }

private:
    int_type underflow() override;

    std::ostream& m_Output;
    std::array<char, 1U << 16U> m_Bytes{};
    bool m_HasFailed = false;
};

// Answers requests, one a line, until the input ends. False when one of them could not be understood. Throws
// RequestError when a request cannot be read or an answer not be written.
bool RunBatch(std::istream& input, std::ostream& output, Host& host, bool showSecrets);

#endif
