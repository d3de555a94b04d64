/// What the sources of the device share.
#ifndef QUORIXBIZMODEL_DEVICE_P_H
#define QUORIXBIZMODEL_DEVICE_P_H

#include <quorixbizmodel/topology/interface.h>
#include <quorixprotomodel/device.h>

#include <algorithm>
#include <cstdint>

namespace Quorix::BizModel {

/// The first record with that id, null if there is none. Ids of records come from outside and may be any number.
template <class List, class T>
auto *findRecord(List &list, std::int32_t T::*id, int value) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const T &record) { return record.*id == value; });
    return found == list.end() ? nullptr : &*found;
}

auto *slotRecord(auto &bodies, int slotId) {
    return findRecord(bodies, &ProtoModel::Device::s_subcardBody::slotId, slotId);
}
auto *connectorRecord(auto &body, int id) {
    return findRecord(body.connectors, &ProtoModel::Device::s_Connectors::id, id);
}

/// The record of a connector of a slot, null if there is none.
auto *connectorRecord(auto &bodies, int slotId, int id) {
    auto *body = slotRecord(bodies, slotId);
    return body == nullptr ? nullptr : connectorRecord(*body, id);
}

/// Slot and connector in one number, as the packed ids of interfaces hold them above the split.
constexpr uint32_t placeOf(uint8_t slot, uint8_t connector) {
    return static_cast<uint32_t>(slot) << 8U | static_cast<uint32_t>(connector);
}
inline uint32_t placeOf(const Interface &interface) { return interface.interfaceId() >> 8U; }

inline auto standsAt(uint8_t slot, uint8_t connector) {
    return [place = placeOf(slot, connector)](const Interface &interface) { return placeOf(interface) == place; };
}

} // namespace Quorix::BizModel

#endif
