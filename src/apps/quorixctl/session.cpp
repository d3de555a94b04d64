#include "session.h"

#include "address.h"

#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <QCoreApplication>

namespace quorixctl {

using Quorix::BizModel::Device;
using Quorix::BizModel::DeviceList;

HubSession::HubSession(const Invocation &call) {
    readCapabilities(call.dataDirectory);
    if (!m_pictures.isValid())
        throw Failure(QStringLiteral("no room for temporary files: %1").arg(m_pictures.errorString()));
    m_folder = ImageStorager::instance()->folder();
    ImageStorager::instance()->setFolder(m_pictures.path());
}

HubSession::~HubSession() {
    deliverQueuedSignals();
    DeviceList::instance()->clear();
    ImageStorager::instance()->setFolder(m_folder);
}

void HubSession::keepPictures(const Invocation &call) {
    const QString folder = call.options.value(QStringLiteral("pictures"));
    ImageStorager::instance()->setFolder(folder.isEmpty() ? m_folder : folder);
}

std::shared_ptr<Device> feed(const ReportDocument &report, QTextStream &notes) {
    auto device = std::make_shared<Device>(report.modelId, nullptr);
    DeviceList::instance()->append(device);
    if (report.baseInfo)
        device->updateDeviceBaseInfo(*report.baseInfo);
    device->setDeviceOnlineFlag(true);
    // Each part refers to those before it.
    const auto enter = [&](const char *part, const auto &records) {
        QString reason;
        if (records && (!device->initModelData(*records, reason) || !reason.isEmpty()))
            notes << part << ": not all of it could be taken. " << reason << '\n';
    };
    enter("device", report.detail);
    enter("interfaces", report.interfaces);
    enter("screens", report.screens);
    enter("layers", report.layers);
    enter("files", report.files);
    enter("mapping", report.mapping);
    device->setSyncDataSuccess(true);
    deliverQueuedSignals();
    return device;
}

std::shared_ptr<Quorix::BizModel::Screen> screenOf(Device &device, const Quorix::ProtoModel::s_ScreenId &id) {
    auto screen = device.findScreen(id.screenType, id.screenId).lock();
    if (!screen)
        throw Failure(QStringLiteral("the report has no screen %1").arg(screenText(id)));
    return screen;
}

void deliverQueuedSignals() { QCoreApplication::sendPostedEvents(); }

} // namespace quorixctl
