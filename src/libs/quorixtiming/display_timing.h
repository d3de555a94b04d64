/// Display timings in the terms of a CEA-861 detailed timing descriptor, and the E-EDID blocks that carry them.
///
/// Plain values and functions: nothing is allocated or kept, so everything here may be called from any thread.
/// Horizontal values are pixels, vertical ones lines (of one field if interlaced), clocks hertz. Sources: VESA E-EDID
/// Standard, EDID 1.3 (base block and detailed timing descriptor); CTA-861.
#ifndef QUORIXTIMING_DISPLAY_TIMING_H
#define QUORIXTIMING_DISPLAY_TIMING_H

#include <quorix_export.h>

#include <cstddef>
#include <cstdint>

inline constexpr std::size_t EDID_BLOCK_SIZE = 128;      ///< bytes of the base block and of each extension
inline constexpr std::size_t EDID_SIZE = 256;            ///< an EDID here: base block and one extension
inline constexpr std::size_t EDID_DESCRIPTOR_SIZE = 18;  ///< bytes of one of the four descriptors of the base block
inline constexpr std::size_t EDID_FIRST_DESCRIPTOR = 54; ///< offset of the first one, the preferred timing

/// A display timing, as a detailed timing descriptor words it.
struct edid_CEA861DetailedTimingDescriptor {
    std::uint32_t PixelClock = 0; ///< Hz
    std::uint16_t HorizActivePixels = 0;
    std::uint16_t HorizBlankingPixels = 0;
    std::uint16_t VertActiveLines = 0;
    std::uint16_t VertBlankingLines = 0;
    std::uint16_t HorizSyncOffset = 0; ///< front porch
    std::uint16_t HorizSyncPulseWidth = 0;
    std::uint16_t VertSyncOffset = 0; ///< front porch
    std::uint16_t VertSyncPulseWidth = 0;
    std::uint16_t HorizImageSize_mm = 0;
    std::uint16_t VertImageSize_mm = 0;
    std::uint8_t HorizBorder = 0;
    std::uint8_t VertBorder = 0;
    bool Interlaced = false;
    std::uint8_t StereoModeDecode = 0;      ///< bits 6, 5 and 0 of the flags as one value, 0 to 7
    std::uint8_t SyncSignalDescription = 0; ///< 0, 1 analog; 2 digital composite; 3 digital separate
    std::uint8_t SyncSignalInfo = 0;        ///< with digital sync, bit 0: horizontal, bit 1: vertical polarity positive
    bool Native = false;

    bool operator==(const edid_CEA861DetailedTimingDescriptor &) const = default;
};
using cea861_dtd_t = edid_CEA861DetailedTimingDescriptor;

/// The parsed base block of an EDID.
struct edid_EDIDBlock0 {
    std::uint8_t Header[8];
    char ManufacturerName[4]; ///< three letters and a NUL
    std::uint8_t ProductCode[2];
    std::uint8_t SerialNumber[4];
    std::uint8_t ManufactureWeek;
    std::uint32_t ManufactureYear; ///< for example 2019; 0 when the week is 0
    std::uint8_t Version;
    std::uint8_t Revision;
    std::uint8_t VideoInputDefinition;
    std::uint32_t HSize_mm;
    std::uint32_t VSize_mm;
    std::uint8_t Gamma; ///< (gamma - 1) * 100
    std::uint8_t FeatureSupport;
    std::uint32_t Color_Red_x; ///< chromaticities in 1/1024, 0 to 1023
    std::uint32_t Color_Red_y;
    std::uint32_t Color_Green_x;
    std::uint32_t Color_Green_y;
    std::uint32_t Color_Blue_x;
    std::uint32_t Color_Blue_y;
    std::uint32_t Color_White_x;
    std::uint32_t Color_White_y;
    std::uint8_t Established_Timing[3];
    std::uint8_t Standard_Timing[8][2];
    std::uint8_t Descriptor[4][EDID_DESCRIPTOR_SIZE];
    std::uint8_t Extension; ///< number of extension blocks
    std::uint8_t Checksum;
};

/// A modeline of running sums: active, + front porch (f), + sync (s), + back porch (b).
struct digital_vid_modeline_t {
    std::uint32_t pix_clk; ///< Hz
    std::uint16_t h_a, h_a_f, h_a_f_s, h_a_f_s_b;
    std::uint16_t v_a, v_a_f, v_a_f_s, v_a_f_s_b;
    std::uint8_t h_sync_pol, v_sync_pol; ///< 1: positive
    std::uint8_t is_intd;
};

/// A modeline of single widths, with lines of the whole frame, the frame or field rate and the picture's aspect.
struct digital_vid_modeline2_t {
    std::uint32_t pixclk; ///< Hz
    std::uint16_t hact, vact;
    std::uint16_t htot, hfp, hsw, hbp;
    std::uint8_t hpol; ///< 1: positive
    std::uint16_t vtot, vfp, vsw, vbp;
    std::uint8_t vpol, intd;
    std::uint32_t vfreq; ///< whole Hz
    std::uint8_t x, y;   ///< aspect, 16 and 9 for example; at most 80 each, or a 0 and the other's low 8 bits
};

/// Brings the @p size bytes of a file or a channel into the form that the other functions read: 256 bytes, a missing
/// second half 0. False, with @p pEDID untouched, unless it is one block without or one with an extension: 128 or 256
/// bytes, of which byte 126 announces no more than there are. Header and sums are not looked at.
[[nodiscard]] QUORIX_EXPORT bool edid_load(const std::uint8_t *pBytes, std::size_t size,
                                           std::uint8_t (&pEDID)[EDID_SIZE]);

/// Fills @p pEDIDBlock0 from the 128 bytes at @p pEDID.
/// @return true for a valid header and checksum; false, with the fields filled, otherwise; false for a null argument.
QUORIX_EXPORT bool edid_parse_block0(const std::uint8_t *pEDID, edid_EDIDBlock0 *pEDIDBlock0);

/// Fills @p pDTD from the 18 bytes at @p pDescriptor; a clock near that of a standard rate becomes the nominal one.
/// @return true for a plausible timing. False, with the fields filled, for an implausible one; false, with all fields
/// zero, for a descriptor that holds no timing (clock 0); false for a null argument.
QUORIX_EXPORT bool edid_parse_dtd(const std::uint8_t *pDescriptor, cea861_dtd_t *pDTD);

/// The two modeline forms of @p pDTD; nothing happens for a null argument. Polarities are 0 but for digital sync.
QUORIX_EXPORT void edid_dtd2modeline_convert(const cea861_dtd_t *pDTD, digital_vid_modeline_t *p_md);
QUORIX_EXPORT void edid_dtd2modeline2_convert(const cea861_dtd_t *pDTD, digital_vid_modeline2_t *p_modeline);

/// Writes @p pDTD as 18 bytes to @p pDescriptor, the clock rounded to 10 kHz; false for a null argument. A descriptor
/// keeps 16 bits of the clock, 12 of sizes, 10 of horizontal and 6 of vertical sync values; higher bits are lost, see
/// edid_dtd_fits().
QUORIX_EXPORT bool edid_create_dtd(const cea861_dtd_t *pDTD, std::uint8_t *pDescriptor);

/// Whether a descriptor can hold @p dtd without loss of high bits, with a clock that doesn't round to 0.
[[nodiscard]] QUORIX_EXPORT bool edid_dtd_fits(const cea861_dtd_t &dtd);

/// Gives the first descriptor of the EDID at @p pEDID (128 bytes or more) the size of the screen that its base block
/// tells, and makes that block's checksum anew: a computed timing has no size, and readers take the two for a
/// contradiction. Nothing happens for null, for a block without a size, and for a descriptor that holds no timing.
QUORIX_EXPORT void edid_complete_image_size(std::uint8_t *pEDID);

#endif
