#include <quorixprotomodel/quorixprotomodel.h>
