// A text as a quantity and as a number: what is read has to agree with itself, and with the C library.
#include "CATCkeGlobalFunctions.h"
#include "CATNumberText.h"
#include "CATQuantity.h"
#include "Require.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKReadFields.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace {

struct Kind
{
    CATICkeParm::Reader reader;
    std::string_view baseUnit; // of the value that the reader gives
    std::string_view unit;     // of a number without one
};
constexpr Kind kinds[] = {{CATLengthFromText, "m", "mm"}, {CATAngleFromText, "rad", "deg"}, {CATRealFromText, "", ""}};

std::optional<double> Read(const Kind& kind, std::string_view text)
{
    constexpr double before = -777.5;
    double value = before;
    if (kind.reader(text, value))
    {
        Require(std::isfinite(value));
        return value;
    }
    Require(value == before);
    return std::nullopt;
}

std::string Replaced(std::string_view text, char what, char with)
{
    std::string replaced(text);
    std::replace(replaced.begin(), replaced.end(), what, with);
    return replaced;
}

// Written as the application writes it, the text stays the quantity that it is; the point may become a comma.
CATUnicodeString Normalized(std::string_view unit, const CATUnicodeString& text)
{
    const CATUnicodeString normalized = NormalizedValue(unit, false, text);
    Require(NormalizedValue(unit, false, normalized) == normalized);
    return normalized;
}

void CheckQuantity(const Kind& kind, std::string_view text)
{
    const std::optional<double> value = Read(kind, text);
    Require(Read(kind, "\t " + std::string(text) + "\r\n") == value);
    Require(Read(kind, Replaced(text, '.', ',')) == value && Read(kind, Replaced(text, ',', '.')) == value);
    CATICkeParm parameter("volatile", kind.reader, 1.0);
    parameter.Valuate(CATUnicodeString(text));
    Require(parameter.HasValue() == value.has_value() && parameter.AsReal() == value.value_or(0.0));
    if (!value)
        return;
    Require(Read(kind, Normalized(kind.unit, CATUnicodeString(text))) == value);
    char written[64];
    char* end = std::to_chars(std::begin(written), std::end(written), *value).ptr;
    Require(Read(kind, std::string(std::begin(written), end) + std::string(kind.baseUnit)) == value);
}

// The C library reads hexadecimal floats, infinities and other things that are no numbers here.
bool IsPlain(std::string_view text) { return text.find_first_of("xXnNiI") == std::string_view::npos; }

template <class Number> void CheckInteger(const CATUnicodeString& text, const char* format, int base, long long lowest)
{
    Number number = 7;
    char* end = nullptr;
    const long long expected = std::strtoll(text.ConvertToChar(), &end, base);
    const bool fits = end != text.ConvertToChar() && expected >= lowest &&
                      expected <= static_cast<long long>(std::numeric_limits<Number>::max());
    Require((text.ConvertToNum(&number, format) == 1) == fits);
    Require(number == (fits ? static_cast<Number>(expected) : Number{0}));
}

void CheckNumbers(const CATUnicodeString& text)
{
    CheckInteger<int>(text, "%d", 10, std::numeric_limits<int>::min());
    CheckInteger<unsigned int>(text, "%X", 16, -static_cast<long long>(std::numeric_limits<unsigned int>::max()));
    double number = 7.0;
    const bool read = text.ConvertToNum(&number, "%le") == 1;
    char* end = nullptr;
    const double expected = std::strtod(text.ConvertToChar(), &end);
    if (IsPlain(text) && std::isfinite(expected))
        Require(read == (end != text.ConvertToChar()) && number == expected);
    Require(std::isfinite(number) && (read || number == 0.0));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = TextOf(data, size);
    CheckNumbers(CATUnicodeString(text));
    for (const bool comma : {false, true})
    {
        VEXMELKConfigManager::ReleaseConfigManager();
        VEXMELKUtilities::SetCommaDelimeter(comma);
        for (const Kind& kind : kinds)
            CheckQuantity(kind, text);
    }
    VEXMELKUtilities::SetCommaDelimeter(0);
    return 0;
}
