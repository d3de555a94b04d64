/// What a device keeps of each screen.
#ifndef QUORIXPROTOMODEL_SCREEN_H
#define QUORIXPROTOMODEL_SCREEN_H

#include <quorixprotomodel/device.h>

#include <quorix_export.h>

namespace Quorix::ProtoModel::Screen {

inline constexpr std::uint8_t bcScreen = 19; ///< base code of the messages below
inline constexpr std::uint8_t fcScreenDetails = 0;
inline constexpr std::uint8_t fcScreenEnable = 1;
inline constexpr std::uint8_t fcScreenGeneral = 2;
inline constexpr std::uint8_t fcScreenBackgroundColor = 3;
inline constexpr std::uint8_t fcLayout = 4;
inline constexpr std::uint8_t fcPhysicalSize = 5;
inline constexpr std::uint8_t fcPGMEdit = 6;
inline constexpr std::uint8_t fcSelected = 7;
inline constexpr std::uint8_t fcImageQuality = 8;
inline constexpr std::uint8_t fcFreeze = 9;
inline constexpr std::uint8_t fcFTB = 10;
inline constexpr std::uint8_t fcTestPattern = 11;
inline constexpr std::uint8_t fcSwitchEffect = 12;
inline constexpr std::uint8_t fcTBar = 13;
inline constexpr std::uint8_t fcTake = 14;
inline constexpr std::uint8_t fcDelete = 15;
inline constexpr std::uint8_t fcHDR = 16;
inline constexpr std::uint8_t fcScreenGenlock = 19;
inline constexpr std::uint8_t fcScreenNovs = 20;

struct s_TbarBody {
    std::int32_t percent = 0;
    bool operator==(const s_TbarBody &) const = default;
};
QUORIX_AJSON(s_TbarBody, percent)

/// The effect of a take.
struct s_SwitchEffectBody {
    std::int32_t time = 5; ///< tenths of a second
    std::int32_t direction = 0;
    std::int32_t type = 1; ///< Enum::Screen::SwitchEffectType; 1: fade
    bool operator==(const s_SwitchEffectBody &) const = default;
};
QUORIX_AJSON(s_SwitchEffectBody, time, direction, type)

/// Fade to black.
struct s_FTBBody {
    std::int32_t enable = 0;
    std::int32_t time = 0;
    bool operator==(const s_FTBBody &) const = default;
};
QUORIX_AJSON(s_FTBBody, enable, time)

/// Physical size of a screen.
struct s_PhysicalSizeBody : s_Size {
    std::int32_t dotPitch = 0;
    std::int32_t unit = 0; ///< Enum::Screen::PhysicalUnitType
    bool operator==(const s_PhysicalSizeBody &) const = default;
};
QUORIX_AJSON(s_PhysicalSizeBody, dotPitch, unit, width, height)

/// Feathering of one edge of an output.
struct s_Feather {
    std::int32_t enable = 0;
    std::int32_t type = 0; ///< the edge, Enum::Screen::FeatherType
    std::int32_t gamma = 0;
    std::int32_t width = 0; ///< pixels
    bool operator==(const s_Feather &) const = default;
};
QUORIX_AJSON(s_Feather, enable, type, gamma, width)
using s_FeatherArray = std::vector<s_Feather>;

/// One output in the mosaic of a screen.
struct s_OutputDetail {
    s_InterfaceID interfaceId;
    s_Pos pos;              ///< of the output within the screen
    s_Rect crop;            ///< part of the screen that the output shows
    s_FeatherArray feather; ///< one for each edge, four in all

    /// Feathers are compared as reports give them, in any order: both sides must hold exactly four, and each of this
    /// side must have an equal one on the other. So a record without its four feathers isn't equal to itself.
    QUORIX_EXPORT bool operator==(const s_OutputDetail &other) const;
};
QUORIX_AJSON(s_OutputDetail, interfaceId, pos, crop, feather)
using s_OutputDetailArray = std::vector<s_OutputDetail>;

struct s_ScreenSplice {
    std::int32_t row = 1;
    std::int32_t column = 1;
    bool operator==(const s_ScreenSplice &) const = default;
};
QUORIX_AJSON(s_ScreenSplice, row, column)

/// What all outputs of a screen share.
struct s_ScreenRefOutputPara {
    s_ColorDepthBody colorDepths;
    s_ColorSpaceBody colorSpaces;
    s_ColorRangeBody colorRanges;
    std::int32_t formatMapping = 0; ///< Enum::Interface::FormatMapping
    s_TimingDetailBody timing;
    bool operator==(const s_ScreenRefOutputPara &) const = default;
};
QUORIX_AJSON(s_ScreenRefOutputPara, colorDepths, colorSpaces, colorRanges, formatMapping, timing)

struct s_ScreenMosaic {
    std::int32_t type = 0; ///< Enum::Screen::ScreenSpliceMode; 0 until one is set
    s_ScreenSplice splice;
    s_Rect window; ///< rectangle of the whole screen
    s_ScreenRefOutputPara refOutputPara;
    s_OutputDetailArray outputs;
    bool operator==(const s_ScreenMosaic &) const = default;
};
QUORIX_AJSON(s_ScreenMosaic, type, splice, window, refOutputPara, outputs)

struct s_GeneralBody {
    std::string name = "N/A";       ///< UTF-8
    std::string nameGB2312 = "N/A"; ///< the name in GBK, as upper-case hexadecimal text
    std::int32_t index = 0;         ///< position in the user's list
    bool operator==(const s_GeneralBody &) const = default;
};
QUORIX_AJSON(s_GeneralBody, name, nameGB2312, index)

/// Handling of a missing video source.
struct s_ScreenNoVS {
    std::int32_t enable = 0;
    std::int32_t status = 0;
    bool operator==(const s_ScreenNoVS &) const = default;
};
QUORIX_AJSON(s_ScreenNoVS, enable, status)

struct s_ScreenGenlockSignalBody {
    std::int32_t status = 0;
    bool operator==(const s_ScreenGenlockSignalBody &) const = default;
};

struct s_ScreenGenlockBody : s_ScreenId {
    s_ScreenGenlockSignalBody genlockSignal;
    bool operator==(const s_ScreenGenlockBody &) const = default;
};
using s_ScreenGenlockBodyArray = std::vector<s_ScreenGenlockBody>;

/// What is sent to open a screen.
struct s_Enable : s_ScreenId {
    s_ScreenMosaic mosaic;
    s_GeneralBody general;
    s_PhysicalSizeBody physicalSize;
    s_Pos layout;
    bool operator==(const s_Enable &) const = default;
};
using s_EnableArray = std::vector<s_Enable>;

/// Everything that a device holds of a screen.
struct s_ScreenFullDetail : s_ScreenId {
    s_GeneralBody general;
    s_ScreenMosaic mosaic;
    s_RGB backgroundColor;
    s_Pos layout; ///< position on the canvas
    s_PhysicalSizeBody physicalSize;
    std::int32_t PGMEdit = 0; ///< the program scene may be edited
    std::int32_t selected = 0;
    s_ImageQualityBody imageQuality;
    std::int32_t freeze = 0;
    s_FTBBody FTB;
    s_TestPatternBody testPattern;
    s_SwitchEffectBody switchEffect;
    s_TbarBody tbar;
    s_HDRBody HDR;
    s_ScreenNoVS screenNoVS;
    bool operator==(const s_ScreenFullDetail &) const = default;
};
QUORIX_AJSON(s_ScreenFullDetail, screenId, screenType, general, mosaic, backgroundColor, layout, physicalSize, PGMEdit,
             selected, imageQuality, freeze, FTB, testPattern, switchEffect, tbar, HDR, screenNoVS)
using s_ScreenFullDetailArray = std::vector<s_ScreenFullDetail>;

} // namespace Quorix::ProtoModel::Screen

#endif
