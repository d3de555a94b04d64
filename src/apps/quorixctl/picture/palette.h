/// Colours and measures that all parts of a screen's picture share. Measures are in pixels.
#ifndef QUORIXCTL_PALETTE_H
#define QUORIXCTL_PALETTE_H

#include "screenview.h"

namespace quorixctl {

inline constexpr Colour kPaper = rgb(0xFBFCFD);
inline constexpr Colour kInk = rgb(0x1B2733);
inline constexpr Colour kSoftInk = rgb(0x566675);
inline constexpr Colour kHairline = rgb(0xD3DBE2);
inline constexpr Colour kStripe = rgb(0xF1F4F7);
inline constexpr Colour kWall = rgb(0x39454F);
inline constexpr Colour kWhite = rgb(0xFFFFFF);
inline constexpr Colour kProgramme = rgb(0xB3362B);
inline constexpr Colour kPreview = rgb(0x2C7A44);
inline constexpr Colour kCut = rgb(0xA3246E);
inline constexpr Colour kFeather = rgb(0x0A7F86, 45);
inline constexpr Colour kRamp = rgb(0x075F65);
inline constexpr Stroke kCell{rgb(0x8798A6), 1, 2};
inline constexpr Colour kSelected = rgb(0xEB6A00);
inline constexpr Colour kSelectedInk = rgb(0xAD4A00);

struct TintColours {
    const char *name;
    Colour fill;
    Colour line;
};

/// By Tint.
inline constexpr TintColours kTints[] = {
    {"input", rgb(0xC9DDF1), rgb(0x2B679F)}, {"PGM", rgb(0xF4CFCB), kProgramme},
    {"PVW", rgb(0xCCE7D3), kPreview},        {"background", rgb(0xEFE4C9), rgb(0x8A6A1C)},
    {"logo", rgb(0xDDD3F0), rgb(0x6445A0)},  {"no source", rgb(0xDDE2E7), rgb(0x5F6B77)},
};

constexpr const TintColours &coloursOf(Tint tint) { return kTints[static_cast<int>(tint)]; }

inline constexpr double kMargin = 36;
inline constexpr double kPictureWidth = 1200;
inline constexpr double kTitleSize = 24;
inline constexpr double kTextSize = 12;
inline constexpr double kSmallSize = 11;
inline constexpr double kTinySize = 10;

} // namespace quorixctl

#endif
