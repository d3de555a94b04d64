/// Constants of the model. Those of Qt types are initialised at run time: no static object may read them while it is
/// being initialised itself.
#ifndef QUORIXBIZCONSTANTS_H
#define QUORIXBIZCONSTANTS_H

#include <QColor>
#include <QList>
#include <QSize>
#include <QString>

#include <cstdint>

namespace Quorix::BizModel {

inline constexpr char DEVICECONFIG_FOLDER[] = "devices";                  ///< Folder of the capability files.
inline constexpr char DEVICETIMEOUTCONFIG_FOLDER[] = "timeout";           ///< Folder of the timeout files.
inline constexpr char INTERFACE_CONFIG_FILE[] = "QuorixInterfaceCfg.xml"; ///< Interface capability file.
inline constexpr char DEVICE_CFG_SUFFIX[] = ".json";                      ///< Suffix of a stored device document.
inline constexpr char PRESET_CFG_SUFFIX[] = ".preset";                    ///< Suffix of a stored preset document.
inline constexpr char PRESETSERAIL_CFG_SUFFIX[] = "preset";               ///< The same without its point.
inline constexpr std::uint16_t Invalid_DeviceModelId = 65535;             ///< No model id.
inline constexpr std::int32_t FileBinaryHeadLength = 256;                 ///< Length constant of a file description.
inline constexpr std::int32_t FileBinaryDescribeLength = 264;             ///< Length constant of a file description.
inline constexpr std::int32_t filePathLength = 256;                       ///< Length constant of a file description.
inline constexpr std::int32_t reserveLength = 243;                        ///< Length constant of a file description.

namespace Constants {

inline constexpr char BASE_CODE[] = "Bc";                              ///< Key of a base code.
inline constexpr char FUNCTION_CODE[] = "Fc";                          ///< Key of a function code.
inline constexpr char TIME_OUT[] = "TimeOuts";                         ///< Root of a timeout table.
inline constexpr char DEFAULT_TIME_OUT[] = "DefaultTimeOut";           ///< Key of the default timeout.
inline constexpr char HDR_CONFIG_FILE[] = "hdr/QuorixHDRCfg.xml";      ///< HDR configuration file.
inline constexpr char LANGUAGE_EN[] = "en";                            ///< Language code.
inline constexpr char LANGUAGE_ZHCN[] = "zh_CN";                       ///< Language code.
inline constexpr std::uint8_t invalidId_8 = 255;                       ///< Invalid 8-bit id.
inline constexpr std::uint16_t invalidId_16 = 65535;                   ///< Invalid 16-bit id.
inline constexpr std::uint32_t invalidId_32 = 4294967295;              ///< Invalid 32-bit id.
inline constexpr std::uint32_t customTestPatternKey = 65534;           ///< Test pattern `Customize`.
inline constexpr std::uint32_t offTestPatternKey = 65535;              ///< Test pattern `Close`.
inline constexpr std::uint32_t testLoctionKey = 768;                   ///< Test pattern `OutputMapping`.
inline constexpr std::int32_t defaultTestPatternBrightness = 2;        ///< Default `bright`.
inline constexpr std::int32_t defaultTestPatternGrid = 4;              ///< Default `grid`.
inline constexpr std::int32_t defaultTestPatterSpeed = 3;              ///< Default `speed`.
inline constexpr std::int32_t defaultTestPatternGridLineWidth = 1;     ///< Default `gridLineWidth`.
inline constexpr std::int32_t defaultTestPatternGridLineWidthMax = 64; ///< Largest grid line width.
inline constexpr std::int32_t defaultTestPatternGridSpacing = 32;      ///< Default grid spacing.
inline constexpr std::int32_t refreshRateRatio = 100;                  ///< Record refresh = rate in Hz times 100.
inline constexpr std::int32_t effectTimeRatio = 10;                    ///< Record effect time = seconds times 10.
inline constexpr std::int32_t gammaRatio = 100;                        ///< Record gamma = gamma times 100.
inline constexpr std::int32_t hueParaRatio = 100;                      ///< Record hue = hue times 100.
inline constexpr double sourceCropRatio = 100000.0;                    ///< Scale of crop ratios.
inline constexpr std::uint32_t tbarLevel = 64;                         ///< Steps of the T-bar.
inline constexpr std::int32_t tbarProcessRatio = 100;                  ///< Percent scale of T-bar progress.

namespace Device {

inline constexpr char defaultDeviceIP[] = "192.168.0.10";        ///< Address of a new device.
inline constexpr char defaultDeviceName[] = "System1";           ///< Name of a new device.
inline constexpr std::int32_t defaultDeviceGroupNum = 3;         ///< Number of device groups.
inline constexpr std::int32_t groupDeviceMaxCount = 8;           ///< Most devices in one group.
inline constexpr std::uint16_t invalidDeviceId = 65535;          ///< Invalid device id.
inline constexpr std::uint8_t finishedProcess = 100;             ///< Progress value of a finished job.
inline const QString defaultDeviceGroupId = QStringLiteral("0"); ///< Group id of a device in no group.
inline const QString genlockSource = QStringLiteral("Genlock");  ///< Name of the genlock source.
inline const QString nullGenlock = QStringLiteral("null");       ///< Name of no genlock source.

} // namespace Device

namespace File {

inline constexpr std::uint64_t BKGCapacity = 536870912; ///< Background image store in bytes (512 MiB).
inline constexpr std::uint64_t BKGCapacitySize = 512;   ///< The same in MiB.
inline constexpr std::int32_t BKGHeight_2K = 2160;      ///< Background height limit of the 2K class.
inline constexpr std::int32_t BKGWidth_2K = 2160;       ///< Background width limit of the 2K class, as wide as high.
inline constexpr std::int32_t BKGMaxHeight = 65536;     ///< Largest background height.
inline constexpr std::int32_t BKGMaxWidth = 65536;      ///< Largest background width.
inline constexpr std::int32_t allFileId = 255;          ///< All files.
inline constexpr std::int32_t allFileType = 255;        ///< All file types.
inline constexpr std::int32_t defaultMVRUMDHeight = 32; ///< Default height of an MVR UMD.
inline constexpr std::int32_t imageCnt_1 = 1;       ///< Logo slots of an image of at most 2160 pixels on both sides.
inline constexpr std::int32_t imageCnt_4 = 4;       ///< Logo slots of a larger image.
inline constexpr std::int32_t maxBKGCount = 255;    ///< Most background images.
inline constexpr std::uint8_t maxId = 255;          ///< Largest file id.
inline constexpr std::int32_t maxLOGOCount = 16;    ///< Most logo images.
inline constexpr std::int32_t thumbHeightMin = 128; ///< Thumbnail height constant.
inline constexpr std::int32_t thumbWidthMin = 128;  ///< Thumbnail width constant.
inline constexpr std::int32_t thumbMinBoundary = 65536;                ///< Thumbnail boundary constant.
inline constexpr std::int32_t thumbMaxBoundary = 262144;               ///< Thumbnail boundary constant.
inline const QString defaultProjectSuffix = QStringLiteral(".quorix"); ///< Suffix of a project file.

} // namespace File

namespace Interface {

inline constexpr std::int32_t SLFrameRateStep = 1;                ///< Frame rate step of a single-link port.
inline constexpr std::int32_t DPFrameRateStep = 2;                ///< Frame rate step of a DP port.
inline constexpr std::int32_t HDMIFrameRateStep = 4;              ///< Frame rate step of an HDMI port.
inline constexpr std::int32_t DP1_2FrameRateStep = 8;             ///< Frame rate step of a DP 1.2 port.
inline constexpr std::int32_t _4xDPinputcardID = 30472;           ///< Model id: input card with four DP ports.
inline constexpr std::int32_t _1xHDMI_1xDPinputcardID = 30473;    ///< Input card with one HDMI and one DP port.
inline constexpr std::int32_t _2xHDMI_2xDPinputcardID = 30474;    ///< Input card with two HDMI and two DP ports.
inline constexpr std::int32_t bitDepthInvaildValue = 255;         ///< Automatic or invalid bit depth.
inline constexpr std::int32_t defaultHue = 0;                     ///< Default hue.
inline constexpr std::int32_t defaultSaturation = 50;             ///< Default saturation.
inline constexpr std::int32_t defultAmbientLight = 30;            ///< Default ambient light.
inline constexpr std::int32_t defultPqMaxCll = 1000;              ///< Default maximum content light level.
inline constexpr std::int32_t defultScreenPeakBrightness = 1000;  ///< Default peak brightness.
inline constexpr bool defultToneMapping = false;                  ///< Default tone mapping.
inline constexpr double defultGamma = 1.0;                        ///< Default gamma of an interface.
inline constexpr std::int32_t defultMinBandWidth = 25000000;      ///< Lowest pixel clock.
inline constexpr std::int32_t defultSLMaxBandWidth = 165000000;   ///< Highest pixel clock of a single link.
inline constexpr std::int32_t defultDLMaxBandWidth = 297000000;   ///< Highest pixel clock of a dual link.
inline constexpr std::int32_t defult4KMaxBandWidth = 594000000;   ///< Highest pixel clock of a 4K port.
inline constexpr std::uint64_t single4k_MaxGbPS = 8640000000;     ///< Bit rate limit of a single 4K port.
inline constexpr std::uint64_t double4k_SL_MaxGbPS = 3600000000;  ///< Bit rate limit of a double-4K card at SL.
inline constexpr std::uint64_t double4k_DL_MaxGbPS = 7200000000;  ///< The same at DL.
inline constexpr std::uint64_t double4k_4K_MaxGbPS = 14400000000; ///< The same at 4K.
inline constexpr std::int32_t splitCountOf4kInput = 4;            ///< Splits of a 4K input.
inline constexpr std::int32_t splitCountOfDLInput = 2;            ///< Splits of a DL input.
/// Refresh rates that the model knows, in hertz.
inline const QList<float> allRefreshList{23.98F, 24.0F, 25.0F,  29.97F, 30.0F, 47.95F, 48.0F,  50.0F,   56.0F, 59.94F,
                                         60.0F,  70.0F, 71.93F, 72.0F,  75.0F, 85.0F,  100.0F, 119.88F, 120.0F};

} // namespace Interface

namespace Layer {

inline constexpr QSize borderMaxSize{255, 255};                         ///< Largest border.
inline constexpr QSize borderMiniSize{0, 0};                            ///< Smallest border.
inline constexpr QSize defaultWindowSize{960, 540};                     ///< Window of a new layer.
inline constexpr QSize minWindowSize{64, 64};                           ///< Smallest window.
inline constexpr QSize layerInputCropMinSize{64, 64};                   ///< Smallest input crop.
inline constexpr std::int32_t defaultLayerSplitOffset = 8;              ///< Default split offset of a layer.
inline constexpr std::int32_t defaultSubCardLayerCount = 8;             ///< Layers per card.
inline constexpr std::int32_t mvrLayerSizeRatio = 64;                   ///< Size ratio of MVR layers.
inline constexpr std::int32_t defaultMVRUMDbackgroundOpacity = 40;      ///< Percent.
inline constexpr std::uint8_t maxId = 255;                              ///< Largest layer id.
inline const QColor defaultLayerBorderColor{50, 50, 50, 100};           ///< Border colour, red, green, blue, alpha.
inline const QColor defaultMVRInputLayerBorderColor{48, 107, 178, 100}; ///< Border of an MVR layer with an input.
inline const QColor defaultMVRPGMLayerBorderColor{192, 36, 37, 100};    ///< Border of an MVR layer with a PGM source.
inline const QColor defaultMVRPVWLayerBorderColor{18, 134, 2, 100};     ///< Border of an MVR layer with a PVW source.
inline const QColor defaultMVRUMDbackgroundColor{0, 0, 0, 102};         ///< Background of a default MVR UMD.
inline const QColor defaultMVRUMDforegroundColor{178, 178, 178, 255};   ///< Foreground of a default MVR UMD.
inline const QColor defaultTestColr{0, 0, 0, 255};                      ///< Test colour of a new layer.

} // namespace Layer

namespace Screen {

inline constexpr double boderFuseGammaMin = 1.0;          ///< Smallest feather gamma.
inline constexpr double boderFuseGammaMax = 5.0;          ///< Largest feather gamma.
inline constexpr double defaultBorderFuseGamma = 2.2;     ///< Default feather gamma.
inline constexpr std::int32_t defaultBorderFuseWidth = 0; ///< Default feather width.
inline constexpr double defultGamma = 1.0;                ///< Default gamma of a screen.
inline constexpr std::int32_t defaultCol = 1;             ///< Default mosaic columns.
inline constexpr std::int32_t defaultRow = 1;             ///< Default mosaic rows.
inline constexpr std::int32_t gridCol = 6;                ///< Columns of the default grid.
inline constexpr std::int32_t gridRow = 6;                ///< Rows of the default grid.
inline constexpr std::int32_t defultZOrder = -255;        ///< Z-order of a screen without layers.
inline constexpr std::uint8_t maxId = 255;                ///< Largest screen id.

} // namespace Screen

namespace Output {

inline constexpr QSize defaultCellSize{1920, 1080};

} // namespace Output

namespace Preset {

inline constexpr std::int32_t maxPresetCount = 240;

} // namespace Preset

/// Texts for the user, each its own key of translation: QCoreApplication::translate("Translate", key).
namespace Translate {
// clang-format off

inline constexpr char TR_THE_ADDSCREEN_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Adding screen,please wait...");
inline constexpr char TR_THE_CLEANLAYER_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Cleaning layers,please wait...");
inline constexpr char TR_THE_CLEANPRESET_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Cleaning presets,please wait...");
inline constexpr char TR_THE_DELETEPRESET_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Deleting preset,please wait...");
inline constexpr char TR_THE_FULLSCREEN[] = QT_TRANSLATE_NOOP("Translate", "Full screen");
inline constexpr char TR_THE_FUNCTION_CLEARALLLAYER[] = QT_TRANSLATE_NOOP("Translate", "Do you want to remove all the layers from PVW?");
inline constexpr char TR_THE_FUNCTION_CLEARALLPRESET[] = QT_TRANSLATE_NOOP("Translate", "Are you sure you want to delete all the presets?");
inline constexpr char TR_THE_FUNCTION_CLEARALL_PGM_LAYER[] = QT_TRANSLATE_NOOP("Translate", "Do you want to remove all the layers from PGM?");
inline constexpr char TR_THE_FUNCTION_CREATEPRESET[] = QT_TRANSLATE_NOOP("Translate", "can't create PVW preset");
inline constexpr char TR_THE_FUNCTION_FAILLOADPRESET[] = QT_TRANSLATE_NOOP("Translate", "Failed to load some screens of preset");
inline constexpr char TR_THE_FUNCTION_LOADPRESET[] = QT_TRANSLATE_NOOP("Translate", "Preset Content loaded sucessfully!");
inline constexpr char TR_THE_FUNCTION_LOADTOPGM[] = QT_TRANSLATE_NOOP("Translate", "The preset will be directly loaded to PGM. Continue?");
inline constexpr char TR_THE_FUNCTION_SAVEDEVICEDATA[] = QT_TRANSLATE_NOOP("Translate", "Saving device data, please wait.");
inline constexpr char TR_THE_FUNCTION_SAVEDEVICEDATAFAILURE[] = QT_TRANSLATE_NOOP("Translate", "save data failure.");
inline constexpr char TR_THE_FUNCTION_SAVEDEVICEDATAOK[] = QT_TRANSLATE_NOOP("Translate", "save data successed.");
inline constexpr char TR_THE_FUNCTION_SYNCDEVICEDATA[] = QT_TRANSLATE_NOOP("Translate", "Syncing device data , please wait.");
inline constexpr char TR_THE_FUNCTION_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Please wait...");
inline constexpr char TR_THE_INPUT_CAPACITYMISMATCH[] = QT_TRANSLATE_NOOP("Translate", "It is not consistent with the current layer capacity!");
inline constexpr char TR_THE_INPUT_SELECTLAYERFIRST[] = QT_TRANSLATE_NOOP("Translate", "Please select a layer first.");
inline constexpr char TR_THE_LAYERTEMPLATE_4K[] = QT_TRANSLATE_NOOP("Translate", "4K");
inline constexpr char TR_THE_LAYERTEMPLATE_DL[] = QT_TRANSLATE_NOOP("Translate", "DL");
inline constexpr char TR_THE_LAYERTEMPLATE_SL[] = QT_TRANSLATE_NOOP("Translate", "SL");
inline constexpr char TR_THE_LAYER_EASEBOTTOM[] = QT_TRANSLATE_NOOP("Translate", "Wipe from bottom");
inline constexpr char TR_THE_LAYER_EASEHORI2CENTER[] = QT_TRANSLATE_NOOP("Translate", "Horizontal in");
inline constexpr char TR_THE_LAYER_EASEHORIFROMCENTER[] = QT_TRANSLATE_NOOP("Translate", "Horizontal out");
inline constexpr char TR_THE_LAYER_EASELEFT[] = QT_TRANSLATE_NOOP("Translate", "Wipe from left");
inline constexpr char TR_THE_LAYER_EASELEFTBOTTOM[] = QT_TRANSLATE_NOOP("Translate", "Wipe from bottom - left");
inline constexpr char TR_THE_LAYER_EASELEFTTOP[] = QT_TRANSLATE_NOOP("Translate", "Wipe from top - left");
inline constexpr char TR_THE_LAYER_EASERIGHT[] = QT_TRANSLATE_NOOP("Translate", "Wipe from right");
inline constexpr char TR_THE_LAYER_EASERIGHTBOTTOM[] = QT_TRANSLATE_NOOP("Translate", "Wipe from bottom - right");
inline constexpr char TR_THE_LAYER_EASERIGHTTOP[] = QT_TRANSLATE_NOOP("Translate", "Wipe from top - right");
inline constexpr char TR_THE_LAYER_EASETOP[] = QT_TRANSLATE_NOOP("Translate", "Wipe from top");
inline constexpr char TR_THE_LAYER_EASEVERT2CENTER[] = QT_TRANSLATE_NOOP("Translate", "Vertical in");
inline constexpr char TR_THE_LAYER_EASEVERTFROMCENTER[] = QT_TRANSLATE_NOOP("Translate", "Vertical out");
inline constexpr char TR_THE_LAYER_EXCEEDLIMIT[] = QT_TRANSLATE_NOOP("Translate", "The number of layers exceeds the limit.");
inline constexpr char TR_THE_LAYER_MIX[] = QT_TRANSLATE_NOOP("Translate", "Fade");
inline constexpr char TR_THE_LAYER_NOINPUT4K[] = QT_TRANSLATE_NOOP("Translate", "No 4K input source, this operation cannot be completed.");
inline constexpr char TR_THE_LAYER_NOINPUTDL[] = QT_TRANSLATE_NOOP("Translate", "No DL input source, this operation cannot be completed.");
inline constexpr char TR_THE_LAYER_NOINPUTSL[] = QT_TRANSLATE_NOOP("Translate", "No SL input source, this operation cannot be completed.");
inline constexpr char TR_THE_LAYER_NOMATCHINGINPUT[] = QT_TRANSLATE_NOOP("Translate", "Unable to find matching input source!");
inline constexpr char TR_THE_LAYER_NOMATCHINPUT[] = QT_TRANSLATE_NOOP("Translate", "No matching input source found.");
inline constexpr char TR_THE_LAYER_RESOURCENOTENOUGH[] = QT_TRANSLATE_NOOP("Translate", "Not enough resources.");
inline constexpr char TR_THE_LAYER_SCREENSTATE[] = QT_TRANSLATE_NOOP("Translate", "The current operation cannot be completed during the screen taking.");
inline constexpr char TR_THE_LOADTOPGM[] = QT_TRANSLATE_NOOP("Translate", "Load to PGM");
inline constexpr char TR_THE_LOADTOPVW[] = QT_TRANSLATE_NOOP("Translate", "Load to PVW");
inline constexpr char TR_THE_PAGE[] = QT_TRANSLATE_NOOP("Translate", "Page %1");
inline constexpr char TR_THE_SCREEN_SCREENLIMIT[] = QT_TRANSLATE_NOOP("Translate", "The number of screens exceeds the limit!");
inline constexpr char TR_THE_TAKE_WAIT[] = QT_TRANSLATE_NOOP("Translate", "Taking,please wait...");
// clang-format on

} // namespace Translate

} // namespace Constants

} // namespace Quorix::BizModel

#endif
