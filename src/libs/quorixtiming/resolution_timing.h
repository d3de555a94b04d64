/// From width, height and rate to a full display timing, and to an EDID that offers it.
///
/// Nothing is allocated or kept: everything here may be called from any thread.
#ifndef QUORIXTIMING_RESOLUTION_TIMING_H
#define QUORIXTIMING_RESOLUTION_TIMING_H

#include <quorix_export.h>
#include <quorixtiming/display_timing.h>

#include <cstdint>

/// Where a timing may come from.
enum CalcMode_t : std::int32_t {
    EN_CVT = 0,   ///< the formula of CVT 1.2 with reduced blanking
    EN_DMT = 1,   ///< the tables of standard modes
    EN_AUTO = 15, ///< the tables, then the formula
};

enum ResT_RET_t : std::int32_t { ResT_OK = 0, ResT_ERR = 1 };

/// Index into g_resolution.
enum en_resolution_type_t : std::int32_t {
    RES_640X480,
    RES_720X480,
    RES_720X576,
    RES_800X600,
    RES_848X480,
    RES_1024X768,
    RES_1152X864,
    RES_1280X720,
    RES_1280X768,
    RES_1280X800,
    RES_1280X960,
    RES_1280X1024,
    RES_1360X768,
    RES_1366X768,
    RES_1400X1050,
    RES_1440X900,
    RES_1680X1050,
    RES_1920X1080,
    RES_1920X1200,
    RES_2048X1152,
    RES_1600X1200,
    RES_3840X2160,
    RES_MAX_NUM
};

struct resolution_t {
    std::uint16_t width;  ///< pixels
    std::uint16_t height; ///< lines
};
extern QUORIX_EXPORT const resolution_t g_resolution[RES_MAX_NUM];

/// A mode, in the common form of both mode tables.
struct mode_table_t {
    en_resolution_type_t en_res_idx;
    std::uint16_t h_freq; ///< line rate in 0.1 kHz
    std::uint16_t v_freq; ///< frame rate in 0.1 Hz
    std::uint16_t h_total, v_total;
    std::uint16_t h_blanking, v_blanking; ///< whole blanking
    std::uint16_t h_sync, v_sync;
    std::uint16_t h_start, v_start; ///< sync width plus back porch
    std::uint8_t flag;              ///< 0
};

/// Looks @p width x @p height up among the large modes, at a rate within 0.4 Hz of @p frame_rate_x10 (in 0.1 Hz).
/// @return whether there is a row; @p timing is untouched without one.
/// Source of the rows: VESA DMT 1.0 Rev. 13, CTA-861.
QUORIX_EXPORT bool GetDmtTiming(std::uint16_t width, std::uint16_t height, std::uint16_t frame_rate_x10,
                                mode_table_t *timing);

/// Looks a mode up among the 111 standard modes (see findVideoMode()), at the nominal rate @p frame_rate in whole Hz.
/// @return whether there is a row; if so, all of @p timing but `en_res_idx` is set.
QUORIX_EXPORT bool GetVideoTiming(std::uint16_t width, std::uint16_t height, std::uint16_t frame_rate,
                                  mode_table_t *timing);

/// The timing of a progressive mode of @p width pixels, @p height lines and @p InputFreq Hz; all of @p p_dtd is set but
/// `Native`. Any rate is taken: one that is 0, negative or not finite comes from the formula, with a clock of 0 or the
/// largest one; clocks beyond 32 bits saturate.
/// @return ResT_ERR, with @p p_dtd untouched, for a null @p p_dtd, for EN_DMT and a mode in neither table, and for an
/// unknown @p CalcMode.
QUORIX_EXPORT ResT_RET_t ResT_calDTD_by_model(CalcMode_t CalcMode, cea861_dtd_t *p_dtd, std::uint16_t width,
                                              std::uint16_t height, float InputFreq);

/// Checks header and checksum of the base block, and the checksum of the extension if byte 126 announces one.
/// @param pEDID 256 bytes, of which the second half is only read if byte 126 is not 0; null gives ResT_ERR
QUORIX_EXPORT ResT_RET_t ResT_verify_EDID(const std::uint8_t *pEDID);

/// Writes to @p pEDID_OUT (256 bytes, may be the model) the EDID @p pEDIDMODEL (256 bytes) with the timing that
/// ResT_calDTD_by_model() gives as its first descriptor. The base block's checksum is made anew, the extension stays.
/// @return ResT_ERR, with @p pEDID_OUT untouched, for a null argument, a model that ResT_verify_EDID() refuses, or no
/// timing. What a descriptor can't hold is not refused, see edid_dtd_fits().
QUORIX_EXPORT ResT_RET_t ResT_calEDID_by_model(CalcMode_t CalcMode, const std::uint8_t *pEDIDMODEL,
                                               std::uint8_t *pEDID_OUT, std::uint16_t width, std::uint16_t height,
                                               float InputFreq);

/// The same with a given timing, of which clock, active, blanking and sync values are used.
QUORIX_EXPORT ResT_RET_t ResT_calEDID_by_DTD(const std::uint8_t *pEDIDMODEL, std::uint8_t *pEDID_OUT,
                                             cea861_dtd_t p_dtd);

#endif
