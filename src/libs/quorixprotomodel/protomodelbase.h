/// Geometry, colour, picture, timing and identity: the records that every other record builds on.
/// A record is a plain value: a new one holds the defaults, and == compares every field, those of its bases included.
/// Unless a field says otherwise, switches are 0 for off and anything else for on.
#ifndef PROTOMODELBASE_H
#define PROTOMODELBASE_H

#include <ajson/ajson.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Quorix::ProtoModel {

inline constexpr std::size_t MAC_LEN = 6; ///< bytes of a MAC address
inline constexpr std::size_t SN_LEN = 8;  ///< bytes of a serial number

inline constexpr char emptySNString[] = "0000000000000000"; ///< what a device without a serial number reports
inline constexpr char emptyMACString[] = "000000000000";
inline constexpr char emptyJsonString[] = "";
inline constexpr char emptyArrayJsonString[] = "[]";

/// Names for the two values of a switch that travels as an integer.
enum class Boolean : std::int32_t { _FALSE = 0, _TRUE = 1 };

struct s_Pos {
    std::int32_t x = 0; ///< pixels
    std::int32_t y = 0; ///< pixels
    bool operator==(const s_Pos &) const = default;
};
QUORIX_AJSON(s_Pos, x, y)

struct s_Size {
    std::int32_t width = 1920;  ///< pixels
    std::int32_t height = 1080; ///< pixels
    bool operator==(const s_Size &) const = default;
};
QUORIX_AJSON(s_Size, width, height)

struct s_Rect : s_Pos, s_Size {
    bool operator==(const s_Rect &) const = default;
};
QUORIX_AJSON(s_Rect, x, y, width, height)

struct s_RGB {
    std::int32_t R = 50; ///< 0 to 255
    std::int32_t G = 50; ///< 0 to 255
    std::int32_t B = 50; ///< 0 to 255
    bool operator==(const s_RGB &) const = default;
};
QUORIX_AJSON(s_RGB, R, G, B)

/// One picture adjustment, overall and for each channel.
struct s_AllRGB : s_RGB {
    std::int32_t all = 50;
    bool operator==(const s_AllRGB &) const = default;
};
QUORIX_AJSON(s_AllRGB, all, R, G, B)

struct s_RGBO : s_RGB {
    std::int32_t opacity = 100; ///< percent
    bool operator==(const s_RGBO &) const = default;
};
QUORIX_AJSON(s_RGBO, R, G, B, opacity)

struct s_ColorEnableRGB : s_RGB {
    std::int32_t enable = 0;
    bool operator==(const s_ColorEnableRGB &) const = default;
};
QUORIX_AJSON(s_ColorEnableRGB, enable, R, G, B)

struct s_ColorDepthBody {
    std::int32_t actualColorDepth = 0;   ///< Enum::Interface::ColorDepth
    std::int32_t presetColorDepth = 255; ///< 255: automatic
    bool operator==(const s_ColorDepthBody &) const = default;
};
QUORIX_AJSON(s_ColorDepthBody, actualColorDepth, presetColorDepth)

struct s_ColorSpaceBody {
    std::int32_t actualColorSpace = 0;   ///< Enum::Interface::ColorSpace
    std::int32_t presetColorSpace = 255; ///< 255: automatic
    bool operator==(const s_ColorSpaceBody &) const = default;
};
QUORIX_AJSON(s_ColorSpaceBody, actualColorSpace, presetColorSpace)

struct s_ColorRangeBody {
    std::int32_t actualColorRange = 0;   ///< Enum::Interface::ColorRange
    std::int32_t presetColorRange = 255; ///< 255: automatic
    bool operator==(const s_ColorRangeBody &) const = default;
};
QUORIX_AJSON(s_ColorRangeBody, actualColorRange, presetColorRange)

/// Picture adjustment of an interface, a screen or a layer.
struct s_ImageQualityBody {
    s_AllRGB contrast;
    s_AllRGB brightness;
    std::int32_t hue = 0; ///< hundredths
    std::int32_t saturation = 50;
    std::int32_t gamma = 220; ///< hundredths
    bool operator==(const s_ImageQualityBody &) const = default;
};
QUORIX_AJSON(s_ImageQualityBody, contrast, brightness, hue, saturation, gamma)

struct s_SDR {
    std::int32_t Gamma = 220; ///< hundredths
    bool operator==(const s_SDR &) const = default;
};
QUORIX_AJSON(s_SDR, Gamma)

struct s_HDR10 {
    bool toneMapping = false;
    std::int32_t screenPeakBrightness = 1000;
    std::int32_t ambientLight = 30;
    std::int32_t pqMaxCll = 1000; ///< maximum content light level
    bool operator==(const s_HDR10 &) const = default;
};
QUORIX_AJSON(s_HDR10, toneMapping, screenPeakBrightness, ambientLight, pqMaxCll)

struct s_HLG {
    std::int32_t ambientLight = 0;
    std::int32_t grade = 5;
    bool operator==(const s_HLG &) const = default;
};
QUORIX_AJSON(s_HLG, ambientLight, grade)

struct s_ColorGamut {
    std::int32_t actualColorGamut = 0;   ///< Enum::Interface::ColorGamut
    std::int32_t presetColorGamut = 255; ///< 255: automatic
    bool operator==(const s_ColorGamut &) const = default;
};
QUORIX_AJSON(s_ColorGamut, actualColorGamut, presetColorGamut)

struct s_DynamicRangeDetail {
    std::int32_t type = 255; ///< Enum::Interface::DynamicRange, tells which of the three applies; 255: automatic
    s_SDR SDR;
    s_HDR10 HDR10;
    s_HLG HLG;
    bool operator==(const s_DynamicRangeDetail &) const = default;
};
QUORIX_AJSON(s_DynamicRangeDetail, type, SDR, HDR10, HLG)

struct s_DynamicRange {
    s_DynamicRangeDetail actualDynamicRange;
    s_DynamicRangeDetail presetDynamicRange;
    bool operator==(const s_DynamicRange &) const = default;
};
QUORIX_AJSON(s_DynamicRange, actualDynamicRange, presetDynamicRange)

/// HDR state of an interface or a screen.
struct s_HDRBody {
    s_ColorGamut colorGamut;
    s_DynamicRange dynamicRange;
    bool operator==(const s_HDRBody &) const = default;
};
QUORIX_AJSON(s_HDRBody, colorGamut, dynamicRange)

/// One axis of a display timing, in pixels or lines.
struct s_Timing {
    std::int32_t addTime = 0; ///< active
    std::int32_t frontPorch = 0;
    std::int32_t sync = 0; ///< width of the sync pulse
    std::int32_t syncPolarity = 0;
    std::int32_t totalTime = 0;
    bool operator==(const s_Timing &) const = default;
};
QUORIX_AJSON(s_Timing, addTime, frontPorch, sync, syncPolarity, totalTime)

struct s_TimingDetailBody {
    std::int32_t interlaced = 0;
    std::int32_t refresh = 0; ///< hundredths of a hertz
    s_Timing horizontal;
    s_Timing vertical;
    bool operator==(const s_TimingDetailBody &) const = default;
};
QUORIX_AJSON(s_TimingDetailBody, interlaced, refresh, horizontal, vertical)

/// Full identity of an interface.
struct s_InterfaceID {
    std::int32_t slotId = 0;
    std::int32_t connectorId = 0;
    std::int32_t splitId = 0;

    /// @return the packed form: slot in bits 23 to 16, connector in bits 15 to 8, split in bits 7 to 0. Of each part
    /// only its low 8 bits count, so that a part out of range never reaches into its neighbour.
    [[nodiscard]] constexpr std::uint32_t id() const {
        const auto low8 = [](std::int32_t part) { return static_cast<std::uint32_t>(part) & 255U; };
        return low8(slotId) << 16U | low8(connectorId) << 8U | low8(splitId);
    }
    bool operator==(const s_InterfaceID &) const = default;
};
QUORIX_AJSON(s_InterfaceID, slotId, connectorId, splitId)

/// A crop. The base rectangle holds it in pixels and isn't stored; the ratios are.
struct s_CropDetailBody : s_Rect {
    std::uint32_t id = 0;
    std::int32_t type = 0;
    std::int32_t enable = 0;
    std::int32_t widthRatio = 100000;  ///< fraction of the source, 100000 is the whole
    std::int32_t heightRatio = 100000; ///< the same scale
    std::int32_t xRatio = 0;           ///< left edge, the same scale
    std::int32_t yRatio = 0;           ///< top edge, the same scale
    bool operator==(const s_CropDetailBody &) const = default;
};
QUORIX_AJSON(s_CropDetailBody, id, type, enable, widthRatio, heightRatio, xRatio, yRatio)
using s_CropDetailArry = std::vector<s_CropDetailBody>;

/// Identity of a file; ids are unique within one type.
struct s_FileIdentity {
    std::int32_t fileId = 0;
    std::int32_t fileType = 0; ///< Enum::File::FileType
    bool operator==(const s_FileIdentity &) const = default;
};

/// Identity of a screen; ids are unique within one type.
struct s_ScreenId {
    std::uint8_t screenId = 0;   ///< 255 is invalid
    std::int32_t screenType = 0; ///< Enum::Screen::ScreenType
    bool operator==(const s_ScreenId &) const = default;
};
QUORIX_AJSON(s_ScreenId, screenId, screenType)

/// Identity of a layer within a screen; ids are unique within one layer type and scene.
struct s_LayerId {
    std::uint8_t layerId = 0;   ///< 255 is invalid
    std::int32_t layerType = 0; ///< Enum::Layer::LayerType
    std::int32_t sceneType = 0; ///< Enum::Layer::SceneType
    bool operator==(const s_LayerId &) const = default;
};

/// Full identity of a layer.
struct s_ScreenLayerId : s_ScreenId, s_LayerId {
    bool operator==(const s_ScreenLayerId &) const = default;
};
QUORIX_AJSON(s_ScreenLayerId, screenId, screenType, layerId, layerType, sceneType)

} // namespace Quorix::ProtoModel

#endif
