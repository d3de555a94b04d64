#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/enumtools.h>

namespace Quorix::BizModel {

QString Helper::getSlotDescription(Enum::Device::Type type, int position, bool mvrEnabled) {
    const auto *const config = DeviceConfigManager::instance()->findDeviceConfigByID(static_cast<quint16>(toInt(type)));
    const QString label = config != nullptr ? slotLabel(*config, position, mvrEnabled) : QString();
    return label.isEmpty() ? QStringLiteral("N/A") : label;
}

QString Helper::slotLabel(const s_DeviceConfig &config, int position, bool mvrEnabled) {
    const auto isWithin = [position](int start, int count) { return position >= start && position < start + count; };
    if (isWithin(config.InputSlotStartIndex, config.InputSlotCount))
        return QStringLiteral("In%1").arg(position - config.InputSlotStartIndex + 1);
    if (isWithin(config.OutputSlotStartIndex, config.OutputSlotCount)) {
        if (mvrEnabled && isWithin(config.MVRScreensCfg.StartSlotIndex, config.MVRScreensCfg.SlotCount))
            return QStringLiteral("MVR");
        return QStringLiteral("Out%1").arg(position - config.OutputSlotStartIndex + 1);
    }
    return isWithin(config.ExpSlotStartIndex, config.ExpSlotCount) ? QStringLiteral("Exp") : QString();
}

} // namespace Quorix::BizModel
