/// What a connector can carry. Two units are in use: the pixel clock in hertz, and the data rate in bits per second.
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <cmath>

namespace Quorix::BizModel {

namespace {

namespace Limit = Constants::Interface;
using Enum::Interface::CapacityMode;
using Enum::Interface::ColorSpace;

/// How a bandwidth is shown.
struct Unit {
    const char *name;
    qreal ratio;
};
constexpr Unit kPixelClock{"MHZ", 1e6};
constexpr Unit kDataRate{"Gbps", 1e9};

/// Every sample has three components of this depth where nothing else is known.
constexpr int kDefaultDepth = 8;

/// Data rates that the ports of the card with two HDMI and two DP ports carry.
constexpr struct {
    CapacityMode capacity;
    quint64 max;
} kDouble4kLimits[] = {
    {CapacityMode::_SL, Limit::double4k_SL_MaxGbPS},
    {CapacityMode::_DL, Limit::double4k_DL_MaxGbPS},
    {CapacityMode::_4K, Limit::double4k_4K_MaxGbPS},
};

/// Pixel clock in hertz. In 32-bit floats, as the limits of the devices themselves are.
quint64 pixelClock(int hTotal, int vTotal, float refreshRate) {
    const float pixels = static_cast<float>(hTotal) * static_cast<float>(vTotal);
    const float clock = pixels * refreshRate;
    return truncatedUnsigned(clock);
}

bool isFullChroma(ColorSpace colorSpace) {
    return colorSpace == ColorSpace::RGB_4_4_4 || colorSpace == ColorSpace::YCbCr_4_4_4;
}

bool isArea(const QSize &size) { return size.width() > 0 && size.height() > 0; }

/// In display units with two decimals.
double displayed(quint64 bandwidth, qreal ratio) {
    return std::round(static_cast<double>(bandwidth) / ratio * 100.0) / 100.0;
}

} // namespace

bool Interface::isBandwidthExceeded(int /*hTotal*/, int /*vTotal*/, float /*refreshRate*/, ColorSpace /*colorSpace*/,
                                    ColorDepth /*bitDepth*/, QString & /*error*/) {
    return false;
}

bool Interface::bandwidthErrorMsg(const quint64 &nCurrentMaxBandWidth, const quint64 &nCurrentMinBandWidth,
                                  const quint64 &currentBand, QString &error, const QString &unit, qreal ratio) {
    if (ratio == 0.0)
        return false;
    const auto word = [&](const QString &text, quint64 limit) {
        error = text.arg(displayed(limit, ratio)).arg(unit).arg(displayed(currentBand, ratio)).arg(unit);
        return true;
    };
    if (currentBand < nCurrentMinBandWidth)
        return word(tr("Minimum supported bandwidth:%1%2,Current bandwidth:%3%4."), nCurrentMinBandWidth);
    if (currentBand > nCurrentMaxBandWidth)
        return word(tr("Maximum supported bandwidth:%1%2,Current bandwidth:%3%4."), nCurrentMaxBandWidth);
    return false;
}

void Interface::interfaceMaxMinBandWidth(quint64 &nCurrentMaxBandWidth, quint64 &nCurrentMinBandWidth) {
    if (owerDevice().expired()) {
        qWarning() << "Device is null.";
        return;
    }
    ProtoModel::Device::s_Connectors record;
    if (!connectorRecord(record)) {
        qWarning() << "The pConnector is null";
        return;
    }
    const auto *config = InterfaceConfig::instance();
    const auto capacity = static_cast<CapacityMode>(record.capacityMode);
    const auto type = static_cast<ConnectorType>(record.type);
    InterfaceConfig::ConnectorInfo info;
    if (!config->findConnectorInfo(capacity, InterfaceType::Input, type, info)) {
        qDebug() << "Get input's connector has failed! The input is " << interfaceId();
        return;
    }
    nCurrentMaxBandWidth = info.m_nMaxBandwidth;
    nCurrentMinBandWidth = info.m_nMinBandwidth;
    InterfaceConfig::ConnectorCapacity limits;
    if (!config->findConnectorCapacity(capacity, InterfaceType::Input, type, limits)) {
        qDebug() << "get current ConnectorCapacity error!";
        return;
    }
    // An entry that leaves anything out doesn't limit.
    if (limits.maxBandwidth == 0 || limits.minBandwidth == 0 || !isArea(limits.sizeMaxResolution) ||
        !isArea(limits.sizeMinResolution))
        return;
    nCurrentMaxBandWidth = limits.maxBandwidth;
    nCurrentMinBandWidth = limits.minBandwidth;
}

bool Interface::checkOverLoadStatus() {
    const auto device = owerDevice().lock();
    if (device == nullptr || !isSignal(actualTiming()))
        return false;
    const auto model = device->slotValue(interfaceFullId().slotId, &ProtoModel::Device::s_subcardBody::modelId);
    if (!model || !InterfaceConfig::instance()->isSupportOverLoad(fileModelId(*model)))
        return false;
    ProtoModel::Device::s_Connectors record;
    if (!isActive() || type() != toInt(InterfaceType::Input) || !connectorRecord(record))
        return false;
    const QSize total = actualTimingTotalFrameRate();
    const auto depth = actualColorDepth();
    QString unused;
    return isBandwidthExceeded(total.width(), total.height(), getRefreshRate(), actualColorSpace(),
                               depth == ColorDepth::_0_ ? ColorDepth::_8_ : depth, unused);
}

bool Input::checkMinBandWidthResult(int hTotal, int vTotal, float refreshRate, QString &error) {
    quint64 max = 0;
    quint64 min = 0;
    interfaceMaxMinBandWidth(max, min);
    return !bandwidthErrorMsg(max, min, pixelClock(hTotal, vTotal, refreshRate), error,
                              QString::fromLatin1(kPixelClock.name), kPixelClock.ratio);
}

bool Input::isBandwidthExceeded(int hTotal, int vTotal, float refreshRate, ColorSpace colorSpace, ColorDepth bitDepth,
                                QString &error) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "Device is null.";
        return false;
    }
    int depth = toInt(bitDepth);
    if (bitDepth == ColorDepth::_255_)
        depth = isActive() ? toInt(actualColorDepth()) : kDefaultDepth; // an actual 0 stays 0
    else if (bitDepth == ColorDepth::_0_)
        depth = kDefaultDepth;
    if (colorSpace == ColorSpace::AUTO)
        colorSpace = ColorSpace::RGB_4_4_4;

    const double clock = static_cast<double>(hTotal) * vTotal * static_cast<double>(refreshRate);
    const quint64 base = truncatedUnsigned(depth * clock);
    const int slot = interfaceFullId().slotId;
    const auto card = isId(slot) ? device->findSubcardBySlotId(static_cast<uint8_t>(slot)).lock() : nullptr;
    if (card == nullptr) {
        qWarning() << "not find this card,slot id is " << slot;
        return false;
    }
    quint64 max = 0;
    quint64 min = 0;
    interfaceMaxMinBandWidth(max, min);
    // The minimum below stays the one in hertz, although the current value counts bits.
    const auto isDataRateExceeded = [&](quint64 limit, quint64 samples) {
        return bandwidthErrorMsg(limit, min, saturatedProduct(samples, base), error,
                                 QString::fromLatin1(kDataRate.name), kDataRate.ratio);
    };

    const auto capacityMode = capacity();
    switch (card->modelId()) {
    case Limit::_1xHDMI_1xDPinputcardID:
        if (isFullChroma(colorSpace) && clock > Limit::defultDLMaxBandWidth && depth > kDefaultDepth) {
            error = tr("The bandwidth exceeded the max bandwidth limit. Please try again.");
            return true;
        }
        break;
    case Limit::_2xHDMI_2xDPinputcardID:
        if (!isFullChroma(colorSpace))
            break;
        for (const auto &row : kDouble4kLimits)
            if (row.capacity == capacityMode)
                return isDataRateExceeded(row.max, 3);
        qWarning() << "capacity is error, interface id is ." << interfaceId();
        return false;
    case Limit::_4xDPinputcardID:
        if (capacityMode == CapacityMode::_DL)
            return isDataRateExceeded(Limit::single4k_MaxGbPS, isFullChroma(colorSpace) ? 3 : 2);
        if (capacityMode != CapacityMode::_SL)
            return false;
        break;
    default:
        break;
    }
    return !checkMinBandWidthResult(hTotal, vTotal, refreshRate, error);
}

bool Output::isBandwidthExceeded(int hTotal, int vTotal, float refreshRate, ColorSpace colorSpace, ColorDepth bitDepth,
                                 QString &error) {
    ProtoModel::Device::s_Connectors record;
    if (!connectorRecord(record))
        return false;
    quint64 max = 0;
    quint64 current = pixelClock(hTotal, vTotal, refreshRate);
    Unit unit = kPixelClock;
    switch (static_cast<CapacityMode>(record.capacityMode)) {
    case CapacityMode::_SL:
        max = Limit::defultSLMaxBandWidth;
        break;
    case CapacityMode::_DL:
        max = Limit::defultDLMaxBandWidth;
        break;
    case CapacityMode::_4K: {
        const bool isDepthOpen = bitDepth == ColorDepth::_255_ || bitDepth == ColorDepth::_0_;
        const auto depth = isDepthOpen ? quint64{kDefaultDepth} : static_cast<quint64>(toInt(bitDepth));
        const float samples =
            Helper::colorSpaceValue(colorSpace == ColorSpace::AUTO ? ColorSpace::RGB_4_4_4 : colorSpace);
        const float dataRate = static_cast<float>(saturatedProduct(current, depth)) * samples;
        max = Limit::double4k_4K_MaxGbPS;
        current = truncatedUnsigned(dataRate);
        unit = kDataRate;
        break;
    }
    default:
        break;
    }
    return bandwidthErrorMsg(max, Limit::defultMinBandWidth, current, error, QString::fromLatin1(unit.name),
                             unit.ratio);
}

QList<float> Output::getValidRefreshList(QSize frameRate, ColorSpace /*colorSpace*/, ColorDepth /*bitDepth*/,
                                         const QList<float> &refreshList) {
    QList<float> valid;
    for (const float rate : refreshList) {
        Timing timing;
        QString unused;
        if (Helper::calcTimingbyModel(&timing, frameRate.width(), frameRate.height(), rate) &&
            !isBandwidthExceeded(timing.horizontal.totalTime, timing.vertical.totalTime, rate, presetColorSpace(),
                                 presetColorDepth(), unused))
            valid.append(rate);
    }
    return valid;
}

bool Output::calTotalTime(QSize frameRate, float refreshRate, ColorSpace /*colorSpace*/, ColorDepth /*bitDepth*/,
                          int interlaced) {
    Timing timing = copyOf(m_detailRWLock, m_currentTiming);
    if (!Helper::calcTimingbyModel(&timing, frameRate.width(), frameRate.height(), refreshRate)) {
        qWarning() << "calDtd input timing error";
        return false;
    }
    timing.refresh = Helper::modelRate2ProtoRate(refreshRate);
    timing.interlaced = interlaced;
    std::ignore = assign(m_detailRWLock, m_currentTiming, timing);
    QString unused;
    if (isBandwidthExceeded(timing.horizontal.totalTime, timing.vertical.totalTime, refreshRate, presetColorSpace(),
                            presetColorDepth(), unused)) {
        qWarning() << "The bandwidth exceeded the bandwidth limit!";
        return false;
    }
    return true;
}

} // namespace Quorix::BizModel
