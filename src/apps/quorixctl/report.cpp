#include "report.h"

#include "command.h"

#include <QFile>

namespace quorixctl {

ReportDocument readReport(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("%1: %2").arg(path, file.errorString()));
    ReportDocument document;
    std::string error;
    if (!Quorix::ProtoModel::decode(file.readAll().toStdString(), document, error))
        throw Failure(QStringLiteral("%1: %2").arg(path, QString::fromStdString(error)));
    return document;
}

} // namespace quorixctl
