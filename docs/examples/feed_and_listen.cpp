/// A host in one file: starts the library up, listens to the hub, feeds a processor from a report, edits it, and takes
/// news from a thread of its own. See docs/embedding.md.
#include <quorixbizmodel/quorixbizmodel.h>
#include <quorixprotomodel/quorixprotomodel.h>

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <thread>

using namespace Quorix::BizModel;
namespace Records = Quorix::ProtoModel;

namespace {

/// What the processor says about itself. A real host gets the records from its protocol, one message each.
struct Report {
    std::uint16_t modelId = Invalid_DeviceModelId;
    Records::DeviceBaseInfo baseInfo;
    Records::Device::s_DeviceDetail detail;
    Records::Interface::s_InterfaceDetailArry interfaces;
    Records::Screen::s_ScreenFullDetailArray screens;
    Records::Layer::s_LayerDetailArray layers;
};
QUORIX_AJSON(Report, modelId, baseInfo, detail, interfaces, screens, layers)

QTextStream &out() {
    static QTextStream stream(stdout);
    return stream;
}

int fail(const QString &reason) {
    out() << reason << Qt::endl;
    return 1;
}

void listen(QObject *context) {
    // Arguments are references to live objects. A listener asks them, and keeps weak references if it keeps any.
    QObject::connect(DeviceList::instance(), &DeviceList::signalScreenAdded, context,
                     [](const std::weak_ptr<Device> &, const std::weak_ptr<Screen> &screen) {
                         if (const auto live = screen.lock())
                             out() << "screen: " << live->name() << Qt::endl;
                     });
    QObject::connect(DeviceList::instance(), &DeviceList::signalLayerWindowRectChanged, context,
                     [](const std::weak_ptr<Device> &, const std::weak_ptr<Screen> &, const std::weak_ptr<Layer> &layer,
                        const QString &sender) {
                         if (const auto live = layer.lock())
                             out() << live->name() << " moved to " << live->pos().x() << ',' << live->pos().y()
                                   << " by " << sender << Qt::endl;
                     });
    QObject::connect(DeviceList::instance(), &DeviceList::signalDeviceNameChanged, context,
                     [](const std::weak_ptr<Device> &device) {
                         if (const auto live = device.lock())
                             out() << "the processor is called " << live->name() << " now" << Qt::endl;
                         QCoreApplication::quit();
                     });
}

std::shared_ptr<Device> feed(const Report &report) {
    auto device = std::make_shared<Device>(report.modelId);
    DeviceList::instance()->append(device); // first, so that the hub hears what follows
    device->updateDeviceBaseInfo(report.baseInfo);
    device->setDeviceOnlineFlag(true);
    QString reason;
    device->initModelData(report.detail, reason);     // cards
    device->initModelData(report.interfaces, reason); // inputs and outputs, which need their cards
    device->initModelData(report.screens, reason);    // mosaics of outputs
    device->initModelData(report.layers, reason);     // layers, which need screens and inputs
    device->setSyncDataSuccess(true);
    return device;
}

void moveFirstLayer(Device &device) {
    for (const auto &screen : device.regulerScreens())
        if (const auto live = screen.lock())
            for (const auto &layer : live->layers(Enum::Layer::SceneType::PVW))
                if (const auto moved = layer.lock()) {
                    moved->setWindowRect(moved->windowRect().translated(16, 16), QStringLiteral("operator"), true);
                    return;
                }
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return fail(QStringLiteral("usage: feed_and_listen DATA REPORT"));
    const QString data = QString::fromLocal8Bit(argv[1]) + QLatin1Char('/');
    QString error;
    if (!DeviceConfigManager::instance()->readConfig(data + DEVICECONFIG_FOLDER, error) ||
        !InterfaceConfig::instance()->readConfig(data + INTERFACE_CONFIG_FILE, error))
        return fail(error);
    listen(qApp); // the first use of the hub, on this thread

    QFile file(QString::fromLocal8Bit(argv[2]));
    Report report;
    std::string problem = "no such file";
    if (!file.open(QIODevice::ReadOnly) || !Records::decode(file.readAll().toStdString(), report, problem))
        return fail(QString::fromStdString(problem));
    const auto device = feed(report);
    moveFirstLayer(*device);

    // News from the network: the thread takes it in, the application's thread applies it.
    std::thread protocol([device] {
        QMetaObject::invokeMethod(
            qApp, [device] { device->setName(QStringLiteral("Foyer East")); }, Qt::QueuedConnection);
    });
    const int result = QCoreApplication::exec();
    protocol.join();
    DeviceList::instance()->clear();
    return result;
}
