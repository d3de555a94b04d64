/// A store that fails or is killed, at every system call and at random: what is loaded afterwards is the complete old
/// or the complete new state, and the next store leaves nothing of it.
#include "store.h"

#include <quorixbizmodel/files/file.h>
#include <quorixbizmodel/persistence/fileoperations.h>

#include <QElapsedTimer>

#include <algorithm>
#include <cerrno>
#include <random>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::AnyOf;
using testing::Eq;

/// The real system, but for one call that fails or never comes back.
class Faults : public FileOperations {
public:
    enum class Kind { None, Fail, Die };

    Kind kind = Kind::None;
    int place = 0; ///< the call that is hit, from 1
    int reason = EIO;
    bool hasExchange = true;
    int calls = 0;
    QStringList made; ///< names of the calls

    int open(const char *path, int flags) override { return isHit("open") ? -1 : FileOperations::open(path, flags); }
    ssize_t write(int file, const char *data, std::size_t size) override {
        // Half of it is written first: a disk that is full, a process that goes in between.
        const bool hit = isHit("write", [&] { return FileOperations::write(file, data, size / 2) > 0; });
        return hit ? -1 : FileOperations::write(file, data, (size + 1) / 2);
    }
    int sync(int file) override { return isHit("sync") ? -1 : FileOperations::sync(file); }
    int close(int file) override { return FileOperations::close(file) < 0 || isHit("close") ? -1 : 0; }
    int makeFolder(const char *path) override { return isHit("makeFolder") ? -1 : FileOperations::makeFolder(path); }
    int rename(const char *from, const char *to) override {
        return isHit("rename") ? -1 : FileOperations::rename(from, to);
    }
    int exchange(const char *one, const char *other) override {
        errno = ENOSYS;
        return !hasExchange || isHit("exchange") ? -1 : FileOperations::exchange(one, other);
    }
    int removeFile(const char *path) override { return isHit("removeFile") ? -1 : FileOperations::removeFile(path); }
    int removeFolder(const char *path) override {
        return isHit("removeFolder") ? -1 : FileOperations::removeFolder(path);
    }

private:
    bool isHit(
        const char *name, const std::function<bool()> &first = [] { return true; }) {
        made += QString::fromLatin1(name);
        if (++calls != place || kind == Kind::None)
            return false;
        first();
        if (kind == Kind::Die)
            ::_exit(0);
        errno = reason;
        return true;
    }
};

struct StoreFaults : StoreTest {
    const std::shared_ptr<Device> device = appendedDevice({"old"_q, "1"_q});
    const QString path = root + '/' + device->ipMacSn();
    Files before;
    Files after;

    /// Texts of both states; the disk holds the old one, as the only thing under the root.
    void SetUp() override {
        const auto preset = device->createFile(Enum::File::FileType::PresetPVW);
        preset->setFileId(3);
        device->addFile({preset});
        setState(true);
        serailizer.serailize();
        after = filesUnder(root);
        setState(false);
        serailizer.serailize();
        before = filesUnder(root);
        ASSERT_NE(before, after);
        ASSERT_NE(before.keys(), after.keys());
    }
    /// Another name in the document, and another preset.
    void setState(bool isNew) {
        device->setName(isNew ? "new"_q : "old"_q);
        device->presets().front().lock()->setFileId(isNew ? 4 : 3);
    }
    void reset() {
        QDir(root).removeRecursively();
        for (auto file = before.begin(); file != before.end(); ++file)
            writeFile(root + '/' + file.key(), file.value());
    }
    /// What a host finds that starts now.
    Files found() {
        const auto loaded = Serailizer(root).deviceFolders();
        EXPECT_EQ(loaded, QStringList(path));
        return filesUnder(root);
    }
    void store(Faults &faults) {
        setState(true);
        Serailizer(root, faults).serailize(device);
        setState(false);
    }
    /// How many calls a store makes.
    int calls(bool hasExchange) {
        Faults faults;
        faults.hasExchange = hasExchange;
        reset();
        store(faults);
        EXPECT_EQ(filesUnder(root), after);
        return faults.calls;
    }
};

TEST_F(StoreFaults, AnyCallMayFail) {
    for (const bool hasExchange : {true, false})
        for (int place = calls(hasExchange); place > 0; --place)
            for (const int reason : {EIO, ENOSPC, EROFS, EINVAL}) {
                reset();
                Faults faults;
                faults.kind = Faults::Kind::Fail;
                faults.place = place;
                faults.reason = reason;
                faults.hasExchange = hasExchange;
                store(faults);
                const QString hit = faults.made.value(place - 1);
                EXPECT_THAT(found(), AnyOf(Eq(before), Eq(after))) << place << ' ' << qPrintable(hit) << ' ' << reason;
                Faults none;
                store(none);
                EXPECT_EQ(filesUnder(root), after);
            }
}

TEST_F(StoreFaults, MayBeKilledInAnyCall) {
    for (const bool hasExchange : {true, false})
        for (int place = calls(hasExchange); place > 0; --place) {
            reset();
            Faults faults;
            faults.kind = Faults::Kind::Die;
            faults.place = place;
            faults.hasExchange = hasExchange;
            const pid_t child = ::fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                store(faults);
                ::_exit(1);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << place;
            // A host that is killed while it clears up.
            for (int again = 1; again < 4; ++again)
                if (const pid_t second = ::fork(); second == 0) {
                    Faults more;
                    more.kind = Faults::Kind::Die;
                    more.place = again;
                    Serailizer(root, more).deviceFolders();
                    ::_exit(0);
                } else {
                    ::waitpid(second, &status, 0);
                }
            EXPECT_THAT(found(), AnyOf(Eq(before), Eq(after))) << place << hasExchange;
            EXPECT_EQ(load()->name() == "new", filesUnder(root) == after);
        }
}

/// A removal is a store, too: no load finds a folder with half of its files.
TEST_F(StoreFaults, RemovesAFolderAsAWhole) {
    const Files whole = filesUnder(root);
    for (int place = 1; place < 9; ++place) {
        for (auto file = whole.begin(); file != whole.end(); ++file)
            writeFile(root + '/' + file.key(), file.value());
        if (const pid_t child = ::fork(); child == 0) {
            Faults faults;
            faults.kind = Faults::Kind::Die;
            faults.place = place;
            Serailizer(root, faults).removeDeviceData();
            ::_exit(0);
        } else {
            int status = 0;
            ::waitpid(child, &status, 0);
        }
        Serailizer(root).deviceFolders();
        EXPECT_THAT(filesUnder(root), AnyOf(Eq(whole), Eq(Files()))) << place;
    }
    EXPECT_EQ(filesUnder(root), Files());
}

TEST_F(StoreFaults, SaysWhyAndLeavesTheRest) {
    appendedDevice({"other"_q, "2"_q});
    MessageLog::take();
    for (const int reason : {EROFS, ENOSPC}) {
        Faults faults;
        faults.kind = Faults::Kind::Fail;
        faults.place = reason == EROFS ? 1 : 3; // the folder; the write
        faults.reason = reason;
        EXPECT_TRUE(Serailizer(root, faults).serailize());
        EXPECT_EQ(MessageLog::take(), QStringList("debug: Device [ \"old\" ] serailize error,reason:  \"%1\""_q.arg(
                                          qt_error_string(reason))));
        EXPECT_EQ(filesUnder(root).size(), 3) << "the other one is stored, the first keeps its folder";
        DeviceList::instance()->remove(DeviceList::instance()->findDeviceByName("other"_q).lock());
        serailizer.serailize();
        EXPECT_EQ(filesUnder(root), before);
        appendedDevice({"other"_q, "2"_q});
    }
}

/// For QUORIX_KILL_SECONDS (3 by default).
TEST_F(StoreFaults, MayBeKilledAtAnyMoment) {
    bool isSet = false;
    const int seconds = qEnvironmentVariableIntValue("QUORIX_KILL_SECONDS", &isSet);
    QElapsedTimer timer;
    timer.start();
    std::minstd_rand random(1);
    int stores = 0;
    for (int turn = 0; timer.elapsed() < (isSet ? seconds : 3) * 1000; ++turn) {
        int pipes[2];
        ASSERT_EQ(::pipe(pipes), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Faults faults;
            faults.hasExchange = turn % 2 == 0;
            for (bool isNew = true;; isNew = !isNew) {
                setState(isNew);
                Serailizer(root, faults).serailize();
                faults.made.clear();
                if (::write(pipes[1], "", 1) != 1)
                    ::_exit(1);
            }
        }
        ::close(pipes[1]);
        ::usleep(static_cast<useconds_t>(random() % 20000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        char done[4096];
        for (ssize_t got = 1; got > 0; stores += static_cast<int>(std::max<ssize_t>(got, 0)))
            got = ::read(pipes[0], done, sizeof done);
        ::close(pipes[0]);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        const Files files = found();
        ASSERT_THAT(files, AnyOf(Eq(before), Eq(after))) << turn;
        ASSERT_EQ(load()->name() == "new", files == after);
        DeviceList::instance()->clear();
        DeviceList::instance()->append(device);
    }
    RecordProperty("stores", stores);
}

} // namespace
