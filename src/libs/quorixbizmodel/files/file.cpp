#include <quorixbizmodel/files/file.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelthread.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Quorix::BizModel {

namespace {

using FileType = Enum::File::FileType;

constexpr std::pair<FileType, const char *> typeNames[] = {
    {FileType::BKG, "BKG"},
    {FileType::BKGThumb, "BKGThumb"},
    {FileType::LOGO, "LOGO"},
    {FileType::LOGOThumb, "LOGOThumb"},
    {FileType::OSD, "OSD"},
    {FileType::OSDThumb, "OSDThumb"},
    {FileType::PresetPVW, "PresetPVW"},
    {FileType::PresetPVWThumb, "PresetPVWThumb"},
    {FileType::PresetPGM, "PresetPGM"},
    {FileType::PresetPGMThumb, "PresetPGMThumb"},
    {FileType::UMD, "UMD"},
    {FileType::ProjectFile, "ProjectFile"},
    {FileType::keypad, "keypad"},
    {FileType::UpgradeFile, "UpgradeFile"},
    {FileType::UserKeyFile, "UserKeyFile"},
};

} // namespace

File::File() { moveToModelThread(*this); }

File::File(FileType type) : File() { m_detail.fileType = toInt(type); }

File::File(const File &other) : QObject(), std::enable_shared_from_this<File>(other) { moveToModelThread(*this); }

File &File::operator=(const File & /*other*/) { return *this; }

File::~File() = default;

void File::unserailize(std::weak_ptr<Device> device) {
    setOwerDevice(device);
    createConnects(std::move(device));
}

void File::setFileId(uint8_t id) { std::ignore = assign(m_detailRWLock, m_detail.fileId, id); }

uint8_t File::fileId() const { return static_cast<uint8_t>(copyOf(m_detailRWLock, m_detail.fileId)); }

void File::createConnects(std::weak_ptr<Device> device) {
    const Relay join(this, m_relays, std::move(device), weak_from_this());
    join(&File::signalNameChanged, &DeviceList::signalNameChanged);
    join(&File::signalFileTypeChanged, &DeviceList::signalFileTypeChanged);
    join(&File::signalFileTransferProgressChanged, &DeviceList::signalFileTransferProgressChanged);
    join(&File::signalFileContentChanged, &DeviceList::signalFileContentChanged);
}

std::string File::fileBinaryData() { return copyOf(m_detailRWLock, m_detail.binaryData); }

bool File::initModelData(const Detail &detail, QString & /*errMsg*/) {
    const WriteGuard guard(m_detailRWLock);
    static_cast<ProtoModel::s_FileIdentity &>(m_detail) = detail;
    m_detail.general = detail.general;
    m_detail.source = detail.source;
    m_detail.size = detail.size;
    m_detail.binaryData.clear();
    return true;
}

QString File::name() const { return QString::fromStdString(copyOf(m_detailRWLock, m_detail.general.name)); }

void File::setName(const QString &name) {
    if (assign(m_detailRWLock, m_detail.general.name, name.toStdString()))
        Q_EMIT signalNameChanged();
}

File::FileType File::fileType() const { return static_cast<FileType>(copyOf(m_detailRWLock, m_detail.fileType)); }

void File::setFileType(int type) {
    if (assign(m_detailRWLock, m_detail.fileType, type))
        Q_EMIT signalFileTypeChanged();
}

void File::setFileType(FileType type) { setFileType(toInt(type)); }

QString File::fileTypeString() const {
    const auto *const row = std::find_if(std::begin(typeNames), std::end(typeNames),
                                         [type = fileType()](const auto &entry) { return entry.first == type; });
    return QString::fromLatin1(row == std::end(typeNames) ? "N/A" : row->second);
}

QSize File::size() const {
    const ReadGuard guard(m_detailRWLock);
    return {m_detail.size.width, m_detail.size.height};
}

void File::setSize(QSize size) {
    {
        const WriteGuard guard(m_detailRWLock);
        const bool isWidthNew = assign(m_detail.size.width, size.width());
        const bool isHeightNew = assign(m_detail.size.height, size.height());
        if (!isWidthNew && !isHeightNew)
            return;
    }
    Q_EMIT signalSizeChanged();
}

ProtoModel::File::s_FileInfo File::fileInfoStruct() const {
    const ReadGuard guard(m_detailRWLock);
    return {m_detail, m_detail.general, m_detail.size, {}};
}

void File::setTransferProgress(const TransferProgress &progress) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (m_fileTransferProgress.percent == progress.percent && m_fileTransferProgress.status == progress.status)
            return;
        m_fileTransferProgress = progress;
    }
    Q_EMIT signalFileTransferProgressChanged();
}

File::TransferProgress File::transferProgress() const { return copyOf(m_detailRWLock, m_fileTransferProgress); }

void File::setOwerDevice(std::weak_ptr<Device> device) {
    const WriteGuard guard(m_detailRWLock);
    m_pOwnerDevice.swap(device);
}

std::weak_ptr<Device> File::owerDevice() const { return copyOf(m_detailRWLock, m_pOwnerDevice); }

FileState File::state() const {
    const ReadGuard guard(m_detailRWLock);
    return stateWhileLocked();
}

FileState File::stateWhileLocked() const { return {m_detail}; }

} // namespace Quorix::BizModel
