#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/crop.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/layers/layer_p.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>

namespace Quorix::BizModel {

using ProtoModel::Layer::s_LayerSource;
using ProtoModel::Layer::s_LayerSourceBody;
using ProtoModel::Layer::s_LayerSourceGeneral;

std::shared_ptr<Screen> screenOfSource(const std::shared_ptr<Device> &device, Enum::Layer::SourceType type,
                                       uint32_t id) {
    using Enum::Layer::SourceType;
    const bool isScene = type == SourceType::PGM || type == SourceType::PVW;
    // A source's number is wider than a screen's: 261 isn't screen 5.
    if (device == nullptr || !isScene || id > Constants::Screen::maxId)
        return nullptr;
    return device->findScreen(Enum::Screen::ScreenType::RegularScreen, static_cast<uint8_t>(id)).lock();
}

std::optional<QString> nameOfSource(const std::shared_ptr<Device> &device, Enum::Layer::SourceType type, uint32_t id) {
    using Enum::Layer::SourceType;
    if (type == SourceType::Input) {
        if (const auto input = device == nullptr ? nullptr : device->findInput(id).lock())
            return input->name();
    } else if (const auto screen = screenOfSource(device, type, id)) {
        return screen->name() + QLatin1String(type == SourceType::PGM ? "-PGM" : "-PVW");
    }
    return std::nullopt;
}

Layer::SourceType Layer::sourceType() const {
    return static_cast<SourceType>(copyOf(m_detailRWLock, m_detail.source.general.type));
}

uint32_t Layer::sourceId() const { return copyOf(m_detailRWLock, m_detail.source.general.id); }
const s_LayerSourceGeneral &Layer::currentLayerSource() const { return m_detail.source.general; }
s_LayerSource Layer::layerSource() const { return {screenLayerId(), copyOf(m_detailRWLock, m_detail.source)}; }

QString Layer::sourceName() const {
    return nameOfSource(ownerDevice(), sourceType(), sourceId()).value_or(QStringLiteral("N/A"));
}

QRect Layer::sourceRectOfInput() const {
    const SourceType type = sourceType();
    const auto input = type == SourceType::Input || type == SourceType::NoSource ? sourceInput() : nullptr;
    return input == nullptr ? QRect() : frameRect(input->validSizeUnderActive());
}

QSize Layer::sourceValidSize() const {
    if (sourceType() == SourceType::Input) {
        if (const auto input = sourceInput())
            return input->validSizeUnderActive();
    } else if (const auto screen = sourceScreen()) {
        return screen->mosaicWindowSize();
    }
    return {};
}

bool Layer::sourceCutoutEnable() const {
    const auto input = sourceInput();
    return input != nullptr && input->cutoutEnable();
}

bool Layer::setSource(const s_LayerSourceGeneral &source) {
    const auto device = ownerDevice();
    if (device == nullptr || !assign(m_detailRWLock, m_detail.source.general, source))
        return false;
    updataCapacity();
    updataWindowRectAfterSwitchLogoSource();
    Crop entry = newCropEntry(source);
    // Asked for any kind of source: only the number counts.
    if (const auto input = device->findInput(source.id).lock())
        takeCrop(entry, input->cropDetailBody());
    {
        const WriteGuard guard(m_detailRWLock);
        auto &crops = m_detail.source.crop;
        if (cropEntry(crops, source) == nullptr)
            crops.push_back(entry);
    }
    Q_EMIT signalSourceInfoChanged();
    return true;
}

bool Layer::setSource(const s_LayerSource &source) {
    if (assign(m_detailRWLock, m_detail.source.general, source.source.general)) {
        updataCapacity();
        updataWindowRectAfterSwitchLogoSource();
        Q_EMIT signalSourceInfoChanged();
    }
    return setSourceCropRatio(source.source);
}

bool Layer::setSource(const s_LayerSourceBody &source) {
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.source = source;
    }
    updataCapacity();
    updataWindowRectAfterSwitchLogoSource();
    Q_EMIT signalSourceInfoChanged();
    Q_EMIT signalSourceCropChanged({});
    return true;
}

s_LayerSource Layer::constructSourceStruct(uint32_t sourceId, int sourceType) const {
    if (ownerScreen().expired())
        return {};
    s_LayerSource proposed = layerSource();
    auto &[general, crops] = proposed.source;
    general = {sourceType, sourceId};
    if (sourceType != toInt(SourceType::Input) || cropEntry(crops, general) != nullptr)
        return proposed;
    const auto device = ownerDevice();
    const auto input = device == nullptr ? nullptr : device->findInput(sourceId).lock();
    if (input != nullptr) {
        // The picture of the input as it is cropped there, the ratios of the whole.
        Crop entry = newCropEntry(general);
        static_cast<ProtoModel::s_Rect &>(entry) = Helper::qRect2SRect(input->validRectUnderCrop());
        crops.push_back(entry);
    }
    return proposed;
}

s_LayerSource Layer::constructSourceStruct(const std::weak_ptr<Input> &input) const {
    const auto proposed = input.lock();
    return proposed == nullptr ? s_LayerSource{}
                               : constructSourceStruct(proposed->interfaceId(), toInt(SourceType::Input));
}

void Layer::updataWindowRectAfterSwitchLogoSource() {
    auto [source, window] = copiesOf(m_detailRWLock, m_detail.source.general, m_detail.window);
    const auto device = ownerDevice();
    if (device == nullptr || source.type != toInt(SourceType::LOGO) || source.id > Constants::File::maxId)
        return;
    const auto logo = device->findLOGO(static_cast<uint8_t>(source.id)).lock();
    if (logo == nullptr)
        return;
    static_cast<ProtoModel::s_Size &>(window) = Helper::qSize2Size(logo->size());
    setWindowRect(Helper::sRect2QRect(window), {}, true);
}

} // namespace Quorix::BizModel
