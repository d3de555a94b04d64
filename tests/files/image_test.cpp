/// The block of a device, the way into the store, what pictures take of a device.
#include "files.h"

#include <imagestorage/imagestorage.h>

#include <QTemporaryDir>
#include <QTimer>

namespace Quorix::Tests {

namespace {

std::string words(std::initializer_list<std::uint32_t> values) {
    std::string bytes;
    for (const auto value : values)
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(value >> shift & 255U);
    return bytes;
}

constexpr std::uint32_t kPixels = 0xFFFFFFFF;

/// A block with a size of 2 by 1 and two pixels.
std::string block(std::uint32_t first, std::uint32_t second) {
    return words({1, 12, 1, 2, 1, kPixels, 8, first, second});
}

} // namespace

struct Pictures : Files {
    QTemporaryDir folder;

    void SetUp() override { ImageStorager::instance()->setFolder(folder.path()); }

    std::shared_ptr<Image> image(FileType type, QSize size = {}) {
        auto made = device->createImage(type);
        made->setSize(size);
        device->addImage(made);
        return made;
    }
};

TEST_F(Pictures, ComeInBlocksThatAreReadRecordByRecord) {
    const struct {
        std::string bytes;
        QString reason; ///< empty: accepted
        QSize size;
        int index;
    } rows[] = {
        {"x", "0", {}, 0},
        {"1234567", "incomplete, parse file info failed", {}, 0},
        {words({kPixels, 0}), {}, {}, 8},
        {words({kPixels, 1}), "incomplete, parse file length failed", {}, 8},
        {words({7, kPixels, 0}), "incomplete, parse file length failed", {}, 8},
        {words({1, 11, 0, 0, 0}), "incomplete, parse file info tag failed", {}, 8},
        {words({1, 12, 0, 4, 3}), "incomplete, can not find image binary data", {4, 3}, 20},
        {words({1, 20, 9, 4, 3, kPixels, 4, 0}), {}, {4, 3}, 28}, // the next record stands within the value
        {words({7, 8, kPixels, 0, 1}), {}, {}, 16},               // and of an unknown tag in its value
        {words({1, 12, 0, 4, 3, 1, 12, 0, 6, 5, kPixels, 0}), {}, {6, 5}, 48},
    };
    for (const auto &row : rows) {
        QSize size;
        int index = -1;
        EXPECT_EQ(Image::parseImageBinaryData(row.bytes, size, index, 5, 2), row.reason.isEmpty());
        EXPECT_EQ(size, row.size);
        EXPECT_EQ(index, row.index) << row.reason.toStdString();
        EXPECT_EQ(MessageLog::take().join(';'),
                  row.reason.isEmpty() ? "" : "warning: Image size is " + row.reason + ", image type is 2, id is 5.");
        EXPECT_TRUE(Image::parseImageBinaryData(row.bytes, size, index, 5, 1) && index == 0);
    }
}

TEST_F(Pictures, KeepTheirPixelsInTheStore) {
    const auto logo = image(FileType::LOGO);
    EventLog own(logo.get());
    ASSERT_TRUE(
        logo->initModelData(recordOf(FileType::LOGO, block(0x01FF8040, 0x80102030) + "surplus", {20, 10}), errMsg));
    EXPECT_EQ(logo->fileBinaryData(), words({0x01FF8040, 0x80102030}));
    EXPECT_EQ(logo->size(), QSize(20, 10)); // the record's size wins over the picture's
    EXPECT_EQ(logo->state().m_detail.size.length, 8);
    EXPECT_EQ(logo->pixmap().lock()->size(), QSize(2, 1));
    const auto bkg = image(FileType::BKG);
    ASSERT_TRUE(bkg->initModelData(recordOf(FileType::BKG, block(0x00FF8040, 0x80102030)), errMsg));
    EXPECT_EQ(bkg->fileBinaryData(), words({0xFFFF8040, 0xFF102030}));
    const auto thumb = std::make_shared<Image>();
    ASSERT_TRUE(thumb->initModelData(recordOf(FileType::LOGOThumb, words({1, 0x22000002})), errMsg));
    EXPECT_EQ(thumb->fileBinaryData(), words({1, 0x22000002}));
    logo->setThumbnailHashKey(thumb->image());
    EXPECT_EQ(logo->thumbnailHashKey(), thumb->originalImageHashKey());
    EXPECT_EQ(logo->thumbnailImage().pixel(1, 0), 0xFF000002);
    EXPECT_THAT(own.take() + MessageLog::take(), IsEmpty());

    const std::weak_ptr<QPixmap> before = logo->pixmap();
    logo->setOwerDevice({});
    device->unserailize();
    EXPECT_TRUE(before.expired() && logo->owerDevice().lock() == device);
    EXPECT_EQ(logo->pixmap().lock()->size(), logo->thumbnailPixmap().lock()->size());
    ImageStorager::instance()->setFolder(folder.filePath("elsewhere"));
    logo->unserailize(device);
    EXPECT_TRUE(logo->pixmap().expired() && logo->thumbnailPixmap().expired());
    EXPECT_EQ(logo->originalImageHashKey().size(), 64);
}

TEST_F(Pictures, RefusePixelsThatDoNotFit) {
    const auto logo = image(FileType::LOGO);
    ASSERT_TRUE(logo->initModelData(recordOf(FileType::LOGO, block(1, 2)), errMsg));
    const auto key = logo->originalImageHashKey();
    const struct {
        FileType type;
        std::string bytes;
        QSize size;
        QString warning;
    } rows[] = {
        {FileType::LOGO, words({kPixels, 4, 0}), {1, 1}, "error"}, // no size
        {FileType::BKG, words({1, 12, 1, 2, 2, kPixels, 4, 0, 0, 0}), {2, 2}, "error"},
        {FileType::BKG, words({1, 12, 1, kPixels, kPixels, kPixels, 4, 0}), {1, 1}, "error"},
        {FileType::BKG, words({1, 12, 1, 0x40000000, 0x40000000, kPixels, 0}), {1, 1}, "error"},
        {FileType::UMD, "", {0, 0}, "should be 0, but it is real size is 0"},
        {FileType::BKGThumb, words({1}), {-1, -1}, "should be 4, but it is real size is 4"},
        {FileType::BKGThumb, "", {0x40000000, 16}, "should be 68719476736, but it is real size is 0"},
    };
    for (const auto &row : rows) {
        EXPECT_FALSE(logo->initModelData(recordOf(row.type, row.bytes, row.size), errMsg));
        EXPECT_THAT(MessageLog::take(), ElementsAre("warning: image size " + row.warning));
        EXPECT_EQ(logo->fileType(), row.type);
        EXPECT_EQ(logo->originalImageHashKey(), key);
    }
    EXPECT_TRUE(errMsg == "as it was" && !logo->signalsBlocked());
}

TEST_F(Pictures, SayWhatCouldNotBeStored) {
    const auto bkg = image(FileType::BKG);
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    bkg->setImage(picture, true);
    bkg->setThumbnailHashKey(picture);
    const auto key = bkg->originalImageHashKey();
    bkg->setThumbnailHashKey({});
    EXPECT_TRUE(bkg->thumbnailHashKey() == key && bkg->thumbnailPixmap().expired());
    MessageLog::take();
    ImageStorager::instance()->setFolder("/dev/null/pictures");
    bkg->setThumbnailHashKey(picture);
    for (const bool isAsync : {false, true}) {
        bkg->setImage(picture.copy(0, 0, 1, 1), isAsync);
        EXPECT_EQ(bkg->originalImageHashKey(), "Invalid picture");
        EXPECT_TRUE(bkg->pixmap().expired() && bkg->image().isNull());
    }
    EXPECT_EQ(bkg->size(), QSize(3, 2));
    EXPECT_EQ(bkg->thumbnailHashKey(), key);
    bkg->setImage({}, true);
    EXPECT_THAT(MessageLog::take().filter("debug: "),
                ElementsAre("debug: setThumb Failed", "debug: setImage Failed", "debug: setImage Failed",
                            "debug: image is null", "debug: pix is null"));
}

TEST_F(Pictures, GoByTheLaterOfTwoOverlappingCalls) {
    auto bkg = image(FileType::BKG);
    QTimer::singleShot(0, [&] {
        bkg->setImage(QImage(3, 2, QImage::Format_Mono), false);
        device->removeBKG(bkg);
        bkg.reset();
    });
    const std::weak_ptr<Image> watched = bkg;
    EventLog own(bkg.get());
    bkg->setImage(QImage(500, 400, QImage::Format_RGB32), true);
    EXPECT_TRUE(bkg == nullptr && watched.expired());
    EXPECT_THAT(own.take(), ElementsAre("signalSizeChanged()"));
}

TEST_F(Pictures, TakeRoomOnTheDevice) {
    EXPECT_EQ(device->remainingBKGCapacity(), 536870912U);
    image(FileType::BKG, {1921, 1080});
    image(FileType::BKG, {-5, 1080});
    EXPECT_EQ(device->bkgUsedCapacity(), 1936U * 1080 * 4);
    EXPECT_TRUE(device->isBKGCapacityEnough(536870912U - 1936 * 1080 * 4));
    EXPECT_FALSE(device->isBKGCapacityEnough(536870913U - 1936 * 1080 * 4) ||
                 device->isImageCapacityEnough(FileType::BKG));
    for (int i = 0; i < 3; ++i)
        image(FileType::BKG, {2147483647, 2147483647});
    EXPECT_TRUE(device->remainingBKGCapacity() == 0 && device->isImageCapacityEnough(FileType::BKG));

    for (const QSize size : {QSize(0, 9), QSize(9, -1), QSize(2160, 2160), QSize(2161, 10), QSize(10, 2161)})
        image(FileType::LOGO, size);
    EXPECT_EQ(device->currentLogoCount(), 0 + 0 + 1 + 4 + 4);
    for (int i = 0; i < 6; ++i)
        image(FileType::LOGO, {1, 1});
    EXPECT_FALSE(device->isImageCapacityEnough(FileType::LOGO) || device->isLogoCapacityEnough({2161, 1}));
    EXPECT_TRUE(device->isLogoCapacityEnough({2160, 1}));
    image(FileType::LOGO, {1, 1});
    EXPECT_TRUE(device->isImageCapacityEnough(FileType::LOGO) && !device->isImageCapacityEnough(FileType::UMD));
}

} // namespace Quorix::Tests
