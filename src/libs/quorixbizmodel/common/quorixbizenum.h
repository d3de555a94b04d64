/// Enumerations of the model. Records carry them as 32-bit integers and documents as numbers, so the values are fixed;
/// masks of those whose values are bits travel as int (see enumtools.h).
#ifndef QUORIXBIZENUM_H
#define QUORIXBIZENUM_H

#include <quorixbizmodel/common/quorixbizenum_device.h>

#include <cstdint>

namespace Quorix::BizModel::Enum {

namespace Auxiliary {

/// Test patterns of an output or a card: plain colours and bars from 0, gradients from 256, lines from 512.
enum class TestPatternType : std::int32_t {
    Black = 0,
    Red = 1,
    Green = 2,
    Blue = 3,
    White = 4,
    VerticalBar = 5,
    HorizontalBar = 6,
    Checkerboard = 7,
    HorizontalRedGradient = 256,
    HorizontalGreenGradient = 257,
    HorizontalBlueGradient = 258,
    HorizontalWhiteGradient = 259,
    VerticalRedGradient = 260,
    VerticalGreenGradient = 261,
    VerticalBlueGradient = 262,
    VerticalWhiteGradient = 263,
    WhiteHorizontalLine = 512,
    WhiteVerticalLine = 513,
    WhiteLeftObliqueLine = 514,
    WhiteRightObliqueLine = 515,
    CrossLine = 516,
    DiagonalCrossing = 517,
    OutputMapping = 768,
    Customize = 65534,
    Close = 65535
};

} // namespace Auxiliary

/// What changes its capacity as one: the whole card or a single connector.
enum class CapacitySwitchMode : std::int32_t { SubCard = 0, Connector = 1 };

/// Kinds of the user interface's message box.
enum class FramelessMessageBoxMsgType : std::int32_t { Question = 0, Warning = 1, Information = 2 };

/// Kinds of a status bar message.
enum class StatusBarMsgType : std::int32_t { Normal = 0, Warning = 1, Error = 2 };

namespace File {

/// Content files of a device. No file has the number 16.
enum class FileType : std::int32_t {
    BKG = 0,
    BKGThumb = 1,
    LOGO = 2,
    LOGOThumb = 3,
    OSD = 4,
    OSDThumb = 5,
    PresetPVW = 6,
    PresetPVWThumb = 7,
    PresetPGM = 8,
    PresetPGMThumb = 9,
    UMD = 10,
    ProjectFile = 11,
    keypad = 12,
    UpgradeFile = 13,
    LogFile = 14,
    TempFile = 15,
    EDIDFile = 17,
    UserKeyFile = 18,
    Invalid = 19
};

} // namespace File

namespace Interface {

/// Capacity of a connector: single link, dual link, 4K; `invaild` stands for none.
enum class CapacityMode : std::int32_t { _SL = 0, _DL = 1, _4K = 2, invaild = 255 };

/// Bits per colour sample. `_0_` is unknown; `_255_` is Constants::Interface::bitDepthInvaildValue, chosen
/// automatically.
enum class ColorDepth : std::int32_t { _0_ = 0, _8_ = 8, _10_ = 10, _12_ = 12, _16_ = 16, _255_ = 255 };

/// Colour gamuts. `AUTO`: not set.
enum class ColorGamut : std::int32_t {
    Rec_601 = 0,
    Rec_709 = 1,
    DCI_P3 = 2,
    Rec_2020 = 3,
    NTSC = 4,
    aRGB = 5,
    AUTO = 255
};

/// Quantisation range of the samples.
enum class ColorRange : std::int32_t { Limited = 0, Full = 1 };

/// Pixel encodings and their chroma subsampling. `AUTO`: not set.
enum class ColorSpace : std::int32_t { RGB_4_4_4 = 0, YCbCr_4_2_2 = 1, YCbCr_4_4_4 = 2, YCbCr_4_2_0 = 3, AUTO = 255 };

/// Direction of an interface in the capability files.
enum class ConfigInterfaceType : std::int32_t { Input = 1, Output = 2 };

/// Connector types of cards. `ConnectorTypeCnt` counts them.
enum class ConnectorType : std::int32_t {
    INVALID = 0,
    EXP = 1,
    Single_Link_DVI = 2,
    Dual_Link_DVI = 3,
    HDMI_1_3 = 4,
    HDMI_1_4 = 5,
    HDMI_2_0 = 6,
    Single_Link_DP_1_1 = 7,
    DP_1_2 = 8,
    _3G_SDI = 9,
    VGA = 10,
    CVBS = 11,
    YpbPr = 12,
    _12G_SDI = 13,
    _6G_SDI = 14,
    USB = 15,
    HDBaseT = 16,
    Dual_Link_DP_1_1 = 17,
    DVI_Fiber = 18,
    DVI_1_4 = 19,
    Dual_Link_DVI_1_4 = 20,
    Dual_Link_HDMI_1_4 = 21,
    AUX_DVI1_3 = 22,
    AUX_HDMI1_3 = 23,
    ConnectorTypeCnt = 24
};

/// Dynamic ranges (transfer functions). `AUTO`: not set.
enum class DynamicRange : std::int32_t { SDR = 0, HDR10 = 1, HLG = 2, AUTO = 255 };

/// Mapping of a 3G-SDI link (SMPTE ST 425-1), where one is used.
enum class FormatMapping : std::int32_t { UnUsed = 0, Level_A = 1, Level_B = 2 };

/// Versions of the content protection.
enum class HDCPType : std::int32_t { Off = 0, HDCP_1_4 = 1, HDCP_1_3 = 2, HDCP_2_2 = 3 };

/// Kinds of interface, as bits of a mask. `Output` is the three output kinds together.
enum class InterfaceType : std::int32_t {
    Invalid = 1,
    Input = 2,
    MainOutput = 4,
    AUXOutput = 8,
    MVROutput = 16,
    Output = 28
};

/// Part of an output in hot backup.
enum class WorkMode : std::int32_t { Master = 0, Backup = 1, NoOutput = 2 };

} // namespace Interface

namespace Layer {

/// Aspect ratio that a layer's window keeps.
enum class AspectRatioType : std::int32_t {
    _1_1 = 0,
    _5_4 = 1,
    _3_2 = 2,
    _16_9 = 3,
    _16_10 = 4,
    _Custom = 5,
    _SourceScale = 6,
    _Invalid = 255
};

/// Looks of a layer border.
enum class BorderType : std::int32_t {
    Hard_in = 0,
    Hard_out = 1,
    Hard_in_out = 2,
    Soft = 3,
    Halo = 4,
    Halo_in = 5,
    Halo_out = 6,
    Invalid = 7
};

/// Mirroring of a layer picture.
enum class FlipType : std::int32_t { Normal = 0, HoriImage = 1, VerImage = 2, DiagonalImage = 3 };

/// How a layer is counted by the resource check.
enum class LayerMode : std::int32_t { Mix = 0, Single = 1 };

/// Kinds of layer, as bits of a mask. `NotImageType` is all that shows no stored picture.
enum class LayerType : std::int32_t {
    Invalid = 1,
    Regular = 2,
    AUX = 4,
    MVR = 8,
    BKG = 16,
    Logo = 32,
    Cut = 64,
    NotImageType = 78,
    AllLayerType = 126
};

/// Preview (PVW) and program (PGM), as bits of a mask.
enum class SceneType : std::int32_t { Invalid = 1, PGM = 2, PVW = 4, AllSceneType = 6 };

/// What feeds a layer.
enum class SourceType : std::int32_t {
    Empty = 0,
    NoSource = 1,
    Input = 2,
    PGM = 3,
    PVW = 4,
    BKG = 5,
    LOGO = 6,
    UserKey = 7
};

/// Corner of an under-monitor display text (UMD).
enum class UMDIndex : std::int32_t { TopLeft = 0, BottomLeft = 1, TopRight = 2, BottomRight = 3 };

} // namespace Layer

namespace Preset {

/// What a press on a preset does. `Noting` is the idle mode.
enum class PresetOptMode : std::int32_t { Noting = 0, Select = 1, Clear = 2, ClearAll = 3, Save = 4 };

} // namespace Preset

namespace Screen {

/// Edge of an output that is feathered.
enum class FeatherType : std::int32_t { Top = 0, Bottom = 1, Left = 2, Right = 3 };

/// Unit of screen measures.
enum class PhysicalUnitType : std::int32_t { Pixel = 0, Meter = 1 };

/// Ways to lay outputs together, as bits of a mask. `ShapedSpliceAction` is both shaped ones.
enum class ScreenSpliceMode : std::int32_t {
    StandardRectSplice = 2,
    StandardShapedSplice = 4,
    AnyShapedSplice = 8,
    ShapedSpliceAction = 12
};

/// Kinds of screen, as bits of a mask.
enum class ScreenType : std::int32_t {
    Invalid = 1,
    RegularScreen = 2,
    AUXScreen = 4,
    MVRScreen = 8,
    EchoScreen = 16,
    AllScreenType = 30
};

/// State of a screen between its scenes.
enum class State : std::int32_t { Normal = 0, Taking = 1, Resource_out = 2, Tbar_taking = 3, Cut = 4, MatchingPGM = 5 };

/// Transition effects of a take.
enum class SwitchEffectType : std::int32_t {
    cut = 0,
    fade = 1,
    EaseLeftTop = 2,
    EaseLeft = 3,
    EaseLeftBottom = 4,
    EaseBottom = 5,
    EaseRightBottom = 6,
    EaseRight = 7,
    EaseRightTop = 8,
    EaseTop = 9,
    EaseHoriFromCenter = 10,
    EaseVertFromCenter = 11,
    EaseFromCenter = 12,
    ScrollLeftTop = 13,
    ScrollLeft = 14,
    ScrollLeftBottom = 15,
    ScrollBottom = 16,
    ScrollRightBottom = 17,
    ScrollRight = 18,
    ScrollRightTop = 19,
    ScrollTop = 20,
    EaseVert2Center = 21,
    EaseHori2Center = 22,
    ZoomOut = 23,
    ZoomIn = 24,
    ZoomOutRectangle = 25,
    ZoomInCircle = 26,
    ZoomOutCircle = 27,
    ZoomInDiamond = 28,
    ZoomOutDiamond = 29,
    Ease2Center = 30
};

/// What of the screens and layers has changed since the last notice, as bits of a mask.
enum class UpdateType : std::int32_t { None = 0, PVW = 1, PGM = 2, Preset = 4 };

} // namespace Screen

} // namespace Quorix::BizModel::Enum

namespace Quorix::BizModel {

using EnumSourceType = Enum::Layer::SourceType;

} // namespace Quorix::BizModel

#endif
