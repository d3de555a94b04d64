/// The model of every device as files, and back.
#ifndef QUORIXBIZMODEL_SERAILIZER_H
#define QUORIXBIZMODEL_SERAILIZER_H

#include <quorix_export.h>
#include <quorixbizmodel/common/modelreferences.h>

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

namespace Quorix::BizModel {

class FileOperations;

/// Stores devices under a root folder: for each one a folder, named by Device::ipMacSn(), with one JSON document, and
/// one for each preset. The root belongs to this library alone: a full store removes every other folder in it that a
/// listing shows. Pictures aren't stored here; the documents hold their keys in ImageStorager.
///
/// A store replaces the folder of a device as a whole. Whenever the process is killed or the power goes, the folder of
/// each device is the complete old or the complete new one, and a finished store is on the disk. A store that fails
/// leaves the old folder. Names that begin with a dot are of a store at work; what an interrupted one has left is
/// finished or removed by the next load or store.
///
/// Threads. Stores may run on any thread, beside the application's: an object of the model is locked while it is
/// copied, and nothing is locked while its copy is encoded and written. Files are written by one store of the process
/// at a time. Loading belongs to the application's thread. Two processes on one root disturb each other.
class QUORIX_EXPORT Serailizer : public QObject {
    Q_OBJECT

public:
    /// @param path the root; the folders above it are made if need be
    explicit Serailizer(const QString &path);
    /// @param operations outlives this object
    Serailizer(const QString &path, FileOperations &operations);
    ~Serailizer() override;
    Q_DISABLE_COPY_MOVE(Serailizer)

    /// Stores all devices of the hub, and removes the folders of all others. Always true: a device that can't be stored
    /// keeps the folder that it had.
    bool serailize();
    /// Stores one device and leaves the other folders alone. False, with a warning, for one that has gone.
    bool serailize(std::weak_ptr<Device> device);
    /// The same, but what the device doesn't write itself stays in the folder. Two presets with one id have one
    /// file, that of the later one.
    /// @return false if not all could be written; the reason is logged at debug level, and the folder is as it was
    bool serailizeDevice(std::weak_ptr<Device> device);

    /// Loads all stored devices into the hub, folder by folder in the order of their names. A folder without a
    /// document, or with an empty one, is passed over with a warning; one whose model id no capability file has, or
    /// whose document can't be read, with its reason added to @p errMsg. Always true.
    ///
    /// Throws ajson::exception for a malformed document; devices loaded before it stay on the hub. A host that wants
    /// the others all the same walks deviceFolders() and calls unserailizeDevice() for each.
    ///
    /// Nothing may wake the saver before it has returned: a full store meanwhile would remove the folders of devices
    /// that are not on the hub yet. Events of the thread go on while pictures are loaded.
    bool unserailize(QString &errMsg);
    /// The absolute paths of all device folders, after what interrupted stores have left has been cleared. Makes the
    /// root if need be.
    QStringList deviceFolders();
    /// Loads the device of one of them into the hub; false if there is none, as told above. Throws as above, and the
    /// hub is as it was then.
    bool unserailizeDevice(const QString &folder, QString &errMsg);

    /// The folder of a device; empty for one that has gone.
    QString deviceConfigPath(std::weak_ptr<Device> device);
    /// A file in it. Makes the folder if need be; a null text if that fails, and for a device that has gone.
    QString deviceConfigFullPath(std::weak_ptr<Device> device, QString name, QString suffix);
    /// The text of a file, up to its first NUL; empty without a file, and for one that can't be read, with the reason
    /// added to @p errMsg.
    QString readAll(QString fileName, QString &errMsg);

    /// Removes all device folders. Always true.
    bool removeDeviceData();
    /// Removes the folder of that name. Always true.
    bool removeDeviceData(QString removeIpAddress);

private:
    /// Makes a root that isn't there, and clears what interrupted stores have left under it; false without one.
    bool hasRoot();
    enum class Others { Removed, Kept };
    /// Stores a device in its folder. @param others what becomes of files there that the device doesn't write
    bool storeDevice(const std::weak_ptr<Device> &reference, Others others);
    /// Adds the preset of a document to a device.
    void loadPreset(Device &device, const QString &path, QString &errMsg);
    /// All bytes of a file; none for a text that readAll() finds empty.
    QByteArray readBytes(const QString &fileName, QString &errMsg);
    void removeFolders(const QStringList &names);

    QString m_strFileDir; ///< the root
    FileOperations &m_operations;
};

} // namespace Quorix::BizModel

#endif
