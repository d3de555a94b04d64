/// A root folder to store devices in, and what lies under it.
#ifndef QUORIX_TESTS_PERSISTENCE_STORE_H
#define QUORIX_TESTS_PERSISTENCE_STORE_H

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/persistence/serailizer.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QDirIterator>
#include <QMap>
#include <QTemporaryDir>

#include <functional>

namespace Quorix::Tests {

inline QString operator""_q(const char *text, std::size_t size) {
    return QString::fromUtf8(text, static_cast<int>(size));
}

using Files = QMap<QString, QByteArray>;

/// All files under a folder, by path from there, hidden ones too; folders without any end with a slash.
inline Files filesUnder(const QString &root) {
    Files files;
    QDirIterator entry(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        QFile file(entry.next());
        const QString name = QDir(root).relativeFilePath(file.fileName());
        if (file.open(QIODevice::ReadOnly))
            files[name] = file.readAll();
        else if (QDir(file.fileName()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            files[name + '/'] = {};
    }
    return files;
}

inline void writeFile(const QString &path, const QByteArray &text) {
    QFile file(path);
    ASSERT_TRUE(QFileInfo(path).absoluteDir().mkpath("."_q) && file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(text);
}

/// In memory where there is such a file system: a store syncs every file, and the tests store thousands of times.
inline QString scratchTemplate() {
    return (QFileInfo("/dev/shm"_q).isWritable() ? "/dev/shm"_q : QDir::tempPath()) + "/quorix-XXXXXX"_q;
}

struct StoreTest : testing::Test {
    static void SetUpTestSuite() {
        QString error;
        ASSERT_TRUE(BizModel::DeviceConfigManager::instance()->readConfig(QUORIX_DATA_DIR "/devices", error) &&
                    BizModel::InterfaceConfig::instance()->readConfig(QUORIX_DATA_DIR "/QuorixInterfaceCfg.xml", error))
            << qPrintable(error);
    }
    static void TearDownTestSuite() {
        BizModel::DeviceConfigManager::destroyInstance();
        BizModel::InterfaceConfig::destroyInstance();
    }

    /// Loads what is stored; the hub's first device.
    std::shared_ptr<BizModel::Device> load() {
        QString error;
        BizModel::DeviceList::instance()->clear();
        EXPECT_TRUE(BizModel::Serailizer(root).unserailize(error));
        EXPECT_EQ(error, QString());
        return BizModel::DeviceList::instance()->devices().value(0).lock();
    }

    HubScope scope;
    MessageLog messages;
    QTemporaryDir folder{scratchTemplate()};
    QString root = folder.filePath("devices"_q);
    BizModel::Serailizer serailizer{root};
};

} // namespace Quorix::Tests

#endif
