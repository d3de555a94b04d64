/// A store that fails or is killed, at every system call and at random: what is loaded afterwards is the complete old
/// or the complete new state, and the next store leaves nothing of it.
#include "store.h"

#include <quorixbizmodel/files/file.h>
#include <quorixbizmodel/persistence/fileoperations.h>

#include <QElapsedTimer>

#include <cerrno>
#include <random>
#include <set>

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
    /// @param place the call that is hit, from 1
    explicit Faults(bool hasExchange = true, Kind kind = Kind::None, int place = 0, int reason = EIO)
        : m_hasExchange(hasExchange), m_kind(kind), m_place(place), m_reason(reason) {}

    int calls = 0;

    int open(const char *path, int flags) override { return isHit() ? -1 : FileOperations::open(path, flags); }
    ssize_t write(int file, const char *data, std::size_t size) override {
        // Half of it is written first: a disk that is full, a process that goes in between.
        const ssize_t half = FileOperations::write(file, data, (size + 1) / 2);
        return isHit() ? -1 : half;
    }
    int sync(int file) override { return isHit() ? -1 : FileOperations::sync(file); }
    int close(int file) override { return FileOperations::close(file) < 0 || isHit() ? -1 : 0; }
    int makeFolder(const char *path) override { return isHit() ? -1 : FileOperations::makeFolder(path); }
    int rename(const char *from, const char *to) override { return isHit() ? -1 : FileOperations::rename(from, to); }
    int exchange(const char *one, const char *other) override {
        errno = ENOSYS;
        return !m_hasExchange || isHit() ? -1 : FileOperations::exchange(one, other);
    }
    int removeFile(const char *path) override { return isHit() ? -1 : FileOperations::removeFile(path); }
    int removeFolder(const char *path) override { return isHit() ? -1 : FileOperations::removeFolder(path); }

private:
    bool isHit() {
        if (++calls != m_place || m_kind == Kind::None)
            return false;
        if (m_kind == Kind::Die)
            ::_exit(0);
        errno = m_reason;
        return true;
    }

    const bool m_hasExchange;
    const Kind m_kind;
    const int m_place;
    const int m_reason;
};

/// Does something in a process of its own; false if that one was gone before the end.
bool isDone(const std::function<void()> &act) {
    const pid_t child = ::fork();
    if (child == 0) {
        act();
        ::_exit(1);
    }
    int status = 0;
    EXPECT_TRUE(child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status));
    return WEXITSTATUS(status) == 1;
}

struct StoreFaults : StoreTest {
    const std::shared_ptr<Device> device = appendedDevice({"old"_q, "1"_q});
    Files before;
    Files after;

    /// Texts of both states; the disk holds the old one, as the only thing under the root.
    void SetUp() override {
        device->addFile({device->createFile(Enum::File::FileType::PresetPVW)});
        for (const bool isNew : {true, false}) {
            setState(isNew);
            serailizer.serailize();
            (isNew ? after : before) = filesUnder(root);
        }
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
        EXPECT_EQ(Serailizer(root).deviceFolders(), QStringList(root + '/' + device->ipMacSn()));
        return filesUnder(root);
    }
    void store(Faults &faults) {
        setState(true);
        Serailizer(root, faults).serailize(device);
        setState(false);
    }
    /// With and without an exchange of names, for each call that a store makes.
    void forEachCall(const std::function<void(bool hasExchange, int place)> &act) {
        for (const bool hasExchange : {true, false}) {
            Faults none(hasExchange);
            reset();
            store(none);
            EXPECT_EQ(filesUnder(root), after);
            for (int place = none.calls; place > 0; --place) {
                SCOPED_TRACE(place);
                reset();
                act(hasExchange, place);
            }
        }
    }
};

TEST_F(StoreFaults, AnyCallMayFail) {
    forEachCall([this](bool hasExchange, int place) {
        for (const int reason : {EIO, ENOSPC, EROFS, EINVAL}) {
            reset();
            Faults faults(hasExchange, Faults::Kind::Fail, place, reason);
            store(faults);
            EXPECT_THAT(found(), AnyOf(Eq(before), Eq(after))) << reason;
            Faults none;
            store(none);
            EXPECT_EQ(filesUnder(root), after);
        }
    });
}

TEST_F(StoreFaults, MayBeKilledInAnyCall) {
    forEachCall([this](bool hasExchange, int place) {
        Faults faults(hasExchange, Faults::Kind::Die, place);
        ASSERT_FALSE(isDone([&] { store(faults); }));
        // A host that is killed while it clears up.
        for (int again = 1; again < 4; ++again)
            isDone([&] {
                Faults more(true, Faults::Kind::Die, again);
                Serailizer(root, more).deviceFolders();
            });
        EXPECT_THAT(found(), AnyOf(Eq(before), Eq(after)));
        EXPECT_EQ(load()->name() == "new", filesUnder(root) == after);
    });
}

/// A removal is a store, too: no load finds a folder with half of its files, nor one that has gone.
TEST_F(StoreFaults, RemovesAFolderAsAWhole) {
    for (int place = 1, isWhole = 0; isWhole == 0; ++place) {
        reset();
        isWhole = isDone([&] {
            Faults faults(true, Faults::Kind::Die, place);
            Serailizer(root, faults).removeDeviceData();
        });
        Serailizer(root).deviceFolders();
        EXPECT_THAT(filesUnder(root), AnyOf(Eq(before), Eq(Files()))) << place;
    }
    EXPECT_EQ(filesUnder(root), Files());
    // What a killed store has left for the next load goes with the folder.
    reset();
    ASSERT_TRUE(QDir(root).rename(device->ipMacSn(), '.' + device->ipMacSn() + ".old"));
    serailizer.removeDeviceData();
    EXPECT_EQ(filesUnder(root), Files());
}

TEST_F(StoreFaults, SaysWhyAndLeavesTheRest) {
    const auto other = appendedDevice({"other"_q, "2"_q});
    for (const auto &[place, reason] : {std::pair(1, EROFS), std::pair(3, ENOSPC)}) { // the folder; the write
        MessageLog::take();
        Faults faults(true, Faults::Kind::Fail, place, reason);
        EXPECT_TRUE(Serailizer(root, faults).serailize());
        EXPECT_EQ(MessageLog::take(), QStringList("debug: Device [ \"old\" ] serailize error,reason:  \"%1\""_q.arg(
                                          qt_error_string(reason))));
        EXPECT_EQ(filesUnder(root).size(), 3) << "the other one is stored, the first keeps its folder";
        serailizer.removeDeviceData(other->ipMacSn());
        EXPECT_EQ(filesUnder(root), before);
    }
}

/// For QUORIX_KILL_SECONDS (3 by default).
TEST_F(StoreFaults, MayBeKilledAtAnyMoment) {
    bool isSet = false;
    const int seconds = qEnvironmentVariableIntValue("QUORIX_KILL_SECONDS", &isSet);
    QElapsedTimer timer;
    timer.start();
    std::minstd_rand random(1);
    std::set<bool> seen;
    for (int turn = 0; timer.elapsed() < (isSet ? seconds : 3) * 1000; ++turn) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            for (bool isNew = true;; isNew = !isNew) {
                Faults faults(turn % 2 == 0);
                setState(isNew);
                Serailizer(root, faults).serailize();
            }
        ::usleep(static_cast<useconds_t>(random() % 20000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        const Files files = found();
        ASSERT_THAT(files, AnyOf(Eq(before), Eq(after))) << turn;
        ASSERT_EQ(load()->name() == "new", files == after);
        seen.insert(files == after);
        DeviceList::instance()->clear();
        DeviceList::instance()->append(device);
    }
    EXPECT_EQ(seen.size(), 2) << "stores were killed, not what went before them";
}

} // namespace
