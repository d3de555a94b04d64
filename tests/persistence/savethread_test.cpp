/// The thread that saves: when it does, what it says, how it ends; and the model changed beside it.
#include "store.h"

#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/persistence/savedevicedatathread.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/subcard.h>
#include <support/report.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSemaphore>

#include <atomic>
#include <random>
#include <thread>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;

/// The `sync` of the system takes as long as other programs have written: one of our own stands in, and counts.
struct SaveThread : StoreTest {
    const QByteArray path = qgetenv("PATH");
    const QString counter = folder.filePath("syncs"_q);
    QSemaphore saves;
    std::unique_ptr<SaveDeviceDataThread> saver;

    void SetUp() override {
        const QString program = folder.filePath("bin/sync"_q);
        writeFile(program, "#!/bin/sh\nprintf x >> '" + counter.toUtf8() + "'\n");
        ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("PATH", folder.filePath("bin"_q).toUtf8() + ':' + path);
        saver = std::make_unique<SaveDeviceDataThread>(root, nullptr);
        QObject::connect(
            saver.get(), &SaveDeviceDataThread::saveDeviceInfoFinished, saver.get(),
            [this] {
                EXPECT_TRUE(QThread::currentThread() == saver.get() && !saver->isSavingData());
                saves.release();
            },
            Qt::DirectConnection);
        MessageLog::take();
    }
    void TearDown() override { qputenv("PATH", path); }

    bool hasSaved() { return saves.tryAcquire(1, 10000); }
    /// Until the thread sleeps, as far as can be told from outside.
    static void settle() { QThread::msleep(50); }
    void expectLines(const char *lines) {
        EXPECT_EQ(MessageLog::take().filter("sav"_q, Qt::CaseInsensitive).join('\n').toStdString(), lines);
    }
    QString syncs() { return readLines(counter).value(0); }
};

TEST_F(SaveThread, SavesOnceForEachWake) {
    EXPECT_EQ(saver->objectName(), "SaveDeviceDataThread"_q);
    saver->waitForSavingDataFinished();
    for (const int number : {1, 2}) {
        appendedDevice({"A"_q, QString::number(number)});
        saver->wakeSaveDeviceDataTask();
        ASSERT_TRUE(hasSaved());
        settle();
        EXPECT_EQ(filesUnder(root).size(), number);
        EXPECT_EQ(saves.available(), 0);
    }
    saver->stopRun();
    EXPECT_EQ(syncs(), "xx"_q);
    expectLines("debug: -----> [DeviceSave] Thread running.\ncritical: Begin to save data\n"
                "critical: End to save data\ncritical: Begin to save data\ncritical: End to save data\n"
                "debug: -----> [DeviceSave] Thread stop.\ndebug: -----> [DeviceSave] Thread normal exit.");
    // A thread that was stopped stays so.
    saver->wakeSaveDeviceDataTask();
    saver->wait();
    expectLines("debug: -----> [DeviceSave] Thread running.\ndebug: -----> [DeviceSave] Thread stop.");
}

TEST_F(SaveThread, IsHeldAndLetGo) {
    saver->setTemporaryStop(true);
    for (int i = 0; i < 3; ++i) {
        saver->wakeSaveDeviceDataTask();
        settle();
    }
    EXPECT_EQ(saves.available(), 0);
    saver->setTemporaryStop(false);
    saver->wakeSaveDeviceDataTask();
    EXPECT_TRUE(hasSaved());
    saver->setTemporaryStop(true);
    settle();
    saver->wakeSaveDeviceDataTask();
    settle();
    saver->stopRun();
    EXPECT_TRUE(saver->isFinished());
    EXPECT_EQ(saves.available(), 0);
}

TEST_F(SaveThread, StopsFromAnyState) {
    saver->stopRun();
    expectLines("debug: -----> [DeviceSave] Thread normal exit.");
    for (int turn = 0; turn < 200; ++turn) {
        SaveDeviceDataThread other(folder.filePath("other"_q), nullptr);
        other.setTemporaryStop(turn % 2 == 0);
        other.wakeSaveDeviceDataTask();
        if (turn % 3 == 0)
            QThread::usleep(static_cast<unsigned>(turn) * 20);
        if (turn % 5 == 0)
            other.wakeSaveDeviceDataTask();
    }
}

TEST_F(SaveThread, SavesOnTheCallersThread) {
    auto *hub = DeviceList::instance();
    EXPECT_EQ(hub->saveDeviceDataThread(), nullptr);
    hub->initSaveDeviceDataThread(root);
    auto *hubs = hub->saveDeviceDataThread();
    hub->initSaveDeviceDataThread("elsewhere"_q);
    ASSERT_EQ(hub->saveDeviceDataThread(), hubs);
    const auto device = appendedDevice();
    hubs->saveDevicesInfor(device);
    EXPECT_EQ(filesUnder(root).size(), 1);
    hub->clear();
    hubs->saveDevicesInfor();
    EXPECT_EQ(filesUnder(root).size(), 0);
    MessageLog::take();
    hubs->saveDevicesInfor(std::weak_ptr<Device>());
    EXPECT_THAT(MessageLog::take(), testing::ElementsAre("warning: Serailizer device is null."_q,
                                                         "warning: Fail to serailize model data."_q));
    EXPECT_EQ(syncs(), "xxx"_q);
    EXPECT_FALSE(hubs->isRunning());
}

/// For QUORIX_STRESS_SECONDS (1 by default): edits, additions and removals on the application's thread while saves run.
/// Every save can be loaded, and nothing that was removed ends on the thread of the saver.
TEST_F(SaveThread, GoesOnBesideEdits) {
    bool isSet = false;
    const int seconds = qEnvironmentVariableIntValue("QUORIX_STRESS_SECONDS", &isSet);
    const Report report = readReport("alder"_q);
    std::atomic<int> strays = 0;
    const auto watch = [&strays](QObject &object) {
        QObject::connect(&object, &QObject::destroyed,
                         [&strays, home = QThread::currentThread()] { strays += QThread::currentThread() != home; });
    };
    const auto add = [&](int number) {
        const auto device = appendedDevice({"D"_q, QString::number(number), 0, static_cast<uint8_t>(number)}, 29953);
        report.feed(*device);
        device->setIPAddress(QString::number(number));
        watch(*device);
        for (const auto &screen : device->screens(30)) {
            watch(*screen.lock());
            for (const auto &layer : screen.lock()->layers(6, 126))
                watch(*layer.lock());
        }
    };
    for (const int number : {0, 1, 2})
        add(number);
    std::minstd_rand random(7);
    int saved = 0;
    QElapsedTimer timer;
    timer.start();
    for (int turn = 0; timer.elapsed() < (isSet ? seconds : 1) * 1000; ++turn) {
        if (saves.tryAcquire() || turn == 0) {
            ++saved;
            saver->wakeSaveDeviceDataTask();
        }
        const auto devices = DeviceList::instance()->devices();
        const auto device = devices.value(static_cast<int>(random() % static_cast<unsigned>(devices.size()))).lock();
        const auto screen = device->screens(2).value(turn % 3).lock();
        const auto layers = screen == nullptr ? QList<std::weak_ptr<Layer>>() : screen->layers(6, 126);
        for (const auto &layer : layers)
            layer.lock()->setWindowRect({turn % 100, 0, 640, 480}, {}, true);
        device->setName(QString(turn % 40, 'x'));
        device->inputs().front().lock()->setName("input %1"_q.arg(turn));
        if (turn % 7 == 0 && screen != nullptr) {
            screen->addLayer(Screen::createLayer(Enum::Layer::LayerType::Regular));
            screen->removeLayer(layers.mid(0, 2));
        }
        if (turn % 31 == 0)
            device->removeScreen(std::weak_ptr<Screen>(screen));
        if (turn % 11 == 0)
            for (const auto &card : device->subcards())
                card.lock()->addConnector();
        if (turn % 17 == 0)
            device->setIPAddress(QString::number(turn % 5));
        if (turn % 53 == 0) {
            DeviceList::instance()->remove(device);
            add(turn % 200);
        }
        if (turn % 97 == 0)
            device->clearAll(true), report.feed(*device);
        QCoreApplication::processEvents();
    }
    saver->stopRun();
    QCoreApplication::processEvents();
    EXPECT_GT(saved, 1);
    EXPECT_EQ(strays, 0);
    EXPECT_TRUE(load() != nullptr);
    EXPECT_THAT(filesUnder(root).keys().filter(QRegularExpression("^\\."_q)), testing::IsEmpty());
}

} // namespace
