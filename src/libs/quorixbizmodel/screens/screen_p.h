/// What the sources of a screen share.
#ifndef QUORIXBIZMODEL_SCREEN_P_H
#define QUORIXBIZMODEL_SCREEN_P_H

#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixprotomodel/protomodelbase.h>

#include <QRect>

namespace Quorix::BizModel {

/// Position and size in whole pixels, each number rounded for itself. Edges beyond 32 bits wrap.
inline QRect roundedRect(const QRectF &rect) {
    ProtoModel::s_Rect pixels;
    pixels.x = rounded(rect.x());
    pixels.y = rounded(rect.y());
    pixels.width = rounded(rect.width());
    pixels.height = rounded(rect.height());
    return Helper::sRect2QRect(pixels);
}

} // namespace Quorix::BizModel

#endif
