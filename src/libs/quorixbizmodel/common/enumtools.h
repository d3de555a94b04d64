/// Conversions between enumerations and the integers that records and masks carry.
#ifndef QUORIXBIZMODEL_ENUMTOOLS_H
#define QUORIXBIZMODEL_ENUMTOOLS_H

#include <cstdint>
#include <type_traits>

namespace Quorix::BizModel {

/// The number of an enumerator, as records and documents hold it.
template <class E>
requires std::is_enum_v<E>
constexpr std::int32_t toInt(E value) noexcept { return static_cast<std::int32_t>(value); }

/// An integer is its own number, so that one call serves masks and enumerators.
constexpr std::int32_t toInt(std::int32_t value) noexcept { return value; }

/// True when @p mask and @p bits have a bit in common; both may be enumerators or masks. A kind put together of several
/// (an `Output`, an `AllLayerType`) thus matches each of its members.
template <class M, class B>
constexpr bool hasAnyBit(M mask, B bits) noexcept {
    return (static_cast<std::uint32_t>(toInt(mask)) & static_cast<std::uint32_t>(toInt(bits))) != 0U;
}

/// The mask with the bits of all arguments, enumerators or masks.
template <class... B>
constexpr std::int32_t maskOf(B... bits) noexcept {
    return (0 | ... | toInt(bits));
}

} // namespace Quorix::BizModel

#endif
