/// Lists of shared objects: copies of references, searching, taking out, sorting, free numbers.
/// Search the copy that a locked accessor hands out: no lock is held while an element is asked.
#ifndef QUORIXBIZMODEL_LISTS_H
#define QUORIXBIZMODEL_LISTS_H

#include <quorixbizmodel/common/guards.h>

#include <QList>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <ranges>
#include <type_traits>
#include <utility>
#include <vector>

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

/// The entries of a list behind a lock, to be walked without it. Null entries, which a document may leave in a list of
/// the model, aren't among them.
template <class List>
[[nodiscard]] auto presentEntries(QReadWriteLock &lock, const List &list) {
    std::vector<typename List::value_type> entries;
    const ReadGuard guard(lock);
    entries.reserve(list.size());
    std::copy_if(list.begin(), list.end(), std::back_inserter(entries),
                 [](const auto &entry) { return entry != nullptr; });
    return entries;
}

/// Weak references to them.
template <class List>
[[nodiscard]] auto weakReferences(QReadWriteLock &lock, const List &list) {
    return weakReferences(presentEntries(lock, list));
}

/// Shared references to what is alive of a list of weak ones, in its order.
template <class T>
[[nodiscard]] QList<std::shared_ptr<T>> livingReferences(const QList<std::weak_ptr<T>> &list) {
    QList<std::shared_ptr<T>> living;
    living.reserve(list.size());
    for (const auto &reference : list)
        if (auto object = reference.lock())
            living.append(std::move(object));
    return living;
}

/// The first entry that @p matches accepts, or an empty reference. Null entries are passed over.
template <class List, class Predicate>
[[nodiscard]] typename List::value_type findFirst(const List &list, Predicate matches) {
    const auto found = std::find_if(
        list.begin(), list.end(), [&](const auto &entry) { return entry != nullptr && std::invoke(matches, *entry); });
    return found == list.end() ? typename List::value_type{} : *found;
}

/// True if both references are of one object, also of one that has gone. No reference is taken: asked under a lock,
/// this can't be where the last one ends.
template <class Left, class Right>
[[nodiscard]] bool isSameObject(const Left &left, const Right &right) {
    return !left.owner_before(right) && !right.owner_before(left);
}

/// The entry of a list of references that is of the same object as @p reference, or the end.
template <class List, class Reference>
[[nodiscard]] auto findObject(List &list, const Reference &reference) {
    return std::find_if(list.begin(), list.end(), [&](const auto &entry) { return isSameObject(entry, reference); });
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

/// The same with each key read once, for keys that cost a lock, or that another thread may change meanwhile.
template <class List, class Key>
void sortByKeyOnce(List &list, Key key) {
    using Element = typename List::value_type;
    std::vector<std::pair<std::decay_t<std::invoke_result_t<Key &, const Element &>>, Element>> keyed;
    keyed.reserve(static_cast<std::size_t>(list.size()));
    for (auto &entry : list) {
        auto read = std::invoke(key, std::as_const(entry));
        keyed.emplace_back(std::move(read), std::move(entry));
    }
    sortByKey(
        keyed, [](const auto &entry) -> const auto & { return entry.first; });
    std::transform(keyed.begin(), keyed.end(), list.begin(), [](auto &entry) { return std::move(entry.second); });
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
