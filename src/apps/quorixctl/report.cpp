#include "report.h"

#include <QFile>
#include <QFileInfo>

namespace quorixctl {
namespace {

std::string readFile(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("%1: %2").arg(path, file.errorString()));
    return file.readAll().toStdString();
}

} // namespace

ReportDocument readReport(const QString &path) {
    ReportDocument document;
    std::string error;
    if (!Quorix::ProtoModel::decode(readFile(path), document, error))
        throw Failure(QStringLiteral("%1: %2").arg(path, QString::fromStdString(error)));
    // A document keeps no port of a client: the one with this station's address is taken for this station.
    if (document.baseInfo)
        for (auto &client : document.baseInfo->ClientIps)
            if (client.clientIp() == document.baseInfo->LocalIp)
                client.localPort = document.baseInfo->LocalCtrlPort;
    if (document.files)
        for (const ContentEntry &entry : document.contents)
            for (auto &file : *document.files)
                if (file.fileId == entry.fileId && file.fileType == entry.fileType)
                    file.binaryData =
                        readFile(QFileInfo(path).path() + QLatin1Char('/') + QString::fromStdString(entry.path));
    return document;
}

std::vector<ReportDocument> readReports(const Invocation &call) {
    std::vector<ReportDocument> reports;
    for (const QString &path : call.arguments)
        reports.push_back(readReport(path));
    return reports;
}

} // namespace quorixctl
