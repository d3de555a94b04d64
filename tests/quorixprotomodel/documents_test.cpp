/// The stored form of each record: defaults, key order, and that every key reaches a member which equality sees.
#include "document_row.h"

#include <quorixprotomodel/quorixprotomodel.h>

#include <fstream>
#include <regex>

namespace {

using namespace Quorix::ProtoModel;

template <class... Record>
std::vector<Row> rows() {
    return {row<Record>()...};
}

// In the order of documents.txt, where a line holds a record's name and the document of a new one.
const auto kRows =
    rows<s_ScreenId, Device::s_PowerBody, Device::s_Connectors, Device::s_DeviceGroupInfoBody, Device::s_subcardBody,
         Device::s_NetworkBody, Device::s_InterfaceMapping, Device::s_Relation, Device::s_DeviceDetail,
         DeviceClientInfo, DeviceBaseInfo, Screen::s_Feather, Screen::s_OutputDetail, Screen::s_ScreenFullDetail,
         Layer::s_LayerUMDBody, Layer::s_LayerFullDetail, Interface::s_InterfaceDetail, File::s_FileDetail,
         File::s_KeypadFile, File::s_KeypadInfo, Preset::s_Screen, Preset::s_PresetCreate, Auxiliary::s_CutoutPos>();

TEST(Documents, OfNewRecords) {
    std::ifstream file(QUORIX_TEST_DIR "/documents.txt");
    std::string name, document;
    for (const Row &row : kRows) {
        ASSERT_TRUE(file >> name && std::getline(file >> std::ws, document));
        EXPECT_EQ(row.encodeNew(), document) << name;
    }
    EXPECT_FALSE(file >> name);
}

/// One value after the other is changed: it must come back, in its place, and make the record unequal to a new one.
TEST(Documents, EachValueReachesAMemberThatEqualitySees) {
    const std::regex value(R"((\d+|"[^"]*")(?=[,}\]]))"); // a key is followed by a colon
    for (const auto &[encodeNew, rewrite, readsAsNew] : kRows) {
        const std::string document = encodeNew();
        const std::sregex_iterator end;
        std::sregex_iterator it(document.begin(), document.end(), value);
        EXPECT_NE(it, end) << document;
        for (; it != end; ++it) {
            const std::string other = it->str().front() == '"' ? R"("x")"
                                      : it->str() == "1"       ? "0"
                                                               : "1"; // fit for flags
            std::string text = document;
            text.replace(static_cast<std::size_t>(it->position()), it->str().size(), other);
            EXPECT_EQ(rewrite(text), text);
            EXPECT_FALSE(readsAsNew(text)) << text;
        }
    }
}

} // namespace
