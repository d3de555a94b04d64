/// User keys and keypads: their content, and the lists of a device.
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/userkey.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Enum::File::FileType;
using testing::ElementsAre;
using testing::IsEmpty;

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

struct Keys : testing::Test {
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    EventLog log{DeviceList::instance()};
    MessageLog messages;
    QString errMsg;

    Keys() { log.name(device.get(), "device"_q); }

    std::shared_ptr<UserKey> key(int fileId, int keyId, const QString &name = {}) {
        auto made = std::dynamic_pointer_cast<UserKey>(Device::createFile(FileType::UserKeyFile));
        made->setFileId(static_cast<uint8_t>(fileId));
        made->setUserkeyId(static_cast<uint8_t>(keyId));
        made->setName(name);
        log.name(made.get(), "key"_q + QString::number(fileId));
        return made;
    }

    QStringList heard() { return log.take().replaceInStrings("device, "_q, QString()); }

    QString order() {
        QString ids;
        for (const auto &file : device->files(18))
            ids += QString::number(file.lock()->fileId());
        return ids;
    }
};

TEST_F(Keys, TakeTheirContent) {
    const auto made = key(1, 1, "old"_q);
    Quorix::ProtoModel::File::s_FileDetail detail;
    detail.fileId = 4;
    detail.fileType = 18;
    detail.general.name = "Blur";
    detail.binaryData = R"({"name":"other","userKeyId":9,"userKeyColor":3,"bLayerMaskBody":1,)"
                        R"("layerFullDetail":{"opacity":40},"cutLayerFullDetail":{"zorder":6}})";
    errMsg = "kept"_q;
    EXPECT_TRUE(made->initModelData(detail, errMsg));
    EXPECT_EQ(errMsg, "kept"_q);
    auto content = made->getUserKeyDetail();
    EXPECT_EQ(content.name + made->name().toStdString(), "BlurBlur");
    EXPECT_EQ(made->userkeyId() * 10 + made->fileId(), 94);
    EXPECT_TRUE(content.bLayerMaskBody && !content.bLayerPosBody && content.layerFullDetail.opacity == 40 &&
                content.cutLayerFullDetail.zorder == 6);
    detail.general.name = "Sharp";
    detail.binaryData = R"({"userKeyColor":5,"userKeyId":-)";
    EXPECT_FALSE(made->initModelData(detail, errMsg));
    EXPECT_TRUE(errMsg.startsWith("Decode json failed: "_q) && errMsg.size() > 21);
    EXPECT_EQ(made->getUserKeyDetail().name + made->name().toStdString(), "BlurSharp");
    EXPECT_EQ(made->getUserKeyDetail().userKeyColor, 5);

    EventLog own(made.get());
    content.name = "Mörk";
    made->setFileType(0);
    made->setUserKeyDetail(content);
    EXPECT_EQ(made->getUserKeyDetail(), content);
    EXPECT_EQ(made->name(), "Mörk"_q);
    EXPECT_THAT(own.take(),
                ElementsAre("signalFileTypeChanged()"_q, "signalFileTypeChanged()"_q, "signalNameChanged()"_q));
}

TEST_F(Keys, StandByNumber) {
    const auto late = key(1, 8);
    const auto early = key(2, 7);
    const auto twin = key(3, 8);
    EXPECT_TRUE(device->addUserKeyFile(late) && device->addModifyUserKeyFile(early) && device->addUserKeyFile(twin));
    EXPECT_EQ(order(), "213"_q);
    EXPECT_THAT(heard(), ElementsAre("signalUserKeyChanged(key1)"_q, "signalModifyUserKeyChanged(key2)"_q,
                                     "signalUserKeyChanged(key3)"_q));
    EXPECT_TRUE(device->compareUserKey(late, early) && !device->compareUserKey(late, twin) &&
                !device->compareUserKey(late, {}));
    EXPECT_EQ(late->owerDevice().lock(), device);
    EXPECT_TRUE(device->removeModifyUserKeyFile(late) && device->removeUserKeyFile(early));
    EXPECT_FALSE(device->removeUserKeyFile(late) || device->clearUserKeyFiles({}) ||
                 device->clearUserKeyFiles({FileType::BKG, FileType::UserKeyFile}));
    device->removeFiles({twin});
    EXPECT_TRUE(device->clearUserKeyFiles({FileType::UserKeyFile, FileType::BKG}));
    EXPECT_THAT(heard(), ElementsAre("signalDeleteUserKey(key2)"_q, "signalDeleteUserKey(key3)"_q,
                                     "signalClearUserKey()"_q, "signalClearUserKey()"_q));
    EXPECT_THAT(MessageLog::take(), IsEmpty());
}

TEST_F(Keys, GetFreeNumbersAndNames) {
    EXPECT_EQ(device->nextUserKeyID(), 1);
    EXPECT_EQ(device->nextUserKeyName(), "User Key001"_q);
    for (int id = 0; id < 256; ++id) {
        EXPECT_EQ(device->nextUserKeyFileID(), std::max(id, 1));
        device->addFile({key(id, 0, device->nextUserKeyName())});
    }
    EXPECT_EQ(device->nextUserKeyFileID(), 255);
    EXPECT_EQ(device->findUserKey(8).lock()->name() + device->findUserKey(9).lock()->name(),
              "User Key009User Key010"_q);
    EXPECT_EQ(device->findUserKey("User Key100"_q).lock()->fileId(), 99);
    EXPECT_TRUE(device->findUserKey("user Key100"_q).expired() && device->findFile(FileType::UserKeyFile, 8).expired());
}

TEST_F(Keys, OneKeypadTakesThePlaceOfTheOther) {
    const auto first = Device::createFile(FileType::keypad);
    const auto second = Device::createFile(FileType::keypad);
    second->setFileId(2);
    log.name(second.get(), "second"_q);
    Quorix::ProtoModel::File::s_FileDetail detail;
    detail.fileId = 5;
    detail.fileType = 12;
    detail.binaryData = R"({"keypadArray":[{"buttonId":4}]})";
    errMsg = "old"_q;
    EXPECT_TRUE(first->initModelData(detail, errMsg));
    EXPECT_EQ(errMsg, QString());
    EXPECT_EQ(std::dynamic_pointer_cast<Keypad>(first)->state().m_keypadInfo.keypadArray.at(0).buttonId, 4);
    detail.binaryData = "{";
    EXPECT_FALSE(first->initModelData(detail, errMsg));
    EXPECT_NE(errMsg, QString());
    detail.fileType = 18;
    errMsg = "old"_q;
    EXPECT_FALSE(first->initModelData(detail, errMsg));
    EXPECT_EQ(errMsg + QString::number(toInt(first->fileType())), "old18"_q);
    device->addKeypadFile(first);
    device->addFile({second});
    EXPECT_TRUE(device->files(12).size() == 1 && device->findKeypad(2).lock() == second &&
                device->findFile(FileType::keypad, 5).expired());
    EXPECT_EQ(heard().last(), "signalKeypadChanged(second)"_q);
    EXPECT_FALSE(device->addKeypadFile({}) || device->addKeypadFile(key(2, 1)) || device->addUserKeyFile(second) ||
                 device->removeKeypadFile(key(2, 1)) || device->removeKeypadFile(first) ||
                 device->removeUserKeyFile({}) || device->removeModifyUserKeyFile(second));
    const QString warning = "warning: Device %1 file has failed!The keypad is null."_q;
    const auto add = warning.arg("add keypad"_q);
    const auto remove = warning.arg("remove userKey"_q);
    EXPECT_THAT(MessageLog::take(), ElementsAre(add, add, add, warning.arg("remove keypad"_q), remove, remove));
    EXPECT_EQ(device->findKeypad(2).lock(), second);
    EXPECT_TRUE(device->removeKeypadFile(second));
    EXPECT_THAT(heard(), IsEmpty());
}

} // namespace
