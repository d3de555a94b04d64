#ifndef QUORIXTIMING_CVT12_P_H
#define QUORIXTIMING_CVT12_P_H

#include <quorixtiming/display_timing.h>

/// Sets clock, active, blanking and sync values of @p dtd by the formula of vert_refresh(): progressive, with reduced
/// blanking, without margins.
void setFromFormula(cea861_dtd_t &dtd, std::uint16_t width, std::uint16_t height, float rate);

#endif
