/// What records do beyond holding values: ids, equality with its oddities, base information, decoding of file contents.
#include <quorixprotomodel/quorixprotomodel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using namespace Quorix::ProtoModel;

TEST(InterfaceId, PacksTheLowEightBitsOfEachPart) {
    const struct {
        s_InterfaceID id;
        std::uint32_t packed;
    } rows[] = {
        {{}, 0},
        {{3, 2, 1}, 197121}, // 3 * 65536 + 2 * 256 + 1
        {{255, 255, 255}, 16777215},
        {{256, 257, 258}, 258}, // 0, 1, 2: nothing carries into a neighbour
        {{-1, 0, 0}, 16711680},
        {{0, -1, std::numeric_limits<std::int32_t>::min()}, 65280},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.id.id(), row.packed);
}

/// What isn't stored takes part in equality all the same, and so do bases.
TEST(Equality, SeesWhatNoDocumentHolds) {
    const auto differs = []<class T>(T, auto change) {
        T changed;
        change(changed);
        return changed != T{} && T{} == T{};
    };
    EXPECT_TRUE(differs(s_CropDetailBody{}, [](auto &r) { r.width = 1; }));
    EXPECT_TRUE(differs(DeviceClientInfo{}, [](auto &r) { r.localPort = 1; }));
    EXPECT_TRUE(differs(DeviceBaseInfo{}, [](auto &r) { r.CtrlChannelType = eChannelType::TCPClient; }));
    EXPECT_TRUE(differs(DeviceBaseInfo{}, [](auto &r) { r.LastProbeTime += std::chrono::seconds(1); }));
    EXPECT_TRUE(differs(File::s_FileDetail{}, [](auto &r) { r.binaryData = "x"; }));
    EXPECT_TRUE(differs(File::s_PresetInfo{}, [](auto &r) { r.beforeOnePreset = 1; }));
    EXPECT_TRUE(differs(File::s_CreateImageFile{}, [](auto &r) { r.fileType = 1; }));
    EXPECT_TRUE(differs(Screen::s_ScreenGenlockBody{}, [](auto &r) { r.screenType = 2; }));
    EXPECT_TRUE(differs(Screen::s_Enable{}, [](auto &r) { r.screenId = 1; }));
    EXPECT_TRUE(differs(Auxiliary::s_UpgradeCardParts{}, [](auto &r) { r.rate = 1; }));
    EXPECT_TRUE(differs(Auxiliary::s_UpdateProcessSection{}, [](auto &r) { r.code = 1; }));
}

Screen::s_OutputDetail outputWithFeathers(std::initializer_list<std::int32_t> widths) {
    Screen::s_OutputDetail output;
    for (const std::int32_t width : widths)
        output.feather.push_back({.width = width});
    return output;
}

TEST(OutputDetail, ComparesFourFeathersInAnyOrder) {
    const auto output = outputWithFeathers({1, 2, 3, 4});
    const struct {
        const char *what;
        Screen::s_OutputDetail other;
        bool equal, equalBack;
    } rows[] = {
        {"the same", outputWithFeathers({1, 2, 3, 4}), true, true},
        {"another order", outputWithFeathers({4, 2, 1, 3}), true, true},
        {"one differs", outputWithFeathers({1, 2, 3, 5}), false, false},
        {"a fifth", outputWithFeathers({1, 2, 3, 4, 4}), false, false},
        {"three", outputWithFeathers({1, 2, 3}), false, false},
        {"one of them twice: sought one way only", outputWithFeathers({1, 2, 3, 3}), false, true},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(output == row.other, row.equal) << row.what;
        EXPECT_EQ(row.other == output, row.equalBack) << row.what;
        EXPECT_NE(output != row.other, row.equal) << row.what;
    }
    for (const auto &incomplete : {outputWithFeathers({}), outputWithFeathers({1, 2, 3})}) {
        const auto copy = incomplete;
        EXPECT_FALSE(incomplete == copy);
    }
    auto moved = output;
    moved.crop.y = 1;
    EXPECT_FALSE(moved == output);
    moved = output;
    moved.interfaceId.slotId = 1;
    EXPECT_FALSE(moved == output);
    moved = output;
    moved.pos.x = 1;
    EXPECT_FALSE(moved == output);
    Screen::s_ScreenMosaic mosaic; // an enclosing record inherits the oddity
    mosaic.outputs.resize(1);
    EXPECT_FALSE(mosaic == Screen::s_ScreenMosaic(mosaic));
}

TEST(Relation, SortsItsEndsAndItsList) {
    Device::s_Relation swapped{.type = 1, .interfaceA = 512, .interfaceB = 256, .actualInterface = 512};
    swapped.sort();
    EXPECT_EQ(swapped, (Device::s_Relation{1, 256, 512, 512}));
    swapped.sort();
    EXPECT_EQ(swapped.interfaceA, 256);
    Device::s_RelationArray list{{1, 2, 0, 0}, {0, 9, 9, 9}, {1, 1, 3, 0}, {1, 1, 2, 5}, {1, 1, 2, 4}};
    std::sort(list.begin(), list.end());
    EXPECT_EQ(list, (Device::s_RelationArray{{0, 9, 9, 9}, {1, 1, 2, 4}, {1, 1, 2, 5}, {1, 1, 3, 0}, {1, 2, 0, 0}}));
}

TEST(BaseInfo, Texts) {
    DeviceBaseInfo info;
    EXPECT_EQ(info.mac(), "000000000000");
    EXPECT_EQ(info.sn(), "0000000000000000");
    EXPECT_EQ(info.mainControlVersion(), "V0.0.0.0");
    EXPECT_TRUE(info.isEmptyMACAndSN());
    info.MainControlVersion = 16909060; // 1 * 2^24 + 2 * 2^16 + 3 * 2^8 + 4
    EXPECT_EQ(info.mainControlVersion(), "V1.2.3.4");
    info.MainControlVersion = 4278190335U;
    EXPECT_EQ(info.mainControlVersion(), "V255.0.0.255");
    info.SN[7] = 10;
    EXPECT_EQ(info.sn(), "000000000000000A");
    EXPECT_FALSE(info.isEmptyMACAndSN());
    const std::uint8_t bytes[] = {0, 159, 255, 16};
    EXPECT_EQ(DeviceBaseInfo::toHex(bytes, 4), "009FFF10");
    EXPECT_EQ(DeviceBaseInfo::toHex(nullptr, 0), "");
    info = {};
    info.MAC[0] = 1;
    EXPECT_FALSE(info.isEmptyMACAndSN());
}

TEST(BaseInfo, MasterIsTheFirstClientWithThisAddressAndPort) {
    const auto client = [](std::uint8_t last, std::uint16_t port, std::uint8_t allowed) {
        return DeviceClientInfo{
            .ip4 = last, .ip3 = 0, .ip2 = 168, .ip1 = 192, .localPort = port, .ClinentControlAllowed = allowed};
    };
    const struct {
        const char *what;
        std::list<DeviceClientInfo> clients;
        bool master;
    } rows[] = {
        {"nobody", {}, false},
        {"allowed", {client(9, 5000, 1)}, true},
        {"refused", {client(9, 5000, 0)}, false},
        {"bit 0 alone counts", {client(9, 5000, 254)}, false},
        {"bit 0 among others", {client(9, 5000, 3)}, true},
        {"another port", {client(9, 5001, 1)}, false},
        {"another address", {client(8, 5000, 1)}, false},
        {"the second entry", {client(8, 5000, 0), client(9, 5000, 1)}, true},
        {"the first that matches decides", {client(9, 5000, 0), client(9, 5000, 1)}, false},
    };
    for (const auto &row : rows) {
        DeviceBaseInfo info;
        info.ClientIps = row.clients;
        info.LocalIp = "192.168.0.9";
        info.LocalCtrlPort = 5000;
        EXPECT_EQ(info.isMasterControl(), row.master) << row.what;
    }
    EXPECT_EQ(client(9, 1, 0).clientIp(), "192.168.0.9");
    EXPECT_TRUE(client(9, 0, 0).isConnected());
    EXPECT_FALSE(DeviceClientInfo{.localPort = 1}.isConnected());
}

TEST(Decode, TakesWhatStandsAndLeavesTheErrorAlone) {
    File::s_KeypadInfo info;
    info.presetInfo.lastPGMPreset = 7;
    std::string error = "untouched";
    EXPECT_TRUE(decode(R"({"keypadArray":[{"buttonId":4},],"other":{"a":[1]},"presetInfo":{"lastPVWPreset":3}} [)",
                       info, error));
    EXPECT_EQ(error, "untouched");
    EXPECT_EQ(info.presetInfo.lastPVWPreset, 3);
    EXPECT_EQ(info.presetInfo.lastPGMPreset, 7) << "a member without a key keeps what it holds";
    EXPECT_EQ(info.keypadArray, (File::s_KeypadFileArray{{.buttonId = 4}}));
}

TEST(Decode, GivesTheReadersMessage) {
    const struct {
        std::string text, error;
    } rows[] = {
        {"", "error at line :0 col :0 msg:read object must start with {!"},
        {std::string("\0{}", 3), "error at line :0 col :0 msg:read object must start with {!"},
        {R"({"name":5})", "error at line :0 col :9 msg:not a valid string."},
        {R"({} /)", "error at line :0 col :4 msg:not a comment!"},
    };
    for (const auto &row : rows) {
        Preset::s_PresetCreate preset;
        std::string error = "replaced";
        EXPECT_FALSE(decode(row.text, preset, error)) << row.text;
        EXPECT_EQ(error, row.error) << row.text;
    }
    Preset::s_PresetCreate partly;
    std::string error;
    EXPECT_FALSE(decode(R"({"presetId":9,"screens":[{"screenId":2,"enable":-1}]})", partly, error));
    EXPECT_EQ(partly.presetId, 9);
    ASSERT_EQ(partly.screens.size(), 1U) << "the failing element stays behind";
    EXPECT_EQ(partly.screens[0].screenId, 2);
}

} // namespace
