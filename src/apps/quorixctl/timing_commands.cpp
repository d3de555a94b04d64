#include "command.h"
#include "mode.h"
#include "table.h"

#include <quorixtiming/quorixtiming.h>

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

#include <cmath>

namespace quorixctl {
namespace {

constexpr int kEdidSize = 256;
using Edid = std::uint8_t[kEdidSize];

QString number(double value, int decimals) { return QString::number(value, 'f', decimals); }

/// One axis of a descriptor: active, front porch, sync, back porch, total.
QStringList axis(const QString &name, int active, int blanking, int offset, int sync) {
    QStringList row{name};
    for (const int value : {active, offset, sync, blanking - offset - sync, active + blanking})
        row << QString::number(value);
    return row;
}

void printDescriptor(QTextStream &out, const cea861_dtd_t &dtd, int indent) {
    Table table({QStringLiteral("axis"), QStringLiteral("active"), QStringLiteral("front"), QStringLiteral("sync"),
                 QStringLiteral("back"), QStringLiteral("total")});
    table.addRow(axis(QStringLiteral("horizontal"), dtd.HorizActivePixels, dtd.HorizBlankingPixels, dtd.HorizSyncOffset,
                      dtd.HorizSyncPulseWidth));
    table.addRow(axis(QStringLiteral("vertical"), dtd.VertActiveLines, dtd.VertBlankingLines, dtd.VertSyncOffset,
                      dtd.VertSyncPulseWidth));
    table.print(out, indent);
    const double lineTotal = dtd.HorizActivePixels + dtd.HorizBlankingPixels;
    const double lines = dtd.VertActiveLines + dtd.VertBlankingLines;
    const QString pad(indent, QLatin1Char(' '));
    out << pad << "pixel clock " << number(dtd.PixelClock / 1e6, 3) << " MHz";
    if (lineTotal > 0 && lines > 0)
        out << ", line rate " << number(dtd.PixelClock / lineTotal / 1e3, 3) << " kHz, frame rate "
            << number(dtd.PixelClock / lineTotal / lines, 3) << " Hz";
    out << '\n';
}

/// Where the calculation takes a mode from; it asks in this order.
QString sourceOf(const Mode &mode) {
    cea861_dtd_t dtd{};
    if (ResT_calDTD_by_model(EN_DMT, &dtd, mode.width, mode.height, mode.rate) != ResT_OK)
        return QStringLiteral("computed by CVT 1.2 with reduced blanking");
    mode_table_t row{};
    const float tenths = mode.rate * 10.0F;
    const bool large =
        tenths < 65536.0F && GetDmtTiming(mode.width, mode.height, static_cast<std::uint16_t>(tenths), &row);
    return large ? QStringLiteral("from the table of large modes") : QStringLiteral("from the table of standard modes");
}

void readEdid(const QString &path, Edid &edid) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("%1: %2").arg(path, file.errorString()));
    // One byte more than wanted tells a longer file from a right one without reading all of it.
    const QByteArray bytes = file.read(kEdidSize + 1);
    if (!edid_load(reinterpret_cast<const std::uint8_t *>(bytes.constData()), static_cast<std::size_t>(bytes.size()),
                   edid))
        throw Failure(QStringLiteral("%1: no EDID of one or two blocks").arg(path));
}

void showEdid(QTextStream &out, const QString &path) {
    Edid edid{};
    readEdid(path, edid);
    edid_EDIDBlock0 block{};
    if (!edid_parse_block0(edid, &block))
        throw Failure(QStringLiteral("%1: header or checksum of the base block is wrong").arg(path));
    out << path << ": " << block.ManufacturerName << ", EDID " << block.Version << '.' << block.Revision
        << ", made in week " << block.ManufactureWeek << " of " << block.ManufactureYear << ", " << block.HSize_mm
        << " x " << block.VSize_mm << " mm, "
        << (ResT_verify_EDID(edid) == ResT_OK ? "verified" : "the extension's checksum is wrong") << '\n';
    for (int i = 0; i < 4; ++i) {
        cea861_dtd_t dtd{};
        if (!edid_parse_dtd(block.Descriptor[i], &dtd))
            continue;
        digital_vid_modeline2_t line{};
        edid_dtd2modeline2_convert(&dtd, &line);
        out << "  descriptor " << i + 1 << ": " << line.hact << 'x' << line.vact << '@' << line.vfreq << " Hz, picture "
            << line.x << ':' << line.y << '\n';
        printDescriptor(out, dtd, 4);
    }
}

void makeEdid(const Invocation &call) {
    const QString path = call.options.value(QStringLiteral("output"));
    if (call.arguments.size() != 3 || path.isEmpty())
        throw UsageError(QStringLiteral("edid make takes: MODEL.bin WxH@R -o OUT"));
    const Mode mode = parseMode(call.arguments[2]);
    cea861_dtd_t dtd{};
    ResT_calDTD_by_model(EN_AUTO, &dtd, mode.width, mode.height, mode.rate);
    if (!edid_dtd_fits(dtd))
        throw Failure(
            QStringLiteral("%1 does not fit a timing descriptor: 4095 pixels, 4095 lines, 655.35 MHz at the most")
                .arg(call.arguments[2]));
    Edid model{};
    readEdid(call.arguments[1], model);
    Edid made{};
    if (ResT_calEDID_by_model(EN_AUTO, model, made, mode.width, mode.height, mode.rate) != ResT_OK)
        throw Failure(QStringLiteral("%1: the model EDID does not verify").arg(call.arguments[1]));
    edid_complete_image_size(made);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char *>(made), kEdidSize) != kEdidSize ||
        !file.commit())
        throw Failure(QStringLiteral("%1: %2").arg(path, file.errorString()));
    call.out << path << ": " << kEdidSize << " bytes, first descriptor " << call.arguments[2] << '\n';
}

} // namespace

Mode parseMode(const QString &text) {
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,5})[xX]([0-9]{1,5})@([0-9]{1,4}(\\.[0-9]{1,4})?)$"));
    const QRegularExpressionMatch match = form.match(text);
    const int width = match.captured(1).toInt();
    const int height = match.captured(2).toInt();
    if (!match.hasMatch() || width > 65535 || height > 65535)
        throw UsageError(QStringLiteral("not a mode (as in 1920x1080@60): %1").arg(text));
    return {static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), match.captured(3).toFloat()};
}

void runTiming(const Invocation &call) {
    const Mode mode = parseMode(call.arguments[0]);
    cea861_dtd_t dtd{};
    ResT_calDTD_by_model(EN_AUTO, &dtd, mode.width, mode.height, mode.rate);
    call.out << call.arguments[0] << ", " << sourceOf(mode) << '\n';
    printDescriptor(call.out, dtd, 2);
}

void addEdidOptions(QCommandLineParser &parser) {
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      QStringLiteral("File that `edid make` writes."),
                      QStringLiteral("OUT")});
}

void runEdid(const Invocation &call) {
    if (call.arguments[0] == QLatin1String("show"))
        std::for_each(call.arguments.begin() + 1, call.arguments.end(),
                      [&](const QString &path) { showEdid(call.out, path); });
    else if (call.arguments[0] == QLatin1String("make"))
        makeEdid(call);
    else
        throw UsageError(QStringLiteral("edid takes show or make, not %1").arg(call.arguments[0]));
}

} // namespace quorixctl
