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

/// A picture with alpha in the format.
QImage picture(QImage::Format format = QImage::Format_ARGB32) {
    constexpr QRgb pixels[] = {0x01FF8040, 0x80102030, 0x00ABCDEF, 0xFF000001};
    return QImage(reinterpret_cast<const uchar *>(pixels), 2, 2, QImage::Format_ARGB32).convertToFormat(format).copy();
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
    QImage odd(2, 2, QImage::Format_RGB32);
    QImage even = odd;
    odd.fill(0x00010203);
    even.fill(0xFF010203);
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGB888})
        EXPECT_EQ(store.store(odd), store.store(even.convertToFormat(format)));
    EXPECT_EQ(files().size(), 1);
    EXPECT_NE(store.store(even.copy(0, 0, 2, 1)), store.store(even.copy(0, 0, 1, 2)));
    // The caller's memory is not the store's.
    QRgb memory[] = {0x11223344, 0x11223344};
    const QString key = store.store(QImage(reinterpret_cast<const uchar *>(memory), 2, 1, QImage::Format_ARGB32));
    memory[1] = 0;
    EXPECT_EQ(store.loadImage(key, QImage::Format_ARGB32).pixel(1, 0), 0x11223344U);
}

TEST_F(Storager, HasNothingForOtherKeys) {
    const QString key = store.store(picture());
    QFile::copy(folder + '/' + key + ".png", root.filePath("a/x.png"));
    for (const QString &other : {QString(), QString("Invalid picture"), QString("../x"), QString(64, 'f'),
                                 QString(64, 'g'), QString(60, '.') + "/../", key + '0'})
        EXPECT_TRUE(store.loadImage(other, QImage::Format_RGB32).isNull()) << other.toStdString();
}

TEST_F(Storager, ReplacesADamagedFile) {
    const QString key = store.store(picture());
    const QString path = folder + '/' + key + ".png";
    QFile::resize(path, QFile(path).size() / 2);
    forget();
    EXPECT_TRUE(store.loadImage(key, QImage::Format_ARGB32).isNull());
    EXPECT_EQ(store.store(picture()), key);
    QFile::remove(path);
    EXPECT_EQ(store.store(picture()), key);
    forget();
    EXPECT_EQ(store.loadImage(key, QImage::Format_ARGB32), picture());
}

TEST_F(Storager, FreesTheFolderOfOldLeftovers) {
    QDir().mkpath(folder);
    for (const int hours : {1, 48}) {
        QFile leftover(folder + QString("/%1.png.%2").arg(QString(64, '0')).arg(hours, 6, 10, QLatin1Char('x')));
        ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
        leftover.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hours), QFileDevice::FileModificationTime);
    }
    const QString key = store.store(picture());
    EXPECT_THAT(files(), testing::ElementsAre(QString(64, '0') + ".png.xxxxx1", key + ".png"));
}

TEST_F(Storager, ServesThreads) {
    std::vector<std::jthread> threads;
    for (int n = 0; n < 4; ++n)
        threads.emplace_back([this, n] {
            for (int i = 0; i < 20; ++i) {
                QImage image = picture();
                image.setPixel(0, 0, static_cast<QRgb>(i / (n + 1)));
                EXPECT_EQ(store.loadImage(store.store(image), QImage::Format_ARGB32), image);
                if (n == 3 && i % 8 == 0)
                    forget();
            }
        });
    threads.clear();
    EXPECT_EQ(files().size(), 20);
}

} // namespace
