/// What a device keeps of each layer.
#ifndef QUORIXPROTOMODEL_LAYER_H
#define QUORIXPROTOMODEL_LAYER_H

#include <quorixprotomodel/protomodelbase.h>

#include <string>

namespace Quorix::ProtoModel::Layer {

inline constexpr std::uint8_t bcLayer = 20; ///< base code of the messages below
inline constexpr std::uint8_t fcDetails = 0;
inline constexpr std::uint8_t fcEnable = 1;
inline constexpr std::uint8_t fcZOrder = 2;
inline constexpr std::uint8_t fcGeneral = 3;
inline constexpr std::uint8_t fcSource = 4;
inline constexpr std::uint8_t fcWindow = 5;
inline constexpr std::uint8_t fcMask = 6;
inline constexpr std::uint8_t fcColor = 7;
inline constexpr std::uint8_t fcOpacity = 8;
inline constexpr std::uint8_t fcImageQuality = 9;
inline constexpr std::uint8_t fcShadow = 10;
inline constexpr std::uint8_t fcBorder = 11;
inline constexpr std::uint8_t fcSelected = 12;
inline constexpr std::uint8_t fcUMD = 13;
inline constexpr std::uint8_t fcRemove = 14;
inline constexpr std::uint8_t fcCutAndFill = 16;

struct s_LayerGeneralBody {
    std::string name = "N/A"; ///< UTF-8
    std::int32_t isBackground = 0;
    std::int32_t isFreeze = 0;
    std::int32_t isMonochrome = 0;
    std::int32_t isInverse = 0;
    std::int32_t flipType = 0; ///< Enum::Layer::FlipType
    bool operator==(const s_LayerGeneralBody &) const = default;
};
QUORIX_AJSON(s_LayerGeneralBody, name, isBackground, isFreeze, isMonochrome, isInverse, flipType)

struct s_LayerSourceGeneral {
    std::int32_t type = 0; ///< Enum::Layer::SourceType
    std::uint32_t id = 0;  ///< for Input a packed interface id, for PGM and PVW a screen id, for BKG and LOGO a file id
    bool operator==(const s_LayerSourceGeneral &) const = default;
};
QUORIX_AJSON(s_LayerSourceGeneral, type, id)

struct s_CutFillBody {
    bool enable = false;
    bool isBinding = false; ///< the cut layer moves with its fill layer
    bool operator==(const s_CutFillBody &) const = default;
};
QUORIX_AJSON(s_CutFillBody, enable, isBinding)

struct s_LayerSourceBody {
    s_LayerSourceGeneral general;
    s_CropDetailArry crop; ///< crops of the source
    bool operator==(const s_LayerSourceBody &) const = default;
};
QUORIX_AJSON(s_LayerSourceBody, general, crop)

struct s_LayerMaskBody {
    std::int32_t enable = 0;
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t top = 0;
    std::int32_t bottom = 0;
    bool operator==(const s_LayerMaskBody &) const = default;
};
QUORIX_AJSON(s_LayerMaskBody, enable, left, right, top, bottom)

struct s_LayerShadowGeneral {
    std::int32_t enable = 0;
    std::int32_t feather = 0;
    bool operator==(const s_LayerShadowGeneral &) const = default;
};
QUORIX_AJSON(s_LayerShadowGeneral, enable, feather)

struct s_LayerShadowBody {
    s_LayerShadowGeneral general;
    s_Rect window;
    s_RGBO color;
    bool operator==(const s_LayerShadowBody &) const = default;
};
QUORIX_AJSON(s_LayerShadowBody, general, window, color)

struct s_BorderSize {
    std::int32_t hWidth = 2; ///< horizontal
    std::int32_t vWidth = 2; ///< vertical
    bool operator==(const s_BorderSize &) const = default;
};
QUORIX_AJSON(s_BorderSize, hWidth, vWidth)

struct s_LayerBorderBody {
    std::int32_t enable = 0;
    std::int32_t type = 0; ///< Enum::Layer::BorderType
    s_BorderSize size;
    s_RGBO color;
    bool operator==(const s_LayerBorderBody &) const = default;
};
QUORIX_AJSON(s_LayerBorderBody, enable, type, size, color)

/// The file of an under-monitor display.
struct s_UMDFileInfo {
    std::int32_t fileId = 0;
    std::int32_t fileType = 0;
    bool operator==(const s_UMDFileInfo &) const = default;
};

struct s_UMDColor {
    s_RGBO foregroundColor; ///< of the text
    s_RGBO backgroundColor;
    bool operator==(const s_UMDColor &) const = default;
};
QUORIX_AJSON(s_UMDColor, foregroundColor, backgroundColor)

/// One under-monitor display of a layer.
struct s_LayerUMDBody {
    std::int32_t index = 0; ///< the corner, Enum::Layer::UMDIndex
    std::int32_t enable = 0;
    s_UMDColor color;
    bool operator==(const s_LayerUMDBody &) const = default;
};
QUORIX_AJSON(s_LayerUMDBody, index, enable, color)
using s_LayerUMDBodyArray = std::vector<s_LayerUMDBody>;

/// Everything that a device holds of a layer.
struct s_LayerFullDetail {
    s_ScreenLayerId layerIdenti;
    s_CutFillBody cutFill;
    std::int32_t zorder = 0;
    std::int32_t selected = 0;
    s_LayerGeneralBody general;
    s_LayerSourceBody source;
    s_Rect window; ///< on the screen
    s_LayerMaskBody mask;
    s_ColorEnableRGB testColor;
    std::int32_t opacity = 100; ///< percent
    s_ImageQualityBody imageQuality;
    s_LayerShadowBody shadow;
    s_LayerBorderBody border;
    s_LayerUMDBodyArray UMD;
    bool operator==(const s_LayerFullDetail &) const = default;
};
QUORIX_AJSON(s_LayerFullDetail, layerIdenti, cutFill, zorder, selected, general, source, window, mask, testColor,
             opacity, imageQuality, shadow, border, UMD)
using s_LayerDetailArray = std::vector<s_LayerFullDetail>;

/// What is sent to create a layer.
struct s_LayerEnable {
    s_ScreenLayerId layerIdenti;
    std::int32_t zorder = 0;
    s_LayerGeneralBody general;
    s_LayerSourceBody source;
    s_Rect window;
    s_LayerBorderBody border;
    bool operator==(const s_LayerEnable &) const = default;
};

/// A change of source.
struct s_LayerSource {
    s_ScreenLayerId layerIdenti;
    s_LayerSourceBody source;
    bool operator==(const s_LayerSource &) const = default;
};

} // namespace Quorix::ProtoModel::Layer

#endif
