/// Arithmetic on numbers that come from outside.
#ifndef QUORIXBIZMODEL_NUMBERS_H
#define QUORIXBIZMODEL_NUMBERS_H

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

/// The sum modulo 2^32: coordinates at the ends of the range don't trap, and a difference takes a sum back.
constexpr std::int32_t wrappingSum(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrappingDifference(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

} // namespace Quorix::BizModel

#endif
