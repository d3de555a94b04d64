/// Which folders a store makes, keeps and removes, and what a load makes of what it finds.
#include "store.h"

#include <ajson/ajson.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

const QString kZeros = "_000000000000_0000000000000000"_q;
const QByteArray kDocument = R"({"m_modelId":29953,"m_detail":{"general":{"name":"Studio"},"networks":[{"ip":"1"}]}})";

struct Store : StoreTest {
    QStringList names() { return QDir(root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); }
    QStringList warnings() { return MessageLog::take().filter("warning: "_q); }
};

TEST_F(Store, KeepsAFolderForEachDeviceOfTheHub) {
    const auto one = appendedDevice({"A"_q, "1"_q});
    const auto two = appendedDevice({"B"_q, "2"_q});
    appendedDevice({"C"_q, "2"_q});
    writeFile(root + "/gone/gone.json", "{}");
    writeFile(root + "/1_other/deep/file", "x");
    writeFile(root + "/.mine/file", "x");
    writeFile(root + "/file", "x");
    EXPECT_TRUE(serailizer.serailize());
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file"}));
    EXPECT_THAT(filesUnder(root)["2" + kZeros + "/2" + kZeros + ".json"].toStdString(),
                testing::HasSubstr(R"("name":"C")"))
        << "the later of two with one folder";

    // One device alone: the other folders stay, files of its own that it doesn't write go, or stay.
    writeFile(root + "/1" + kZeros + "/9.preset", "old");
    one->setName("D"_q);
    EXPECT_TRUE(serailizer.serailizeDevice(one));
    EXPECT_EQ(filesUnder(root).size(), 5);
    writeFile(root + "/gone/gone.json", "{}");
    EXPECT_TRUE(serailizer.serailize(one));
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file", "gone"}));
    EXPECT_EQ(QDir(root + "/1" + kZeros).entryList(QDir::Files), QStringList("1" + kZeros + ".json"));

    one->setIPAddress("3"_q);
    DeviceList::instance()->remove(two);
    EXPECT_TRUE(serailizer.removeDeviceData("2"_q) && serailizer.removeDeviceData("gone"_q));
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file"}));
    serailizer.serailize();
    EXPECT_EQ(names(), (QStringList{".mine", "2" + kZeros, "3" + kZeros, "file"}));
    EXPECT_TRUE(serailizer.removeDeviceData());
    EXPECT_EQ(names(), (QStringList{".mine", "file"}));
}

TEST_F(Store, HasNothingToSayOfADeadDevice) {
    EXPECT_FALSE(serailizer.serailize({}));
    EXPECT_FALSE(serailizer.serailizeDevice({}));
    EXPECT_THAT(MessageLog::take(),
                testing::ElementsAre("warning: Serailizer device is null."_q, "debug: Device is null"_q));
    EXPECT_EQ(serailizer.deviceConfigPath({}) + serailizer.deviceConfigFullPath({}, "a"_q, "b"_q), QString());
    EXPECT_TRUE(serailizer.serailize());
    EXPECT_FALSE(QDir(root).exists());
}

TEST_F(Store, GivesPathsAndMakesFolders) {
    const auto device = appendedDevice({"A"_q, "1"_q});
    const QString deep = folder.filePath("a/b/c"_q);
    Serailizer other(deep);
    EXPECT_TRUE(QDir(folder.filePath("a/b"_q)).exists() && !QDir(deep).exists());
    EXPECT_EQ(other.deviceConfigPath(device), deep + "/1" + kZeros);
    EXPECT_EQ(other.deviceConfigFullPath(device, "7"_q, ".preset"_q), deep + "/1" + kZeros + "/7.preset");
    EXPECT_TRUE(QDir(other.deviceConfigPath(device)).exists());
    EXPECT_TRUE(Serailizer("/dev/null/x"_q).deviceConfigFullPath(device, "7"_q, ".preset"_q).isNull());
}

TEST_F(Store, LoadsThePresetsOfAFolder) {
    writeFile(root + "/a/a.json", kDocument);
    for (const char *name : {"3.PRESET", "4.preset.bak", "preset", ".preset", "5.json"})
        writeFile(root + "/a/" + name, R"({"m_detail":{"fileId":1}})");
    writeFile(root + "/a/7.preset", R"({"m_contents":{"name":"seven"},"m_detail":{"fileId":7}})");
    writeFile(root + "/a/8.preset", "");
    const auto device = load();
    ASSERT_TRUE(device != nullptr);
    EXPECT_THAT(warnings(), testing::ElementsAre("warning: Unserailize preset failed: json file is empty \"%1\""_q.arg(
                                root + "/a/8.preset")));
    // A name that is a suffix alone is one.
    EXPECT_EQ(device->presets().size(), 1);
    EXPECT_FALSE(device->findPreset(7).expired());
    QFile::remove(root + "/a/8.preset");
    EXPECT_TRUE(QDir(root + "/a/9.preset").mkpath("."_q));
    QString error;
    DeviceList::instance()->clear();
    serailizer.unserailize(error);
    EXPECT_EQ(error, "open file ["_q + root + "/a/9.preset] failed,reason:Is a directory");
    EXPECT_EQ(DeviceList::instance()->count(), 1);
    QDir(root + "/a/9.preset").removeRecursively();
    writeFile(root + "/a/9.preset", "{");
    DeviceList::instance()->clear();
    EXPECT_THROW(serailizer.unserailize(error), ajson::exception);
    EXPECT_EQ(DeviceList::instance()->count(), 0);
}

/// What a device reports as its address never leads out of the root, nor into the names of a store at work.
TEST_F(Store, TakesNoPathFromADevice) {
    writeFile(folder.filePath("out/file"_q), "x");
    const Files before = filesUnder(folder.path());
    for (const auto &address :
         {"../out/"_q, "/tmp/x"_q, ".a"_q, QString(".."_q), QString(QChar('\0')), QString(300, 'a')}) {
        DeviceList::instance()->clear();
        const auto device = appendedDevice({"A"_q, address});
        serailizer.serailize();
        EXPECT_FALSE(serailizer.serailizeDevice(device));
        EXPECT_THAT(MessageLog::take().join('\n').toStdString(),
                    testing::HasSubstr("debug: Device [ \"A\" ] serailize error,reason: "));
    }
    QDir(root).removeRecursively();
    EXPECT_EQ(filesUnder(folder.path()), before);
}

TEST_F(Store, ReadsAFileUpToItsFirstNul) {
    QString error = "before "_q;
    const QString path = folder.filePath("text"_q);
    EXPECT_EQ(serailizer.readAll(path, error), QString());
    EXPECT_EQ(error, "before "_q);
    writeFile(path, QByteArray("abc\0def", 7));
    EXPECT_EQ(serailizer.readAll(path, error), "abc"_q);
    EXPECT_EQ(serailizer.readAll(folder.path(), error), QString());
    EXPECT_EQ(error, "before open file ["_q + folder.path() + "] failed,reason:Is a directory");
}

TEST_F(Store, LoadsWhatIsThere) {
    QString error;
    EXPECT_TRUE(serailizer.unserailize(error) && Serailizer("/dev/null/x"_q).unserailize(error));
    EXPECT_TRUE(QDir(root).exists());
    const struct {
        const char *file;
        QByteArray text;
        bool isLoaded;
        const char *warning;
        const char *error; ///< %1: the folder
    } rows[] = {
        {"a/a.json", kDocument, true, "", ""},
        {"a/a.json", kDocument + QByteArray("\0{", 2), true, "", ""},
        {"a/a.json", "", false, "warning: Unserailize device failed: json file is empty \"a\"", ""},
        {"a/a.json", QByteArray("\0", 1), false, "warning: Unserailize device failed: json file is empty \"a\"", ""},
        {"a/b.json", kDocument, false, "warning: Unserailize device failed: json file is empty \"a\"", ""},
        {"a/a.JSON", kDocument, false, "warning: Unserailize device failed: json file is empty \"a\"", ""},
        {"a/a.json/x", kDocument, false, "warning: Unserailize device failed: json file is empty \"a\"",
         "open file [%1/a.json] failed,reason:Is a directory"},
        {"a/a.json", "{}", false, "", "read device information [%1] failed,reason:Invalid modelId"},
        {"a/a.json", R"({"m_modelId":1})", false, "", "read device information [%1] failed,reason:Invalid modelId"},
        {".a/.a.json", kDocument, false, "", ""},
    };
    for (const auto &row : rows) {
        DeviceList::instance()->clear();
        QDir(root).removeRecursively();
        writeFile(root + '/' + row.file, row.text);
        error.clear();
        MessageLog::take();
        EXPECT_TRUE(serailizer.unserailize(error)) << row.file;
        EXPECT_EQ(DeviceList::instance()->count(), row.isLoaded ? 1 : 0) << row.file;
        EXPECT_EQ(warnings().join('\n'), QString(row.warning)) << row.file;
        EXPECT_EQ(error, QString(row.error).replace("%1"_q, root + "/a")) << row.file;
    }
}

TEST_F(Store, LetsTheExceptionOfAMalformedDocumentOut) {
    writeFile(root + "/a/a.json", kDocument);
    writeFile(root + "/b/b.json", R"({"m_modelId":29953,"m_inputs":[{},7x]})");
    writeFile(root + "/c/c.json", kDocument);
    QString error;
    EXPECT_THROW(serailizer.unserailize(error), ajson::exception);
    EXPECT_EQ(DeviceList::instance()->count(), 1);
    // A host that goes on.
    DeviceList::instance()->clear();
    QStringList bad;
    for (const auto &path : serailizer.deviceFolders())
        try {
            serailizer.unserailizeDevice(path, error);
        } catch (const ajson::exception &fault) {
            bad += QFileInfo(path).fileName() + ' ' + fault.what();
        }
    EXPECT_EQ(bad, QStringList("b error at line :0 col :36 msg:no valid array!"_q));
    EXPECT_EQ(DeviceList::instance()->count(), 2);
    EXPECT_EQ(error, QString());
}

} // namespace
