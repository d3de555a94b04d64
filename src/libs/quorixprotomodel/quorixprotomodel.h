/// The records that cross the library's boundary, all of them.
#ifndef QUORIXPROTOMODEL_H
#define QUORIXPROTOMODEL_H

#include <quorixprotomodel/auxiliary.h>
#include <quorixprotomodel/device.h>
#include <quorixprotomodel/devicebaseinfo.h>
#include <quorixprotomodel/file.h>
#include <quorixprotomodel/interface.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/preset.h>
#include <quorixprotomodel/protomodelbase.h>
#include <quorixprotomodel/screen.h>

#endif
