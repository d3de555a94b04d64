/// Layers that show a picture.
#include <layers/layers.h>
#include <quorixbizmodel/files/image.h>

namespace {

using namespace Quorix::Tests;
using Enum::File::FileType;

struct Shown : Layers {
    std::shared_ptr<File> added(FileType type) {
        auto file = device->createFile(type);
        file->setFileId(5);
        file->setSize({300, 200});
        device->addFile({file});
        QCoreApplication::sendPostedEvents();
        log.take();
        return file;
    }
};

TEST_F(Shown, LayersGoBeforeTheirPicture) {
    const auto bkg = added(FileType::BKG);
    const auto umd = added(FileType::UMD);
    Layers::added(LayerType::BKG, "bkgLayer")->setSource(sourceOf(SourceType::BKG, 5));
    log.take();
    EXPECT_FALSE(device->removeBKG(umd)); // its id is that of the background
    EXPECT_EQ(log.take(), QStringList());
    log.name(bkg.get(), "bkg");
    EXPECT_TRUE(device->removeBKG(bkg));
    QCoreApplication::sendPostedEvents();
    const auto heard = log.take();
    EXPECT_EQ(heard.last(), "signalBKGRemoved(device, bkg)");
    EXPECT_TRUE(heard.join(' ').contains("signalLayerRemoved(device, regular, bkgLayer)"))
        << heard.join('\n').toStdString();
    EXPECT_TRUE(regular->layersBySource(SourceType::BKG, 5).isEmpty());
}

TEST_F(Shown, PicturesComeBackWithTheDevice) {
    const auto bkg = added(FileType::BKG);
    bkg->setOwerDevice({});
    device->unserailize();
    EXPECT_EQ(bkg->owerDevice().lock(), device);
}

} // namespace
