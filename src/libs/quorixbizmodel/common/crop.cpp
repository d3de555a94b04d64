#include <quorixbizmodel/common/crop.h>

#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <cmath>
#include <utility>

namespace Quorix::BizModel {

namespace {

int ratioOf(int length, int frame) {
    return truncated(std::round(static_cast<double>(length) / frame * Constants::sourceCropRatio));
}

int pixelsOf(int ratio, int frame) {
    // The product is a whole number; in 64 bits it can't overflow, whatever a report says.
    return truncated(std::round(static_cast<double>(qint64{ratio} * frame) / Constants::sourceCropRatio));
}

} // namespace

QRect cropRatioOf(const QRect &rect, const QSize &frame, const QRect &withoutArea) {
    if (frame.width() <= 0 || frame.height() <= 0)
        return withoutArea;
    auto ratio = Helper::qRect2SRect(rect);
    ratio.x = ratioOf(ratio.x, frame.width());
    ratio.y = ratioOf(ratio.y, frame.height());
    ratio.width = ratioOf(ratio.width, frame.width());
    ratio.height = ratioOf(ratio.height, frame.height());
    return Helper::sRect2QRect(ratio);
}

void placeCrop(ProtoModel::s_CropDetailBody &crop, const QRect &rect, const QSize &frame, const QRect &withoutArea) {
    const auto ratio = Helper::qRect2SRect(cropRatioOf(rect, frame, withoutArea));
    crop.xRatio = ratio.x;
    crop.yRatio = ratio.y;
    crop.widthRatio = ratio.width;
    crop.heightRatio = ratio.height;
    static_cast<ProtoModel::s_Rect &>(crop) = Helper::qRect2SRect(rect);
}

void takeCrop(ProtoModel::s_CropDetailBody &crop, const ProtoModel::s_CropDetailBody &other) {
    const auto own = std::exchange(crop, other);
    crop.id = own.id;
    crop.type = own.type;
    crop.enable = own.enable;
}

void fitCrop(ProtoModel::s_CropDetailBody &crop, const QSize &frame) {
    crop.x = pixelsOf(crop.xRatio, frame.width());
    crop.y = pixelsOf(crop.yRatio, frame.height());
    crop.width = pixelsOf(crop.widthRatio, frame.width());
    crop.height = pixelsOf(crop.heightRatio, frame.height());
}

QRect frameRect(const QSize &frame) {
    // By way of a record: its conversion doesn't overflow.
    ProtoModel::s_Rect whole;
    whole.width = frame.width();
    whole.height = frame.height();
    return Helper::sRect2QRect(whole);
}

} // namespace Quorix::BizModel
