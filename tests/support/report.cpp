#include <support/report.h>

#include <quorixbizmodel/device/device.h>
#include <quorixprotomodel/quorixprotomodel.h>

#include <gtest/gtest.h>

#include <QFile>

namespace Quorix::Tests {

QUORIX_AJSON(Report, modelId, detail, interfaces, screens, layers, mapping)

void Report::feed(BizModel::Device &device) const {
    QString error;
    EXPECT_TRUE(device.initModelData(detail, error));
    EXPECT_TRUE(device.initModelData(interfaces, error));
    EXPECT_TRUE(device.initModelData(screens, error));
    EXPECT_TRUE(device.initModelData(layers, error));
    EXPECT_TRUE(device.initModelData(mapping, error));
    EXPECT_EQ(error, QString());
}

Report readReport(const QString &name) {
    Report report;
    QFile file(QStringLiteral(QUORIX_DATA_DIR "/reports/%1.json").arg(name));
    std::string error;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && ProtoModel::decode(file.readAll().toStdString(), report, error))
        << error;
    return report;
}

} // namespace Quorix::Tests
