#ifndef QUORIXTIMING_EDID_BLOCK_P_H
#define QUORIXTIMING_EDID_BLOCK_P_H

#include <quorixtiming/display_timing.h>

#include <algorithm>
#include <iterator>
#include <numeric>

/// Whether the base block at @p edid begins as every EDID does.
inline bool edidHeaderValid(const std::uint8_t *edid) {
    constexpr std::uint8_t HEADER[] = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
    return std::equal(std::begin(HEADER), std::end(HEADER), edid);
}

/// The sum of @p count bytes modulo 256; 0 for a whole block that is undamaged.
inline std::uint8_t edidSum(const std::uint8_t *block, std::size_t count = EDID_BLOCK_SIZE) {
    return static_cast<std::uint8_t>(std::accumulate(block, block + count, 0U));
}

/// Makes the checksum of the base block at @p edid anew.
inline void renewChecksum(std::uint8_t *edid) {
    edid[EDID_BLOCK_SIZE - 1] = static_cast<std::uint8_t>(-edidSum(edid, EDID_BLOCK_SIZE - 1));
}

#endif
