#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/slotrange.h>
#include <quorixbizmodel/common/enumtools.h>

namespace Quorix::BizModel {

QString Helper::getSlotDescription(Enum::Device::Type type, int position, bool mvrEnabled) {
    const auto *const config = DeviceConfigManager::instance()->findDeviceConfigByID(static_cast<quint16>(toInt(type)));
    const QString label = config != nullptr ? slotLabel(*config, position, mvrEnabled) : QString();
    return label.isEmpty() ? QStringLiteral("N/A") : label;
}

QString Helper::slotLabel(const s_DeviceConfig &config, int position, bool mvrEnabled) {
    const SlotRange inputs{config.InputSlotStartIndex, config.InputSlotCount};
    const SlotRange outputs{config.OutputSlotStartIndex, config.OutputSlotCount};
    const SlotRange multiviewer{config.MVRScreensCfg.StartSlotIndex, config.MVRScreensCfg.SlotCount};
    const SlotRange expansion{config.ExpSlotStartIndex, config.ExpSlotCount};
    if (inputs.contains(position))
        return QStringLiteral("In%1").arg(inputs.place(position));
    if (outputs.contains(position))
        return mvrEnabled && multiviewer.contains(position) ? QStringLiteral("MVR")
                                                            : QStringLiteral("Out%1").arg(outputs.place(position));
    return expansion.contains(position) ? QStringLiteral("Exp") : QString();
}

} // namespace Quorix::BizModel
