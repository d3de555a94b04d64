/// User keys and keypads: their content, and the lists of a device.
#include "files.h"

#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/userkey.h>

#include <algorithm>

namespace Quorix::Tests {

struct Keys : Files {
    std::shared_ptr<UserKey> key(int fileId, int keyId) {
        auto key = std::dynamic_pointer_cast<UserKey>(made(FileType::UserKeyFile, fileId));
        key->setUserkeyId(static_cast<uint8_t>(keyId));
        return key;
    }
};

TEST_F(Keys, TakeTheirContent) {
    const auto taken = key(1, 1);
    EXPECT_TRUE(taken->initModelData(recordOf(FileType::UserKeyFile,
                                              R"({"name":"other","userKeyId":9,"userKeyColor":3,"bLayerMaskBody":1,)"
                                              R"("layerFullDetail":{"opacity":40},"cutLayerFullDetail":{"zorder":6}})"),
                                     errMsg));
    EXPECT_EQ(errMsg, "as it was");
    auto content = taken->getUserKeyDetail();
    EXPECT_EQ(content.name + taken->name().toStdString(), "reportedreported");
    EXPECT_EQ(taken->userkeyId() * 10 + taken->fileId(), 95);
    EXPECT_TRUE(content.bLayerMaskBody && !content.bLayerPosBody && content.layerFullDetail.opacity == 40 &&
                content.cutLayerFullDetail.zorder == 6);
    auto broken = recordOf(FileType::UserKeyFile, R"({"userKeyColor":5,"userKeyId":-)");
    broken.general.name = "Sharp";
    EXPECT_FALSE(taken->initModelData(broken, errMsg));
    EXPECT_TRUE(errMsg.startsWith("Decode json failed: ") && errMsg.size() > 21);
    EXPECT_EQ(taken->getUserKeyDetail().name + taken->name().toStdString(), "reportedSharp");
    EXPECT_EQ(taken->getUserKeyDetail().userKeyColor, 5);

    EventLog own(taken.get());
    content.name = "Mörk";
    taken->setFileType(0);
    taken->setUserKeyDetail(content);
    EXPECT_EQ(taken->getUserKeyDetail(), content);
    EXPECT_EQ(taken->name(), "Mörk");
    EXPECT_EQ(own.take().join(' '), "signalFileTypeChanged() signalFileTypeChanged() signalNameChanged()");
}

TEST_F(Keys, StandByNumber) {
    const auto late = key(1, 8);
    const auto early = key(2, 7);
    const auto twin = key(3, 8);
    EXPECT_TRUE(device->addUserKeyFile(late) && device->addModifyUserKeyFile(early) && device->addUserKeyFile(twin));
    const auto list = device->files(18);
    EXPECT_TRUE(list[0].lock() == early && list[1].lock() == late && list[2].lock() == twin);
    EXPECT_EQ(heard(), "UserKeyChanged(file1) ModifyUserKeyChanged(file2) UserKeyChanged(file3)");
    EXPECT_TRUE(device->compareUserKey(late, early) && !device->compareUserKey(late, twin) &&
                !device->compareUserKey(late, {}));
    EXPECT_EQ(late->owerDevice().lock(), device);
    EXPECT_TRUE(device->removeModifyUserKeyFile(late) && device->removeUserKeyFile(early));
    EXPECT_FALSE(device->removeUserKeyFile(late) || device->clearUserKeyFiles({}) ||
                 device->clearUserKeyFiles({FileType::BKG, FileType::UserKeyFile}));
    device->removeFiles({twin});
    EXPECT_TRUE(device->clearUserKeyFiles({FileType::UserKeyFile, FileType::BKG}));
    EXPECT_EQ(heard(), "DeleteUserKey(file2) DeleteUserKey(file3) ClearUserKey() ClearUserKey()");
    EXPECT_THAT(MessageLog::take(), IsEmpty());
}

TEST_F(Keys, GetFreeNumbersAndNames) {
    EXPECT_EQ(device->nextUserKeyID(), 1);
    for (int id = 0; id < 256; ++id) {
        EXPECT_EQ(device->nextUserKeyFileID(), std::max(id, 1));
        added(FileType::UserKeyFile, id, device->nextUserKeyName());
    }
    EXPECT_EQ(device->nextUserKeyFileID(), 255);
    EXPECT_EQ(device->findUserKey(0).lock()->name() + device->findUserKey(9).lock()->name(), "User Key001User Key010");
    EXPECT_EQ(device->findUserKey("User Key100").lock()->fileId(), 99);
    EXPECT_TRUE(device->findUserKey("user Key100").expired() && device->findFile(FileType::UserKeyFile, 8).expired());
}

TEST_F(Keys, OneKeypadTakesThePlaceOfTheOther) {
    const auto first = Device::createFile(FileType::keypad);
    const auto second = made(FileType::keypad, 2);
    const auto key = made(FileType::UserKeyFile, 2);
    EXPECT_TRUE(first->initModelData(recordOf(FileType::keypad, R"({"keypadArray":[{"buttonId":4}]})"), errMsg));
    EXPECT_EQ(errMsg, "");
    EXPECT_EQ(std::dynamic_pointer_cast<Keypad>(first)->state().m_keypadInfo.keypadArray.at(0).buttonId, 4);
    EXPECT_FALSE(first->initModelData(recordOf(FileType::keypad, "{"), errMsg));
    EXPECT_NE(errMsg, "");
    errMsg = "old";
    EXPECT_FALSE(first->initModelData(recordOf(FileType::UserKeyFile, "{"), errMsg));
    EXPECT_TRUE(errMsg == "old" && first->fileType() == FileType::UserKeyFile);
    device->addKeypadFile(first);
    device->addFile({second});
    EXPECT_TRUE(device->files(12).size() == 1 && device->findKeypad(2).lock() == second &&
                device->findFile(FileType::keypad, 5).expired());
    EXPECT_TRUE(heard().endsWith(" KeypadChanged(file2)"));
    EXPECT_FALSE(device->addKeypadFile({}) || device->addKeypadFile(key) || device->addUserKeyFile(second) ||
                 device->removeKeypadFile(key) || device->removeKeypadFile(first) || device->removeUserKeyFile({}) ||
                 device->removeModifyUserKeyFile(second));
    const QString warning = "warning: Device %1 file has failed!The keypad is null.";
    const auto add = warning.arg("add keypad"), remove = warning.arg("remove userKey");
    EXPECT_THAT(MessageLog::take(), ElementsAre(add, add, add, warning.arg("remove keypad"), remove, remove));
    EXPECT_EQ(device->findKeypad(2).lock(), second);
    EXPECT_TRUE(device->removeKeypadFile(second));
    EXPECT_EQ(heard(), "");
}

} // namespace Quorix::Tests
