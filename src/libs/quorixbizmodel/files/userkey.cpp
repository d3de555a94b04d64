#include <quorixbizmodel/files/userkey.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/files/content_p.h>

#include <tuple>
#include <utility>

namespace Quorix::ProtoModel {

template QUORIX_EXPORT bool decode(const std::string &, BizModel::s_UserKeyDetail &, std::string &);

} // namespace Quorix::ProtoModel

namespace Quorix::BizModel {

UserKey::UserKey() : File(FileType::UserKeyFile) {}

UserKey::~UserKey() = default;

void UserKey::setFileId(uint8_t id) { File::setFileId(id); }

bool UserKey::initModelData(const Detail &fileDetail, QString &errMsg) {
    const bool isTaken = File::initModelData(fileDetail, errMsg);
    const ObjectSignalLocker silence(this);
    if (std::string error; !isDecoded(m_detailRWLock, m_contents, fileDetail.binaryData, error)) {
        errMsg = QStringLiteral("Decode json failed: ") + QString::fromStdString(error);
        return false;
    }
    initUserKeyModelData(fileDetail);
    return isTaken;
}

void UserKey::initUserKeyModelData(const Detail &fileDetail) {
    std::ignore = assign(m_detailRWLock, m_contents.name, fileDetail.general.name);
}

void UserKey::setUserKeyDetail(s_UserKeyDetail detail) {
    setFileType(FileType::UserKeyFile);
    setName(QString::fromStdString(detail.name));
    std::ignore = assign(m_detailRWLock, m_contents, std::move(detail));
}

s_UserKeyDetail UserKey::getUserKeyDetail() const { return copyOf(m_detailRWLock, m_contents); }

void UserKey::setUserkeyId(uint8_t id) { std::ignore = assign(m_detailRWLock, m_contents.userKeyId, id); }

uint8_t UserKey::userkeyId() const { return copyOf(m_detailRWLock, m_contents.userKeyId); }

UserKeyState UserKey::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_contents};
}

} // namespace Quorix::BizModel
