#include <quorixbizmodel/hub/devicelist.h>

#include <QByteArray>

#include <string>

namespace Quorix::BizModel {

namespace {

/// Registers a type under the name that signals spell it with.
template <class T>
void registerUnder(const QByteArray &name) {
    qRegisterMetaType<T>(name.constData());
}

/// Registers weak references, shared references and lists of weak references to a class of the model, under each
/// spelling that a declaration inside or outside our namespaces may use. A queued delivery finds a type by that text,
/// and Qt drops a connection for good at the first emission that it can't queue.
template <class T>
void registerReferences(const QByteArray &name) {
    for (const char *scope : {"", "BizModel::", "Quorix::BizModel::"}) {
        const QByteArray weak = "std::weak_ptr<" + (scope + name) + ">";
        registerUnder<std::weak_ptr<T>>(weak);
        registerUnder<std::shared_ptr<T>>("std::shared_ptr<" + (scope + name) + ">");
        registerUnder<QList<std::weak_ptr<T>>>("QList<" + weak + ">");
    }
}

} // namespace

void DeviceList::registerMetaTypes() {
    registerReferences<Device>("Device");
    registerReferences<Subcard>("Subcard");
    registerReferences<Connector>("Connector");
    registerReferences<Interface>("Interface");
    registerReferences<Input>("Input");
    registerReferences<Output>("Output");
    registerReferences<Screen>("Screen");
    registerReferences<MVRScreen>("MVRScreen");
    registerReferences<Layer>("Layer");
    registerReferences<MVRLayer>("MVRLayer");
    registerReferences<File>("File");
    registerReferences<Image>("Image");
    registerReferences<Preset>("Preset");

    registerUnder<Enum::FramelessMessageBoxMsgType>("Enum::FramelessMessageBoxMsgType");
    registerUnder<Enum::StatusBarMsgType>("Enum::StatusBarMsgType");
    registerUnder<Enum::Device::OperationStatus>("Enum::Device::OperationStatus");
    registerUnder<QMessageBox::StandardButton>("QMessageBox::StandardButton");
    registerUnder<ProtoModel::File::s_CreateImageFile>("ProtoModel::File::s_CreateImageFile");
    registerUnder<ProtoModel::File::s_FileTransPercentArray>("ProtoModel::File::s_FileTransPercentArray");
    registerUnder<std::uint16_t>("uint16_t");
    registerUnder<std::string>("std::string");
}

} // namespace Quorix::BizModel
