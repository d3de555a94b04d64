#include <quorixbizmodel/persistence/serailizer.h>

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/persistence/devicefolder_p.h>
#include <quorixbizmodel/persistence/documents_p.h>
#include <quorixbizmodel/persistence/fileoperations.h>

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <mutex>
#include <tuple>

namespace Quorix::BizModel {

namespace {

/// Guards the folders: a store on the save thread and one on the application's thread come one after the other.
std::mutex &foldersMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

Serailizer::Serailizer(const QString &path) : Serailizer(path, FileOperations::system()) {}

Serailizer::Serailizer(const QString &path, FileOperations &operations) : m_strFileDir(path), m_operations(operations) {
    std::ignore = makeFolders(m_operations, QFileInfo(path).absolutePath());
}

Serailizer::~Serailizer() = default;

bool Serailizer::hasRoot() {
    const std::scoped_lock guard(foldersMutex());
    if (!makeFolders(m_operations, m_strFileDir))
        return false;
    recoverFolders(m_operations, m_strFileDir);
    return true;
}

bool Serailizer::serailize() {
    std::ignore = hasRoot(); // without one, each device says why it isn't stored
    ModelArchive archive;
    QSet<QString> kept;
    const auto keepPresent = [&] {
        for (const auto &device : DeviceList::instance()->deviceList()) {
            kept.insert(device->ipMacSn());
            archive.hold(device);
        }
    };
    keepPresent();
    for (const auto &device : DeviceList::instance()->devices())
        if (!device.expired())
            storeDevice(device, Others::Removed);
    // The others go last, so that no device is ever without a folder. Devices that came meanwhile may have been stored
    // by someone else.
    const QStringList present = folderNames(m_strFileDir);
    keepPresent();
    QStringList removed;
    std::copy_if(present.begin(), present.end(), std::back_inserter(removed),
                 [&kept](const QString &name) { return !kept.contains(name); });
    removeFolders(removed);
    return true;
}

bool Serailizer::serailize(std::weak_ptr<Device> device) {
    if (device.expired()) {
        qWarning() << "Serailizer device is null.";
        return false;
    }
    storeDevice(device, Others::Removed);
    return true;
}

bool Serailizer::serailizeDevice(std::weak_ptr<Device> device) { return storeDevice(device, Others::Kept); }

bool Serailizer::storeDevice(const std::weak_ptr<Device> &reference, Others others) {
    ModelArchive archive; // outlives the reference here, so that none ends on this thread
    const auto device = reference.lock();
    if (device == nullptr) {
        qDebug() << "Device is null";
        return false;
    }
    archive.hold(device);
    const std::scoped_lock guard(foldersMutex());
    const QString id = device->ipMacSn();
    FolderWriter folder(m_operations, m_strFileDir, id);
    const auto failed = [&folder](const char *what, const QString &name) {
        qDebug() << what << name << "] serailize error,reason: " << folder.errorString();
        return false;
    };
    const auto write = [&folder](const QString &name, const DocumentText &text) {
        return folder.add(name, text->data(), text->write_length());
    };
    if (!folder.begin() || !write(id + DEVICE_CFG_SUFFIX, archive.textOf(*device)))
        return failed("Device [", device->name());
    for (const auto &file : livingReferences(device->presets())) {
        archive.hold(file);
        // What the device keeps in this list is of this class.
        const auto &preset = static_cast<const Preset &>(*file);
        if (!write(QString::number(preset.fileId()) + PRESET_CFG_SUFFIX, archive.textOf(preset)))
            return failed("Preset [", preset.name());
    }
    if ((others == Others::Kept && !folder.addOthers()) || !folder.commit())
        return failed("Device [", device->name());
    return true;
}

bool Serailizer::unserailize(QString &errMsg) {
    for (const auto &folder : deviceFolders())
        unserailizeDevice(folder, errMsg);
    return true;
}

QStringList Serailizer::deviceFolders() {
    if (!hasRoot())
        return {};
    const QDir root(m_strFileDir);
    QStringList paths;
    for (const auto &name : folderNames(m_strFileDir))
        paths.append(root.absoluteFilePath(name));
    return paths;
}

bool Serailizer::unserailizeDevice(const QString &folder, QString &errMsg) {
    qDebug() << folder;
    const QString name = QFileInfo(folder).fileName();
    const QString document = folder + QDir::separator() + name + DEVICE_CFG_SUFFIX;
    const QByteArray text = readBytes(document, errMsg);
    if (text.isEmpty()) {
        qWarning() << "Unserailize device failed: json file is empty" << name;
        return false;
    }
    const auto device = ModelArchive::decodeDevice(text.constData(), static_cast<std::size_t>(text.size()));
    if (DeviceConfigManager::instance()->findDeviceConfigByID(device->modelId()) == nullptr) {
        errMsg += Serailizer::tr("read device information [%1] failed,reason:Invalid modelId").arg(folder);
        return false;
    }
    for (const auto &entry : QDir(folder).entryList(QDir::NoFilter))
        if (QFileInfo(entry).suffix() == PRESETSERAIL_CFG_SUFFIX)
            loadPreset(*device, folder + QDir::separator() + entry, errMsg);
    device->unserailize();
    DeviceList::instance()->append(device);
    return true;
}

void Serailizer::loadPreset(Device &device, const QString &path, QString &errMsg) {
    const QByteArray text = readBytes(path, errMsg);
    if (text.isEmpty())
        qWarning() << "Unserailize preset failed: json file is empty" << path;
    else
        device.addPreset(ModelArchive::decodePreset(text.constData(), static_cast<std::size_t>(text.size())));
}

QString Serailizer::deviceConfigPath(std::weak_ptr<Device> device) {
    const auto stored = device.lock();
    return stored == nullptr ? QString() : m_strFileDir + QDir::separator() + stored->ipMacSn();
}

QString Serailizer::deviceConfigFullPath(std::weak_ptr<Device> device, QString name, QString suffix) {
    const QString path = deviceConfigPath(device);
    if (path.isEmpty() || !QDir().mkpath(path))
        return {};
    return path + QDir::separator() + name + suffix;
}

QByteArray Serailizer::readBytes(const QString &fileName, QString &errMsg) {
    QByteArray bytes;
    const int error = readFile(m_operations, fileName, bytes);
    if (error == ENOENT)
        return {};
    if (error != 0) {
        errMsg += Serailizer::tr("open file [%1] failed,reason:%2").arg(fileName, qt_error_string(error));
        return {};
    }
    return bytes.startsWith('\0') ? QByteArray() : bytes;
}

QString Serailizer::readAll(QString fileName, QString &errMsg) {
    // As a text file is read.
    return QString::fromUtf8(readBytes(fileName, errMsg).constData()).remove('\r');
}

void Serailizer::removeFolders(const QStringList &names) {
    const std::scoped_lock guard(foldersMutex());
    for (const auto &name : names)
        removeFolder(m_operations, m_strFileDir, name);
}

bool Serailizer::removeDeviceData() {
    if (hasRoot())
        removeFolders(folderNames(m_strFileDir));
    return true;
}

bool Serailizer::removeDeviceData(QString removeIpAddress) {
    if (hasRoot() && folderNames(m_strFileDir).contains(removeIpAddress))
        removeFolders({removeIpAddress});
    return true;
}

} // namespace Quorix::BizModel
