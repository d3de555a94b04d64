/// Numbers from text, independent of the station's locale.
#ifndef AJSON_NUMBER_H
#define AJSON_NUMBER_H

#include <ajson/text.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace ajson::detail {

/// Infinity or 0 for a decimal number that no double holds, judged by the place of its first digit that is not 0.
inline double out_of_range(const char *p, const char *end) {
    constexpr std::int64_t cap = std::int64_t{1} << 32; // beyond any length or exponent that matters
    std::int64_t magnitude = 0;
    bool point = false;
    bool significant = false;
    for (; p < end && (is_digit(*p) || (*p == '.' && !point)); ++p) {
        point = point || *p == '.';
        if (*p == '.')
            continue;
        significant = significant || *p != '0';
        magnitude += (significant && !point ? 1 : 0) - (!significant && point ? 1 : 0);
    }
    if (!significant)
        return 0.0;
    if (p < end && (*p == 'e' || *p == 'E')) {
        ++p;
        const bool negative = p < end && *p == '-';
        p += p < end && (*p == '-' || *p == '+') ? 1 : 0;
        std::int64_t exponent = 0;
        for (; p < end && is_digit(*p); ++p)
            exponent = std::min(cap, exponent * 10 + (*p - '0'));
        magnitude += negative ? -exponent : exponent;
    }
    return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The correctly rounded value of digits with an optional point and exponent, without a sign; 0 without any digit.
inline double decimal_value(const char *p, const char *end) {
    double value = 0.0;
    if (std::from_chars(p, end, value).ec == std::errc::result_out_of_range)
        value = out_of_range(p, end);
    return value;
}

/// What `strtold` makes of a text: leading white space, a sign, decimal or `0x` hexadecimal, "inf", "nan"; else 0.
inline double text_to_double(const char *p, const char *end) {
    while (p < end && (*p == ' ' || (*p >= '\t' && *p <= '\r')))
        ++p;
    const bool negative = p < end && *p == '-';
    p += p < end && (*p == '-' || *p == '+') ? 1 : 0;
    double value = 0.0;
    if (p < end && *p == '-') // from_chars would take a second sign
        return value;
    const auto hexadecimal = [](char c) { return c == '.' || hex_digit(c) >= 0; }; // no sign, no word
    if (end - p > 2 && *p == '0' && (p[1] == 'x' || p[1] == 'X')) {
        if (!hexadecimal(p[2]))
            return negative ? -value : value;
        const auto [last, ec] = std::from_chars(p + 2, end, value, std::chars_format::hex);
        if (ec == std::errc::result_out_of_range) {
            const char *exponent = std::find_if(p + 2, last, [](char c) { return c == 'p' || c == 'P'; });
            const bool tiny = last - exponent > 1 && exponent[1] == '-';
            value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        } else if (ec != std::errc{}) {
            value = 0.0;
        }
    } else if (const auto result = std::from_chars(p, end, value); result.ptr == p) {
        return 0.0; // without digits the sign says nothing
    } else if (result.ec == std::errc::result_out_of_range) {
        value = out_of_range(p, end);
    }
    return negative ? -value : value;
}

/// What `strtoll` or `strtoull` with base 10 makes of a text: leading white space, a sign, digits; too large a value
/// becomes the limit of the type.
template <class Wide>
Wide text_to_integer(const char *p, const char *end) {
    while (p < end && (*p == ' ' || (*p >= '\t' && *p <= '\r')))
        ++p;
    const bool negative = p < end && *p == '-';
    p += p < end && (*p == '-' || *p == '+') ? 1 : 0;
    std::uint64_t value = 0;
    const auto result = std::from_chars(p, end, value);
    const bool huge = result.ec == std::errc::result_out_of_range;
    if constexpr (std::is_signed_v<Wide>) {
        constexpr std::uint64_t limit = std::uint64_t{1} << 63;
        if (huge || value > limit - (negative ? 0U : 1U))
            return negative ? std::numeric_limits<Wide>::min() : std::numeric_limits<Wide>::max();
    } else if (huge) {
        return std::numeric_limits<Wide>::max();
    }
    return static_cast<Wide>(negative ? 0 - value : value);
}

/// A double cut to a whole number; beyond 64 bits the limit of the type.
template <class Wide>
Wide truncate(double value) {
    constexpr double bound = std::is_signed_v<Wide> ? 9223372036854775808.0 : 18446744073709551616.0;
    if (std::isnan(value))
        return 0;
    if (value >= bound)
        return std::numeric_limits<Wide>::max();
    if (value <= (std::is_signed_v<Wide> ? -bound : 0.0))
        return std::numeric_limits<Wide>::min();
    return static_cast<Wide>(value);
}

} // namespace ajson::detail

#endif
