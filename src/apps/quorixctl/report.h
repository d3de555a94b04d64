/// Report documents: what a processor says about itself, as one JSON object.
#ifndef QUORIXCTL_REPORT_H
#define QUORIXCTL_REPORT_H

#include "command.h"

#include <quorixprotomodel/quorixprotomodel.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace quorixctl {

/// Where a report document keeps the content of a file.
struct ContentEntry {
    std::int32_t fileId = 0;
    std::int32_t fileType = 0;
    std::string path; ///< from the document's folder
};
QUORIX_AJSON(ContentEntry, fileId, fileType, path)

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
    std::vector<ContentEntry> contents;
};
QUORIX_AJSON(ReportDocument, modelId, baseInfo, detail, interfaces, screens, layers, files, mapping, contents)

/// Reads a report document, and the contents of its files. Throws Failure with the file and the reason.
ReportDocument readReport(const QString &path);
/// All documents that a command names, before the first device appears: a bad one leaves the hub empty.
std::vector<ReportDocument> readReports(const Invocation &call);

} // namespace quorixctl

#endif
