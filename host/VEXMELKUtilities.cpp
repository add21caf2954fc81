// The state of the application, the message texts, and the palette of sixteen colours.
#include "VEXMELKUtilities.h"

#include "CATEnvironment.h"
#include "CATFiles.h"
#include "CATPath.h"
#include "CATQuantity.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <unordered_map>

namespace {

std::atomic<VEXMELKAppMode> currentMode = VEXMELKNormalMode;
std::atomic<bool> writesCommas = false;

// Requests to reload are counted; a thread has one pending as long as it has not carried out the last one.
std::atomic<std::uint64_t> lastReload = 0;
constinit thread_local std::uint64_t carriedOutReload = 0;

struct CatalogueText
{
    std::string_view key;
    std::string_view text;
};

constexpr CatalogueText builtInTexts[] = {
    {"NotFoundCFGFile.MSG", " (configuration file not found or not readable) "},
    {"CheckCFGDir.MSG", "Check the configuration directory in the settings."},
    {"ObsoleteCfgFormat.MSG",
        "The configuration file uses an obsolete format: standard data stand outside any category."},
    {"ParseWarning.Title", "MELK CFG: Parse Warning"},
};

// The text of a catalogue line KEY = "text" for that key.
std::optional<std::string> TextOfLine(std::string_view line, std::string_view key)
{
    const std::size_t equals = line.find('=');
    const std::size_t open = line.find('"', equals);
    const std::size_t close = line.rfind('"');
    if (equals == std::string_view::npos || open == std::string_view::npos || close <= open)
        return std::nullopt;
    CATUnicodeString name(line.substr(0, equals));
    name.Strip();
    if (name != key)
        return std::nullopt;
    return std::string(line.substr(open + 1, close - open - 1));
}

std::optional<std::string> TextOfCatalogueFile(std::string_view key)
{
    const std::string path = CATEnvironmentVariable("MELK_MSG_CATALOG");
    if (path.empty())
        return std::nullopt;
    CATInputFile file(path);
    if (!file.IsOpen())
        return std::nullopt;
    std::string contents(file.Size(), '\0');
    contents.resize(static_cast<std::size_t>(std::max(file.Read(contents.data(), contents.size()), 0L)));
    std::istringstream lines(contents);
    for (std::string line; std::getline(lines, line);)
        if (std::optional<std::string> text = TextOfLine(line, key))
            return text;
    return std::nullopt;
}

struct PaletteColor
{
    const char* name;
    unsigned int color;
};

constexpr PaletteColor palette[] = {
    {"black", 0x000000},
    {"maroon", 0x800000},
    {"green", 0x008000},
    {"olive", 0x808000},
    {"navy", 0x000080},
    {"purple", 0x800080},
    {"teal", 0x008080},
    {"silver", 0xC0C0C0},
    {"gray", 0x808080},
    {"red", 0xFF0000},
    {"lime", 0x00FF00},
    {"yellow", 0xFFFF00},
    {"blue", 0x0000FF},
    {"fuchsia", 0xFF00FF},
    {"aqua", 0x00FFFF},
    {"white", 0xFFFFFF},
};

int Distance(unsigned int left, unsigned int right)
{
    int sum = 0;
    for (unsigned shift = 0; shift <= 16; shift += 8)
    {
        const int difference = static_cast<int>(left >> shift & 0xFFU) - static_cast<int>(right >> shift & 0xFFU);
        sum += difference * difference;
    }
    return sum;
}

} // namespace

VEXMELKAppMode VEXMELKUtilities::GetAppMode() { return currentMode; }

void VEXMELKUtilities::SetAppMode(VEXMELKAppMode mode) { currentMode = mode; }

unsigned char VEXMELKUtilities::GetReloadConfigurationFlag() { return carriedOutReload != lastReload; }

void VEXMELKUtilities::SetReloadConfigurationFlag(unsigned char reload)
{
    if (reload != 0)
        ++lastReload;
    else
        carriedOutReload = lastReload;
}

unsigned char VEXMELKUtilities::IsCommaDelimeter() { return writesCommas; }

void VEXMELKUtilities::SetCommaDelimeter(unsigned char comma) { writesCommas = comma != 0; }

void VEXMELKUtilities::AlterStringBecauseOfDelimeter(CATUnicodeString& text) { text.ReplaceAll(',', '.'); }

unsigned char VEXMELKUtilities::FileExists(const CATUnicodeString& path) { return CATMayBeFile(path); }

CATUnicodeString VEXMELKUtilities::GetNLSMessage(const CATString& key)
{
    if (const std::optional<std::string> text = TextOfCatalogueFile(key.CastToCharPtr()))
        return {*text};
    for (const CatalogueText& entry : builtInTexts)
        if (entry.key == key.CastToCharPtr())
            return {entry.text};
    return {key};
}

double VEXMELKUtilities::GetValueInMeters(const CATUnicodeString& text)
{
    double metres = 0.0;
    CATLengthFromText(text, metres);
    return metres;
}

double VEXMELKUtilities::GetValueInRadians(const CATUnicodeString& text)
{
    double radians = 0.0;
    CATAngleFromText(text, radians);
    return radians;
}

int VEXMELKUtilities::GetNumberOfVGAColors() { return static_cast<int>(std::size(palette)); }

CATUnicodeString VEXMELKUtilities::GetVGAColorName(int position)
{
    return position >= 0 && position < GetNumberOfVGAColors() ? palette[position].name : "";
}

unsigned int VEXMELKUtilities::VGAColor(int position) { return palette[position].color; }

unsigned int VEXMELKUtilities::VGAColor(const CATUnicodeString& name)
{
    CATUnicodeString lowerCase = name;
    lowerCase.ToLower();
    for (const PaletteColor& entry : palette)
        if (lowerCase == entry.name)
            return entry.color;
    return palette[0].color;
}

unsigned int VEXMELKUtilities::ConvertColorToVGAColor(unsigned int color)
{
    unsigned int nearest = palette[0].color;
    for (const PaletteColor& entry : palette)
        if (Distance(color, entry.color) < Distance(color, nearest))
            nearest = entry.color;
    return nearest;
}

CATUnicodeString VEXMELKUtilities::ConvertColorToColorString(unsigned int color)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[color >> shift & 0xFU];
    return {text};
}

void VEXMELKUtilities::Reset()
{
    SetAppMode(VEXMELKNormalMode);
    SetReloadConfigurationFlag(0);
    SetCommaDelimeter(0);
}
