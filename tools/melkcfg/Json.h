// JSON, and what is said about a request that cannot be understood.
#ifndef MELKCFG_Json_H
#define MELKCFG_Json_H

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using Json = nlohmann::ordered_json;

class RequestError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The JSON that a line or an argument holds. Throws RequestError for what is not JSON, for members given twice, and for
// more nesting than any request needs, before anything is built of it.
Json ParseJson(std::string_view text);

// A text of unknown origin for a message: short, and without characters that a terminal acts upon.
std::string Shown(std::string_view text);

// "unknown KIND NAME; did you mean A or B?", with those of the known names that are nearest.
RequestError UnknownName(const char* kind, std::string_view name, const std::vector<std::string>& known);

// "WHERE: expected a TYPE, got VALUE".
RequestError WrongType(const std::string& where, const char* type, const Json& value);

#endif
