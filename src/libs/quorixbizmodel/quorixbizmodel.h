/// Everything public of the business model.
#ifndef QUORIXBIZMODEL_H
#define QUORIXBIZMODEL_H

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/common/textdata.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#endif
