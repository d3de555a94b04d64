#include "command.h"
#include "table.h"

#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/mvrlayout.h>
#include <quorixbizmodel/layouts/screenlayout.h>

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

QString sizeText(const QSize &size) { return QStringLiteral("%1x%2").arg(size.width()).arg(size.height()); }

QString pictureText(const QPixmap &picture) {
    return picture.isNull() ? QStringLiteral("missing") : sizeText(picture.size());
}

/// "0,2 1x1": row and column, then rows and columns.
template <class Cell>
QString cellText(const Cell &cell) {
    return QStringLiteral("%1,%2 %3x%4").arg(cell.row_).arg(cell.col_).arg(cell.rowSpan_).arg(cell.colSpan_);
}

QString contentText(const MvrLayout::MvrValue &cell) {
    static const char *const kTypes[] = {"input", "preview", "programme"};
    const bool isKnown = cell.mvrType_ >= 0 && cell.mvrType_ < static_cast<int>(std::size(kTypes));
    return QStringLiteral("%1 %2").arg(isKnown ? QLatin1String(kTypes[cell.mvrType_]) : QLatin1String("unknown"),
                                       QString::number(cell.mvrIndex_));
}

template <class Layout>
QStringList gridCells(const Layout &layout, const QStringList &entries) {
    return {layout.layoutName_, QString::number(layout.count_),
            QStringLiteral("%1x%2").arg(layout.row_).arg(layout.col_), pictureText(layout.layoutPixmap_),
            entries.join(QStringLiteral("; "))};
}

void addLayerRows(Table &table) {
    const auto *layouts = LayerLayout::instance();
    for (const LayerLayout::LayerCount count : {LayerLayout::LayerCount::layr_0, LayerLayout::LayerCount::all})
        for (const LayerLayout::Layout &layout : layouts->getLayout(count)) {
            QStringList entries;
            for (const LayerLayout::LayerValue &layer : layout.layers_)
                entries << cellText(layer);
            table.addRow(gridCells(layout, entries));
        }
}

void addScreenRows(Table &table) {
    const auto *layouts = ScreenLayout::instance();
    for (const QString &name : layouts->getDescriptions()) {
        QStringList outputs;
        qint64 width = 0; // wider than any number of the file, so that a sum can't overflow
        qint64 height = 0;
        for (const ScreenLayout::Layout &output : layouts->findLayout(name)) {
            outputs << QStringLiteral("%1 at %2,%3").arg(sizeText(output.outputSize_)).arg(output.x_).arg(output.y_);
            width = std::max(width, qint64{output.x_} + output.size_.width());
            height = std::max(height, qint64{output.y_} + output.size_.height());
        }
        table.addRow({name, QString::number(outputs.size()), QStringLiteral("%1x%2").arg(width).arg(height),
                      pictureText(layouts->findPixmap(name)), outputs.join(QStringLiteral("; "))});
    }
}

void addMvrRows(Table &table) {
    for (const MvrLayout::Layout &layout : MvrLayout::instance()->getLayoutsList()) {
        QStringList entries;
        for (const MvrLayout::MvrValue &cell : layout.mvrs_)
            entries << contentText(cell) + QLatin1Char(' ') + cellText(cell);
        table.addRow(gridCells(layout, entries));
    }
}

/// The kinds of templates, each in a folder of its own.
const struct Kind {
    const char *folder;
    const char *title;
    const char *entries; ///< heading of their number
    const char *field;   ///< heading of what they divide
    void (*load)(const QString &folder);
    void (*addRows)(Table &);
} kKinds[] = {
    {"layers", "Layers: row,column rowsxcolumns", "layers", "grid",
     [](const QString &folder) { LayerLayout::instance()->load(folder); }, addLayerRows},
    {"screens", "Screens: size of each output and its place", "outputs", "screen",
     [](const QString &folder) { ScreenLayout::instance()->load(folder); }, addScreenRows},
    {"mvr", "Multiviewer: content, row,column rowsxcolumns", "cells", "grid",
     [](const QString &folder) { MvrLayout::instance()->load(folder); }, addMvrRows},
};

/// Reads all kinds, each folder once in a process: the registers keep what they have.
void readLayouts(const QString &dataDirectory) {
    static QStringList read;
    for (const Kind &kind : kKinds) {
        const QString folder = QStringLiteral("%1/layouts/%2").arg(dataDirectory, QLatin1String(kind.folder));
        if (!QFileInfo(folder + QStringLiteral("/layout.xml")).isFile())
            throw Failure(QStringLiteral("%1/layout.xml: no such file").arg(folder));
        if (read.contains(folder))
            continue;
        kind.load(folder);
        read << folder;
    }
}

} // namespace

void runLayouts(const Invocation &call) {
    readLayouts(call.dataDirectory);
    for (const Kind &kind : kKinds) {
        Table table({QStringLiteral("name"), QLatin1String(kind.entries), QLatin1String(kind.field),
                     QStringLiteral("picture"), QStringLiteral("where they lie")});
        kind.addRows(table);
        if (table.isEmpty())
            throw Failure(QStringLiteral("%1/layouts/%2: no template that reads (--verbose says why)")
                              .arg(call.dataDirectory, QLatin1String(kind.folder)));
        call.out << kind.title << '\n';
        table.print(call.out, 2);
    }
}

} // namespace quorixctl
