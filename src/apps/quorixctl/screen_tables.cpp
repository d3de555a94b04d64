#include "screen_tables.h"

#include "address.h"
#include "picture/screenview.h"
#include "table.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/topology/output.h>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::Layer::SceneType;

constexpr int kAllScreens = toInt(Enum::Screen::ScreenType::AllScreenType);

QString rectText(double x, double y, double width, double height) {
    return QStringLiteral("%1x%2 at %3,%4")
        .arg(width, 0, 'f', 0)
        .arg(height, 0, 'f', 0)
        .arg(x, 0, 'f', 0)
        .arg(y, 0, 'f', 0);
}

/// The living entries of a list, each in words.
template <class List, class Text>
QStringList textsOf(const List &list, Text text) {
    QStringList texts;
    for (const auto &entry : list)
        if (const auto object = entry.lock())
            texts << text(*object);
    return texts;
}

QString addressOf(const Screen &screen) { return screenText(screen.screenIdentity()); }

void printMosaics(QTextStream &out, const QList<std::weak_ptr<Screen>> &screens) {
    Table table({QStringLiteral("screen"), QStringLiteral("name"), QStringLiteral("grid"), QStringLiteral("window"),
                 QStringLiteral("edits"), QStringLiteral("outputs")});
    for (const auto &reference : screens) {
        const auto screen = reference.lock();
        if (!screen)
            continue;
        const auto [rows, columns] = screen->grid();
        const QRect window = screen->mosaicWindowRect();
        table.addRow({addressOf(*screen), screen->name(), QStringLiteral("%1x%2").arg(columns).arg(rows),
                      rectText(window.x(), window.y(), window.width(), window.height()),
                      sceneText(toInt(screen->operationTarget())), textsOf(screen->outputs(), [](const Output &output) {
                                                                       return output.name();
                                                                   }).join(QStringLiteral(", "))});
    }
    table.print(out, 2);
}

/// One line for each layer of a scene, with the screen or scene in front where it begins.
void addLayers(Table &table, const Screen &screen, SceneType scene) {
    for (const auto &reference : screen.layers(scene)) {
        const auto layer = reference.lock();
        if (!layer)
            continue;
        const LayerView view = viewOf(*layer);
        table.addRow({layerText(layer->screenLayerId()), layerKindText(toInt(layer->layerType())), view.name,
                      view.source, layer->capacityString(), QString::number(view.zOrder),
                      rectText(view.window.x, view.window.y, view.window.width, view.window.height),
                      view.looks.join(QStringLiteral("; "))});
    }
}

void printSelections(QTextStream &out, Device &device, const QList<std::weak_ptr<Screen>> &screens) {
    const QString nothing = QStringLiteral("none");
    const auto line = [&](const char *what, const QStringList &texts) {
        out << "  " << what << ": " << (texts.isEmpty() ? nothing : texts.join(QStringLiteral(", "))) << '\n';
    };
    const auto activated = device.activedScreen().lock();
    QStringList layers;
    for (const auto &screen : screens)
        if (const auto live = screen.lock())
            layers << textsOf(live->selectedLayers(),
                              [](const Layer &layer) { return layerText(layer.screenLayerId()); });
    line("selected screens", textsOf(device.selectedScreen(kAllScreens), addressOf));
    line("shown screens", textsOf(device.viewingScreen(), addressOf));
    line("activated screen", activated ? QStringList(addressOf(*activated)) : QStringList());
    line("selected layers", layers);
}

} // namespace

void printScreens(QTextStream &out, const std::shared_ptr<Device> &device) {
    const QList<std::weak_ptr<Screen>> screens = device->screens(kAllScreens);
    if (screens.isEmpty())
        return;
    out << '\n';
    printMosaics(out, screens);
    Table table({QStringLiteral("layer"), QStringLiteral("kind"), QStringLiteral("name"), QStringLiteral("source"),
                 QStringLiteral("capacity"), QStringLiteral("z"), QStringLiteral("window"), QStringLiteral("look")});
    for (const auto &reference : screens)
        if (const auto screen = reference.lock())
            for (const SceneType scene : {SceneType::PGM, SceneType::PVW})
                addLayers(table, *screen, scene);
    if (!table.isEmpty()) {
        out << '\n';
        table.print(out, 2);
    }
    out << '\n';
    printSelections(out, *device, screens);
}

} // namespace quorixctl
