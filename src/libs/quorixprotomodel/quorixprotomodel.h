/// The records that cross the library's boundary, all of them.
#ifndef QUORIXPROTOMODEL_H
#define QUORIXPROTOMODEL_H

#endif
