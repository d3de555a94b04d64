#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/crop.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer_p.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>

#include <QDebug>

#include <utility>

namespace Quorix::BizModel {

using ProtoModel::s_Rect;
using ProtoModel::Layer::s_LayerSource;
using ProtoModel::Layer::s_LayerSourceBody;
using ProtoModel::Layer::s_LayerSourceGeneral;

namespace {

constexpr int kInput = toInt(Enum::Layer::SourceType::Input);

/// The device behind an owner; what is missing on the way is logged.
std::shared_ptr<Device> deviceOf(const std::weak_ptr<Screen> &owner) {
    const auto screen = owner.lock();
    if (screen == nullptr) {
        qWarning() << "screen is nullptr.";
        return nullptr;
    }
    auto device = screen->owerDevice().lock();
    if (device == nullptr)
        qWarning() << "device is nullptr.";
    return device;
}

/// The same interface if it is an input, else null.
std::shared_ptr<Interface> asInput(const std::weak_ptr<Interface> &reference) {
    auto interface = reference.lock();
    return interface != nullptr && interface->type() == toInt(Enum::Interface::InterfaceType::Input) ? interface : nullptr;
}

} // namespace

bool Layer::souceCropRatio(Crop &crop) const { return souceCropRatio(sourceInput(), crop); }

bool Layer::souceCropRatio(const std::weak_ptr<Input> &input, Crop &crop) const {
    const auto shown = input.lock();
    if (shown == nullptr)
        return false;
    const s_LayerSourceGeneral source{kInput, shown->interfaceId()};
    const ReadGuard guard(m_detailRWLock);
    const auto *entry = cropEntry(m_detail.source.crop, source);
    if (entry != nullptr)
        crop = *entry;
    return entry != nullptr;
}

bool Layer::souceCropEnable() const { return souceCropEnable(sourceInput()); }

bool Layer::souceCropEnable(const std::weak_ptr<Input> &input) const {
    Crop crop;
    return souceCropRatio(input, crop) && Helper::int2Bool(crop.enable);
}

QRect Layer::souceCropRect() const { return souceCropRect(sourceInput()); }

QRect Layer::souceCropRect(const std::weak_ptr<Input> &input) const {
    Crop crop;
    return souceCropRatio(input, crop) ? Helper::sRect2QRect(crop) : QRect();
}

QRect Layer::cropRectOfLayer() const {
    const auto input = sourceInput();
    if (input == nullptr)
        return {};
    if (souceCropEnable(input))
        return souceCropRect(input);
    const SourceType type = sourceType();
    return type == SourceType::Input || type == SourceType::NoSource ? input->validRectUnderCrop() : QRect();
}

bool Layer::setSourceCropRatio(const s_LayerSource &source) { return setSourceCropRatio(source.source); }

bool Layer::setSourceCropRatio(const s_LayerSourceBody &source) {
    if (assign(m_detailRWLock, m_detail.source.crop, source.crop))
        Q_EMIT signalSourceCropChanged({});
    return true;
}

bool Layer::setSouceCrop(const Crop &crop) {
    {
        const WriteGuard guard(m_detailRWLock);
        auto &crops = m_detail.source.crop;
        if (auto *entry = cropEntry(crops, {crop.type, crop.id}))
            *entry = crop;
        else
            crops.push_back(crop);
    }
    Q_EMIT signalSourceCropChanged({});
    return true;
}

bool Layer::setSourceCropRect(const QRect &cropRect, const QString &senderName) {
    const auto input = sourceInput();
    if (input == nullptr)
        return false;
    const QSize frame = input->validSizeUnderActive();
    const s_Rect rect = Helper::qRect2SRect(cropRect);
    {
        const WriteGuard guard(m_detailRWLock);
        auto &[general, crops] = m_detail.source;
        auto *entry = cropEntry(crops, general);
        if (entry != nullptr && static_cast<const s_Rect &>(*entry) == rect)
            return true;
        if (entry == nullptr)
            entry = &crops.emplace_back(newCropEntry(general));
        placeCrop(*entry, cropRect, frame, QRect());
    }
    Q_EMIT signalSourceCropChanged(senderName);
    return true;
}

void Layer::setLayerCrop() {
    const auto device = deviceOf(ownerScreen());
    if (device == nullptr)
        return;
    // On a copy: the inputs are asked with no lock held.
    auto crops = copyOf(m_detailRWLock, m_detail.source.crop);
    bool isRewritten = false;
    for (auto &crop : crops) {
        if (crop.type != kInput)
            continue;
        const auto input = device->findInput(crop.id).lock();
        if (input == nullptr) {
            qWarning() << "input is nullptr." << crop.id;
            continue;
        }
        fitCrop(crop, input->validSizeUnderActive());
        isRewritten = true;
    }
    if (!isRewritten)
        return;
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.source.crop = std::move(crops);
    }
    Q_EMIT signalSourceCropChanged({});
}

template <class Change>
void Layer::changeInputCrop(uint32_t inputId, Change change) {
    const s_LayerSourceGeneral source{kInput, inputId};
    bool isShown = false;
    {
        const WriteGuard guard(m_detailRWLock);
        auto *entry = cropEntry(m_detail.source.crop, source);
        if (entry == nullptr)
            return;
        change(*entry);
        isShown = m_detail.source.general == source;
    }
    if (isShown)
        Q_EMIT signalSourceCropChanged({});
}

void Layer::updateLayerCropRatio(const uint32_t &inputId, const QSize &size) {
    if (deviceOf(ownerScreen()) != nullptr)
        changeInputCrop(inputId, [&](Crop &crop) { fitCrop(crop, size); });
}

void Layer::updateLayerCropRatio(const std::weak_ptr<Interface> &interface) {
    if (const auto input = asInput(interface))
        updateLayerCropRatio(input->interfaceId(), input->validSizeUnderActive());
}

void Layer::resetLayerCropRatio(const std::weak_ptr<Interface> &interface) {
    const auto input = asInput(interface);
    if (input == nullptr)
        return;
    const Crop own = input->cropDetailBody();
    changeInputCrop(input->interfaceId(), [&](Crop &crop) { takeCrop(crop, own); });
}

} // namespace Quorix::BizModel
