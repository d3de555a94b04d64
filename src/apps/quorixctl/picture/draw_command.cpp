#include "screenpicture.h"

#include "../address.h"
#include "../session.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/screens/screen.h>

#include <QFileInfo>
#include <QSaveFile>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::Layer::SceneType;
using Enum::Screen::ScreenType;

std::shared_ptr<Screen> wantedScreen(Device &device, const QCommandLineParser &options) {
    if (!options.isSet(QStringLiteral("screen"))) {
        const auto screens = device.screens(toInt(ScreenType::AllScreenType));
        if (screens.isEmpty())
            throw Failure(QStringLiteral("the report has no screens"));
        return screens.first().lock();
    }
    return screenOf(device, parseScreen(options.value(QStringLiteral("screen"))));
}

SceneType wantedScene(const Screen &screen, const QCommandLineParser &options) {
    if (options.isSet(QStringLiteral("scene")))
        return static_cast<SceneType>(parseScene(options.value(QStringLiteral("scene"))));
    return screen.screenType() == ScreenType::RegularScreen ? SceneType::PVW : SceneType::PGM;
}

/// The file is there whole or not at all.
void write(const QString &path, const Drawing &drawing) {
    QSaveFile file(path);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten && QFileInfo(path).suffix().toLower() == QLatin1String("svg")) {
        const std::string svg = svgOf(drawing);
        isWritten = file.write(svg.data(), static_cast<qint64>(svg.size())) == static_cast<qint64>(svg.size());
    } else if (isWritten) {
        isWritten = imageOf(drawing).save(&file, "PNG");
    }
    if (!isWritten || !file.commit())
        throw Failure(QStringLiteral("%1: %2").arg(path, file.errorString()));
}

} // namespace

void addDrawOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("screen"),
                      QStringLiteral("Screen to draw, as in regular:0, aux:1, mvr:0 (default: the first)."),
                      QStringLiteral("KIND:ID")});
    parser.addOption({QStringLiteral("scene"),
                      QStringLiteral("pvw or pgm (default: pvw; of AUX and MVR screens, which have no preview, pgm)."),
                      QStringLiteral("SCENE")});
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      QStringLiteral("Picture to write; its suffix says what: .svg or .png."),
                      QStringLiteral("FILE")});
}

void runDraw(const Invocation &call) {
    const QString path = call.options.value(QStringLiteral("output"));
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix != QLatin1String("svg") && suffix != QLatin1String("png"))
        throw UsageError(QStringLiteral("draw wants -o FILE.svg or -o FILE.png, not '%1'").arg(path));
    const ReportDocument report = readReport(call.arguments.first());
    const HubSession session(call);
    const auto device = feed(report, call.out);
    const auto screen = wantedScreen(*device, call.options);
    const Drawing drawing = pictureOf(viewOf(device, screen, wantedScene(*screen, call.options)));
    write(path, drawing);
    call.out << path << ": " << drawing.title << ", " << drawing.width << 'x' << drawing.height << '\n';
}

} // namespace quorixctl
