#include <quorixbizmodel/files/keypad.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/files/content_p.h>

namespace Quorix::BizModel {

Keypad::Keypad() : File(FileType::keypad) {}

Keypad::~Keypad() = default;

bool Keypad::initModelData(const Detail &fileDetail, QString &errMsg) {
    File::initModelData(fileDetail, errMsg);
    const ObjectSignalLocker silence(this);
    if (fileDetail.fileType != toInt(FileType::keypad))
        return false;
    std::string error;
    const bool isWhole = isDecoded(m_detailRWLock, m_keypadInfo, fileDetail.binaryData, error);
    errMsg = QString::fromStdString(error);
    return isWhole;
}

KeypadState Keypad::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_keypadInfo};
}

} // namespace Quorix::BizModel
