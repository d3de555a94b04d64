/// Crops in pixels of a frame, and as ratios that outlive a change of the frame.
#ifndef QUORIXBIZMODEL_CROP_H
#define QUORIXBIZMODEL_CROP_H

#include <quorixprotomodel/protomodelbase.h>

#include <QRect>
#include <QSize>

namespace Quorix::BizModel {

/// The whole frame in ratios: 100000 by 100000 from 0, 0.
inline constexpr QRect wholeCropRatio{0, 0, 100000, 100000};

/// @p rect, in pixels of a @p frame, in units of 1/100000 of it, halves rounded away from zero. A frame without an area
/// gives @p withoutArea.
QRect cropRatioOf(const QRect &rect, const QSize &frame, const QRect &withoutArea = wholeCropRatio);

/// Takes over a rectangle in pixels together with its ratios; identity and switch of @p crop stay.
void placeCrop(ProtoModel::s_CropDetailBody &crop, const QRect &rect, const QSize &frame,
               const QRect &withoutArea = wholeCropRatio);

/// Takes over pixels and ratios of another crop; identity and switch of @p crop stay.
void takeCrop(ProtoModel::s_CropDetailBody &crop, const ProtoModel::s_CropDetailBody &other);

/// Works the pixels of @p crop out anew from its ratios.
void fitCrop(ProtoModel::s_CropDetailBody &crop, const QSize &frame);

/// A whole frame of any size that a report brings, from 0, 0.
QRect frameRect(const QSize &frame);

} // namespace Quorix::BizModel

#endif
