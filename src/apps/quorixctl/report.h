/// Report documents: what a processor says about itself, as one JSON object.
#ifndef QUORIXCTL_REPORT_H
#define QUORIXCTL_REPORT_H

#include <quorixprotomodel/quorixprotomodel.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace quorixctl {

/// A report; each key is optional, an absent one is null. Keys that the host doesn't know are passed over.
struct ReportDocument {
    std::uint16_t modelId = 65535;
    std::shared_ptr<Quorix::ProtoModel::DeviceBaseInfo> baseInfo;
    std::shared_ptr<Quorix::ProtoModel::Device::s_DeviceDetail> detail;
    std::shared_ptr<Quorix::ProtoModel::Interface::s_InterfaceDetailArry> interfaces;
    std::shared_ptr<Quorix::ProtoModel::Screen::s_ScreenFullDetailArray> screens;
    std::shared_ptr<Quorix::ProtoModel::Layer::s_LayerDetailArray> layers;
    std::shared_ptr<Quorix::ProtoModel::File::s_FileDetailArray> files;
    std::shared_ptr<Quorix::ProtoModel::Device::s_InterfaceMapping> mapping;
};
QUORIX_AJSON(ReportDocument, modelId, baseInfo, detail, interfaces, screens, layers, files, mapping)

/// Reads a report document. Throws Failure with the file and the reason.
ReportDocument readReport(const QString &path);

} // namespace quorixctl

#endif
