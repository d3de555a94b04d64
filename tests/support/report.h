/// The sample reports, as a processor brings them.
#ifndef QUORIX_TESTS_REPORT_H
#define QUORIX_TESTS_REPORT_H

#include <quorixprotomodel/device.h>
#include <quorixprotomodel/interface.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/screen.h>

#include <QString>

#include <cstdint>

namespace Quorix::BizModel {
class Device;
}

namespace Quorix::Tests {

struct Report {
    std::uint16_t modelId = 65535;
    ProtoModel::Device::s_DeviceDetail detail;
    ProtoModel::Interface::s_InterfaceDetailArry interfaces;
    ProtoModel::Screen::s_ScreenFullDetailArray screens;
    ProtoModel::Layer::s_LayerDetailArray layers;
    ProtoModel::Device::s_InterfaceMapping mapping;

    /// Everything in the order of a full synchronisation; a step that refuses is a failure of the test.
    void feed(BizModel::Device &device) const;
};

/// Reads data/reports/@p name.json; a failure is one of the test.
Report readReport(const QString &name);

} // namespace Quorix::Tests

#endif
