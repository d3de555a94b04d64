/// What discovery knows of a device, before and beside its model.
#ifndef DEVICEBASEINFO_H
#define DEVICEBASEINFO_H

#include <quorixprotomodel/protomodelbase.h>

#include <quorix_export.h>

#include <chrono>
#include <list>
#include <string>

namespace Quorix::ProtoModel {

/// Kind of a control channel.
enum class eChannelType : std::int32_t { UDP = 0, TCPClient = 1, HTTPClient = 2 };

/// One client of a device. The bytes of its IPv4 address stand in the order of a report, the leftmost last.
struct QUORIX_EXPORT DeviceClientInfo {
    std::uint8_t ip4 = 0;
    std::uint8_t ip3 = 0;
    std::uint8_t ip2 = 0;
    std::uint8_t ip1 = 0;        ///< leftmost in dotted form
    std::uint16_t localPort = 0; ///< port of the client; not stored
    std::uint8_t ClinentControlAllowed = 0;

    /// @return the address in dotted form, from ip1 to ip4.
    [[nodiscard]] std::string clientIp() const;
    /// @return true when this client may control the device.
    [[nodiscard]] bool isAllowControl() const { return ClinentControlAllowed % 2 == 1; }
    /// @return true when the entry names a client, that is any address but 0.0.0.0; the port is no test, for an entry
    /// that was read from a document has none.
    [[nodiscard]] bool isConnected() const { return ip1 != 0 || ip2 != 0 || ip3 != 0 || ip4 != 0; }
    bool operator==(const DeviceClientInfo &) const = default;
};
QUORIX_AJSON(DeviceClientInfo, ip4, ip3, ip2, ip1, ClinentControlAllowed)

/// What discovery knows of a device. A plain value: whoever shares one guards it.
struct QUORIX_EXPORT DeviceBaseInfo {
    std::uint16_t ProbePort = 0;          ///< port on which the device answers probes
    std::uint16_t ModelId = 0;            ///< Enum::Device::Type
    std::uint8_t SN[SN_LEN]{};            ///< serial number
    std::uint8_t MAC[MAC_LEN]{};          ///< MAC address
    std::uint32_t MainControlVersion = 0; ///< firmware, four bytes, highest first
    std::uint16_t UDPProtocolVersion = 0;
    std::uint16_t ProtocolVersion = 0;
    std::uint16_t RemoteCtrlPort = 0;         ///< control port on the device
    std::uint32_t MaxDataLengthPerPacket = 0; ///< bytes
    std::string DeviceName;
    std::list<DeviceClientInfo> ClientIps;                       ///< clients that the device knows
    eChannelType CtrlChannelType = eChannelType::UDP;            ///< not stored
    std::chrono::steady_clock::time_point LastProbeTime{};       ///< not stored
    std::chrono::steady_clock::time_point LastReceiveDataTime{}; ///< not stored
    bool IsQuorix = false;                                       ///< from discovery
    std::string RemoteIp;                                        ///< address of the device
    std::string LocalIp;                                         ///< address of this station on that link
    std::uint16_t LocalCtrlPort = 0;                             ///< port of this station on that link

    /// @return for example "V1.2.3.4", the highest byte first.
    [[nodiscard]] std::string mainControlVersion() const;
    /// @return two upper-case hexadecimal digits for each of the @p length bytes; empty for a length of 0.
    [[nodiscard]] static std::string toHex(const std::uint8_t *bytes, std::size_t length);
    [[nodiscard]] std::string mac() const { return toHex(MAC, MAC_LEN); }
    [[nodiscard]] std::string sn() const { return toHex(SN, SN_LEN); }
    [[nodiscard]] bool isEmptyMACAndSN() const;
    /// @return true when the first client with this station's address and port is allowed to control the device.
    [[nodiscard]] bool isMasterControl() const;
    bool operator==(const DeviceBaseInfo &) const = default;
};
QUORIX_AJSON(DeviceBaseInfo, ProbePort, ModelId, SN, MAC, MainControlVersion, UDPProtocolVersion, ProtocolVersion,
             RemoteCtrlPort, MaxDataLengthPerPacket, DeviceName, ClientIps, IsQuorix, RemoteIp, LocalIp, LocalCtrlPort)

} // namespace Quorix::ProtoModel

#endif
