/// The files that live on a device, and the content of a keypad file.
#ifndef QUORIXPROTOMODEL_FILE_H
#define QUORIXPROTOMODEL_FILE_H

#include <ajson/decode.h>
#include <quorix_export.h>
#include <quorixprotomodel/protomodelbase.h>

#include <string>

namespace Quorix::ProtoModel::File {

inline constexpr std::uint8_t bcFile = 250; ///< base code of the messages below
inline constexpr std::uint8_t fcDetails = 0;
inline constexpr std::uint8_t fcDelete = 1;
inline constexpr std::uint8_t fcGeneral = 2;
inline constexpr std::uint8_t fcImport = 3;
inline constexpr std::uint8_t fcExport = 4;
inline constexpr std::uint8_t fcTransferProgress = 5;
inline constexpr std::uint8_t fcCreateImageFile = 6;
inline constexpr std::uint8_t fcCreatePresetFile = 7;
inline constexpr std::uint8_t fcCreateProjFile = 8;
inline constexpr std::uint8_t fcCreateLogFile = 9;
inline constexpr std::uint8_t fcCreateEdidFile = 11;

struct s_GeneralBody {
    std::string name = "N/A"; ///< UTF-8
    bool operator==(const s_GeneralBody &) const = default;
};
QUORIX_AJSON(s_GeneralBody, name)

struct s_SubcardConfig {
    std::int32_t type = 0;
    std::uint8_t slotId = 0;
    bool operator==(const s_SubcardConfig &) const = default;
};

struct s_Source {
    std::uint32_t id = 0;
    std::int32_t type = 0;
    std::int32_t zoomRatio = 1;
    bool operator==(const s_Source &) const = default;
};
QUORIX_AJSON(s_Source, id, type, zoomRatio)

/// What is sent to make an image on a device.
struct s_CreateImageFile : s_FileIdentity {
    s_GeneralBody general;
    s_Source source;
    std::string binaryData; ///< the image as a binary block
    bool operator==(const s_CreateImageFile &) const = default;
};

/// The size of a file, not to be taken for the size of a picture in the common records.
struct s_Size {
    std::int32_t length = 0; ///< bytes
    std::int32_t hashSum = 0;
    std::int32_t width = 0;  ///< pixels
    std::int32_t height = 0; ///< pixels
    bool operator==(const s_Size &) const = default;
};
QUORIX_AJSON(s_Size, length, hashSum, width, height)

/// A short description of a file.
struct s_FileInfo : s_FileIdentity {
    s_GeneralBody general;
    s_Size size;
    s_InterfaceID interfaceIds;
    bool operator==(const s_FileInfo &) const = default;
};

/// Everything about a file.
struct s_FileDetail : s_FileIdentity {
    s_GeneralBody general;
    s_Source source;
    s_Size size;
    std::string binaryData; ///< content as a device delivers it: JSON or an image block; not stored
    bool operator==(const s_FileDetail &) const = default;
};
QUORIX_AJSON(s_FileDetail, fileId, fileType, general, source, size)
using s_FileDetailArray = std::vector<s_FileDetail>;

/// Progress of one transfer.
struct s_FileTransPercent : s_FileIdentity {
    std::int32_t type = 0;
    std::int32_t percent = 0;
    std::int32_t status = 0;
    bool operator==(const s_FileTransPercent &) const = default;
};
using s_FileTransPercentArray = std::vector<s_FileTransPercent>;

using s_ScreenIdArray = std::vector<s_ScreenId>;

/// Presets that a keypad loaded, by key.
struct s_PresetInfo {
    std::uint8_t beforeOnePreset = 0; ///< the preset before this one; not stored
    std::uint8_t lastPVWPreset = 0;
    std::uint8_t lastPGMPreset = 0;
    s_ScreenIdArray pvwScn; ///< screens of the load to PVW
    s_ScreenIdArray pgmScn; ///< screens of the load to PGM
    bool operator==(const s_PresetInfo &) const = default;
};
QUORIX_AJSON(s_PresetInfo, lastPVWPreset, lastPGMPreset, pvwScn, pgmScn)

/// One key of a keypad.
struct s_KeypadFile {
    std::uint8_t modelId = 0;
    std::uint8_t modelType = 0;
    std::uint8_t buttonId = 0;
    std::uint8_t buttonColor = 0;
    bool operator==(const s_KeypadFile &) const = default;
};
QUORIX_AJSON(s_KeypadFile, modelId, modelType, buttonId, buttonColor)
using s_KeypadFileArray = std::vector<s_KeypadFile>;

/// The content of a keypad file.
struct s_KeypadInfo {
    s_PresetInfo presetInfo;
    s_KeypadFileArray keypadArray;
    bool operator==(const s_KeypadInfo &) const = default;
};
QUORIX_AJSON(s_KeypadInfo, presetInfo, keypadArray)

} // namespace Quorix::ProtoModel::File

extern template QUORIX_EXPORT bool Quorix::ProtoModel::decode(const std::string &, File::s_KeypadInfo &, std::string &);

#endif
