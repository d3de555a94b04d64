#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/device/device_files_p.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/screens/screen.h>

#include <QDebug>
#include <QStringList>

#include <algorithm>

namespace Quorix::BizModel {

bool Device::addPreset(const std::weak_ptr<File> &file) {
    const auto preset = std::dynamic_pointer_cast<Preset>(file.lock());
    if (preset == nullptr) {
        qWarning() << "Device add preset has failed!The preset is null.";
        return false;
    }
    if (!appendOnce(m_presetsRWLock, m_presets, preset, weak_from_this())) {
        qWarning() << "Device add preset has failed!The preset is exists."
                   << " id" << preset->fileId() << " name=" << preset->name();
        return false;
    }
    Q_EMIT signalPresetAdded(preset);
    return true;
}

bool Device::removePreset(const std::weak_ptr<File> &file) {
    const auto taken = takeFile(m_presetsRWLock, m_presets, file);
    if (taken.file == nullptr)
        return false;
    Q_EMIT signalPresetRemoved(taken.file);
    if (taken.isLast)
        Q_EMIT signalPresetCleared();
    return true;
}

void Device::clearPreset() {
    emptyList(m_presetsRWLock, m_presets);
    Q_EMIT signalPresetCleared();
}

QList<std::weak_ptr<File>> Device::presets() { return files(toInt(Enum::File::FileType::PresetPVW)); }

std::weak_ptr<File> Device::findPreset(const uint16_t &id) {
    return findFirst(copyOf(m_presetsRWLock, m_presets), hasFileId(id));
}

bool Device::containsPreset(const uint16_t &id) { return !findPreset(id).expired(); }

bool Device::containsPreset(const QString &name) { return isFileNameExist(Enum::File::FileType::PresetPVW, name); }

bool Device::isSourceUsedByPreset(const uint32_t &id, Enum::Layer::SourceType type) {
    return findFirst(copyOf(m_presetsRWLock, m_presets),
                     [&](const Preset &preset) { return preset.isSourceUsedByPreset(id, toInt(type)); }) != nullptr;
}

bool Device::editPresetValidityCheck(const QString &strOperTips, QString &errMsg) {
    using Enum::Screen::ScreenType;
    const auto screens = selectedScreen(maskOf(ScreenType::RegularScreen, ScreenType::AUXScreen));
    if (screens.isEmpty()) {
        errMsg = tr("%1.There is no selection screen.Please select the screen to save to the preset!").arg(strOperTips);
        return false;
    }
    QStringList incomplete;
    for (const auto &screen : livingReferences(screens))
        if (!screen->isComplete())
            incomplete += screen->name();
    if (!incomplete.isEmpty())
        errMsg = tr("%1.The following screen splicing is incomplete,%2")
                     .arg(strOperTips, incomplete.join(QStringLiteral(", ")));
    return incomplete.isEmpty();
}

} // namespace Quorix::BizModel
