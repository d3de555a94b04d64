/// Small capability files for the tests of this room, and a log of what the library says.
#ifndef CAPABILITY_TESTS_CONFIG_FILES_H
#define CAPABILITY_TESTS_CONFIG_FILES_H

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QtGlobal>

#include <gmock/gmock.h>

/// A copy of @p text with the first @p from replaced; a test that edits nothing is a mistake.
inline QByteArray edited(QByteArray text, const QByteArray &from, const QByteArray &to) {
    const int at = text.indexOf(from);
    EXPECT_GE(at, 0) << from.constData();
    return at < 0 ? text : text.replace(at, from.size(), to);
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

/// Takes the library's log lines for the time of a test, each with the first letter of its level in front.
class LogCapture {
public:
    LogCapture() { s_lines.clear(), m_previous = qInstallMessageHandler(&take); }
    ~LogCapture() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(LogCapture)
    static QStringList lines() { return s_lines; }

private:
    static void take(QtMsgType type, const QMessageLogContext &, const QString &text) {
        s_lines.append(QString(QLatin1Char("DWCFI"[type])) + QLatin1Char(' ') + text);
    }
    inline static QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

#endif
