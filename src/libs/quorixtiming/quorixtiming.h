/// Display timings and EDID, all of it.
#ifndef QUORIXTIMING_H
#define QUORIXTIMING_H

#endif
