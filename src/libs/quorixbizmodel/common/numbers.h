/// Arithmetic on numbers that come from outside.
#ifndef QUORIXBIZMODEL_NUMBERS_H
#define QUORIXBIZMODEL_NUMBERS_H

#include <QtGlobal>

#include <cstdint>
#include <limits>

namespace Quorix::BizModel {

/// @p value cut toward zero; saturates past 32 bits, and what is not a number gives 0.
constexpr std::int32_t truncated(double value) noexcept {
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (value != value)
        return 0;
    if (value <= lowest)
        return std::numeric_limits<std::int32_t>::min();
    if (value >= highest)
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

/// qRound(), which takes halves up, those of negative values toward zero; saturates past 32 bits, and what is not a
/// number gives 0.
inline std::int32_t rounded(double value) noexcept {
    // One off the lowest: qRound() goes a step below the value that it is given.
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return value != value ? 0 : qRound(value < -highest ? -highest : value > highest ? highest : value);
}

/// truncated() to 64 bits without a sign: below 1 and what is not a number gives 0.
constexpr std::uint64_t truncatedUnsigned(double value) noexcept {
    constexpr double limit = 18446744073709551616.0; // 2^64
    if (!(value >= 1.0))
        return 0;
    return value >= limit ? std::numeric_limits<std::uint64_t>::max() : static_cast<std::uint64_t>(value);
}

/// The product; saturates past 64 bits.
constexpr std::uint64_t saturatedProduct(std::uint64_t a, std::uint64_t b) noexcept {
    constexpr auto highest = std::numeric_limits<std::uint64_t>::max();
    return a != 0 && b > highest / a ? highest : a * b;
}

/// The sum modulo 2^32: coordinates at the ends of the range don't trap, and a difference takes a sum back.
constexpr std::int32_t wrappingSum(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrappingDifference(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

} // namespace Quorix::BizModel

#endif
