/// Display timings and EDID, all of it.
#ifndef QUORIXTIMING_H
#define QUORIXTIMING_H

#include <quorixtiming/cvt12.h>
#include <quorixtiming/display_timing.h>
#include <quorixtiming/resolution_timing.h>
#include <quorixtiming/xvidc_timings_table.h>

#endif
