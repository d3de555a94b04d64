/// Pictures on the device of a report.
#include <quorixctl/command.h>

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

TEST(ImageCommand, AddsAPictureWhereThereIsRoom) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    const QString pictures = folder.filePath(QStringLiteral("store"));
    const auto run = [&](int width, int height, const QStringList &more) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(path);
        QString out;
        QTextStream stream(&out);
        const QStringList line{"image", "add",        QUORIX_DATA_DIR "/reports/birch-mini.json",
                               path,    "--pictures", pictures};
        quorixctl::runCommandLine(line + more, stream, stream);
        return out;
    };
    const QString out = run(33, 2, {});
    EXPECT_TRUE(out.contains("BKG-1 has id 0\n  picture   ") && out.contains("backgrounds: 384 of"))
        << out.toStdString();
    EXPECT_TRUE(run(2161, 1, {"--logo"}).contains("logos: 4 of 16 slots"));
    EXPECT_EQ(run(9, 9, {"--pictures", "/dev/null/x"}), "quorixctl: the picture can't be stored in /dev/null/x\n");
}
