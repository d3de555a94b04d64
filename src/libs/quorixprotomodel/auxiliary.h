/// Auxiliary messages: statistics, upgrades, self-check, progress, versions.
#ifndef QUORIXPROTOMODEL_AUXILIARY_H
#define QUORIXPROTOMODEL_AUXILIARY_H

#include <quorixprotomodel/protomodelbase.h>

#include <string>

namespace Quorix::ProtoModel::Auxiliary {

inline constexpr std::uint8_t bcAuxiliary = 252; ///< base code of the messages below
inline constexpr std::uint8_t fcShutdownOrRestart = 1;
inline constexpr std::uint8_t fcFactoryReset = 2;
inline constexpr std::uint8_t fcSave = 3;
inline constexpr std::uint8_t fcSourceLossStat = 4;
inline constexpr std::uint8_t fcSourceLossStatResult = 5;
inline constexpr std::uint8_t fcCutoutPos = 6;
inline constexpr std::uint8_t fcCutoutRGB = 7;
inline constexpr std::uint8_t fcUpgradeDetail = 8;
inline constexpr std::uint8_t fcUpgradePercent = 9;
inline constexpr std::uint8_t fcDeviceVersion = 10;
inline constexpr std::uint8_t fcSelfCheckDetail = 11;
inline constexpr std::uint8_t fcSetDeviceTime = 12;
inline constexpr std::uint8_t fcDeviceProcess = 13;

/// How often an event was seen on one connector.
struct s_Connector {
    std::uint8_t index = 0;
    std::uint32_t times = 0;
    bool operator==(const s_Connector &) const = default;
};

struct s_ProcessDetail {
    std::uint32_t fileType = 0; ///< of the file in work
    std::uint32_t fileId = 0;
    std::uint8_t process = 0; ///< percent
    bool operator==(const s_ProcessDetail &) const = default;
};
using s_ProcessDetailArray = std::vector<s_ProcessDetail>;

/// A long job on the device.
struct s_DeviceProcess {
    std::uint8_t status = 0;
    std::uint8_t totalProcess = 0; ///< percent; 100: done
    s_ProcessDetailArray processDetails;
    bool operator==(const s_DeviceProcess &) const = default;
};

/// Picking of the cutout colour.
struct s_CutoutPos {
    std::int32_t enable = 0;
    std::int32_t type = 0;
    std::uint32_t id = 0; ///< packed interface id
    s_Pos pos;
    bool operator==(const s_CutoutPos &) const = default;
};
QUORIX_AJSON(s_CutoutPos, enable, type, id, pos)

struct s_Code {
    std::uint16_t code = 0; ///< of a section
    bool operator==(const s_Code &) const = default;
};

struct s_CardType {
    std::int32_t type = 0;
    bool operator==(const s_CardType &) const = default;
};

struct s_UpgradeRate {
    std::uint8_t rate = 0; ///< percent
    bool operator==(const s_UpgradeRate &) const = default;
};

struct s_CardInfo {
    std::uint8_t slotId = 0;
    std::uint16_t modelId = 0;
    bool operator==(const s_CardInfo &) const = default;
};

/// One card in an upgrade request.
struct s_CardInfoParts : s_CardType {
    std::uint8_t slotId = 0;
    std::uint16_t modelId = 0;
    std::uint8_t boardId = 0;
    std::vector<s_Code> section; ///< to upgrade
    bool operator==(const s_CardInfoParts &) const = default;
};

/// Progress of one section.
struct s_UpdateProcessSection : s_Code, s_UpgradeRate {
    std::int32_t result = 0;
    bool operator==(const s_UpdateProcessSection &) const = default;
};
using s_UpdateProcessSectionArray = std::vector<s_UpdateProcessSection>;

/// Progress of one card.
struct s_UpgradeCardParts : s_UpgradeRate, s_CardType {
    std::uint8_t slotId = 0;
    std::uint8_t result = 0;
    s_UpdateProcessSectionArray section;
    bool operator==(const s_UpgradeCardParts &) const = default;
};

struct s_CompatibilitySection : s_Code {
    std::int32_t timeout = 0; ///< time allowed for the section
    bool operator==(const s_CompatibilitySection &) const = default;
};

struct s_CompatibilityCardInfoParts : s_CardInfo {
    std::vector<s_CompatibilitySection> sections;
    bool operator==(const s_CompatibilityCardInfoParts &) const = default;
};

struct s_CompatibilitySubCardPercentSection : s_CardInfo {
    s_UpdateProcessSectionArray sections;
    bool operator==(const s_CompatibilitySubCardPercentSection &) const = default;
};

/// One line of a self-check report; values are text.
struct s_SectionBody {
    std::uint8_t sequence = 0; ///< position in the report
    std::string name;
    std::string value;
    std::string max;
    std::string min;
    std::uint8_t state = 0;
    std::uint8_t showBrief = 0; ///< stands in the brief view, too
    bool operator==(const s_SectionBody &) const = default;
};

struct s_PartsBody {
    std::uint8_t type = 0;
    std::uint8_t slotId = 0;
    std::uint16_t modelId = 0;
    std::vector<s_SectionBody> section;
    bool operator==(const s_PartsBody &) const = default;
};

struct s_DeviceSelfCheckDetail {
    std::vector<s_PartsBody> parts;
    bool operator==(const s_DeviceSelfCheckDetail &) const = default;
};

struct s_VersionSection {
    std::uint16_t code = 0;
    std::string version;
    std::string brief;
    bool operator==(const s_VersionSection &) const = default;
};
using s_SectionArray = std::vector<s_VersionSection>;

struct s_VersionPart {
    std::uint8_t type = 0;
    std::uint8_t slotId = 0;
    std::uint32_t modelId = 0;
    std::string version;
    std::string brief;
    s_SectionArray section;
    bool operator==(const s_VersionPart &) const = default;
};

} // namespace Quorix::ProtoModel::Auxiliary

#endif
