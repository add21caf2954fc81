// Writing JSON without building it first. What is unusual about a text is left to the JSON library.
#include "JsonText.h"

#include "Attributes.h"
#include "Values.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

bool IsPlainInJson(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return code >= ' ' && code < 0x80U && code != '"' && code != '\\';
}

void AppendHeld(std::string& line, std::monostate /*nothing*/) { line += "null"; }
void AppendHeld(std::string& line, const CATUnicodeString* text)
{
    AppendJsonText(line, text->ConvertToChar()); // as a text of C: up to its first zero byte
}
void AppendHeld(std::string& line, const unsigned char* flag) { line += *flag != 0 ? "true" : "false"; }
void AppendHeld(std::string& line, const double* number)
{
    RequireJsonNumber(*number);
    std::array<char, 64> digits{};
    // The library's own digits: what it writes is not always the shortest.
    line.append(digits.data(), nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), *number));
}
void AppendHeld(std::string& line, const std::shared_ptr<VEXMELKIntegerView>& integer)
{
    line += std::to_string(integer->Get());
}
void AppendHeld(std::string& line, const CATMathPoint* point)
{
    const double coordinates[] = {point->GetX(), point->GetY(), point->GetZ()};
    for (const double& coordinate : coordinates)
    {
        line += &coordinate == coordinates ? '[' : ',';
        AppendHeld(line, &coordinate);
    }
    line += ']';
}
void AppendHeld(std::string& line, const std::shared_ptr<VEXMELKRecordView>& record)
{
    line += '{';
    for (std::size_t position = 0; position < record->Size(); ++position)
    {
        AppendJsonName(line, record->Name(position));
        AppendJson(line, record->At(position));
    }
    line += '}';
}
void AppendHeld(std::string& line, const std::shared_ptr<VEXMELKListView>& list)
{
    line += '[';
    for (std::size_t position = 0; position < list->Size(); ++position)
    {
        if (position > 0)
            line += ',';
        AppendJson(line, list->At(position));
    }
    line += ']';
}
void AppendHeld(std::string& line, const VEXMELKAttributeValues* attributes)
{
    AppendJson(line, AttributesToJson(*attributes));
}

} // namespace

void AppendJson(std::string& line, const Json& json)
{
    line += json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void AppendJsonText(std::string& line, std::string_view text)
{
    if (!std::all_of(text.begin(), text.end(), IsPlainInJson))
        return AppendJson(line, Json(text));
    line += '"';
    line += text;
    line += '"';
}

void AppendJson(std::string& line, const VEXMELKValue& value)
{
    std::visit([&](const auto& held) { AppendHeld(line, held); }, value);
}

void AppendJsonName(std::string& line, std::string_view name)
{
    if (line.back() != '{')
        line += ',';
    AppendJsonText(line, name);
    line += ':';
}
