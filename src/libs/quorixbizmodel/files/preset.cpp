#include <quorixbizmodel/files/preset.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/content_p.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>

#include <QDebug>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

using Content = ProtoModel::Preset::s_PresetCreate;
using Enum::Layer::SceneType;

namespace {

SceneType sceneOf(Enum::File::FileType type) {
    using Enum::File::FileType;
    return type == FileType::PresetPGM   ? SceneType::PGM
           : type == FileType::PresetPVW ? SceneType::PVW
                                         : SceneType::Invalid;
}

} // namespace

Preset::Preset() : File(FileType::PresetPVW) {
    m_contents.presetId = 255;
    m_contents.name = m_detail.general.name;
}

Preset::~Preset() = default;

void Preset::setFileId(uint8_t id) {
    const QString name = tr("Preset %1").arg(id);
    std::ignore = assign(m_detailRWLock, m_contents.name, name.toStdString());
    setName(name);
    File::setFileId(id);
    std::ignore = assign(m_detailRWLock, m_contents.presetId, id);
}

bool Preset::initModelData(const Detail &fileDetail, QString &errMsg) {
    const bool isTaken = File::initModelData(fileDetail, errMsg);
    const ObjectSignalLocker silence(this);
    std::string error;
    const bool isWhole = isDecoded(m_detailRWLock, m_contents, fileDetail.binaryData, error);
    if (!isWhole)
        errMsg = QStringLiteral("Decode json failed: ") + QString::fromStdString(error);
    initPresetModelData(fileDetail);
    return isWhole && isTaken;
}

void Preset::initPresetModelData(const Detail &fileDetail) {
    const WriteGuard guard(m_detailRWLock);
    m_contents.presetId = static_cast<uint8_t>(fileDetail.fileId);
    m_contents.name = fileDetail.general.name;
}

Content Preset::presetDetail() const { return copyOf(m_detailRWLock, m_contents); }

const ProtoModel::Preset::s_ScreenArry &Preset::screens() const { return m_contents.screens; }

bool Preset::containsAuxScreen() const {
    const ReadGuard guard(m_detailRWLock);
    return std::any_of(m_contents.screens.begin(), m_contents.screens.end(), [](const auto &screen) {
        return screen.screenType == toInt(Enum::Screen::ScreenType::AUXScreen);
    });
}

void Preset::setScreens(const std::vector<ProtoModel::s_ScreenId> &screens, FileType fileType) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "Set preset reguler screens has failed.The owner device is null";
        return;
    }
    Content taken;
    for (const auto &id : screens) {
        const auto screen = device->findScreen(id.screenType, id.screenId).lock();
        if (screen == nullptr)
            continue;
        ProtoModel::Preset::s_Screen entry;
        static_cast<ProtoModel::s_ScreenId &>(entry) = screen->screenIdentity();
        entry.general.name = screen->name().toStdString();
        entry.mosaic = screen->screenMosaic().mosaic;
        taken.screens.push_back(std::move(entry));
        for (const auto &reference : screen->layers(toInt(sceneOf(fileType)), toInt(Layer::LayerType::AllLayerType)))
            if (const auto layer = reference.lock())
                taken.layers.push_back(layer->layerDetail());
    }
    {
        const WriteGuard guard(m_detailRWLock);
        m_contents.screens.swap(taken.screens);
        m_contents.layers.swap(taken.layers);
    }
    Q_EMIT signalFileContentChanged();
}

bool Preset::isSourceUsedByPreset(const uint32_t &id, int sourceType) const {
    if (owerDevice().expired())
        return false;
    const ReadGuard guard(m_detailRWLock);
    return std::any_of(m_contents.layers.begin(), m_contents.layers.end(), [&](const auto &layer) {
        return layer.source.general.id == id && layer.source.general.type == sourceType;
    });
}

bool Preset::isNeedRepaint() const { return copyOf(m_detailRWLock, m_isNeedRepaint); }

void Preset::setIsNeedRepaint(bool isNeeded) { std::ignore = assign(m_detailRWLock, m_isNeedRepaint, isNeeded); }

PresetState Preset::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_contents};
}

} // namespace Quorix::BizModel
