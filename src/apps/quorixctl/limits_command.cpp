#include "command.h"
#include "mode.h"
#include "table.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
namespace Records = Quorix::ProtoModel;

struct Place {
    quint16 modelId;
    quint8 slot;
};

/// A chassis and a slot that take the card: the first of the deployment.
std::optional<Place> findPlace(quint16 card) {
    for (const DeviceConfig &config : DeviceConfigManager::instance()->DeviceConfigs()) {
        const std::pair<QList<s_SubCardConfig>, quint8> ranges[] = {{config.InputCards(), config.InputSlotStartIndex},
                                                                    {config.OutputCards(), config.OutputSlotStartIndex},
                                                                    {config.ExpCards(), config.ExpSlotStartIndex}};
        for (const auto &[cards, slot] : ranges)
            if (std::any_of(cards.begin(), cards.end(), [&](const auto &entry) { return entry.m_ModelID == card; }))
                return Place{config.ModelID, slot};
    }
    return std::nullopt;
}

/// The rates that pass in one row, and the words of the first refusal in another.
std::pair<QStringList, QString> judge(Interface &interface, const QSize &size) {
    QStringList passed;
    QString refusal;
    for (const float rate : Constants::Interface::allRefreshList) {
        Records::s_TimingDetailBody timing;
        Helper::calcTimingbyModel(&timing, size.width(), size.height(), rate);
        QString error;
        if (!interface.isBandwidthExceeded(timing.horizontal.totalTime, timing.vertical.totalTime, rate,
                                           Enum::Interface::ColorSpace::AUTO, Enum::Interface::ColorDepth::_255_,
                                           error))
            passed << QString::number(static_cast<double>(rate), 'g', 5);
        else if (refusal.isEmpty())
            refusal = error;
    }
    return {passed, refusal};
}

/// Puts one connector on the card and asks the interface behind it.
void addRow(Table &table, const std::shared_ptr<Device> &device, const Place &place, quint16 card, const QSize &size,
            const Records::Device::s_Connectors &connector) {
    Records::Device::s_subcardBody body;
    body.slotId = place.slot;
    body.modelId = card;
    body.cardType = toInt(device->cardType(place.slot, card));
    body.connectors = {connector};
    device->initProtoConnector(body);
    device->initModelConnector(body);
    const auto position = static_cast<uint8_t>(connector.id);
    const bool isInput = body.cardType == toInt(Enum::Device::CardType::_INPUT);
    const std::shared_ptr<Interface> interface =
        isInput ? std::shared_ptr<Interface>(std::make_shared<Input>(device, place.slot, position))
                : std::make_shared<Output>(device, place.slot, position);
    const auto [passed, refusal] = judge(*interface, size);
    table.addRow({connectorTypeName(static_cast<Enum::Interface::ConnectorType>(connector.type)),
                  Helper::interfaceCapacityString(static_cast<Enum::Interface::CapacityMode>(connector.capacityMode)),
                  passed.isEmpty() ? QStringLiteral("none") : passed.join(QLatin1Char(' ')), refusal});
}

} // namespace

void addLimitsOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("size"), QStringLiteral("Pixels and lines (default: 1920x1080)."),
                      QStringLiteral("WxH"), QStringLiteral("1920x1080")});
}

void runLimits(const Invocation &call) {
    bool isNumber = false;
    const quint16 id = call.arguments[0].toUShort(&isNumber);
    if (!isNumber)
        throw UsageError(QStringLiteral("not a card model id: %1").arg(call.arguments[0]));
    const Mode mode = parseMode(call.options.value(QStringLiteral("size")) + QStringLiteral("@60"));
    readCapabilities(call.dataDirectory);
    const std::optional<Place> place = findPlace(id);
    if (!place)
        throw Failure(QStringLiteral("no chassis of %1 takes a card %2").arg(call.dataDirectory).arg(id));

    const auto device = std::make_shared<Device>(place->modelId);
    Table table({QStringLiteral("type"), QStringLiteral("capacity"), QStringLiteral("rates that pass, in Hz"),
                 QStringLiteral("first refusal")});
    std::set<std::pair<int, int>> seen;
    for (const InterfaceConfig::s_CapacityGroup &group : InterfaceConfig::instance()->getCapacityGroup(id))
        for (const InterfaceConfig::s_Capacity &capacity : group.Capacitys)
            for (const InterfaceConfig::s_ConnectorGroup &connectors : capacity.ConnectorGroups)
                for (const InterfaceConfig::CardConnector &entry : connectors.CardConnectors)
                    if (seen.insert({entry.Connector.type, entry.Connector.capacityMode}).second)
                        addRow(table, device, *place, id, {mode.width, mode.height}, entry.Connector);
    call.out << "card " << id << " in slot " << place->slot << " of chassis " << place->modelId << ", " << mode.width
             << 'x' << mode.height << ", RGB 4:4:4, 8 bit\n";
    table.print(call.out, 2);
}

} // namespace quorixctl
