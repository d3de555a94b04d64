/// Records of interfaces for tests, and a chassis with an input on a reported card.
#ifndef QUORIX_TESTS_INTERFACES_H
#define QUORIX_TESTS_INTERFACES_H

#include "chassis.h"

#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>

#include <functional>

namespace Quorix::Tests {

using Detail = ProtoModel::Interface::s_InterfaceDetail;
using Timing = ProtoModel::s_TimingDetailBody;

/// Active, front porch, sync, polarity and total of both directions.
/// @param refresh hundredths of a hertz
inline Timing fullHd(int refresh = 6000) { return {0, refresh, {1920, 88, 44, 0, 2200}, {1080, 4, 5, 0, 1125}}; }

inline Timing ultraHd() { return {0, 6000, {3840, 176, 88, 0, 4400}, {2160, 8, 10, 0, 2250}}; }

/// @param type Enum::Interface::InterfaceType
inline Detail detailOf(int slot, int connector, int type = 2) {
    Detail detail;
    detail.interfaceId = {.slotId = slot, .connectorId = connector, .splitId = 0};
    detail.general.type = type;
    return detail;
}

/// The record of an output card in slot 6 with two ports, the second one in hot backup of the first.
inline Body outputCard() {
    Body body{.slotId = 6, .modelId = 30533, .cardType = 3, .connectors = {{.id = 0, .type = 2}}};
    body.connectors.push_back({.id = 1, .type = 2, .copyId = 6U << 16U, .workMode = 1});
    return body;
}

/// Puts an interface into a device as a report does.
inline std::shared_ptr<Interface> addedInterface(Device &device, const Detail &detail) {
    QString error;
    EXPECT_TRUE(device.addInterface(detail, error)) << error.toStdString();
    return device.findInterface(detail.interfaceId).lock();
}

/// A setter and its arguments, as an entry of a table.
template <class T, class... Parameter>
std::function<void(T &)> call(void (T::*setter)(Parameter...),
                              std::type_identity_t<std::decay_t<Parameter>>... arguments) {
    return [=](T &object) { std::invoke(setter, object, arguments...); };
}

struct Interfaces : Chassis {
    std::shared_ptr<Subcard> card;
    std::shared_ptr<Input> input;

    /// An input on the first port of a card in slot 1, asked for 3840 by 2160 pixels; the device is online.
    void SetUp() override {
        Chassis::SetUp();
        device->setDeviceOnlineFlag(true);
        card = reported(singleLinks());
        Detail detail = detailOf(1, 0);
        detail.presetTiming = ultraHd();
        addedInterface(*device, detail);
        input = device->findInput(1, 0).lock();
        log.name(input.get(), QStringLiteral("input"));
        log.name(card->connector(0).lock().get(), QStringLiteral("connector"));
        log.take();
    }
};

} // namespace Quorix::Tests

#endif
