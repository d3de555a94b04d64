/// Lists of shared objects: copies of references, searching, taking out, sorting, free numbers.
/// Search the copy that a locked accessor hands out: no lock is held while an element is asked.
#ifndef QUORIXBIZMODEL_LISTS_H
#define QUORIXBIZMODEL_LISTS_H

#include <quorixbizmodel/common/guards.h>

#include <QList>

#include <algorithm>
#include <functional>
#include <memory>
#include <ranges>
#include <utility>

namespace Quorix::BizModel {

/// Weak references to all entries of a list, in its order.
template <class List>
[[nodiscard]] auto weakReferences(const List &list) {
    using Element = typename List::value_type::element_type;
    QList<std::weak_ptr<Element>> references;
    references.reserve(static_cast<int>(list.size()));
    for (const auto &entry : list)
        references.append(entry);
    return references;
}

/// The same of a list behind a lock, taken under the read lock.
template <class List>
[[nodiscard]] auto weakReferences(QReadWriteLock &lock, const List &list) {
    const ReadGuard guard(lock);
    return weakReferences(list);
}

/// The first entry that @p matches accepts, or an empty reference. Null entries are passed over.
template <class List, class Predicate>
[[nodiscard]] typename List::value_type findFirst(const List &list, Predicate matches) {
    const auto found = std::find_if(
        list.begin(), list.end(), [&](const auto &entry) { return entry != nullptr && std::invoke(matches, *entry); });
    return found == list.end() ? typename List::value_type{} : *found;
}

/// Takes the entry that is @p object out of a list. The result is the entry, empty if the list doesn't hold it: let it
/// go outside every lock, since the last reference may end there.
template <class List, class T>
[[nodiscard]] typename List::value_type takePointer(List &list, const T *object) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto &entry) { return entry.get() == object; });
    if (object == nullptr || found == list.end())
        return {};
    auto taken = std::move(*found);
    list.erase(found);
    return taken;
}

/// The same of a list behind a lock, under the write lock, which is free again on return.
template <class List, class T>
[[nodiscard]] typename List::value_type takePointer(QReadWriteLock &lock, List &list, const T *object) {
    const WriteGuard guard(lock);
    return takePointer(list, object);
}

/// Sorts a list by a key of its entries; entries with equal keys keep their order.
template <class List, class Key>
void sortByKey(List &list, Key key) {
    std::stable_sort(list.begin(), list.end(), [&](const auto &left, const auto &right) {
        return std::invoke(key, left) < std::invoke(key, right);
    });
}

/// The lowest number from @p first on that @p isTaken doesn't hold for. Requires: there is one in the type's range.
template <class Number, class IsTaken>
[[nodiscard]] Number lowestFree(Number first, IsTaken isTaken) {
    while (std::invoke(isTaken, first))
        ++first;
    return first;
}

/// The first of the names @p nameOf (1), (2), ... that @p isTaken doesn't hold for.
template <class NameOf, class IsTaken>
[[nodiscard]] auto firstFreeName(NameOf nameOf, IsTaken isTaken) {
    return std::invoke(nameOf,
                       lowestFree(1, [&](int number) { return std::invoke(isTaken, std::invoke(nameOf, number)); }));
}

} // namespace Quorix::BizModel

#endif
