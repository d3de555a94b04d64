/// Small capability files for the tests of this room.
#ifndef CAPABILITY_TESTS_CONFIG_FILES_H
#define CAPABILITY_TESTS_CONFIG_FILES_H

#include <support/builders.h>

#include <QDir>
#include <QTemporaryDir>

using namespace Quorix::BizModel;
using Quorix::Tests::MessageLog;
using testing::ElementsAre;

/// A copy of @p text with the first @p from replaced; a test that edits nothing is a mistake.
inline QByteArray edited(QByteArray text, const QByteArray &from, const QByteArray &to) {
    const int at = text.indexOf(from);
    EXPECT_GE(at, 0) << from.constData();
    return at < 0 ? text : text.replace(at, from.size(), to);
}

/// The text of a file of this room.
inline QByteArray sampleFile(const QString &name) {
    QFile file(QString(QUORIX_TEST_DIR "/%1.xml").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// A folder of files that lives as long as the test.
class ConfigDir {
public:
    QString path() const { return m_dir.path(); }
    void write(const QString &name, const QByteArray &text) const {
        const QString full = m_dir.filePath(name);
        ASSERT_TRUE(QFileInfo(full).dir().mkpath(QStringLiteral(".")));
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

private:
    QTemporaryDir m_dir;
};

#endif
