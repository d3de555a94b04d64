/// The screens of a device as text.
#ifndef QUORIXCTL_SCREEN_TABLES_H
#define QUORIXCTL_SCREEN_TABLES_H

#include <quorixbizmodel/common/modelreferences.h>

#include <QTextStream>

#include <memory>

namespace quorixctl {

/// Screens with their mosaics, then the layers of each by scene, then what is selected.
void printScreens(QTextStream &out, const std::shared_ptr<Quorix::BizModel::Device> &device);

} // namespace quorixctl

#endif
