#include <quorixprotomodel/devicebaseinfo.h>

#include <algorithm>

namespace Quorix::ProtoModel {

namespace {

std::string dotted(unsigned a, unsigned b, unsigned c, unsigned d) {
    return std::to_string(a) + '.' + std::to_string(b) + '.' + std::to_string(c) + '.' + std::to_string(d);
}

} // namespace

std::string DeviceClientInfo::clientIp() const { return dotted(ip1, ip2, ip3, ip4); }

std::string DeviceBaseInfo::mainControlVersion() const {
    const auto byte = [this](unsigned shift) { return MainControlVersion >> shift & 255U; };
    return 'V' + dotted(byte(24), byte(16), byte(8), byte(0));
}

std::string DeviceBaseInfo::toHex(const std::uint8_t *bytes, std::size_t length) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * length);
    std::for_each(bytes, bytes + length, [&](std::uint8_t byte) {
        text += digits[byte / 16];
        text += digits[byte % 16];
    });
    return text;
}

bool DeviceBaseInfo::isEmptyMACAndSN() const { return mac() == emptyMACString && sn() == emptySNString; }

bool DeviceBaseInfo::isMasterControl() const {
    const auto isThisStation = [this](const DeviceClientInfo &client) {
        return client.localPort == LocalCtrlPort && client.clientIp() == LocalIp;
    };
    const auto client = std::find_if(ClientIps.begin(), ClientIps.end(), isThisStation);
    return client != ClientIps.end() && client->isAllowControl();
}

} // namespace Quorix::ProtoModel
