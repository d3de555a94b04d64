/// Storing and loading: the documents, 8 large devices with 200 presets each on the disk beside what the same files
/// cost at least, and what an edit waits while a save runs.
#include "large_device.h"

#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/persistence/documents_p.h>
#include <quorixbizmodel/persistence/serailizer.h>
#include <quorixbizmodel/screens/screen.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace Quorix;
using namespace Quorix::BizModel;
using Clock = std::chrono::steady_clock;

constexpr int kDevices = 8;

double milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

std::shared_ptr<Device> largeDevice(int number) {
    auto device = std::make_shared<Device>(Bench::kModel);
    Bench::LargeReport().feed(*device);
    device->setName(QStringLiteral("Wall %1").arg(number));
    device->setIPAddress(QStringLiteral("10.0.0.%1").arg(number));
    return device;
}

void fillHub() {
    for (int number = 0; number < kDevices; ++number) {
        const auto device = largeDevice(number);
        Bench::addPresets(*device);
        DeviceList::instance()->append(device);
    }
}

void encodeDevice(benchmark::State &state) {
    const auto device = largeDevice(0);
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes += ModelArchive().textOf(*device)->write_length();
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(encodeDevice)->Unit(benchmark::kMicrosecond);

void decodeDevice(benchmark::State &state) {
    const auto device = largeDevice(0);
    const auto text = ModelArchive().textOf(*device);
    for (auto _ : state)
        benchmark::DoNotOptimize(ModelArchive::decodeDevice(text->data(), text->write_length()));
    state.SetBytesProcessed(static_cast<std::int64_t>(text->write_length()) * state.iterations());
}
BENCHMARK(decodeDevice)->Unit(benchmark::kMicrosecond);

/// Files by their path from the root, with their texts.
using Files = std::vector<std::pair<QString, QByteArray>>;

Files filesUnder(const QString &root) {
    Files files;
    QDirIterator entry(root, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        QFile file(entry.next());
        if (file.open(QIODevice::ReadOnly))
            files.emplace_back(QDir(root).relativeFilePath(file.fileName()), file.readAll());
    }
    return files;
}

/// What a store can't do without: each file written, and on the disk.
void writeAndSync(const QString &root, const Files &files) {
    for (const auto &[name, text] : files) {
        QDir(root).mkpath(name.section('/', 0, 0));
        const int file = ::open(QFile::encodeName(root + '/' + name).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        if (::write(file, text.constData(), static_cast<std::size_t>(text.size())) != text.size() || ::fsync(file) != 0)
            throw std::runtime_error("no file can be written under " + root.toStdString());
        ::close(file);
    }
}

template <class Work>
double timed(Work work) {
    const auto begin = Clock::now();
    work();
    return milliseconds(Clock::now() - begin);
}

/// Stores of the whole hub and the floor by turns, so that both meet the same disk.
void compareStore(const QString &folder) {
    const QString root = folder + QStringLiteral("/store");
    Serailizer(root).serailize();
    const Files files = filesUnder(root);
    qint64 bytes = 0;
    for (const auto &file : files)
        bytes += file.second.size();
    std::vector<double> stores;
    std::vector<double> floors;
    for (int round = 0; round < 7; ++round) {
        const QString floor = folder + QStringLiteral("/floor%1").arg(round);
        ::sync(); // what was removed before is another's work
        floors.push_back(timed([&] { writeAndSync(floor, files); }));
        ::sync();
        stores.push_back(timed([&] { Serailizer(root).serailize(); }));
        QDir(floor).removeRecursively();
    }
    std::printf("store   %zu files, %.1f MB: %7.1f ms, floor %7.1f ms, %.2f of it (wanted 1.1)\n", files.size(),
                static_cast<double>(bytes) / 1e6, median(stores), median(floors), median(stores) / median(floors));
}

void compareLoad(const QString &folder) {
    const QString root = folder + QStringLiteral("/store");
    const Files files = filesUnder(root);
    std::vector<double> loads;
    std::vector<double> parses;
    for (int round = 0; round < 7; ++round) {
        DeviceList::instance()->clear();
        QString error;
        loads.push_back(timed([&] { Serailizer(root).unserailize(error); }));
        parses.push_back(timed([&] {
            for (const auto &file : files)
                benchmark::DoNotOptimize(QJsonDocument::fromJson(file.second));
        }));
    }
    std::printf("load    %d devices, %zu files: %.1f ms, QJsonDocument %.1f ms, %.2f of it (wanted 0.1)\n",
                static_cast<int>(DeviceList::instance()->count()), files.size(), median(loads), median(parses),
                median(loads) / median(parses));
}

/// The longest and the mean time of an edit for two seconds.
void timeEdits(const char *what) {
    std::vector<std::shared_ptr<Layer>> layers;
    for (const auto &device : DeviceList::instance()->deviceList())
        for (const auto &screen : device->screens(2))
            for (const auto &layer : screen.lock()->layers(6, 2))
                layers.push_back(layer.lock());
    std::vector<double> times;
    times.reserve(1U << 22U);
    const auto begin = Clock::now();
    for (int turn = 0; Clock::now() - begin < std::chrono::seconds(2) && times.size() < times.capacity(); ++turn)
        times.push_back(timed([&] {
            layers[static_cast<std::size_t>(turn) % layers.size()]->setWindowRect({turn % 1000, 0, 640, 360}, {}, true);
        }));
    std::sort(times.begin(), times.end());
    const auto part = [&](double share) {
        return times[static_cast<std::size_t>(static_cast<double>(times.size() - 1) * share)] * 1000;
    };
    std::printf("edits   %-22s median %6.2f us, 99.99 %% %8.2f us, longest %8.1f us of %zu\n", what, part(0.5),
                part(0.9999), part(1), times.size());
}

void compareEdits(const QString &folder) {
    timeEdits("alone:");
    std::atomic<bool> isDone = false;
    std::atomic<int> saves = 0;
    // Without the disk between the copies: they follow each other as fast as they can.
    std::thread encoder([&] {
        for (; !isDone; ++saves)
            for (const auto &device : DeviceList::instance()->deviceList())
                benchmark::DoNotOptimize(ModelArchive().textOf(*device));
    });
    timeEdits("beside an encoder:");
    isDone = true;
    encoder.join();
    isDone = false;
    std::thread saver([&] {
        for (; !isDone; ++saves)
            Serailizer(folder + QStringLiteral("/store")).serailize();
    });
    timeEdits("beside a saver:");
    isDone = true;
    saver.join();
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\ndefault.info=false"));
    Bench::readCapabilities();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    const QTemporaryDir folder;
    fillHub();
    compareStore(folder.path());
    compareLoad(folder.path());
    compareEdits(folder.path());
    DeviceList::instance()->clear();
    return 0;
}
