/// Records know nothing of the model and hold their defaults as literals; here both are held together. Records
/// with texts in them are no constants for every compiler: those are left to the tests.
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/device.h>
#include <quorixprotomodel/protomodelbase.h>

namespace Quorix::BizModel {

namespace {

using namespace ProtoModel;

constexpr s_HDR10 kHDR10;
static_assert(kHDR10.toneMapping == Constants::Interface::defultToneMapping);
static_assert(kHDR10.screenPeakBrightness == Constants::Interface::defultScreenPeakBrightness);
static_assert(kHDR10.ambientLight == Constants::Interface::defultAmbientLight);
static_assert(kHDR10.pqMaxCll == Constants::Interface::defultPqMaxCll);

constexpr s_TestPatternBody kTestPattern;
static_assert(kTestPattern.type == Constants::offTestPatternKey);
static_assert(kTestPattern.bright == Constants::defaultTestPatternBrightness);
static_assert(kTestPattern.grid == Constants::defaultTestPatternGrid);
static_assert(kTestPattern.speed == Constants::defaultTestPatterSpeed);
static_assert(kTestPattern.gridLineWidth == Constants::defaultTestPatternGridLineWidth);

using Enum::Auxiliary::TestPatternType;
static_assert(toInt(TestPatternType::Close) == Constants::offTestPatternKey);
static_assert(toInt(TestPatternType::Customize) == Constants::customTestPatternKey);
static_assert(toInt(TestPatternType::OutputMapping) == Constants::testLoctionKey);

static_assert(s_ColorDepthBody{}.presetColorDepth == toInt(Enum::Interface::ColorDepth::_255_));
static_assert(toInt(Enum::Interface::ColorDepth::_255_) == Constants::Interface::bitDepthInvaildValue);
static_assert(s_ColorSpaceBody{}.presetColorSpace == toInt(Enum::Interface::ColorSpace::AUTO));
static_assert(s_ColorGamut{}.presetColorGamut == toInt(Enum::Interface::ColorGamut::AUTO));
static_assert(s_DynamicRangeDetail{}.type == toInt(Enum::Interface::DynamicRange::AUTO));
static_assert(s_ImageQualityBody{}.hue == Constants::Interface::defaultHue);
static_assert(s_ImageQualityBody{}.saturation == Constants::Interface::defaultSaturation);
static_assert(s_CropDetailBody{}.widthRatio == Constants::sourceCropRatio);
static_assert(s_CropDetailBody{}.heightRatio == Constants::sourceCropRatio);

static_assert(ProtoModel::Device::s_subcardBody{}.online == toInt(Enum::Device::SlotStatusType::Normal));

} // namespace

} // namespace Quorix::BizModel
