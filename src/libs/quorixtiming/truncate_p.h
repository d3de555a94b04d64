#ifndef QUORIXTIMING_TRUNCATE_P_H
#define QUORIXTIMING_TRUNCATE_P_H

#include <limits>

/// @p value cut down towards 0, or the nearest bound of @p T beyond it; 0 for NaN. A plain cast would be undefined
/// there.
template <class T>
constexpr T truncateTo(double value) {
    using Limits = std::numeric_limits<T>;
    if (value >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    return value == value ? static_cast<T>(value) : T{};
}

#endif
