/// The stored form of each record: defaults, key order, and that every key reaches a member which equality sees.
#include "document_row.h"

#include <quorixprotomodel/quorixprotomodel.h>

#include <regex>
#include <string>

namespace {

using namespace Quorix::ProtoModel;

const std::string kPos = R"({"x":0,"y":0})";
const std::string kRect = R"({"x":0,"y":0,"width":1920,"height":1080})";
const std::string kRGB = R"({"R":50,"G":50,"B":50})";
const std::string kAllRGB = R"({"all":50,"R":50,"G":50,"B":50})";
const std::string kRGBO = R"({"R":50,"G":50,"B":50,"opacity":100})";
const std::string kId = R"({"slotId":0,"connectorId":0,"splitId":0})";
const std::string kDepth = R"({"actualColorDepth":0,"presetColorDepth":255})";
const std::string kSpace = R"({"actualColorSpace":0,"presetColorSpace":255})";
const std::string kRange = R"({"actualColorRange":0,"presetColorRange":255})";
const std::string kDepths = R"("colorDepths":)" + kDepth + R"(,"colorSpaces":)" + kSpace + R"(,"colorRanges":)" +
                            kRange + R"(,"formatMapping":0)";
const std::string kQuality =
    R"({"contrast":)" + kAllRGB + R"(,"brightness":)" + kAllRGB + R"(,"hue":0,"saturation":50,"gamma":220})";
const std::string kDynamic =
    R"({"type":255,"SDR":{"Gamma":220},)"
    R"("HDR10":{"toneMapping":0,"screenPeakBrightness":1000,"ambientLight":30,"pqMaxCll":1000},)"
    R"("HLG":{"ambientLight":0,"grade":5}})";
const std::string kHDR = R"({"colorGamut":{"actualColorGamut":0,"presetColorGamut":255},)"
                         R"("dynamicRange":{"actualDynamicRange":)" +
                         kDynamic + R"(,"presetDynamicRange":)" + kDynamic + "}}";
const std::string kAxis = R"({"addTime":0,"frontPorch":0,"sync":0,"syncPolarity":0,"totalTime":0})";
const std::string kTiming = R"({"interlaced":0,"refresh":0,"horizontal":)" + kAxis + R"(,"vertical":)" + kAxis + "}";
const std::string kPattern = // the type is closed, but for the output mapping of a device
    R"({"enable":0,"type":65535,"bright":2,"grid":4,"speed":3,"gridLineWidth":1,"gridType":0})";
const std::string kScreenName = R"({"name":"N/A","nameGB2312":"N/A","index":0})";
const std::string kMosaic = R"({"type":0,"splice":{"row":1,"column":1},"window":)" + kRect + R"(,"refOutputPara":{)" +
                            kDepths + R"(,"timing":)" + kTiming + R"(},"outputs":[]})";

const Row kRows[] = {
    row<s_ScreenId>("s_ScreenId", R"({"screenId":0,"screenType":0})"),
    row<Device::s_PowerBody>("s_PowerBody", R"({"powerId":0,"iSignal":0,"status":0})"),
    row<Device::s_Connectors>("s_Connectors", R"({"id":0,"type":0,"copyId":268435455,"workMode":0,"capacityMode":0})"),
    row<Device::s_DeviceGroupInfoBody>("s_DeviceGroupInfoBody", R"({"groupName":"","groupId":"0"})"),
    row<Device::s_subcardBody>("s_subcardBody",
                               R"({"slotId":0,"modelId":0,"boardId":0,"cardType":0,"online":1,"connectors":[]})"),
    row<Device::s_NetworkBody>("s_NetworkBody", R"({"index":0,"MAC":"000000000000","dhcp":0,"ip":"192.168.0.10",)"
                                                R"("subnetMask":"255.255.255.0","gateway":"192.168.0.1"})"),
    row<Device::s_InterfaceMapping>("s_InterfaceMapping", R"({"general":{"type":0},"testPattern":)" + kPattern + "}"),
    row<Device::s_Relation>("s_Relation", R"({"type":0,"interfaceA":0,"interfaceB":0,"actualInterface":0})"),
    row<Device::s_DeviceDetail>(
        "s_DeviceDetail",
        R"({"general":{"name":"N/A","status":1},"swap":1,"genlock":{"type":0,"interfaceId":268435455},)"
        R"("genlockSignal":{"extSignalIn":0,"status":0},"powers":[],"subcards":[],"networks":[],)"
        R"("dynamicRangConversion":{"enable":0,"type":0},"interfaceMapping":{"general":{"type":0},"testPattern":)"
        R"({"enable":0,"type":768,"bright":2,"grid":4,"speed":3,"gridLineWidth":1,"gridType":0}},"groupInfos":[],)"
        R"("noVSEnable":0,"interfaceRelation":{"enable":0,"relation":[]},"presetApplyType":0})"),
    row<DeviceClientInfo>("DeviceClientInfo", R"({"ip4":0,"ip3":0,"ip2":0,"ip1":0,"ClinentControlAllowed":0})"),
    row<DeviceBaseInfo>(
        "DeviceBaseInfo",
        R"({"ProbePort":0,"ModelId":0,"SN":[0,0,0,0,0,0,0,0],"MAC":[0,0,0,0,0,0],"MainControlVersion":0,)"
        R"("UDPProtocolVersion":0,"ProtocolVersion":0,"RemoteCtrlPort":0,"MaxDataLengthPerPacket":0,"DeviceName":"",)"
        R"("ClientIps":[],"IsQuorix":0,"RemoteIp":"","LocalIp":"","LocalCtrlPort":0})"),
    row<Screen::s_Feather>("s_Feather", R"({"enable":0,"type":0,"gamma":0,"width":0})"),
    row<Screen::s_OutputDetail>("s_OutputDetail", R"({"interfaceId":)" + kId + R"(,"pos":)" + kPos + R"(,"crop":)" +
                                                      kRect + R"(,"feather":[]})"),
    row<Screen::s_ScreenFullDetail>(
        "s_ScreenFullDetail",
        R"({"screenId":0,"screenType":0,"general":)" + kScreenName + R"(,"mosaic":)" + kMosaic +
            R"(,"backgroundColor":)" + kRGB + R"(,"layout":)" + kPos +
            R"(,"physicalSize":{"dotPitch":0,"unit":0,"width":1920,"height":1080},"PGMEdit":0,"selected":0,)" +
            R"("imageQuality":)" + kQuality + R"(,"freeze":0,"FTB":{"enable":0,"time":0},"testPattern":)" + kPattern +
            R"(,"switchEffect":{"time":5,"direction":0,"type":1},"tbar":{"percent":0},"HDR":)" + kHDR +
            R"(,"screenNoVS":{"enable":0,"status":0}})"),
    row<Layer::s_LayerUMDBody>("s_LayerUMDBody", R"({"index":0,"enable":0,"color":{"foregroundColor":)" + kRGBO +
                                                     R"(,"backgroundColor":)" + kRGBO + "}}"),
    row<Layer::s_LayerFullDetail>(
        "s_LayerFullDetail",
        R"({"layerIdenti":{"screenId":0,"screenType":0,"layerId":0,"layerType":0,"sceneType":0},)"
        R"("cutFill":{"enable":0,"isBinding":0},"zorder":0,"selected":0,"general":{"name":"N/A","isBackground":0,)"
        R"("isFreeze":0,"isMonochrome":0,"isInverse":0,"flipType":0},"source":{"general":{"type":0,"id":0},"crop":[]},)"
        R"("window":)" +
            kRect + R"(,"mask":{"enable":0,"left":0,"right":0,"top":0,"bottom":0},)" +
            R"("testColor":{"enable":0,"R":50,"G":50,"B":50},"opacity":100,"imageQuality":)" + kQuality +
            R"(,"shadow":{"general":{"enable":0,"feather":0},"window":)" + kRect + R"(,"color":)" + kRGBO +
            R"(},"border":{"enable":0,"type":0,"size":{"hWidth":2,"vWidth":2},"color":)" + kRGBO + R"(},"UMD":[]})"),
    row<Interface::s_InterfaceDetail>(
        "s_InterfaceDetail",
        R"({"interfaceId":)" + kId + R"(,"general":{"name":"N/A","nameGB2312":"N/A","type":0},)" + kDepths +
            R"(,"HDR":)" + kHDR + R"(,"HDCP":{"enable":0,"presetType":1,"actualType":1},"testPattern":)" + kPattern +
            R"(,"presetTiming":)" + kTiming + R"(,"actualTiming":)" + kTiming + R"(,"imageQuality":)" + kQuality +
            R"(,"crop":{"id":0,"type":0,"enable":0,"widthRatio":100000,"heightRatio":100000,"xRatio":0,"yRatio":0},)" +
            R"("cutoutGeneral":{"enable":0,"type":0,"brightness":{"threshold":0,"gain":0},)" +
            R"("hue":{"background":0,"foreground":0,"color":)" + kRGB + "}}}"),
    row<File::s_FileDetail>("s_FileDetail", R"({"fileId":0,"fileType":0,"general":{"name":"N/A"},)"
                                            R"("source":{"id":0,"type":0,"zoomRatio":1},)"
                                            R"("size":{"length":0,"hashSum":0,"width":0,"height":0}})"),
    row<File::s_KeypadFile>("s_KeypadFile", R"({"modelId":0,"modelType":0,"buttonId":0,"buttonColor":0})"),
    row<File::s_KeypadInfo>("s_KeypadInfo", R"({"presetInfo":{"lastPVWPreset":0,"lastPGMPreset":0,"pvwScn":[],)"
                                            R"("pgmScn":[]},"keypadArray":[]})"),
    row<Preset::s_Screen>("Preset::s_Screen", R"({"screenId":0,"screenType":0,"enable":0,"general":)" + kScreenName +
                                                  R"(,"mosaic":)" + kMosaic + "}"),
    row<Preset::s_PresetCreate>("s_PresetCreate", R"({"presetId":0,"name":"","startTime":0,"screens":[],"layers":[]})"),
    row<Auxiliary::s_CutoutPos>("s_CutoutPos", R"({"enable":0,"type":0,"id":0,"pos":)" + kPos + "}"),
};

TEST(Documents, OfNewRecords) {
    for (const Row &row : kRows)
        EXPECT_EQ(row.encodeNew(), row.document) << row.name;
}

/// One value after the other is changed: it must come back, in its place, and make the record unequal to a new one.
TEST(Documents, EachValueReachesAMemberThatEqualitySees) {
    const std::regex value(R"((\d+|"[^"]*")(?=[,}\]]))"); // a key is followed by a colon
    for (const auto &[name, document, encodeNew, rewrite, readsAsNew] : kRows) {
        const std::sregex_iterator end;
        std::sregex_iterator it(document.begin(), document.end(), value);
        EXPECT_NE(it, end) << name;
        for (; it != end; ++it) {
            const std::string other = it->str().front() == '"' ? R"("x")"
                                      : it->str() == "1"       ? "0"
                                                               : "1"; // fit for flags
            std::string text = document;
            text.replace(static_cast<std::size_t>(it->position()), it->str().size(), other);
            EXPECT_EQ(rewrite(text), text) << name;
            EXPECT_FALSE(readsAsNew(text)) << name << text;
        }
    }
}

} // namespace
