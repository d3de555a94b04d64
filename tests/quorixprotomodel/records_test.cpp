/// What records do beyond holding values: ids, equality with its oddities, base information.
#include <quorixprotomodel/quorixprotomodel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using namespace Quorix::ProtoModel;

TEST(InterfaceId, PacksTheLowEightBitsOfEachPart) {
    const std::pair<s_InterfaceID, std::uint32_t> rows[] = {
        {{}, 0},
        {{3, 2, 1}, 197121}, // 3 * 65536 + 2 * 256 + 1
        {{255, 255, 255}, 16777215},
        {{256, 257, 258}, 258}, // 0, 1, 2: nothing carries into a neighbour
        {{-1, 0, 0}, 16711680},
        {{0, -1, std::numeric_limits<std::int32_t>::min()}, 65280},
    };
    for (const auto &[id, packed] : rows)
        EXPECT_EQ(id.id(), packed);
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
    const std::tuple<Screen::s_OutputDetail, bool, bool> rows[] = {
        {outputWithFeathers({1, 2, 3, 4}), true, true},
        {outputWithFeathers({4, 2, 1, 3}), true, true},
        {outputWithFeathers({1, 2, 3, 5}), false, false},
        {outputWithFeathers({1, 2, 3, 4, 4}), false, false},
        {outputWithFeathers({1, 2, 3}), false, false},
        {outputWithFeathers({1, 2, 3, 3}), false, true}, // one of them twice: sought one way only
    };
    for (const auto &row : rows) {
        const auto &[other, isEqual, isEqualBack] = row;
        EXPECT_EQ(output == other, isEqual) << &row - rows;
        EXPECT_EQ(other == output, isEqualBack) << &row - rows;
        EXPECT_NE(output != other, isEqual) << &row - rows;
    }
    for (const auto &incomplete : {outputWithFeathers({}), outputWithFeathers({1, 2, 3})}) {
        const auto copy = incomplete;
        EXPECT_FALSE(incomplete == copy);
    }
    for (auto change : {+[](Screen::s_OutputDetail &o) { o.crop.y = 1; },
                        +[](Screen::s_OutputDetail &o) { o.interfaceId.slotId = 1; },
                        +[](Screen::s_OutputDetail &o) { o.pos.x = 1; }}) {
        auto moved = output;
        change(moved);
        EXPECT_FALSE(moved == output);
    }
    Screen::s_ScreenMosaic mosaic; // an enclosing record inherits the oddity
    mosaic.outputs.resize(1);
    EXPECT_FALSE(mosaic == Screen::s_ScreenMosaic(mosaic));
}

TEST(Relation, SortsItsEndsAndItsList) {
    Device::s_Relation swapped{.type = 1, .interfaceA = 512, .interfaceB = 256, .actualInterface = 512};
    for (int i = 0; i < 2; ++i) {
        swapped.sort();
        EXPECT_EQ(swapped, (Device::s_Relation{1, 256, 512, 512}));
    }
    Device::s_RelationArray list{{1, 2, 0, 0}, {0, 9, 9, 9}, {1, 1, 3, 0}, {1, 1, 2, 5}, {1, 1, 2, 4}};
    std::sort(list.begin(), list.end());
    EXPECT_EQ(list, (Device::s_RelationArray{{0, 9, 9, 9}, {1, 1, 2, 4}, {1, 1, 2, 5}, {1, 1, 3, 0}, {1, 2, 0, 0}}));
}

TEST(BaseInfo, Texts) {
    DeviceBaseInfo info;
    EXPECT_EQ(info.mac() + info.sn() + info.mainControlVersion(), "0000000000000000000000000000V0.0.0.0");
    EXPECT_TRUE(info.isEmptyMACAndSN());
    for (const auto &[version, text] : {std::pair(0x01020304U, "V1.2.3.4"), {0xFF0000FFU, "V255.0.0.255"}}) {
        info.MainControlVersion = version;
        EXPECT_EQ(info.mainControlVersion(), text);
    }
    info.SN[7] = 10;
    EXPECT_TRUE(info.sn() == "000000000000000A" && !info.isEmptyMACAndSN());
    const std::uint8_t bytes[] = {0, 159, 255, 16};
    EXPECT_EQ(DeviceBaseInfo::toHex(bytes, 4) + DeviceBaseInfo::toHex(nullptr, 0), "009FFF10");
    info = {};
    info.MAC[0] = 1;
    EXPECT_FALSE(info.isEmptyMACAndSN());
}

TEST(BaseInfo, MasterIsTheFirstClientWithThisAddressAndPort) {
    const auto client = [](std::uint8_t last, std::uint16_t port, std::uint8_t allowed) {
        return DeviceClientInfo{last, 0, 168, 192, port, allowed};
    };
    const std::tuple<const char *, std::list<DeviceClientInfo>, bool> rows[] = {
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
    for (const auto &[what, clients, isMaster] : rows) {
        DeviceBaseInfo info;
        info.ClientIps = clients;
        info.LocalIp = "192.168.0.9";
        info.LocalCtrlPort = 5000;
        EXPECT_EQ(info.isMasterControl(), isMaster) << what;
    }
    EXPECT_EQ(client(9, 1, 0).clientIp(), "192.168.0.9");
    EXPECT_TRUE(client(9, 0, 0).isConnected() && !DeviceClientInfo{.localPort = 1}.isConnected());
}

} // namespace
