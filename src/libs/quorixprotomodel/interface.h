/// What a device keeps of each input and output.
#ifndef QUORIXPROTOMODEL_INTERFACE_H
#define QUORIXPROTOMODEL_INTERFACE_H

#include <quorixprotomodel/device.h>

namespace Quorix::ProtoModel::Interface {

inline constexpr std::uint8_t bcInterface = 18; ///< base code of the messages below
inline constexpr std::uint8_t fcDetails = 0;
inline constexpr std::uint8_t fcGeneral = 1;
inline constexpr std::uint8_t fcTestPattern = 2;
inline constexpr std::uint8_t fcPresetTiming = 3;
inline constexpr std::uint8_t fcActualTiming = 4;
inline constexpr std::uint8_t fcImageQuality = 5;
inline constexpr std::uint8_t fcCrop = 6;
inline constexpr std::uint8_t fcCutoutGeneral = 7;
inline constexpr std::uint8_t fcHDCP = 8;
inline constexpr std::uint8_t fcColorDepth = 9;
inline constexpr std::uint8_t fcColorSpace = 10;
inline constexpr std::uint8_t fcColorRange = 11;
inline constexpr std::uint8_t fcFormatMapping = 12;
inline constexpr std::uint8_t fcHDR = 13;

struct s_CutoutHue {
    std::int32_t background = 0;
    std::int32_t foreground = 0;
    s_RGB color; ///< key colour
    bool operator==(const s_CutoutHue &) const = default;
};
QUORIX_AJSON(s_CutoutHue, background, foreground, color)

struct s_CutoutBrightness {
    std::int32_t threshold = 0;
    std::int32_t gain = 0;
    bool operator==(const s_CutoutBrightness &) const = default;
};
QUORIX_AJSON(s_CutoutBrightness, threshold, gain)

/// Keying of an input, by brightness or by hue.
struct s_CutoutGeneralBody {
    std::int32_t enable = 0;
    std::int32_t type = 0;
    s_CutoutBrightness brightness;
    s_CutoutHue hue;
    bool operator==(const s_CutoutGeneralBody &) const = default;
};
QUORIX_AJSON(s_CutoutGeneralBody, enable, type, brightness, hue)

struct s_HDCPBody {
    bool enable = false;
    std::int32_t presetType = 1; ///< Enum::Interface::HDCPType
    std::int32_t actualType = 1; ///< Enum::Interface::HDCPType
    bool operator==(const s_HDCPBody &) const = default;
};
QUORIX_AJSON(s_HDCPBody, enable, presetType, actualType)

/// The type of the base is the kind of the interface.
struct s_InterfaceGeneralBody : s_InterfaceMappingGeneral {
    std::string name = "N/A";       ///< UTF-8
    std::string nameGB2312 = "N/A"; ///< the name in GBK, as upper-case hexadecimal text
    bool operator==(const s_InterfaceGeneralBody &) const = default;
};
QUORIX_AJSON(s_InterfaceGeneralBody, name, nameGB2312, type)

/// Everything that a device holds of an input or output.
struct s_InterfaceDetail {
    s_InterfaceID interfaceId;
    s_InterfaceGeneralBody general;
    s_ColorDepthBody colorDepths;
    s_ColorSpaceBody colorSpaces;
    s_ColorRangeBody colorRanges;
    std::int32_t formatMapping = 0; ///< Enum::Interface::FormatMapping
    s_HDRBody HDR;
    s_HDCPBody HDCP;
    s_TestPatternBody testPattern;
    s_TimingDetailBody presetTiming; ///< asked for
    s_TimingDetailBody actualTiming; ///< in force
    s_ImageQualityBody imageQuality;
    s_CropDetailBody crop;
    s_CutoutGeneralBody cutoutGeneral;
    bool operator==(const s_InterfaceDetail &) const = default;
};
QUORIX_AJSON(s_InterfaceDetail, interfaceId, general, colorDepths, colorSpaces, colorRanges, formatMapping, HDR, HDCP,
             testPattern, presetTiming, actualTiming, imageQuality, crop, cutoutGeneral)
using s_InterfaceDetailArry = std::vector<s_InterfaceDetail>;

} // namespace Quorix::ProtoModel::Interface

#endif
