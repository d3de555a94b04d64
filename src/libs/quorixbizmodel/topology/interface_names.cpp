#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/capability/slotrange.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/output.h>

#include <QSet>

namespace Quorix::BizModel {

namespace {

const QString kNoName = QStringLiteral("N/A");

} // namespace

QString Interface::name() const { return QString::fromStdString(copyOf(m_detailRWLock, m_detail.general.name)); }

void Interface::setName(const QString &name) {
    if (assign(m_detailRWLock, m_detail.general.name, name.toStdString()))
        Q_EMIT signalInterfaceNameChanged();
}

QString Interface::nextInterfaceName(uint8_t slotId, InterfaceType type) const {
    switch (type) {
    case InterfaceType::AUXOutput:
        return nextAuxInterfaceName();
    case InterfaceType::MainOutput:
        return nextOutputInterfaceName(slotId);
    case InterfaceType::Input:
        return nextInputInterfaceName(slotId);
    default:
        return {};
    }
}

QString Interface::nextInputInterfaceName(uint8_t slotId) const {
    const auto device = owerDevice().lock();
    const auto *config = device == nullptr ? nullptr : device->configRecord();
    if (config == nullptr)
        return kNoName;
    const SlotRange range{config->InputSlotStartIndex, config->InputSlotCount};
    return tr("Input %1-%2").arg(range.place(slotId)).arg(qint64{printKeyNo()} + 1);
}

QString Interface::nextOutputInterfaceName(uint8_t slotId) const {
    const auto device = owerDevice().lock();
    const auto *config = device == nullptr ? nullptr : device->configRecord();
    if (config == nullptr)
        return kNoName;
    const SlotRange range{config->OutputSlotStartIndex, config->OutputSlotCount};
    return tr("Output %1-%2").arg(range.place(slotId)).arg(qint64{printKeyNo()} + 1);
}

QString Interface::nextAuxInterfaceName() const {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return kNoName;
    QSet<QString> taken;
    for (const auto &reference : device->outputs())
        if (const auto output = reference.lock())
            taken.insert(output->name());
    return firstFreeName([](int number) { return tr("AUX %1").arg(number); },
                         [&](const QString &name) { return taken.contains(name); });
}

QString Interface::positionName() const {
    const auto device = owerDevice().lock();
    const auto *config = device == nullptr ? nullptr : device->configRecord();
    if (config == nullptr)
        return kNoName;
    const int slot = interfaceFullId().slotId;
    const SlotRange expansion{config->ExpSlotStartIndex, config->ExpSlotCount};
    const SlotRange input{config->InputSlotStartIndex, config->InputSlotCount};
    const SlotRange output{config->OutputSlotStartIndex, config->OutputSlotCount};
    const bool isMvr = slot == config->MVRScreensCfg.StartSlotIndex && type() == toInt(InterfaceType::MVROutput);
    const bool isExpansion = expansion.contains(slot);
    const bool isInput = !isExpansion && !isMvr && input.contains(slot);
    if (!isExpansion && !isInput && !isMvr && !output.contains(slot))
        return kNoName;
    const qint64 port = qint64{printKeyNo()} + 1; // the file may hold any number
    if (port <= 0)
        return kNoName;
    if (isExpansion)
        return QStringLiteral("EXP-%1").arg(port);
    if (isInput)
        return QStringLiteral("In%1-%2").arg(input.place(slot)).arg(port);
    return QStringLiteral("Out%1-%2").arg(output.place(slot)).arg(port);
}

} // namespace Quorix::BizModel
