/// Records of interfaces for tests, and a chassis with an input on a reported card.
#ifndef QUORIX_TESTS_INTERFACES_H
#define QUORIX_TESTS_INTERFACES_H

#include "chassis.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>

namespace Quorix::Tests {

using Detail = ProtoModel::Interface::s_InterfaceDetail;
using Timing = ProtoModel::s_TimingDetailBody;

/// A timing with the porches of 1920 by 1080 pixels; the rest of a record's fields follow from the size.
/// @param refresh hundredths of a hertz
inline Timing fullHd(int refresh = 6000) {
    return {.interlaced = 0,
            .refresh = refresh,
            .horizontal = {.addTime = 1920, .frontPorch = 88, .sync = 44, .syncPolarity = 0, .totalTime = 2200},
            .vertical = {.addTime = 1080, .frontPorch = 4, .sync = 5, .syncPolarity = 0, .totalTime = 1125}};
}

inline Timing ultraHd() {
    return {.interlaced = 0,
            .refresh = 6000,
            .horizontal = {.addTime = 3840, .frontPorch = 176, .sync = 88, .syncPolarity = 0, .totalTime = 4400},
            .vertical = {.addTime = 2160, .frontPorch = 8, .sync = 10, .syncPolarity = 0, .totalTime = 2250}};
}

/// @param type Enum::Interface::InterfaceType
inline Detail detailOf(int slot, int connector, int type = 2) {
    Detail detail;
    detail.interfaceId = {.slotId = slot, .connectorId = connector, .splitId = 0};
    detail.general.type = type;
    return detail;
}

/// The record of an output card in slot 6 with two ports, the second one in hot backup of the first.
inline Body outputCard() {
    return {.slotId = 6,
            .modelId = 30533,
            .boardId = 0,
            .cardType = 3,
            .online = 1,
            .connectors = {{.id = 0, .type = 2, .copyId = kNoCopy, .workMode = 0, .capacityMode = 0},
                           {.id = 1, .type = 2, .copyId = 6U << 16U, .workMode = 1, .capacityMode = 0}}};
}

struct Interfaces : Chassis {
    std::shared_ptr<BizModel::Subcard> card;
    std::shared_ptr<BizModel::Input> input;

    /// An input on the first port of a card in slot 1, asked for 3840 by 2160 pixels; the device is online.
    void SetUp() override {
        Chassis::SetUp();
        device->setDeviceOnlineFlag(true);
        card = reported(singleLinks());
        Detail detail = detailOf(1, 0);
        detail.presetTiming = ultraHd();
        QString error;
        ASSERT_TRUE(device->addInterface(detail, error));
        input = device->findInput(1, 0).lock();
        log.name(input.get(), QStringLiteral("input"));
        log.name(card->connector(0).lock().get(), QStringLiteral("connector"));
        log.take();
    }
};

} // namespace Quorix::Tests

#endif
