/// The drawing of a screen: the wall to scale, a legend, what the cards carry, and a list of the layers.
#ifndef QUORIXCTL_SCREENPICTURE_H
#define QUORIXCTL_SCREENPICTURE_H

#include "screenview.h"

namespace quorixctl {

/// 1200 pixels wide, as high as it needs.
Drawing pictureOf(const ScreenView &view);

} // namespace quorixctl

#endif
