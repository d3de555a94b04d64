/// The formula for timings that no table holds.
#ifndef QUORIXTIMING_CVT12_H
#define QUORIXTIMING_CVT12_H

#include <quorix_export.h>

/// A timing by the CVT formula; positions count from the start of the active picture.
struct cvt_mode {
    int hr, hss, hse, hfl; ///< pixels: active, sync start, sync end, total
    int vr, vss, vse, vfl; ///< lines of the frame: active, sync start, sync end, total
    float pclk;            ///< MHz
    float h_freq;          ///< kHz
    float v_freq;          ///< Hz, as wanted
    float real_v_rate;     ///< Hz, as reached with the clock's step
    int reduced_blank;     ///< as given
    int interlaced;        ///< as given
};

/// Computes the timing of @p h_pixels x @p v_lines at @p freq Hz (field rate if interlaced). The last four arguments
/// are switches: interlaced, reduced blanking (version 1), margins of 1.8 %, and a rate times 1000/1001 (with 1 only,
/// and with reduced blanking only). Any argument gives a result: what doesn't fit in an `int` saturates, NaN gives 0.
/// Nothing happens for a null @p m. May be called from any thread.
/// Source: VESA Coordinated Video Timings (CVT) Standard 1.2, with a cell of one pixel, a clock step of 1 kHz and at
/// least 3 lines of back porch instead of 8 pixels, 0.25 MHz and 6 lines.
QUORIX_EXPORT void vert_refresh(int h_pixels, int v_lines, float freq, int interlaced, int reduced_blank, int margins,
                                int film_optimized, cvt_mode *m);

#endif
