#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

using ProtoModel::s_InterfaceID;
using ProtoModel::Screen::s_FeatherArray;
using ProtoModel::Screen::s_OutputDetail;
using ProtoModel::Screen::s_OutputDetailArray;
using ProtoModel::Screen::s_ScreenRefOutputPara;

namespace {

/// The place of an output in a mosaic.
template <class Outputs>
auto placeOf(Outputs &outputs, const s_InterfaceID &id) {
    return std::find_if(outputs.begin(), outputs.end(),
                        [&id](const s_OutputDetail &entry) { return entry.interfaceId == id; });
}

std::optional<s_InterfaceID> idOf(const std::weak_ptr<Output> &reference) {
    const auto output = reference.lock();
    return output == nullptr ? std::nullopt : std::optional(output->interfaceFullId());
}

/// The output of a record; null for an id whose parts go beyond 8 bits, since packed it would be another's.
std::shared_ptr<Output> findOutput(Device &device, const s_InterfaceID &id) {
    return Helper::interfaceFullId(id.id()) == id ? device.findOutput(id.id()).lock() : nullptr;
}

} // namespace

template <class Read>
auto Screen::readEntry(const std::optional<s_InterfaceID> &id, Read read) const {
    using Result = std::optional<std::invoke_result_t<Read, const s_OutputDetail &>>;
    const ReadGuard guard(m_detailRWLock);
    const auto &outputs = m_detail.mosaic.outputs;
    const auto entry = id ? placeOf(outputs, *id) : outputs.end();
    return entry == outputs.end() ? Result() : Result(read(*entry));
}

template <class Change>
bool Screen::changeEntry(const std::optional<s_InterfaceID> &id, Change change) {
    const WriteGuard guard(m_detailRWLock);
    auto &outputs = m_detail.mosaic.outputs;
    const auto entry = id ? placeOf(outputs, *id) : outputs.end();
    return entry != outputs.end() && change(*entry);
}

template <class Push>
void Screen::pushToOutputs(Push push) const {
    for (const auto &output : outputList())
        if (output != nullptr)
            push(*output);
}

QRect Screen::areaInMosaic(const s_OutputDetail &output) {
    return Helper::sRect2QRect(
        {{.x = wrappingSum(output.pos.x, output.crop.x), .y = wrappingSum(output.pos.y, output.crop.y)}, output.crop});
}

void Screen::pushPicture(Interface &interface) const {
    interface.setImageQuality(imageQuality());
    interface.setTestPattern(testPattern());
    interface.setHDR(hdr());
}

bool Screen::addOutput(const std::weak_ptr<Output> &output, QPoint pos, bool modifyOutput) {
    const auto device = owerDevice().lock();
    const auto added = output.lock();
    if (device == nullptr || added == nullptr)
        return false;
    s_OutputDetail entry{.interfaceId = added->interfaceFullId(),
                         .pos = Helper::qPoint2SPoint(pos),
                         .crop = {},
                         .feather = defultOutputFeatherArr()};
    if (isExistOutput(entry.interfaceId))
        return false;
    const bool isFirst = !Screen::isComplete();
    if (isFirst) {
        const auto reference = referenceOf(*added);
        const WriteGuard guard(m_detailRWLock);
        m_detail.mosaic.refOutputPara = reference;
    }
    if (modifyOutput) {
        const auto push = [&, reference = screenRefOutputPara()](Interface &interface) {
            pushPicture(interface);
            if (!isFirst)
                pushReference(interface, reference);
        };
        push(*added);
        if (const auto twin = device->findCopyInterface(entry.interfaceId).lock())
            push(*twin);
    }
    // The frame that the push has left.
    static_cast<ProtoModel::s_Size &>(entry.crop) = Helper::qSize2Size(added->presetFrameRate());
    {
        // Looked for again: a slot of the pushes may have added the output.
        const WriteGuard guard(m_detailRWLock);
        auto &outputs = m_detail.mosaic.outputs;
        if (placeOf(outputs, entry.interfaceId) != outputs.end())
            return false;
        outputs.push_back(std::move(entry));
    }
    updateScreenMosaicWindowRectAfterModifyOutput();
    qDebug() << "OutputAdded.";
    Q_EMIT signalOutputAdded(output);
    return true;
}

bool Screen::removeOutput(const std::weak_ptr<Output> &output) {
    const auto removed = output.lock();
    if (removed == nullptr)
        return false;
    const auto id = removed->interfaceFullId();
    {
        const WriteGuard guard(m_detailRWLock);
        auto &outputs = m_detail.mosaic.outputs;
        const auto entry = placeOf(outputs, id);
        if (entry == outputs.end())
            return false;
        outputs.erase(entry);
    }
    removed->resetParamAfterRemovedByScreen();
    updateScreenMosaicWindowRectAfterModifyOutput();
    qDebug() << "OutputRemoved :" << removed->name();
    Q_EMIT signalOutputRemoved(output);
    return true;
}

bool Screen::switchOutput(const std::weak_ptr<Output> &oldOutput, const std::weak_ptr<Output> &newOutput,
                          bool modifyOutput) {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return false;
    const auto removed = oldOutput.lock();
    const auto added = newOutput.lock();
    const auto refused = [](const char *reason) {
        qWarning() << reason;
        return false;
    };
    if (added == nullptr)
        return refused("Switch output error: new output is null");
    if (removed == nullptr)
        return refused("Switch output error: old output is null");
    const auto id = added->interfaceFullId();
    const bool isReplaced = changeEntry(removed->interfaceFullId(), [&id](s_OutputDetail &entry) {
        entry.interfaceId = id;
        return true;
    });
    if (!isReplaced)
        return refused("Switch output error: old output is not found");
    if (modifyOutput) {
        const auto push = [this, reference = referenceOf(*removed)](Interface &interface) {
            pushReference(interface, reference);
            pushPicture(interface);
        };
        push(*added);
        if (const auto twin = device->findCopyInterface(id).lock())
            push(*twin);
        removed->resetParamAfterRemovedByScreen();
    }
    qDebug() << "OutputRemoved :" << removed->name();
    Q_EMIT signalOutputRemoved(oldOutput);
    Q_EMIT signalOutputAdded(newOutput);
    return true;
}

bool Screen::updateOutputs(const QList<QPair<std::weak_ptr<Output>, QPoint>> &outputs, QPair<int, int> grid) {
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.mosaic.outputs.clear();
    }
    if (outputs.isEmpty() || outputs.first().first.expired())
        return false;
    setGrid(grid, false);
    for (const auto &[output, pos] : outputs) {
        addOutput(output, pos, true);
        setOutputsPos(output, pos, QString());
    }
    qDebug() << "emit gridChanged signal.";
    Q_EMIT signalGridChanged();
    return true;
}

std::vector<std::shared_ptr<Output>> Screen::outputList() const {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return {};
    std::vector<s_InterfaceID> ids;
    {
        const ReadGuard guard(m_detailRWLock);
        for (const auto &entry : m_detail.mosaic.outputs)
            ids.push_back(entry.interfaceId);
    }
    std::vector<std::shared_ptr<Output>> outputs;
    outputs.reserve(ids.size());
    for (const auto &id : ids)
        outputs.push_back(findOutput(*device, id));
    return outputs;
}

QList<std::weak_ptr<Output>> Screen::outputs() const { return weakReferences(outputList()); }

s_OutputDetailArray Screen::outputDetailArry() const { return copyOf(m_detailRWLock, m_detail.mosaic.outputs); }

bool Screen::isExistOutput(const s_InterfaceID &id) const {
    return readEntry(id, [](const s_OutputDetail &) { return true; }).has_value();
}

std::weak_ptr<Output> Screen::output(const s_InterfaceID &id) const {
    const auto device = owerDevice().lock();
    return device != nullptr && isExistOutput(id) ? findOutput(*device, id) : nullptr;
}

QPoint Screen::pos(const std::weak_ptr<Output> &output) const {
    const auto pos = readEntry(idOf(output), [](const s_OutputDetail &entry) { return entry.pos; });
    return Helper::sPoint2QPoint(pos.value_or(ProtoModel::s_Pos()));
}

QRectF Screen::mosaicRect(const std::weak_ptr<Output> &output) const {
    const auto rect = readEntry(idOf(output), [](const s_OutputDetail &entry) {
        return QRectF(static_cast<double>(entry.pos.x) + entry.crop.x, static_cast<double>(entry.pos.y) + entry.crop.y,
                      entry.crop.width, entry.crop.height);
    });
    return rect.value_or(QRectF());
}

void Screen::setOutputsPos(const std::weak_ptr<Output> &output, const QPoint &pos, const QString &senderName) {
    qDebug() << "emit outputPos changed signal.";
    const auto isMoved = [pos = Helper::qPoint2SPoint(pos)](s_OutputDetail &entry) { return assign(entry.pos, pos); };
    if (!changeEntry(idOf(output), isMoved))
        return;
    Q_EMIT signalOutputPosChanged(output, senderName);
    updateScreenMosaicWindowRectAfterModifyOutput();
}

QRect Screen::outputAOI(const s_InterfaceID &id) const {
    const auto area = readEntry(id, [](const s_OutputDetail &entry) { return Helper::sRect2QRect(entry.crop); });
    return area.value_or(QRect());
}

void Screen::setOutputAOI(const QList<QPair<std::weak_ptr<Output>, QRect>> &areas) {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return;
    for (const auto &[reference, area] : areas) {
        const auto id = idOf(reference);
        const auto isChanged = [crop = Helper::qRect2SRect(area)](s_OutputDetail &entry) {
            return assign(entry.crop, crop);
        };
        if (!changeEntry(id, isChanged))
            continue;
        const std::weak_ptr<Output> output = findOutput(*device, *id);
        Q_EMIT signalOutputAOIChanged(output);
        Q_EMIT signalOutputPosChanged(output, QString());
        updateScreenMosaicWindowRectAfterModifyOutput();
    }
}

bool Screen::outputFeathers(const std::weak_ptr<Output> &output, s_FeatherArray &feathers) const {
    auto found = readEntry(idOf(output), [](const s_OutputDetail &entry) { return entry.feather; });
    if (found)
        feathers = std::move(*found);
    return found.has_value();
}

s_FeatherArray Screen::outputFeatherArr(const std::weak_ptr<Output> &output) const {
    s_FeatherArray feathers;
    outputFeathers(output, feathers);
    return feathers;
}

void Screen::setOutputFeathers(const std::weak_ptr<Output> &output, const s_FeatherArray &feathers,
                               const QString &senderName) {
    const auto store = [&feathers](s_OutputDetail &entry) {
        entry.feather = feathers;
        return true;
    };
    if (!changeEntry(idOf(output), store))
        return;
    qDebug() << "Set output Feathers.";
    Q_EMIT signalOutputBorderFuseChanged(output, senderName);
}

void Screen::setOutputsFeather(const std::weak_ptr<Output> &output, const s_FeatherArray &feathers,
                               const QString &senderName) {
    const std::size_t edges = 4;
    if (owerDevice().expired() || feathers.size() != edges)
        return;
    const auto isChanged = [&feathers](s_OutputDetail &entry) {
        if (entry.feather.size() != edges)
            return false;
        auto given = entry;
        given.feather = feathers;
        if (entry == given)
            return false;
        entry.feather.swap(given.feather);
        return true;
    };
    if (changeEntry(idOf(output), isChanged))
        Q_EMIT signalOutputBorderFuseChanged(output, senderName);
}

s_FeatherArray Screen::defultOutputFeatherArr() {
    using Type = Enum::Screen::FeatherType;
    s_FeatherArray feathers;
    for (const auto type : {Type::Top, Type::Left, Type::Right, Type::Bottom})
        feathers.push_back({.enable = 0,
                            .type = toInt(type),
                            .gamma = Helper::modelGamma2ProtoGamma(Constants::Screen::defaultBorderFuseGamma),
                            .width = Constants::Screen::defaultBorderFuseWidth});
    return feathers;
}

QList<std::weak_ptr<Subcard>> Screen::subCards() const {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return {};
    std::vector<std::shared_ptr<Subcard>> cards;
    for (const auto &output : outputList()) {
        if (output == nullptr)
            continue;
        const auto slot = static_cast<uint8_t>(output->interfaceFullId().slotId);
        if (findFirst(cards, [slot](const Subcard &card) { return card.slotId() == slot; }) != nullptr)
            continue;
        if (auto card = device->slot(slot).lock())
            cards.push_back(std::move(card));
    }
    return weakReferences(cards);
}

s_ScreenRefOutputPara Screen::screenRefOutputPara() const {
    return copyOf(m_detailRWLock, m_detail.mosaic.refOutputPara);
}

Enum::Interface::ConnectorType Screen::screenRefOutputType() const {
    const auto outputs = outputList();
    return outputs.empty() || outputs.front() == nullptr ? Enum::Interface::ConnectorType::INVALID
                                                         : outputs.front()->connectorType();
}

void Screen::setImageQuality(const ProtoModel::s_ImageQualityBody &quality) {
    if (!assign(m_detailRWLock, m_detail.imageQuality, quality))
        return;
    Q_EMIT signalImageQualityChanged();
    pushToOutputs([&quality](Output &output) { output.setImageQuality(quality); });
}

ProtoModel::s_ImageQualityBody Screen::imageQuality() const { return copyOf(m_detailRWLock, m_detail.imageQuality); }

void Screen::setTestPattern(const ProtoModel::s_TestPatternBody &pattern) {
    if (!assign(m_detailRWLock, m_detail.testPattern, pattern))
        return;
    Q_EMIT signalTestPatternChanged();
    pushToOutputs([&pattern](Output &output) { output.setTestPattern(pattern); });
}

ProtoModel::s_TestPatternBody Screen::testPattern() const { return copyOf(m_detailRWLock, m_detail.testPattern); }

void Screen::setHDR(const ProtoModel::s_HDRBody &hdr) {
    if (assign(m_detailRWLock, m_detail.HDR, hdr))
        pushToOutputs([&hdr](Output &output) { output.setHDR(hdr); });
}

ProtoModel::s_HDRBody Screen::hdr() const { return copyOf(m_detailRWLock, m_detail.HDR); }

void Screen::setPresetColorDepth(Enum::Interface::ColorDepth depth) {
    if (!assign(m_detailRWLock, m_detail.mosaic.refOutputPara.colorDepths.presetColorDepth, toInt(depth)))
        return;
    pushToOutputs([depth](Output &output) {
        auto depths = output.colorDepth();
        depths.presetColorDepth = toInt(depth);
        output.setColorDepth(depths);
    });
}

ProtoModel::s_ColorDepthBody Screen::colorDepth() const {
    return copyOf(m_detailRWLock, m_detail.mosaic.refOutputPara.colorDepths);
}

void Screen::setPresetColorSpace(Enum::Interface::ColorSpace space) {
    if (!assign(m_detailRWLock, m_detail.mosaic.refOutputPara.colorSpaces.presetColorSpace, toInt(space)))
        return;
    pushToOutputs([space](Output &output) {
        auto spaces = output.colorSpace();
        spaces.presetColorSpace = toInt(space);
        output.setColorSpace(spaces);
    });
}

ProtoModel::s_ColorSpaceBody Screen::colorSpace() const {
    return copyOf(m_detailRWLock, m_detail.mosaic.refOutputPara.colorSpaces);
}

} // namespace Quorix::BizModel
