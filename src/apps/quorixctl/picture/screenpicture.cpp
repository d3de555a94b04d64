#include "screenpicture.h"

#include "palette.h"
#include "wallplan.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace quorixctl {
namespace {

constexpr double kRight = kPictureWidth - kMargin;
constexpr double kRuler = 46;       ///< room for the numbers at the left of the wall
constexpr double kWallHeight = 640; ///< at most

/// Names of device, screen and scene over a rule in the scene's colour.
double drawTitle(const ScreenView &view, std::vector<Mark> &marks) {
    const Colour colour = view.isProgramme ? kProgramme : kPreview;
    const QString scene = view.isProgramme ? QStringLiteral("PGM  programme") : QStringLiteral("PVW  preview");
    const double badge = textWidth(scene, 13, true) + 24;
    marks.emplace_back(Box{{kRight - badge, 30, badge, 26}, colour, {}, 4});
    marks.emplace_back(Text{scene, kRight - badge / 2, 48, 13, kWhite, true, Anchor::Middle});
    marks.emplace_back(
        Text{elided(view.name, kTitleSize, true, kRight - kMargin - badge - 24), kMargin, 52, kTitleSize, kInk, true});
    const QString facts =
        (QStringList{view.size + QStringLiteral(" px")} + view.facts).join(QStringLiteral("  \u00B7  "));
    marks.emplace_back(Text{facts, kRight, 78, kTextSize, kSoftInk, false, Anchor::End});
    const double room = kRight - kMargin - textWidth(facts, kTextSize) - 24;
    marks.emplace_back(Text{elided(QStringLiteral("%1 \u00B7 %2").arg(view.device, view.address), 13, false, room),
                            kMargin, 78, 13, kSoftInk});
    marks.emplace_back(Box{{kMargin, 90, kRight - kMargin, 2}, colour});
    return 92;
}

struct LegendEntry {
    QString text;
    bool isShown;
    std::function<void(const Area &)> draw; ///< a swatch
};

/// What the marks mean; only what the picture has.
double drawLegend(const ScreenView &view, double y, std::vector<Mark> &marks) {
    const auto anyLayer = [&](auto matches) { return std::ranges::any_of(view.layers, matches); };
    const auto anyOutput = [&](auto matches) { return std::ranges::any_of(view.outputs, matches); };
    std::vector<LegendEntry> entries;
    for (const Tint tint : {Tint::Input, Tint::Programme, Tint::Preview, Tint::Background, Tint::Logo, Tint::Nothing})
        entries.push_back({QString::fromLatin1(coloursOf(tint).name),
                           anyLayer([&](const LayerView &layer) { return layer.tint == tint && !layer.isCut; }),
                           [&marks, tint](const Area &area) {
                               marks.emplace_back(Box{area, coloursOf(tint).fill, {coloursOf(tint).line, 1}});
                           }});
    entries.push_back({QStringLiteral("cut layer"), anyLayer(&LayerView::isCut), [&](const Area &area) {
                           marks.emplace_back(Lines{hatching(area, 5), {kCut, 1}});
                           marks.emplace_back(Box{area, {}, {kCut, 1.5, 4}});
                       }});
    entries.push_back({QStringLiteral("selected"), anyLayer(&LayerView::isSelected), [&](const Area &area) {
                           marks.emplace_back(Box{area.shrunk(1, 1), {}, {kSelected, 3}});
                       }});
    entries.push_back({QStringLiteral("output: its area of interest"), !view.outputs.empty(), [&](const Area &area) {
                           marks.emplace_back(Box{area, {}, {kInk, 1.2, 5}});
                       }});
    entries.push_back(
        {QStringLiteral("grid of the multiviewer"), !view.cells.empty(), [&](const Area &area) {
             const Segment across{area.x, area.y + area.height / 2, area.right(), area.y + area.height / 2};
             const Segment down{area.x + area.width / 2, area.y, area.x + area.width / 2, area.bottom()};
             marks.emplace_back(Box{area, kStripe});
             marks.emplace_back(Lines{{across, down}, kCell});
         }});
    entries.push_back({QStringLiteral("not on the wall"), anyOutput(&OutputView::isNarrowed), [&](const Area &area) {
                           marks.emplace_back(Box{area, kStripe, {rgb(0x9AA7B3), 1, 3}});
                           marks.emplace_back(Lines{hatching(area, 5), {kHairline, 1.5}});
                       }});
    entries.push_back({QStringLiteral("feathered edge"), anyOutput([](const OutputView &output) {
                           return std::ranges::any_of(output.feathers, [](double width) { return width > 0; });
                       }),
                       [&](const Area &area) {
                           marks.emplace_back(Box{area, kStripe});
                           marks.emplace_back(Box{area, kFeather, {}, 0, Fade::ToRight});
                           marks.emplace_back(Lines{{{area.x, area.bottom(), area.right(), area.y}}, {kRamp, 1.5}});
                       }});
    entries.push_back(
        {QStringLiteral("z: place in the stack, the highest on top"), !view.layers.empty(), [&](const Area &area) {
             marks.emplace_back(Box{{area.x + 3, area.y, area.width - 6, area.height}, kSoftInk, {}, 2});
             marks.emplace_back(Text{QStringLiteral("z"), area.x + area.width / 2, area.bottom() - 3, kTinySize, kWhite,
                                     true, Anchor::Middle});
         }});
    double x = kMargin;
    for (const LegendEntry &entry : entries) {
        if (!entry.isShown)
            continue;
        const double width = 26 + 7 + textWidth(entry.text, kSmallSize) + 20;
        if (x + width - 20 > kRight) {
            x = kMargin;
            y += 22;
        }
        entry.draw({x, y, 26, 13});
        marks.emplace_back(Text{entry.text, x + 33, y + 10.5, kSmallSize, kSoftInk});
        x = std::round(x + width);
    }
    return y + 22;
}

/// What each card carries against its budget, a bar for each scene.
double drawCards(const ScreenView &view, double y, std::vector<Mark> &marks) {
    constexpr std::size_t kInRow = 3;
    constexpr double kRow = 22;
    constexpr double kName = 108;
    constexpr double kBar = 96;
    constexpr double kColumn = (kRight - kMargin) / kInRow;
    marks.emplace_back(Text{QStringLiteral("cards: units in use"), kMargin, y + 12, kSmallSize, kSoftInk, true});
    y += 20;
    marks.emplace_back(Box{{kMargin, y - 3, kRight - kMargin, 1}, kHairline});
    for (std::size_t i = 0; i < view.cards.size(); ++i) {
        const CardView &card = view.cards[i];
        const double x = kMargin + static_cast<double>(i % kInRow) * kColumn;
        const std::size_t row = i / kInRow;
        const double top = y + static_cast<double>(row) * kRow;
        const double height = card.loads.size() > 1 ? 6 : 12;
        Area bar{x + kName, top + 3, kBar, height};
        bool isOver = false;
        QStringList figures;
        for (const CardView::Load &load : card.loads) {
            marks.emplace_back(Box{bar, kStripe, {kHairline, 1}});
            Area used = bar;
            used.width = std::round(kBar * std::clamp(load.units / std::max<double>(card.budget, 1), 0.0, 1.0));
            marks.emplace_back(Box{used, load.isProgramme ? kProgramme : kPreview});
            bar.y += height + 1;
            isOver = isOver || load.units > card.budget;
            figures << QStringLiteral("%1 %2").arg(QLatin1String(load.isProgramme ? "PGM" : "PVW")).arg(load.units);
        }
        marks.emplace_back(Text{elided(card.name, kTextSize, false, kName - 8), x, top + 13.5, kTextSize, kInk});
        const QString text = QStringLiteral("%1 of %2").arg(figures.join(QStringLiteral(", "))).arg(card.budget);
        marks.emplace_back(Text{elided(text, kTextSize, isOver, kColumn - kName - kBar - 16), bar.right() + 10,
                                top + 13.5, kTextSize, isOver ? kSelectedInk : kInk, isOver});
    }
    const std::size_t rows = (view.cards.size() + kInRow - 1) / kInRow;
    return y + static_cast<double>(rows) * kRow;
}

struct Column {
    const char *heading;
    double x;
    double width;
    QString (*text)(const LayerView &);
};

QString windowText(const LayerView &layer) {
    const Area &window = layer.window;
    return QStringLiteral("%1 \u00D7 %2 at %3, %4")
        .arg(window.width, 0, 'f', 0)
        .arg(window.height, 0, 'f', 0)
        .arg(window.x, 0, 'f', 0)
        .arg(window.y, 0, 'f', 0);
}

QString sourceText(const LayerView &layer) {
    return layer.sourceSize.isEmpty() ? layer.source
                                      : QStringLiteral("%1 \u00B7 %2").arg(layer.source, layer.sourceSize);
}

constexpr Column kColumns[] = {
    {"z", 60, 34, [](const LayerView &layer) { return QString::number(layer.zOrder); }},
    {"layer", 98, 66, [](const LayerView &layer) { return layer.address; }},
    {"name", 170, 152, [](const LayerView &layer) { return layer.name; }},
    {"source", 330, 230, sourceText},
    {"window", 568, 212, windowText},
    {"look", 788, 376, [](const LayerView &layer) { return layer.looks.join(QStringLiteral(" \u00B7 ")); }},
};

/// Every layer of the scene, the highest first, also those that others hide.
double drawTable(const ScreenView &view, double y, std::vector<Mark> &marks) {
    constexpr double kRow = 20;
    constexpr std::size_t kMost = 60;
    for (const Column &column : kColumns)
        marks.emplace_back(Text{QString::fromLatin1(column.heading), column.x, y + 12, kSmallSize, kSoftInk, true});
    y += kRow;
    marks.emplace_back(Box{{kMargin, y - 3, kRight - kMargin, 1}, kHairline});
    std::size_t row = 0;
    for (auto layer = view.layers.rbegin(); layer != view.layers.rend() && row < kMost; ++layer, ++row) {
        if (row % 2 == 1)
            marks.emplace_back(Box{{kMargin, y, kRight - kMargin, kRow}, kStripe});
        const TintColours &colours = coloursOf(layer->tint);
        const Area chip{kMargin + 4, y + 5, 14, 10};
        if (layer->isCut)
            marks.emplace_back(Lines{hatching(chip, 4), {kCut, 1}});
        marks.emplace_back(Box{chip, layer->isCut ? Colour{} : colours.fill, {layer->isCut ? kCut : colours.line, 1}});
        for (const Column &column : kColumns)
            marks.emplace_back(Text{elided(column.text(*layer), kTextSize, false, column.width), column.x, y + 14.5,
                                    kTextSize, layer->isSelected ? kSelectedInk : kInk,
                                    layer->isSelected && &column == &kColumns[2]});
        y += kRow;
    }
    if (view.layers.size() > kMost) {
        marks.emplace_back(Text{QStringLiteral("and %1 more below them").arg(view.layers.size() - kMost), 60, y + 14.5,
                                kTextSize, kSoftInk});
        y += kRow;
    }
    return y;
}

} // namespace

Drawing pictureOf(const ScreenView &view) {
    Drawing drawing;
    drawing.paper = kPaper;
    drawing.title = QStringLiteral("%1 \u00B7 %2").arg(view.device, view.name);
    double y = drawTitle(view, drawing.marks) + 34;
    WallPlan wall(view, {kMargin + kRuler, y, kRight - kMargin - kRuler, kWallHeight}, drawing.marks);
    wall.draw();
    y = drawLegend(view, wall.place().bottom() + 22, drawing.marks);
    if (!view.cards.empty())
        y = drawCards(view, y + 10, drawing.marks);
    if (!view.layers.empty())
        y = drawTable(view, y + 10, drawing.marks);
    drawing.width = static_cast<int>(kPictureWidth);
    drawing.height = static_cast<int>(std::ceil(y + kMargin - 8));
    return drawing;
}

} // namespace quorixctl
