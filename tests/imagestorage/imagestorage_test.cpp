/// What is stored comes back, from memory and from the disk; nothing else does.
#include <imagestorage/imagestorage.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <thread>
#include <vector>

namespace {

struct Storager : testing::Test {
    ImageStorager &store = *ImageStorager::instance();
    QTemporaryDir root;
    QString folder = root.filePath("a/b");

    void SetUp() override { store.setFolder(folder); }
    /// Lets go what is in memory.
    void forget() { store.setFolder(folder); }
    QStringList files() const { return QDir(folder).entryList(QDir::Files | QDir::Hidden); }
};

/// A picture of the format with the four pixels as first and last ones.
QImage picture(QImage::Format format, std::vector<QRgb> pixels = {0x01FF8040, 0x80102030, 0x00ABCDEF, 0xFF000001}) {
    QImage image(2, 2, QImage::Format_ARGB32);
    for (int i = 0; i < 4; ++i)
        image.setPixel(i % 2, i / 2, pixels[static_cast<std::size_t>(i)]);
    return image.convertToFormat(format);
}

TEST_F(Storager, GivesBackWhatWasStored) {
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
                              QImage::Format_Grayscale8, QImage::Format_Mono, QImage::Format_RGB888}) {
        const QImage image = picture(format);
        const QString key = store.store(image);
        EXPECT_TRUE(QRegExp("[0-9a-f]{64}").exactMatch(key)) << key.toStdString();
        for (int round = 0; round < 2; ++round, forget())
            for (const auto wanted : {QImage::Format_ARGB32, QImage::Format_RGB32})
                EXPECT_EQ(store.loadImage(key, wanted),
                          image.convertToFormat(QImage::Format_ARGB32).convertToFormat(wanted))
                    << format;
    }
    EXPECT_EQ(store.load(store.store(QPixmap(3, 2)), QImage::Format_RGB32).size(), QSize(3, 2));
}

TEST_F(Storager, KnowsEqualPicturesByTheirPixels) {
    const std::vector<QRgb> opaque{0xFF010203, 0xFF040506, 0xFF070809, 0xFF0A0B0C};
    QImage odd(2, 2, QImage::Format_RGB32);
    QImage even = odd;
    odd.fill(0x00010203);
    even.fill(0xFF010203);
    EXPECT_EQ(store.store(odd), store.store(even));
    EXPECT_EQ(store.store(picture(QImage::Format_ARGB32, opaque)), store.store(picture(QImage::Format_RGB888, opaque)));
    EXPECT_EQ(files().size(), 2);
    EXPECT_NE(store.store(even.copy(0, 0, 2, 1)), store.store(even.copy(0, 0, 1, 2)));
    // The caller's memory is not the store's.
    std::vector<QRgb> memory(2, 0x11223344);
    const QImage view(reinterpret_cast<const uchar *>(memory.data()), 2, 1, QImage::Format_ARGB32);
    const QString key = store.store(view);
    memory.assign(2, 0);
    EXPECT_EQ(store.loadImage(key, QImage::Format_ARGB32).pixel(1, 0), 0x11223344U);
}

TEST_F(Storager, HasNothingForOtherKeys) {
    const QString key = store.store(picture(QImage::Format_ARGB32));
    QFile::copy(folder + '/' + key + ".png", root.filePath("a/x.png"));
    for (const QString &other : {QString(), QString("Invalid picture"), QString("../x"), QString(64, 'f'),
                                 QString(64, 'g'), QString(60, '.') + "/../", key + '0'})
        EXPECT_TRUE(store.loadImage(other, QImage::Format_RGB32).isNull()) << other.toStdString();
}

TEST_F(Storager, ReplacesADamagedFile) {
    const QString key = store.store(picture(QImage::Format_ARGB32));
    const QString path = folder + '/' + key + ".png";
    QFile::resize(path, QFile(path).size() / 2);
    forget();
    EXPECT_TRUE(store.loadImage(key, QImage::Format_ARGB32).isNull());
    EXPECT_EQ(store.store(picture(QImage::Format_ARGB32)), key);
    QFile::remove(path);
    EXPECT_EQ(store.store(picture(QImage::Format_ARGB32)), key);
    forget();
    EXPECT_EQ(store.loadImage(key, QImage::Format_ARGB32), picture(QImage::Format_ARGB32));
}

TEST_F(Storager, FreesTheFolderOfOldLeftovers) {
    QDir().mkpath(folder);
    for (const int hours : {1, 48}) {
        QFile leftover(folder + QString("/%1.png.%2").arg(QString(64, '0')).arg(hours, 6, 10, QLatin1Char('x')));
        ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
        leftover.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hours), QFileDevice::FileModificationTime);
    }
    const QString key = store.store(picture(QImage::Format_ARGB32));
    EXPECT_THAT(files(), testing::ElementsAre(QString(64, '0') + ".png.xxxxx1", key + ".png"));
}

TEST_F(Storager, ServesThreads) {
    std::vector<std::thread> threads;
    for (int n = 0; n < 4; ++n)
        threads.emplace_back([this, n] {
            for (int i = 0; i < 20; ++i) {
                QImage image = picture(QImage::Format_ARGB32);
                image.setPixel(0, 0, static_cast<QRgb>(i / (n + 1)));
                EXPECT_EQ(store.loadImage(store.store(image), QImage::Format_ARGB32), image);
                if (n == 3 && i % 8 == 0)
                    forget();
            }
        });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(files().size(), 20);
}

} // namespace
