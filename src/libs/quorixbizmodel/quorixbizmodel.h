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
#include <quorixbizmodel/files/alphamap.h>
#include <quorixbizmodel/files/file.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/files/userkey.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/mvrlayout.h>
#include <quorixbizmodel/layouts/screenlayout.h>
#include <quorixbizmodel/persistence/fileoperations.h>
#include <quorixbizmodel/persistence/savedevicedatathread.h>
#include <quorixbizmodel/persistence/serailizer.h>
#include <quorixbizmodel/resources/resourceexplanation.h>
#include <quorixbizmodel/resources/resourcescheck.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#endif
