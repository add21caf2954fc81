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

// "unknown KIND NAME; did you mean A or B?", with those of the known names that are nearest.
RequestError UnknownName(const char* kind, std::string_view name, const std::vector<std::string>& known);

// "WHERE: expected a TYPE, got VALUE".
RequestError WrongType(const std::string& where, const char* type, const Json& value);

#endif
