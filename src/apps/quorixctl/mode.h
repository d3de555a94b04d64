/// Display modes as the user types them.
#ifndef QUORIXCTL_MODE_H
#define QUORIXCTL_MODE_H

#include <QString>

#include <cstdint>

namespace quorixctl {

/// A mode: pixels across, lines down, frames per second.
struct Mode {
    std::uint16_t width;
    std::uint16_t height;
    float rate;
};

/// Reads "1920x1080@59.94". Throws UsageError if the text is no mode, or a size is past 65535.
Mode parseMode(const QString &text);

} // namespace quorixctl

#endif
