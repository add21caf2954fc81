// Texts come from files of others: what is shown of them must not reach a terminal as a control.
#include "VEXMELKWording.h"

#include "VEXMELKUtilities.h"

std::string VEXMELKQuoted(std::string_view text)
{
    constexpr std::size_t longest = 60;
    std::string shown;
    for (const char character : text.substr(0, longest))
    {
        const auto byte = static_cast<unsigned char>(character);
        shown += byte < ' ' || byte == 0x7F ? ' ' : character;
    }
    if (text.size() > longest)
    {
        while (!shown.empty() && (static_cast<unsigned char>(shown.back()) & 0x80U) != 0)
            shown.pop_back();
        shown += "...";
    }
    return "\"" + shown + "\"";
}

std::string VEXMELKInBackticks(std::string_view text) { return "`" + std::string(text) + "`"; }

std::string VEXMELKJoined(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

std::vector<std::string> VEXMELKColourNames()
{
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(VEXMELKUtilities::GetNumberOfVGAColors()));
    for (int position = 0; position < VEXMELKUtilities::GetNumberOfVGAColors(); ++position)
        names.emplace_back(VEXMELKUtilities::GetVGAColorName(position).ConvertToChar());
    return names;
}
