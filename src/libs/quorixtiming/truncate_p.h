#ifndef QUORIXTIMING_TRUNCATE_P_H
#define QUORIXTIMING_TRUNCATE_P_H

#include <limits>

/// @p value cut down towards 0, or the nearest bound of @p T beyond it; 0 for NaN. A plain cast would be undefined
/// there.
template <class T, class Real>
constexpr T truncateTo(Real value) {
    using Limits = std::numeric_limits<T>;
    constexpr auto LOW = static_cast<Real>(Limits::min());
    constexpr T HALF = Limits::max() / 2 + 1;
    constexpr auto BEYOND = static_cast<Real>(HALF) * 2; // the maximum itself may have no exact form in Real
    if (value >= LOW && value < BEYOND) [[likely]]
        return static_cast<T>(value);
    return value < LOW ? Limits::min() : value >= BEYOND ? Limits::max() : T{};
}

#endif
