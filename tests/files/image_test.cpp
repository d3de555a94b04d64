/// The block of a device, the way into the store, what pictures take of a device.
#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/files/image.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Enum::File::FileType;
using testing::ElementsAre;
using testing::IsEmpty;

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

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

Quorix::ProtoModel::File::s_FileDetail detail(FileType type, std::string bytes, int width = 2, int height = 1) {
    Quorix::ProtoModel::File::s_FileDetail record;
    record.fileId = 5;
    record.fileType = static_cast<int>(type);
    record.size.width = width;
    record.size.height = height;
    record.binaryData = std::move(bytes);
    return record;
}

TEST(ImageBlock, IsReadRecordByRecord) {
    const MessageLog messages;
    const struct {
        std::string bytes;
        QString reason; ///< empty: accepted
        QSize size;
        int index;
    } rows[] = {
        {"x", "0"_q, {}, 0},
        {"1234567", "incomplete, parse file info failed"_q, {}, 0},
        {words({kPixels, 0}), {}, {}, 8},
        {words({kPixels, 1}), "incomplete, parse file length failed"_q, {}, 8},
        {words({7, kPixels, 0}), "incomplete, parse file length failed"_q, {}, 8},
        {words({1, 11, 0, 0, 0}), "incomplete, parse file info tag failed"_q, {}, 8},
        {words({1, 12, 0, 4, 3}), "incomplete, can not find image binary data"_q, {4, 3}, 20},
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
        const auto text = "warning: Image size is "_q + row.reason + ", image type is 2, id is 5."_q;
        EXPECT_EQ(MessageLog::take(), row.reason.isEmpty() ? QStringList() : QStringList(text));
        EXPECT_TRUE(Image::parseImageBinaryData(row.bytes, size, index, 5, 1) && index == 0);
    }
}

struct Pictures : testing::Test {
    QTemporaryDir folder;
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    MessageLog messages;
    QString errMsg = "as it was"_q;

    void SetUp() override { ImageStorager::instance()->setFolder(folder.path()); }

    std::shared_ptr<Image> image(FileType type, QSize size = {}) {
        auto made = device->createImage(type);
        made->setSize(size);
        device->addImage(made);
        return made;
    }
};

TEST_F(Pictures, KeepTheirPixelsInTheStore) {
    const auto logo = image(FileType::LOGO);
    EventLog log(logo.get());
    ASSERT_TRUE(logo->initModelData(detail(FileType::LOGO, block(0x01FF8040, 0x80102030) + "surplus", 20, 10), errMsg));
    EXPECT_EQ(logo->fileBinaryData(), words({0x01FF8040, 0x80102030}));
    EXPECT_EQ(logo->size(), QSize(20, 10)); // the record's size wins over the picture's
    EXPECT_EQ(logo->state().m_detail.size.length, 8);
    EXPECT_EQ(logo->pixmap().lock()->size(), QSize(2, 1));
    const auto bkg = image(FileType::BKG);
    ASSERT_TRUE(bkg->initModelData(detail(FileType::BKG, block(0x00FF8040, 0x80102030)), errMsg));
    EXPECT_EQ(bkg->fileBinaryData(), words({0xFFFF8040, 0xFF102030}));
    const auto thumb = std::make_shared<Image>();
    ASSERT_TRUE(thumb->initModelData(detail(FileType::LOGOThumb, words({1, 0x22000002})), errMsg));
    EXPECT_EQ(thumb->fileBinaryData(), words({1, 0x22000002}));
    logo->setThumbnailHashKey(thumb->image());
    EXPECT_EQ(logo->thumbnailHashKey(), thumb->originalImageHashKey());
    EXPECT_EQ(logo->thumbnailImage().pixel(1, 0), 0xFF000002);
    EXPECT_THAT(log.take() + MessageLog::take(), IsEmpty());

    const std::weak_ptr<QPixmap> before = logo->pixmap();
    logo->unserailize(device);
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(logo->pixmap().lock()->size(), logo->thumbnailPixmap().lock()->size());
    ImageStorager::instance()->setFolder(folder.filePath("elsewhere"));
    logo->unserailize(device);
    EXPECT_TRUE(logo->pixmap().expired() && logo->thumbnailPixmap().expired());
    EXPECT_EQ(logo->originalImageHashKey().size(), 64);
}

TEST_F(Pictures, RefusePixelsThatDoNotFit) {
    const auto logo = image(FileType::LOGO);
    ASSERT_TRUE(logo->initModelData(detail(FileType::LOGO, block(1, 2)), errMsg));
    const auto key = logo->originalImageHashKey();
    const struct {
        FileType type;
        std::string bytes;
        int width, height;
        QString warning;
    } rows[] = {
        {FileType::LOGO, words({kPixels, 4, 0}), 1, 1, "image size error"_q}, // no size
        {FileType::BKG, words({1, 12, 1, 2, 2, kPixels, 4, 0, 0, 0}), 2, 2, "image size error"_q},
        {FileType::BKG, words({1, 12, 1, kPixels, kPixels, kPixels, 4, 0}), 1, 1, "image size error"_q},
        {FileType::BKG, words({1, 12, 1, 0x40000000, 0x40000000, kPixels, 0}), 1, 1, "image size error"_q},
        {FileType::UMD, "", 0, 0, "image size should be 0, but it is real size is 0"_q},
        {FileType::BKGThumb, words({1}), -1, -1, "image size should be 4, but it is real size is 4"_q},
        {FileType::BKGThumb, words({}), 0x40000000, 16, "image size should be 68719476736, but it is real size is 0"_q},
    };
    for (const auto &row : rows) {
        EXPECT_FALSE(logo->initModelData(detail(row.type, row.bytes, row.width, row.height), errMsg));
        EXPECT_THAT(MessageLog::take(), ElementsAre("warning: "_q + row.warning));
        EXPECT_EQ(logo->fileType(), row.type);
        EXPECT_EQ(logo->originalImageHashKey(), key);
    }
    EXPECT_TRUE(errMsg == "as it was"_q && !logo->signalsBlocked());
}

TEST_F(Pictures, SayWhatCouldNotBeStored) {
    const auto bkg = image(FileType::BKG);
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    bkg->setImage(picture, true);
    bkg->setThumbnailHashKey(picture);
    EXPECT_EQ(bkg->size(), QSize(3, 2));
    const auto key = bkg->originalImageHashKey();
    bkg->setThumbnailHashKey({});
    EXPECT_TRUE(bkg->thumbnailHashKey() == key && bkg->thumbnailPixmap().expired());
    MessageLog::take();
    ImageStorager::instance()->setFolder(QStringLiteral("/dev/null/pictures"));
    bkg->setThumbnailHashKey(picture);
    for (const bool isAsync : {false, true}) {
        bkg->setImage(picture.copy(0, 0, 1, 1), isAsync);
        EXPECT_EQ(bkg->originalImageHashKey(), "Invalid picture"_q);
        EXPECT_TRUE(bkg->pixmap().expired() && bkg->image().isNull());
    }
    EXPECT_EQ(bkg->size(), QSize(3, 2));
    EXPECT_EQ(bkg->thumbnailHashKey(), key);
    auto said = MessageLog::take().filter("debug: "_q);
    bkg->setImage({}, true);
    EXPECT_THAT(said + MessageLog::take(), ElementsAre("debug: setThumb Failed"_q, "debug: setImage Failed"_q,
                                                       "debug: setImage Failed"_q, "debug: image is null"_q));
}

TEST_F(Pictures, LaterOfTwoOverlappingCallsWins) {
    auto bkg = image(FileType::BKG);
    QTimer::singleShot(0, [&] {
        bkg->setImage(QImage(3, 2, QImage::Format_Mono), false);
        device->removeBKG(bkg);
        bkg.reset();
    });
    const std::weak_ptr<Image> watched = bkg;
    EventLog log(bkg.get());
    bkg->setImage(QImage(500, 400, QImage::Format_RGB32), true);
    EXPECT_TRUE(bkg == nullptr && watched.expired());
    EXPECT_THAT(log.take(), ElementsAre("signalSizeChanged()"_q));
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

    const std::pair<QSize, int> sizes[] = {
        {{0, 9}, 0}, {{9, -1}, 0}, {{2160, 2160}, 1}, {{2161, 10}, 4}, {{10, 2161}, 4}};
    for (const auto &[size, slots] : sizes)
        EXPECT_EQ(Device::imageSize2ImageCount(size), slots);
    for (int i = 0; i < 15; ++i)
        image(FileType::LOGO, {1, 1});
    EXPECT_FALSE(device->isImageCapacityEnough(FileType::LOGO) || device->isLogoCapacityEnough({2161, 1}));
    EXPECT_TRUE(device->isLogoCapacityEnough({2160, 1}));
    image(FileType::LOGO, {1, 1});
    EXPECT_TRUE(device->isImageCapacityEnough(FileType::LOGO) && !device->isImageCapacityEnough(FileType::UMD));
}

} // namespace
