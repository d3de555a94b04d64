/// Reading and setting fields under their lock, one line for each property.
#ifndef QUORIXBIZMODEL_GUARDED_H
#define QUORIXBIZMODEL_GUARDED_H

#include <quorixbizmodel/common/guards.h>

#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Quorix::BizModel {

/// Stores @p value in a field without a lock if it differs; true means: emit now.
template <class T>
[[nodiscard]] bool assign(T &field, std::type_identity_t<T> value) {
    if (field == value)
        return false;
    field = std::move(value);
    return true;
}

/// Stores @p value in @p field if it differs, under the write lock; true means: emit now. @p lock is free again on
/// return. @p field is a plain member: an expression such as `m_list[i].x` would be evaluated before the lock is held.
template <class T>
[[nodiscard]] bool assign(QReadWriteLock &lock, T &field, std::type_identity_t<T> value) {
    const WriteGuard guard(lock);
    return assign(field, std::move(value));
}

/// The same for a switch that is stored as a number, any but 0 being on: one that is on already keeps its number.
template <class Number>
[[nodiscard]] bool assignSwitch(QReadWriteLock &lock, Number &field, bool isOn) {
    const WriteGuard guard(lock);
    return (field != 0) != isOn && assign(field, isOn ? Number{1} : Number{0});
}

/// The same for a field whose parts have signals of their own: what it held before, nothing if it was equal.
template <class T>
[[nodiscard]] std::optional<T> exchanged(QReadWriteLock &lock, T &field, std::type_identity_t<T> value) {
    const WriteGuard guard(lock);
    if (field == value)
        return std::nullopt;
    return std::exchange(field, std::move(value));
}

/// A copy of @p field taken under the read lock.
template <class T>
[[nodiscard]] T copyOf(QReadWriteLock &lock, const T &field) {
    const ReadGuard guard(lock);
    return field;
}

/// Fields that belong together, copied under one read lock: what is asked next may take the lock again.
template <class... Field>
[[nodiscard]] std::tuple<Field...> copiesOf(QReadWriteLock &lock, const Field &...fields) {
    const ReadGuard guard(lock);
    return {fields...};
}

} // namespace Quorix::BizModel

#endif
