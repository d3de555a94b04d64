/// A device of the sample deployment with its capability files: input slots 0 to 5, output slots 6 to 11, expansion
/// slots 12 and 13, and slot 14 in no range.
#ifndef QUORIX_TESTS_CHASSIS_H
#define QUORIX_TESTS_CHASSIS_H

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/topology/subcard.h>
#include <support/builders.h>

namespace Quorix::Tests {

using namespace BizModel;
using namespace Enum::Device;
using namespace Enum::Interface;
using namespace Enum::Layer;
using namespace Enum::Screen;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Body = ProtoModel::Device::s_subcardBody;
using Record = ProtoModel::Device::s_Connectors;

constexpr quint16 kChassis = 29953;
constexpr quint16 kQuadDvi = 30464; ///< single link; dual link with two connector groups
constexpr quint16 kQuad4k = 30469;  ///< each port single link, dual link or 4K, in a capacity group of its own
constexpr quint16 kAuxCard = 30600;
constexpr std::uint32_t kNoCopy = 268435455;

struct Chassis : testing::Test {
    static void SetUpTestSuite() {
        DeviceConfigManager::destroyInstance();
        InterfaceConfig::destroyInstance();
        QString error;
        ASSERT_TRUE(DeviceConfigManager::instance()->readConfig(QUORIX_DATA_DIR "/devices", error));
        ASSERT_TRUE(InterfaceConfig::instance()->readConfig(QUORIX_DATA_DIR "/QuorixInterfaceCfg.xml", error));
    }

    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice({}, kChassis);
    EventLog log{DeviceList::instance()};

    void SetUp() override { log.name(device.get(), QStringLiteral("device")); }

    /// Everything heard, in one line: "signalX(device, card)" as "X(card)".
    QString heard() { return log.take().join(' ').remove("signal").remove("device, "); }

    /// Record and card of an input slot, as a report brings them.
    std::shared_ptr<Subcard> reported(const Body &body) {
        device->initProtoConnector(body);
        device->initModelConnector(body);
        auto card = device->slot(static_cast<uint8_t>(body.slotId)).lock();
        log.name(card.get(), QStringLiteral("card"));
        return card;
    }
};

/// A 4K input card in slot 1 with single links at the first @p count positions.
inline Body singleLinks(int count = 4) {
    Body body{.slotId = 1, .modelId = kQuad4k, .boardId = 6, .cardType = 2, .connectors = {}};
    for (int id = 0; id < count; ++id)
        body.connectors.push_back({.id = id, .type = 5, .copyId = kNoCopy});
    return body;
}

/// The same card with one 4K link.
inline Body oneBig() {
    Body body = singleLinks(1);
    body.connectors.front() = {0, 5, 65536, 1, 2};
    return body;
}

} // namespace Quorix::Tests

#endif
