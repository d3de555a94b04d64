#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QRect>

#include <cmath>

namespace Quorix::BizModel {

int Helper::splitCount(Enum::Interface::CapacityMode capacity) {
    switch (capacity) {
    case Enum::Interface::CapacityMode::_DL:
        return Constants::Interface::splitCountOfDLInput;
    case Enum::Interface::CapacityMode::_4K:
        return Constants::Interface::splitCountOf4kInput;
    case Enum::Interface::CapacityMode::_SL:
    case Enum::Interface::CapacityMode::invaild:
        break;
    }
    return 1;
}

QList<QRect> Helper::splitInputRect(QRect rect, int splitCount) {
    QList<QRect> strips;
    if (splitCount < 1)
        return strips;
    const int width = rect.width() / splitCount;
    for (int i = 0; i < splitCount; ++i) {
        const bool isLast = i == splitCount - 1;
        strips.append({i * width, rect.top(), isLast ? width + rect.width() % splitCount : width, rect.height()});
    }
    return strips;
}

QList<QRect> Helper::splitCropRectByInputRect(QRect inputRect, int splitCount, QRect cropRect) {
    QList<QRect> pieces;
    for (const QRect &strip : splitInputRect(inputRect, splitCount))
        if (strip.intersects(cropRect))
            pieces.append(strip.intersected(cropRect));
    return pieces;
}

QList<QRect> Helper::splitLayerRects(QRect inputRect, int splitCount, QRect cropRect, QRect layerRect) {
    if (cropRect.width() == 0 || cropRect.height() == 0 || splitCount <= 1)
        return {layerRect};

    constexpr int overlap = Constants::Layer::defaultLayerSplitOffset;
    const QList<QRect> pieces = splitCropRectByInputRect(inputRect, splitCount, cropRect);
    QList<QRect> windows;
    int left = layerRect.left();
    int totalWidth = 0;
    int usedCropWidth = 0;
    // An inner edge lends half of the overlap: the outer windows have one, those between them two.
    int offset = overlap / 2;
    for (int i = 0; i < pieces.size(); ++i) {
        usedCropWidth += pieces[i].width();
        const double end = layerRect.width() * (usedCropWidth / static_cast<double>(cropRect.width()));
        // Cut down, unless the quotient's own error is all that is missing to a whole pixel.
        const double nearest = std::round(end);
        const int width = truncated(nearest - end < 0.000001 ? nearest : std::floor(end)) - totalWidth;
        windows.append({left, layerRect.top(), offset + width, layerRect.height()});
        left += offset + width - overlap;
        totalWidth += width;
        offset = i + 2 == pieces.size() ? overlap / 2 : overlap;
    }
    return windows;
}

} // namespace Quorix::BizModel
