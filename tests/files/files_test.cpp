/// What a device does with its files, whatever their kind.
#include <quorixbizmodel/files/image.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <QThread>

#include <gmock/gmock.h>

#include <thread>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Enum::File::FileType;
using testing::ElementsAre;
using testing::IsEmpty;

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

struct Registry : testing::Test {
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    EventLog log{DeviceList::instance()};
    MessageLog messages;

    /// A file on the device.
    std::shared_ptr<File> file(FileType type, int id, const QString &name = {}) {
        auto made = device->createFile(type);
        made->setFileId(static_cast<uint8_t>(id));
        made->setName(name);
        log.name(made.get(), "file"_q + QString::number(id));
        device->addFile({made});
        return made;
    }
};

TEST_F(Registry, MakesAFileForATypeWithAClass) {
    for (const auto type : {FileType::BKG, FileType::LOGO, FileType::UMD}) {
        std::shared_ptr<File> made;
        std::thread([&] { made = device->createFile(type); }).join();
        EXPECT_EQ(made->fileType(), type);
        EXPECT_EQ(made->thread(), device->thread());
        EXPECT_EQ(device->createImage(type) != nullptr, type != FileType::UMD);
    }
    for (const auto type : {FileType::BKGThumb, FileType::OSD, FileType::ProjectFile, static_cast<FileType>(-1)})
        EXPECT_TRUE(device->createFile(type) == nullptr && device->createImage(type) == nullptr);
    EXPECT_THAT(device->files(0) + device->files(2) + device->files(10) + device->files(1), IsEmpty());
}

TEST_F(Registry, KeepsEachKindInItsList) {
    log.name(device.get(), "device"_q);
    const auto bkg = file(FileType::BKG, 7);
    const auto logo = file(FileType::LOGO, 8);
    const auto umd = file(FileType::UMD, 9);
    const auto twin = file(FileType::UMD, 9);
    device->addFile({nullptr, std::make_shared<Image>()});
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), ElementsAre("signalBKGAdded(device, file7)"_q, "signalLogoAdded(device, file8)"_q));
    EXPECT_EQ(device->findBKG(7).lock(), bkg);
    EXPECT_EQ(device->findLOGO(8).lock(), logo);
    EXPECT_EQ(device->findUMD(9).lock(), umd);
    EXPECT_EQ(device->findFile({.fileId = 8, .fileType = 2}).lock(), logo);
    EXPECT_TRUE(device->findFile(FileType::BKG, 7 + 256).expired() && device->findFile(FileType::LOGO, 7).expired() &&
                device->findFile(FileType::BKGThumb, 7).expired() && device->findUMD(7).expired());
    EXPECT_EQ(device->files(10).size(), 2);
    EXPECT_EQ(umd->owerDevice().lock(), device);

    device->removeFiles({umd, {}, logo, bkg, device->createFile(FileType::LOGO)});
    EXPECT_THAT(log.take(), ElementsAre("signalLogoRemoved(device, file8)"_q, "signalBKGRemoved(device, file7)"_q));
    EXPECT_EQ(device->findUMD(9).lock(), twin);
    EXPECT_THAT(device->files(0) + device->files(2), IsEmpty());
    device->clearAllFiles({FileType::UMD, FileType::BKG});
    EXPECT_EQ(device->files(10).size(), 1);
}

TEST_F(Registry, RefusesFilesThatAreNotWhatTheySay) {
    const auto bkg = file(FileType::BKG, 1);
    const auto plain = file(FileType::UMD, 1);
    log.take();
    EXPECT_FALSE(device->addUmdFile(plain) || device->addUmdFile({}) || device->removeUmdFile({}) ||
                 device->removeUmdFile(std::make_shared<File>()));
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Device add umd has failed!The umd is exists.  id 1"_q,
                                                "warning: Device add umd file has failed!The umd is null."_q,
                                                "warning: Device remove umd file has failed!The umd is null."_q));
    plain->setFileType(FileType::BKG);
    bkg->setFileType(FileType::LOGO);
    device->addFile({plain});
    EXPECT_TRUE(device->addImage(std::dynamic_pointer_cast<Image>(bkg)).expired() && device->addImage({}).expired());
    EXPECT_FALSE(device->removeBKG(plain) || device->removeBKG({}) || device->removeLogo(bkg));
    device->removeFiles({plain, bkg});
    EXPECT_EQ(device->files(0).size() + device->files(10).size(), 2);
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(Registry, ProposesIdsAndNames) {
    EXPECT_EQ(device->nextFileId(FileType::BKG), 0);
    EXPECT_EQ(device->nextImageName(FileType::BKG), "BKG-1"_q);
    EXPECT_EQ(device->nextImageName(FileType::UMD), "N/A1"_q);
    for (const int id : {3, 0, 1})
        file(FileType::LOGO, id, "LOGO-"_q + QString::number(id));
    EXPECT_EQ(device->nextFileId(FileType::LOGO), 2);
    EXPECT_EQ(device->nextImageName(FileType::LOGO), "LOGO-2"_q);
    EXPECT_TRUE(device->isFileNameExist(FileType::LOGO, "LOGO-0"_q));
    EXPECT_FALSE(device->isFileNameExist(FileType::LOGO, "logo-0"_q) || device->isFileNameExist(FileType::BKG, {}));
    for (int id = 0; id < 256; ++id) {
        EXPECT_EQ(device->nextFileId(FileType::UMD), id);
        file(FileType::UMD, id);
    }
    EXPECT_EQ(device->nextFileId(FileType::UMD), 255);
    EXPECT_EQ(device->nextFileId(FileType::OSD), 0);
}

TEST_F(Registry, TakesAReport) {
    QString errMsg = "as it was"_q;
    Quorix::ProtoModel::File::s_FileDetail umd;
    umd.fileId = 300;
    umd.fileType = 10;
    umd.binaryData = "gone";
    auto bkg = umd;
    bkg.fileType = 0;
    auto other = umd;
    other.fileType = 5;
    EXPECT_TRUE(device->initModelData({umd, other}, errMsg));
    EXPECT_FALSE(device->initModelData({bkg, umd}, errMsg)); // joined and kept all the same
    EXPECT_EQ(errMsg, "as it was"_q);
    const auto kept = device->findFile(FileType::BKG, 44).lock();
    ASSERT_TRUE(kept != nullptr && device->files(10).size() == 2);
    EXPECT_EQ(device->findUMD(44).lock()->fileBinaryData(), "");
    QCoreApplication::sendPostedEvents();
    log.take();
    kept->setName("name"_q);
    device->removeBKG(kept);
    kept->setName("after"_q);
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(),
                ElementsAre("signalNameChanged(?, ?)"_q, "signalBKGRemoved(?, ?)"_q, "signalNameChanged(?, ?)"_q));
}

TEST_F(Registry, FileSignalsWhatChanges) {
    const auto umd = std::make_shared<File>();
    EventLog own(umd.get());
    umd->createConnects(device);
    umd->createConnects(device);
    umd->setName("墙"_q);
    umd->setSize({4, 3});
    umd->setSize({4, 3});
    umd->setFileType(4);
    umd->setFileType(FileType::OSD);
    umd->setTransferProgress({{}, 1, 0, 0});
    umd->setTransferProgress({{}, 2, 5, 0});
    umd->setTransferProgress({{}, 3, 5, 0});
    umd->setFileId(3);
    EXPECT_EQ(umd->transferProgress().type, 2);
    EXPECT_EQ(umd->name() + umd->fileTypeString(), "墙OSD"_q);
    EXPECT_EQ(umd->fileInfoStruct().size.height + umd->fileInfoStruct().fileId, 6);
    EXPECT_THAT(own.take(), ElementsAre("signalNameChanged()"_q, "signalSizeChanged()"_q, "signalFileTypeChanged()"_q,
                                        "signalFileTransferProgressChanged()"_q));
    EXPECT_EQ(log.take().size(), 3); // the size stays here
    umd->setFileType(14);
    EXPECT_EQ(umd->fileTypeString(), "N/A"_q);
    File copy(*umd);
    copy = *umd;
    EXPECT_EQ(copy.name(), "N/A"_q);
}

TEST_F(Registry, LastReferenceMayGoOnAnyThread) {
    auto made = device->createFile(FileType::UMD);
    const QThread *endedOn = nullptr;
    QObject::connect(made.get(), &QObject::destroyed, [&] { endedOn = QThread::currentThread(); });
    std::thread([reference = std::move(made)]() mutable { reference.reset(); }).join();
    EXPECT_EQ(endedOn, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(endedOn, QThread::currentThread());
}

} // namespace
