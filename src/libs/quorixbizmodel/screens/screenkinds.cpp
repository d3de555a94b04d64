#include <quorixbizmodel/screens/screenkinds.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>

#include <utility>

namespace Quorix::BizModel {

namespace {

/// The span from @p low to @p high, both inclusive, cut to the length of a range and pushed inside.
std::pair<int, int> pushedInside(qint64 low, qint64 high, qint64 rangeLow, qint64 rangeLength) {
    const qint64 rangeHigh = rangeLow + rangeLength - 1;
    if (high - low >= rangeLength)
        high = low + rangeLength - 1;
    if (low < rangeLow)
        high += rangeLow - std::exchange(low, rangeLow);
    if (high > rangeHigh)
        low -= std::exchange(high, rangeHigh) - rangeHigh;
    return {truncated(static_cast<double>(low)), truncated(static_cast<double>(high))};
}

/// Three times a length.
int tripled(int length) { return wrappingSum(wrappingSum(length, length), length); }

} // namespace

RegularScreen::RegularScreen(QObject *parent) : Screen(parent) { setScreenType(ScreenType::RegularScreen); }

RegularScreen::RegularScreen(const RegularScreen &other) : RegularScreen(other.parent()) {}

bool RegularScreen::isComplete() const {
    const bool hasOutputs = Screen::isComplete();
    if (spliceMode() == ScreenSpliceMode::AnyShapedSplice)
        return hasOutputs;
    if (owerDevice().expired())
        return false;
    const auto *config = configRecord();
    return config != nullptr && config->MainScreenCfg.IsSupportIncompleteSplicing ? hasOutputs : isGridFilled();
}

bool RegularScreen::isSupportVirtualScreen() const {
    const auto *config = configRecord();
    return config != nullptr && config->MainScreenCfg.IsSupportVirtualScreen;
}

bool RegularScreen::isSupportProjectionFusion() const {
    const auto *config = configRecord();
    return config != nullptr && config->MainScreenCfg.IsSupportProjectionFusion;
}

QRect RegularScreen::layerValidRangeWindowRect() const {
    const auto mosaic = Helper::qRect2SRect(mosaicWindowRect());
    return Helper::sRect2QRect(
        {{.x = wrappingDifference(mosaic.x, mosaic.width), .y = wrappingDifference(mosaic.y, mosaic.height)},
         {.width = tripled(mosaic.width), .height = tripled(mosaic.height)}});
}

QRect RegularScreen::recalcLayerValidWindowRect(const QRect &rect) const {
    const auto range = Helper::qRect2SRect(layerValidRangeWindowRect());
    const auto [left, right] = pushedInside(rect.left(), rect.right(), range.x, range.width);
    const auto [top, bottom] = pushedInside(rect.top(), rect.bottom(), range.y, range.height);
    return {QPoint(left, top), QPoint(right, bottom)};
}

AuxScreen::AuxScreen(QObject *parent) : Screen(parent) { setScreenType(ScreenType::AUXScreen); }

AuxScreen::AuxScreen(const AuxScreen &other) : AuxScreen(other.parent()) {}

bool AuxScreen::PGMEdit() const { return true; }

bool AuxScreen::isComplete() const { return !owerDevice().expired() && Screen::isComplete() && isGridFilled(); }

bool AuxScreen::isSupportVirtualScreen() const {
    const auto *config = configRecord();
    return config != nullptr && config->AuxSceensCfg.IsSupportVirtualScreen;
}

bool AuxScreen::isSupportProjectionFusion() const {
    const auto *config = configRecord();
    return config != nullptr && config->AuxSceensCfg.IsSupportProjectionFusion;
}

bool AuxScreen::isSupportOutputAOI() const { return false; }

EchoScreen::EchoScreen(QObject *parent) : Screen(parent) { setScreenType(ScreenType::EchoScreen); }

EchoScreen::EchoScreen(const EchoScreen &other) : EchoScreen(other.parent()) {}

} // namespace Quorix::BizModel
