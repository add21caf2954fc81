// Reading decimal numbers, correctly rounded and whatever the locale. Hexadecimal numbers, "nan" and "inf" are none.
#include "CATNumberText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace {

// "nan" and "inf" are no numbers, so a digit has to come first, or behind the point.
bool StartsNumber(std::string_view digits)
{
    if (digits.starts_with('.'))
        digits.remove_prefix(1);
    return !digits.empty() && CATIsDigit(digits.front());
}

// Tells the two ends of a double's range apart for a number outside it: by the decimal place of its first digit.
bool IsHuge(std::string_view number)
{
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    std::string_view exponentText = number.substr(std::min(exponentAt + 1, number.size()));
    if (exponentText.starts_with('+'))
        exponentText.remove_prefix(1);
    int exponent = 0;
    const auto [end, error] = std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (error == std::errc::result_out_of_range)
        return !exponentText.starts_with('-');

    const std::string_view digits = number.substr(0, exponentAt);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_not_of("0.");
    return static_cast<long>(point) - static_cast<long>(first) + exponent > 0;
}

} // namespace

bool CATTakeNumber(std::string_view& text, double& value)
{
    std::string_view digits = text;
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+'))
        digits.remove_prefix(1);
    if (!StartsNumber(digits))
        return false;

    double number = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (error == std::errc::result_out_of_range)
    {
        if (IsHuge(digits.substr(0, length)))
            return false;
        number = 0.0;
    }
    value = negative ? -number : number;
    digits.remove_prefix(length);
    text = digits;
    return true;
}
