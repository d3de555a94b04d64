/// The enumerations of a device; quorixbizenum.h includes them with the rest of the vocabulary.
#ifndef QUORIXBIZENUM_DEVICE_H
#define QUORIXBIZENUM_DEVICE_H

#include <cstdint>

namespace Quorix::BizModel::Enum::Device {

enum class CardType : std::int32_t {
    Undefined = 0,
    _EXP = 1,
    _INPUT = 2,
    _OUTPUT = 3,
    _SENDER = 4,
    _MVR = 5,
    _AUX = 6,
    SlotTypeCnt = 7,
};

enum class ComponentType : std::int32_t { MainControl = 1, InputCard = 2, OutputCard = 3, InvalidType = 255 };

enum class DevicResetOrder : std::int32_t {
    Factory_IP = 0,
    Factory_EDID = 1,
    Factory_Default = 2,
    Factory_NOT_RESET = 3,
};

enum class GenLockEnable : std::int32_t { GenLockOff = 0, GenLockInOn = 1, GenLockLoopOn = 2, GenLockInAndLoopOn = 3 };

enum class GenLockEnum : std::int32_t { GenLockOff = 0, GenLock = 1, InputSource = 2 };

enum class GenLockStatus : std::int32_t { Off = 0, Synchronizing = 1, Synchronization = 2, SynchronizeFailure = 3 };

enum class LoadToPGMStatus : std::int32_t { LoadToPVW = 0, LoadToPGM = 1 };

enum class OperationStatus : std::int32_t {
    Loading = 0,
    Ready = 1,
    Updating = 2,
    ProjectCreating = 3,
    ProjectApplying = 4,
};

/// State of a card in its slot.
enum class SlotStatusType : std::int32_t {
    Offline = 0,
    Normal = 1,
    CommunicationFailure = 2,
    TypeError = 3,
    TypeMixed = 4,
    ProtoTypeCnt = 5,   ///< counts the values that a device reports; those behind it are set by the model
    ConfigInfoMiss = 6, ///< no capability record for the card
    ConfigInfoError = 7,
};

/// Model id of a device, the number that it reports.
enum class Type : std::int32_t {
    Invalid = 0,
    Alder = 29953,
    Birch = 29954,
    Cedar = 29955,
    Hazel = 29960,
    Larch = 29958,
    AlderMax = 29959,
    BirchMini = 29964,
};

} // namespace Quorix::BizModel::Enum::Device

#endif
