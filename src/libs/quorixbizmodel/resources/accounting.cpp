#include "accounting_p.h"

#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/output.h>

#include <algorithm>

namespace Quorix::BizModel::Accounting {

namespace {

constexpr int kReach = 1 << 26;
/// What `Mix`, the two pictures of a transition, costs against `Single`.
constexpr int kUnitsOfMixStrip = 2;

int bounded(int value) { return std::clamp(value, -kReach, kReach); }

double bounded(double value) { return value != value ? 0.0 : std::clamp<double>(value, -kReach, kReach); }

QRect pixelsOf(const Mosaic &mosaic, const std::shared_ptr<Output> &output) {
    const auto place = std::find_if(mosaic.begin(), mosaic.end(), [&](const Place &p) { return p.output == output; });
    return place == mosaic.end() ? QRect() : place->pixels;
}

} // namespace

QRect bounded(const QRect &rect) {
    const auto size = [](int first, int last) { return bounded(wrappingSum(wrappingDifference(last, first), 1)); };
    return {bounded(rect.left()), bounded(rect.top()), size(rect.left(), rect.right()),
            size(rect.top(), rect.bottom())};
}

QRectF bounded(const QRectF &rect) {
    return {bounded(rect.x()), bounded(rect.y()), bounded(rect.width()), bounded(rect.height())};
}

Mosaic mosaicOf(const Screen &screen) {
    Mosaic mosaic;
    for (const auto &output : ResourceReader::outputs(screen))
        if (output != nullptr) {
            const QRectF rect = bounded(screen.mosaicRect(output));
            mosaic.push_back({output, static_cast<int>(output->interfaceId() >> 16U), rect, rect.toRect()});
        }
    return mosaic;
}

CardPlaces placesOn(const Mosaic &mosaic, int slotId) {
    CardPlaces places;
    for (const Place &place : mosaic)
        if (place.slotId == slotId)
            places.append(&place);
    return places;
}

QVarLengthArray<QRect, 4> stripsOf(const Layer &layer, const QRect &rect, CapacityMode capacity) {
    QVarLengthArray<QRect, 4> strips;
    const int channels = Helper::splitCount(capacity);
    // A single link is one strip whatever it shows: nothing of the source need be read.
    if (channels <= 1) {
        strips.append(bounded(rect));
        return strips;
    }
    for (const QRect &strip : Helper::splitLayerRects(bounded(layer.sourceRectOfInput()), channels,
                                                      bounded(layer.cropRectOfLayer()), bounded(rect)))
        if (!strips.contains(strip))
            strips.append(strip);
    return strips;
}

std::vector<Piece> shownOutputs(const Layer &layer) {
    std::vector<Piece> shown;
    const auto owner = layer.ownerScreen().lock();
    const auto device = owner == nullptr ? nullptr : owner->owerDevice().lock();
    const uint32_t id = layer.sourceId();
    if (device == nullptr || layer.sourceType() != Enum::Layer::SourceType::PGM || id > Constants::Screen::maxId)
        return shown;
    const auto source = device->findScreen(Enum::Screen::ScreenType::RegularScreen, static_cast<uint8_t>(id)).lock();
    if (source == nullptr)
        return shown;

    const Mosaic mosaic = mosaicOf(*source);
    QRect whole;
    for (const Place &place : mosaic)
        whole |= place.pixels;
    const QRect window = bounded(layer.windowRect());
    const double acrossRate = window.width() / static_cast<double>(whole.width());
    const double downRate = window.height() / static_cast<double>(whole.height());
    for (const Place &place : mosaic) {
        const QRectF scaled(window.x() + (place.pixels.x() - whole.x()) * acrossRate,
                            window.y() + (place.pixels.y() - whole.y()) * downRate, place.pixels.width() * acrossRate,
                            place.pixels.height() * downRate);
        shown.push_back({bounded(scaled).toRect(), ResourceCheck::getResOfAUXLayerCapacity(place.output->capacity())});
    }
    return shown;
}

Charge Charge::ofStrips(const Layer &layer, const QRect &rect, LayerMode mode, CapacityMode capacity) {
    Charge charge;
    const int units = mode == LayerMode::Mix ? kUnitsOfMixStrip : 1;
    if (layer.sourceType() == Enum::Layer::SourceType::Empty) {
        charge.m_pieces.append({rect, units});
        return charge;
    }
    charge.m_rule = Rule::Strips;
    for (const QRect &strip : stripsOf(layer, rect, capacity))
        charge.m_pieces.append({strip, units});
    return charge;
}

Charge Charge::ofWindow(const Screen &screen, const Layer &layer, const QRect &rect) {
    Charge charge;
    charge.m_rule = Rule::Window;
    charge.m_window = bounded(rect);
    const auto source = layer.sourceType();
    if (source == Enum::Layer::SourceType::Input)
        charge.m_pieces.append({charge.m_window, ResourceCheck::getResOfAUXLayerCapacity(layer.capacity())});
    if (source != Enum::Layer::SourceType::PGM)
        return charge;
    for (const Piece &output : shownOutputs(layer))
        charge.m_pieces.append(output);
    if (const auto owner = layer.ownerScreen().lock(); owner != nullptr && owner.get() != &screen)
        charge.m_ownerMosaic = mosaicOf(*owner);
    return charge;
}

bool Charge::meets(const Place &place, const Piece &piece) const {
    // A rectangle without an area meets nothing as QRectF, but does as QRect: each rule has its own.
    if (m_rule == Rule::Strips)
        return place.rect.intersects(QRectF(piece.rect));
    return m_rule == Rule::Everywhere ||
           (place.pixels.intersects(m_window) &&
            (m_ownerMosaic ? pixelsOf(*m_ownerMosaic, place.output) : place.pixels).intersects(piece.rect));
}

int Charge::on(const CardPlaces &places, std::vector<Piece> *pieces) const {
    int units = 0;
    for (const Piece &piece : m_pieces) {
        if (std::none_of(places.begin(), places.end(), [&](const Place *place) { return meets(*place, piece); }))
            continue;
        units += piece.units;
        if (pieces != nullptr && piece.units > 0)
            pieces->push_back(piece);
    }
    return units;
}

} // namespace Quorix::BizModel::Accounting
