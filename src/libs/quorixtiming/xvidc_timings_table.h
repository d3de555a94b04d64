/// The standard video modes of VESA DMT and CTA-861, as a table.
#ifndef QUORIXTIMING_XVIDC_TIMINGS_TABLE_H
#define QUORIXTIMING_XVIDC_TIMINGS_TABLE_H

#include <quorix_export.h>

#include <array>
#include <cstdint>

enum class XVidC_VideoMode : std::int32_t {}; ///< place in the table, from 0
enum class XVidC_FrameRate : std::int32_t {}; ///< nominal whole rate in Hz; the field rate if interlaced

/// Widths in pixels and in lines of field 0; those of field 1 are 0 for a progressive mode.
struct XVidC_VideoTiming {
    std::uint16_t HActive, HFrontPorch, HSyncWidth, HBackPorch, HTotal;
    std::uint8_t HSyncPolarity; ///< 1: positive
    std::uint16_t VActive;      ///< half the frame if interlaced
    std::uint16_t F0PVFrontPorch, F0PVSyncWidth, F0PVBackPorch, F0PVTotal;
    std::uint16_t F1VFrontPorch, F1VSyncWidth, F1VBackPorch, F1VTotal;
    std::uint8_t VSyncPolarity; ///< 1: positive
};

struct XVidC_VideoTimingMode {
    XVidC_VideoMode VmId;
    char Name[21]; ///< width x height @ rate, "(I)" interlaced, "(RB)" reduced blanking; not unique
    XVidC_FrameRate FrameRate;
    XVidC_VideoTiming Timing;
};

extern QUORIX_EXPORT const std::array<XVidC_VideoTimingMode, 111> XVidC_VideoTimingModes;

/// The first row with these active pixels, active lines (of a field, if interlaced) and nominal rate in Hz, or null.
/// May be called from any thread.
[[nodiscard]] QUORIX_EXPORT const XVidC_VideoTimingMode *findVideoMode(std::uint16_t width, std::uint16_t height,
                                                                       std::uint16_t frame_rate);

#endif
