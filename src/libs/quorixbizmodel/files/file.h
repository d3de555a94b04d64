/// A content file of a device.
#ifndef QUORIXBIZMODEL_FILE_H
#define QUORIXBIZMODEL_FILE_H

#include <quorix_export.h>
#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/hub/relay.h>
#include <quorixprotomodel/file.h>

#include <QObject>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>

namespace Quorix::BizModel {

/// What is stored of a file, under the keys of the document.
struct FileState {
    ProtoModel::File::s_FileDetail m_detail;
};

/// One file on a device: its number, name, size and transfer progress. A UMD file is a plain File; images, presets,
/// user keys and keypads derive from it and keep their decoded content. Its device owns it; whoever holds it outside
/// holds a weak reference. A removed file lives on as long as a caller has it, and still reaches the hub.
///
/// Setters store a value that differs and signal afterwards; an equal value changes nothing.
///
/// Threads. Lives on the application's thread; all operations may be called from any thread, createConnects() and
/// unserailize() from one at a time. No lock is held when a signal goes out, so a slot may call back. A file's lock is
/// the innermost: a list of the device may be locked when it is taken, nothing is locked under it.
class QUORIX_EXPORT File : public QObject, public std::enable_shared_from_this<File> {
    Q_OBJECT

public:
    using FileType = Enum::File::FileType;
    using Detail = ProtoModel::File::s_FileDetail;
    using TransferProgress = ProtoModel::File::s_FileTransPercent;

    /// A file with a default record, whose type is `BKG`: Device::createFile() gives the type that was asked for.
    File();
    /// A copy is a default file, and assigning copies nothing.
    File(const File &other);
    File &operator=(const File &other);
    ~File() override;

    /// Restores owner and relays after a load from disk.
    virtual void unserailize(std::weak_ptr<Device> device);
    /// No signal.
    virtual void setFileId(uint8_t id);
    /// Joins the signals to the hub, with @p device and this file in front. Joining again for the same device does
    /// nothing. A file in a device's list isn't joined by that alone.
    virtual void createConnects(std::weak_ptr<Device> device);
    /// The content as it goes to a device.
    virtual std::string fileBinaryData();
    /// Takes identity, name, source and size of a record over in silence; its binary data is for derived classes.
    /// @param errMsg why a derived class can't decode the content; stays as it is on success
    virtual bool initModelData(const Detail &detail, QString &errMsg);

    /// The low byte of the number that was reported.
    [[nodiscard]] uint8_t fileId() const;
    [[nodiscard]] QString name() const;
    void setName(const QString &name);
    [[nodiscard]] FileType fileType() const;
    void setFileType(int type);
    void setFileType(FileType type);
    /// Name of the type, "N/A" for one without.
    [[nodiscard]] QString fileTypeString() const;
    /// Pixels of a picture. Its reported length stays.
    [[nodiscard]] QSize size() const;
    void setSize(QSize size);
    /// Identity, name and size.
    [[nodiscard]] ProtoModel::File::s_FileInfo fileInfoStruct() const;
    /// Another percentage or status replaces the record; the other fields don't count.
    void setTransferProgress(const TransferProgress &progress);
    [[nodiscard]] TransferProgress transferProgress() const;
    void setOwerDevice(std::weak_ptr<Device> device);
    [[nodiscard]] std::weak_ptr<Device> owerDevice() const;
    /// A copy of what is stored.
    [[nodiscard]] FileState state() const;

Q_SIGNALS:
    void signalNameChanged();
    void signalSizeChanged();
    void signalFileTypeChanged();
    void signalFileTransferProgressChanged();
    void signalFileContentChanged();

protected:
    explicit File(FileType type);
    /// A copy of what is stored. Requires: m_detailRWLock is held.
    [[nodiscard]] FileState stateWhileLocked() const;

    Detail m_detail;
    mutable QReadWriteLock m_detailRWLock; ///< guards all fields, also those of the derived classes

private:
    friend class ModelArchive;
    TransferProgress m_fileTransferProgress;
    std::weak_ptr<Device> m_pOwnerDevice;
    RelaySet m_relays;
};

} // namespace Quorix::BizModel

#endif
