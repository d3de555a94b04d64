/// How the objects inside a device join their own signals to the hub: one row for each signal, checked at compile time.
#ifndef QUORIXBIZMODEL_RELAY_H
#define QUORIXBIZMODEL_RELAY_H

#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <algorithm>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace Quorix::BizModel {

/// A member of each object that joins relays: what it has joined, and for which owners. Not thread safe: an object
/// joins its relays on one thread at a time.
class RelaySet {
public:
    /// True if the relays for @p owners are to be joined now; those for other owners are undone first. False if they
    /// are joined already. Owners are told apart by object, also after their end.
    [[nodiscard]] bool renew(std::vector<std::weak_ptr<const void>> owners) {
        if (m_isJoined && std::equal(m_owners.begin(), m_owners.end(), owners.begin(), owners.end(),
                                     [](const auto &left, const auto &right) { return isSameObject(left, right); }))
            return false;
        for (const auto &connection : std::exchange(m_connections, {}))
            QObject::disconnect(connection);
        m_owners = std::move(owners);
        m_isJoined = true;
        return true;
    }

    void add(QMetaObject::Connection connection) { m_connections.push_back(std::move(connection)); }

private:
    bool m_isJoined = false;
    std::vector<std::weak_ptr<const void>> m_owners;
    std::vector<QMetaObject::Connection> m_connections;
};

/// Repeats signals of @p Source on the hub with its owners in front, the source itself being the last of them:
///
///     const Relay join(this, m_relays, device, screen, weak_from_this());
///     join(&Layer::signalZOrderChanged, &DeviceList::signalLayerZorderChanged);
///
/// The owners are captured as weak references: a shared one in a connection would keep the source alive for ever. A
/// relay runs at once on the thread that emits, whichever that is. Joining a second time for the same owners does
/// nothing, for others it replaces what was joined.
template <class Source, class... Owner>
class Relay {
public:
    Relay(const Source *source, RelaySet &relays, std::weak_ptr<Owner>... owners)
        : m_source(source),
          m_relays(relays),
          m_owners(std::move(owners)...),
          m_isNew(std::apply([&](const auto &...owner) { return relays.renew({owner...}); }, m_owners)) {}

    /// One row: the hub signal takes the owners, then the arguments of the source's signal.
    template <class From, class... A, class... H>
    void operator()(void (From::*from)(A...), void (DeviceList::*to)(H...)) const {
        static_assert(
            std::is_same_v<std::tuple<std::decay_t<H>...>, std::tuple<std::weak_ptr<Owner>..., std::decay_t<A>...>>,
            "a hub signal takes the owners, then the source's own arguments");
        call(from, [to, hub = DeviceList::instance()](const auto &...arguments) { Q_EMIT(hub->*to)(arguments...); });
    }

    /// A row that does more than repeat: @p action is called with the owners, then the arguments of the signal.
    template <class From, class... A, class Action>
    void call(void (From::*from)(A...), Action action) const {
        if (!m_isNew)
            return;
        m_relays.add(QObject::connect(m_source, from, [owners = m_owners, action](const std::decay_t<A> &...arguments) {
            std::apply([&](const auto &...owner) { action(owner..., arguments...); }, owners);
        }));
    }

private:
    const Source *m_source;
    RelaySet &m_relays;
    std::tuple<std::weak_ptr<Owner>...> m_owners;
    bool m_isNew;
};

} // namespace Quorix::BizModel

#endif
