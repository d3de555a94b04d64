/// What a device does with its files, whatever their kind.
#include "files.h"

#include <layers/layers.h>

#include <QThread>

#include <thread>

namespace Quorix::Tests {

TEST_F(Files, OfATypeWithAClassAreMadeAndEndedByAnyThread) {
    for (const auto type : {FileType::BKG, FileType::LOGO, FileType::UMD}) {
        std::shared_ptr<File> made;
        std::thread([&] { made = device->createFile(type); }).join();
        EXPECT_EQ(made->fileType(), type);
        EXPECT_EQ(made->thread(), device->thread());
        EXPECT_EQ(device->createImage(type) != nullptr, type != FileType::UMD);
        const QThread *endedOn = nullptr;
        QObject::connect(made.get(), &QObject::destroyed, [&] { endedOn = QThread::currentThread(); });
        std::thread([reference = std::move(made)]() mutable { reference.reset(); }).join();
        EXPECT_EQ(endedOn, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(endedOn, QThread::currentThread());
    }
    for (const auto type : {FileType::BKGThumb, FileType::OSD, FileType::ProjectFile, static_cast<FileType>(-1)})
        EXPECT_TRUE(device->createFile(type) == nullptr && device->createImage(type) == nullptr);
    EXPECT_THAT(device->files(0) + device->files(2) + device->files(10) + device->files(1), IsEmpty());
}

TEST_F(Files, StandInTheListOfTheirKind) {
    const auto screen = std::make_shared<RegularScreen>();
    screen->setOwerDevice(device);
    device->appendScreen(screen);
    addedLayer(*screen, LayerType::BKG, SceneType::PVW, SourceType::BKG, 7);
    heard();
    const auto bkg = added(FileType::BKG, 7);
    const auto logo = added(FileType::LOGO, 8);
    const auto umd = added(FileType::UMD, 7);
    const auto twin = added(FileType::UMD, 7);
    device->addFile({nullptr, std::make_shared<Image>()});
    EXPECT_EQ(heard(), "BKGAdded(file7) LogoAdded(file8)");
    EXPECT_EQ(device->findBKG(7).lock(), bkg);
    EXPECT_EQ(device->findLOGO(8).lock(), logo);
    EXPECT_EQ(device->findUMD(7).lock(), umd);
    EXPECT_EQ(device->findFile({.fileId = 8, .fileType = 2}).lock(), logo);
    EXPECT_TRUE(device->findFile(FileType::BKG, 7 + 256).expired() && device->findFile(FileType::LOGO, 7).expired() &&
                device->findFile(FileType::BKGThumb, 7).expired() && device->findUMD(8).expired());
    EXPECT_EQ(device->files(10).size(), 2);
    EXPECT_EQ(umd->owerDevice().lock(), device);

    EXPECT_TRUE(!device->removeBKG(umd) && !screen->layersBySource(SourceType::BKG, 7).isEmpty());
    QObject::connect(device.get(), &Device::signalBKGRemoved,
                     [&] { EXPECT_TRUE(screen->layersBySource(SourceType::BKG, 7).isEmpty()); });
    device->removeFiles({umd, {}, logo, bkg, device->createFile(FileType::LOGO)});
    EXPECT_EQ(heard(), "LogoRemoved(file8) BKGRemoved(file7)");
    EXPECT_EQ(device->findUMD(7).lock(), twin);
    EXPECT_THAT(device->files(0) + device->files(2), IsEmpty());
    device->clearAllFiles({FileType::UMD, FileType::BKG});
    EXPECT_EQ(device->files(10).size(), 1);
}

TEST_F(Files, ThatAreNotWhatTheySayAreRefused) {
    const auto bkg = added(FileType::BKG, 1);
    const auto umd = added(FileType::UMD, 1);
    umd->setOwerDevice({});
    heard();
    EXPECT_FALSE(device->addUmdFile(umd) || device->addUmdFile({}) || device->removeUmdFile({}) ||
                 device->removeUmdFile(std::make_shared<File>()));
    EXPECT_TRUE(umd->owerDevice().expired());
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Device add umd has failed!The umd is exists.  id 1",
                                                "warning: Device add umd file has failed!The umd is null.",
                                                "warning: Device remove umd file has failed!The umd is null."));
    umd->setFileType(FileType::BKG);
    bkg->setFileType(FileType::LOGO);
    device->addFile({umd});
    EXPECT_TRUE(device->addImage(std::dynamic_pointer_cast<Image>(bkg)).expired() && device->addImage({}).expired());
    EXPECT_FALSE(device->removeBKG(umd) || device->removeBKG({}) || device->removeLogo(bkg));
    device->removeFiles({umd, bkg});
    EXPECT_EQ(device->files(0).size() + device->files(10).size(), 2);
    EXPECT_EQ(heard(), "");
}

TEST_F(Files, GetFreeIdsAndNames) {
    EXPECT_EQ(device->nextImageName(FileType::BKG) + device->nextImageName(FileType::UMD), "BKG-1N/A1");
    for (const int id : {3, 0, 1})
        added(FileType::LOGO, id, QStringLiteral("LOGO-%1").arg(id));
    EXPECT_EQ(device->nextFileId(FileType::LOGO), 2);
    EXPECT_EQ(device->nextImageName(FileType::LOGO), "LOGO-2");
    EXPECT_TRUE(device->isFileNameExist(FileType::LOGO, "LOGO-0"));
    EXPECT_FALSE(device->isFileNameExist(FileType::LOGO, "logo-0") || device->isFileNameExist(FileType::BKG, {}));
    for (int id = 0; id < 256; ++id) {
        EXPECT_EQ(device->nextFileId(FileType::UMD), id);
        added(FileType::UMD, id);
    }
    EXPECT_EQ(device->nextFileId(FileType::UMD), 255);
    EXPECT_EQ(device->nextFileId(FileType::OSD), 0);
}

TEST_F(Files, OfAReportAreJoinedAndKept) {
    auto umd = recordOf(FileType::UMD, "gone");
    umd.fileId = 300;
    EXPECT_TRUE(device->initModelData({umd, recordOf(FileType::OSDThumb, {})}, errMsg));
    EXPECT_FALSE(device->initModelData({recordOf(FileType::BKG, "?"), umd}, errMsg)); // the first can't take its bytes
    EXPECT_EQ(errMsg, "as it was");
    const auto kept = device->findBKG(5).lock();
    ASSERT_TRUE(kept != nullptr && device->files(10).size() == 2);
    EXPECT_EQ(device->findUMD(44).lock()->fileBinaryData(), "");
    heard();

    EventLog own(kept.get());
    log.name(kept.get(), "kept");
    device->removeBKG(kept);
    kept->createConnects(device);
    for (int time = 0; time < 2; ++time) {
        kept->setName("墙");
        kept->setSize({4, 3});
        kept->setFileType(4);
        kept->setFileType(FileType::OSD);
        kept->setTransferProgress({{}, 2 + time, 5, 0});
        kept->setFileId(3);
    }
    EXPECT_EQ(kept->transferProgress().type, 2);
    EXPECT_EQ(kept->name() + kept->fileTypeString(), "墙OSD");
    EXPECT_EQ(kept->fileInfoStruct().size.height + kept->fileInfoStruct().fileId, 6);
    EXPECT_EQ(own.take().join(' '), "signalNameChanged() signalSizeChanged() signalFileTypeChanged() "
                                    "signalFileTransferProgressChanged()");
    EXPECT_EQ(heard(), "BKGRemoved(kept) NameChanged(kept) FileTypeChanged(kept) FileTransferProgressChanged(kept)");
    kept->setFileType(14);
    EXPECT_EQ(kept->fileTypeString(), "N/A");
    File copy(*kept);
    copy = *kept;
    EXPECT_EQ(copy.name(), "N/A");
}

} // namespace Quorix::Tests
