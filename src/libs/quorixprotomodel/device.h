/// What a device reports about itself and its cards, and the two records that the output mapping shares with interfaces
/// and screens.
#ifndef QUORIXPROTOMODEL_DEVICE_H
#define QUORIXPROTOMODEL_DEVICE_H

#include <quorixprotomodel/protomodelbase.h>

#include <string>
#include <tuple>
#include <utility>

namespace Quorix::ProtoModel {

/// Test pattern of an interface, a screen or the output mapping.
struct s_TestPatternBody {
    std::int32_t enable = 0;
    std::int32_t type = 65535; ///< Enum::Auxiliary::TestPatternType; 65535: closed
    std::int32_t bright = 2;   ///< steps
    std::int32_t grid = 4;     ///< steps
    std::int32_t speed = 3;    ///< steps
    std::int32_t gridLineWidth = 1;
    std::int32_t gridType = 0;
    bool operator==(const s_TestPatternBody &) const = default;
};
QUORIX_AJSON(s_TestPatternBody, enable, type, bright, grid, speed, gridLineWidth, gridType)

struct s_InterfaceMappingGeneral {
    std::int32_t type = 0;
    bool operator==(const s_InterfaceMappingGeneral &) const = default;
};
QUORIX_AJSON(s_InterfaceMappingGeneral, type)

namespace Device {

inline constexpr std::uint8_t bcDevice = 17; ///< base code of the messages below
inline constexpr std::uint8_t fcDeviceDetails = 0;
inline constexpr std::uint8_t fcDeviceGeneral = 1;
inline constexpr std::uint8_t fcSlotModeSwitch = 2;
inline constexpr std::uint8_t fcPowerConfig = 3;
inline constexpr std::uint8_t fcGenlockConfig = 4;
inline constexpr std::uint8_t fcGenlockStatus = 5;
inline constexpr std::uint8_t fcNetConfig = 6;
inline constexpr std::uint8_t fcSwapStatus = 7;
inline constexpr std::uint8_t fcDeviceTestPattern = 8;
inline constexpr std::uint8_t fcDynamicRangConversion = 9;
inline constexpr std::uint8_t fcGroupInfos = 10;
inline constexpr std::uint8_t fcInterfaceRelation = 12;
inline constexpr std::uint8_t fcNovs = 13;
inline constexpr std::uint8_t fcPGMStatus = 14;

struct s_GeneralBody {
    std::string name = "N/A";
    std::int32_t status = 1;
    bool operator==(const s_GeneralBody &) const = default;
};
QUORIX_AJSON(s_GeneralBody, name, status)

struct s_GenlockBody {
    std::int32_t type = 0;                 ///< Enum::Device::GenLockEnum
    std::uint32_t interfaceId = 268435455; ///< packed id of the source; 268435455 names none
    bool operator==(const s_GenlockBody &) const = default;
};
QUORIX_AJSON(s_GenlockBody, type, interfaceId)

struct s_GenlockSignalBody {
    std::int32_t extSignalIn = 0; ///< Enum::Device::GenLockEnable
    std::int32_t status = 0;      ///< Enum::Device::GenLockStatus
    bool operator==(const s_GenlockSignalBody &) const = default;
};
QUORIX_AJSON(s_GenlockSignalBody, extSignalIn, status)

struct s_PowerBody {
    std::int32_t powerId = 0;
    std::int32_t iSignal = 0;
    std::int32_t status = 0;
    bool operator==(const s_PowerBody &) const = default;
};
QUORIX_AJSON(s_PowerBody, powerId, iSignal, status)
using s_PowerBodyArray = std::vector<s_PowerBody>;

/// One connector as a card reports it.
struct s_Connectors {
    std::int32_t id = 0;
    std::int32_t type = 0;            ///< Enum::Interface::ConnectorType
    std::uint32_t copyId = 268435455; ///< packed id; 268435455: none, while 0 would name slot 0, connector 0
    std::int32_t workMode = 0;        ///< Enum::Interface::WorkMode
    std::int32_t capacityMode = 0;    ///< Enum::Interface::CapacityMode
    bool operator==(const s_Connectors &) const = default;
};
QUORIX_AJSON(s_Connectors, id, type, copyId, workMode, capacityMode)

/// Membership in a device group.
struct s_DeviceGroupInfoBody {
    std::string groupName;
    std::string groupId = "0"; ///< "0": in no group
    bool operator==(const s_DeviceGroupInfoBody &) const = default;
};
QUORIX_AJSON(s_DeviceGroupInfoBody, groupName, groupId)
using s_DeviceGroupInfoBodyArray = std::vector<s_DeviceGroupInfoBody>;

/// One card as a device reports it.
struct s_subcardBody {
    std::int32_t slotId = 0;
    std::int32_t modelId = 0;
    std::int32_t boardId = 0;
    std::int32_t cardType = 0; ///< Enum::Device::CardType
    std::int32_t online = 1;   ///< Enum::Device::SlotStatusType; a card that is set up without its device works at once
    std::vector<s_Connectors> connectors;
    bool operator==(const s_subcardBody &) const = default;
};
QUORIX_AJSON(s_subcardBody, slotId, modelId, boardId, cardType, online, connectors)
using s_subcardBodyArray = std::vector<s_subcardBody>;

struct s_subcards {
    s_subcardBodyArray subcards;
    bool operator==(const s_subcards &) const = default;
};

/// One network port; addresses are text.
struct s_NetworkBody {
    std::int32_t index = 0;
    std::int32_t dhcp = 0;
    std::string ip = "192.168.0.10";
    std::string subnetMask = "255.255.255.0";
    std::string gateway = "192.168.0.1";
    std::string MAC = emptyMACString;
    bool operator==(const s_NetworkBody &) const = default;
};
QUORIX_AJSON(s_NetworkBody, index, MAC, dhcp, ip, subnetMask, gateway)
using s_NetworksBodyArray = std::vector<s_NetworkBody>;

struct s_Networks {
    s_NetworksBodyArray networks;
    bool operator==(const s_Networks &) const = default;
};

struct s_DynamicRangConversion {
    std::int32_t enable = 0;
    std::int32_t type = 0;
    bool operator==(const s_DynamicRangConversion &) const = default;
};
QUORIX_AJSON(s_DynamicRangConversion, enable, type)

struct s_InterfaceMapping {
    s_InterfaceMappingGeneral general;
    s_TestPatternBody testPattern;
    bool operator==(const s_InterfaceMapping &) const = default;
};
QUORIX_AJSON(s_InterfaceMapping, general, testPattern)

/// A hot backup pair. Interfaces are packed ids.
struct s_Relation {
    std::int32_t type = 0;
    std::int32_t interfaceA = 0;
    std::int32_t interfaceB = 0;
    std::int32_t actualInterface = 0; ///< the one in force

    /// Puts the lower id first: the same pair, since A and B may stand in either order.
    void sort() {
        if (interfaceB < interfaceA)
            std::swap(interfaceA, interfaceB);
    }
    /// Orders by the fields as they stand above.
    bool operator<(const s_Relation &other) const {
        return std::tie(type, interfaceA, interfaceB, actualInterface) <
               std::tie(other.type, other.interfaceA, other.interfaceB, other.actualInterface);
    }
    bool operator==(const s_Relation &) const = default;
};
QUORIX_AJSON(s_Relation, type, interfaceA, interfaceB, actualInterface)
using s_RelationArray = std::vector<s_Relation>;

/// Hot backup.
struct s_InterfaceRelation {
    std::int32_t enable = 0;
    s_RelationArray relation;
    bool operator==(const s_InterfaceRelation &) const = default;
};
QUORIX_AJSON(s_InterfaceRelation, enable, relation)

/// All that a device reports about itself.
struct s_DeviceDetail {
    s_GeneralBody general;
    std::uint8_t swap = 1;
    s_GenlockBody genlock;
    s_GenlockSignalBody genlockSignal;
    s_PowerBodyArray powers;
    std::vector<s_subcardBody> subcards;
    std::vector<s_NetworkBody> networks;
    s_DynamicRangConversion dynamicRangConversion;
    s_InterfaceMapping interfaceMapping{.general = {},
                                        .testPattern = {.type = 768}}; ///< 768: the mapping's own pattern
    s_DeviceGroupInfoBodyArray groupInfos;
    std::uint8_t noVSEnable = 0; ///< handling of a missing video source is on
    std::uint8_t presetApplyType = 0;
    s_InterfaceRelation interfaceRelation;
    bool operator==(const s_DeviceDetail &) const = default;
};
QUORIX_AJSON(s_DeviceDetail, general, swap, genlock, genlockSignal, powers, subcards, networks, dynamicRangConversion,
             interfaceMapping, groupInfos, noVSEnable, interfaceRelation, presetApplyType)

} // namespace Device
} // namespace Quorix::ProtoModel

#endif
