/// The road of an edit, from a setter of a device to a listener on the hub, next to the bare mechanism: one write lock,
/// compare, store, unlock, and two emissions joined by one relay that holds three weak references.
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <array>
#include <tuple>

namespace {

using namespace Quorix::BizModel;

using Owners = std::tuple<std::weak_ptr<int>, std::weak_ptr<long>, std::weak_ptr<char>>;

class BareHub : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void signalNameChanged(const std::weak_ptr<int> &device, const std::weak_ptr<long> &screen,
                           const std::weak_ptr<char> &layer);
};

class BareObject : public QObject {
    Q_OBJECT

public:
    void setName(const QString &name) {
        if (assign(m_lock, m_name, name.toStdString()))
            Q_EMIT signalNameChanged();
    }

Q_SIGNALS:
    void signalNameChanged();

private:
    QReadWriteLock m_lock;
    std::string m_name;
};

const std::array<QString, 2> names{QStringLiteral("left wall"), QStringLiteral("right wall")};

template <class Object>
void rename(benchmark::State &state, Object &object, const int &heard) {
    std::size_t turn = 0;
    for (auto _ : state)
        object.setName(names[++turn % 2]);
    if (heard == 0)
        state.SkipWithError("nothing was heard");
}

void bareMechanism(benchmark::State &state) {
    const auto device = std::make_shared<int>(0);
    const auto screen = std::make_shared<long>(0);
    const auto layer = std::make_shared<char>('\0');
    BareHub hub;
    BareObject object;
    QObject listener;
    int heard = 0;
    QObject::connect(&object, &BareObject::signalNameChanged, [&hub, owners = Owners(device, screen, layer)] {
        std::apply([&](const auto &...owner) { Q_EMIT hub.signalNameChanged(owner...); }, owners);
    });
    QObject::connect(&hub, &BareHub::signalNameChanged, &listener, [&] { ++heard; });
    rename(state, object, heard);
}
BENCHMARK(bareMechanism);

/// @p state gives the number of devices on the hub; the first of them is edited.
void deviceToHubListener(benchmark::State &state) {
    auto *hub = DeviceList::instance();
    hub->clear();
    QObject listener;
    int heard = 0;
    QObject::connect(hub, &DeviceList::signalDeviceNameChanged, &listener, [&] { ++heard; });
    for (int i = 0; i < state.range(0); ++i)
        hub->append(std::make_shared<Device>(quint16(29958)));
    rename(state, *hub->deviceList().front(), heard);
    hub->clear();
}
BENCHMARK(deviceToHubListener)->Arg(1)->Arg(8)->Arg(32);

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

#include "bench_edit.moc"
