/// The keys of a control panel.
#ifndef QUORIXBIZMODEL_KEYPAD_H
#define QUORIXBIZMODEL_KEYPAD_H

#include <quorixbizmodel/files/file.h>

namespace Quorix::BizModel {

/// What is stored of a keypad, under the keys of the document.
struct KeypadState : FileState {
    ProtoModel::File::s_KeypadInfo m_keypadInfo;
};

/// The description of the control panel that is attached to a device.
class QUORIX_EXPORT Keypad : public File {
    Q_OBJECT

public:
    /// A file of the type `keypad`.
    Keypad();
    ~Keypad() override;
    Q_DISABLE_COPY_MOVE(Keypad)

    /// Takes a record and its JSON over in silence; lists of the text are appended to those that are there. False for a
    /// record of another type, whose identity is taken over with @p errMsg as it was; else @p errMsg tells why the text
    /// can't be read to its end, and is empty on success.
    bool initModelData(const Detail &fileDetail, QString &errMsg) override;

    /// A copy of what is stored.
    [[nodiscard]] KeypadState state() const;

private:
    friend class ModelArchive;
    ProtoModel::File::s_KeypadInfo m_keypadInfo;
};

} // namespace Quorix::BizModel

#endif
