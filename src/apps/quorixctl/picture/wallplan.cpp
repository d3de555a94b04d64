#include "wallplan.h"

#include "layercard.h"
#include "palette.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace quorixctl {
namespace {

/// All that a picture has to show. Layers may lie far beside the wall; more than its own size beside it isn't drawn.
Area extentOf(const ScreenView &view) {
    Area extent = view.mosaic;
    for (const OutputView &output : view.outputs)
        extent = extent.united(output.frame);
    const Area limit =
        extent.isEmpty() ? Area{-7680, -4320, 15360, 8640} : extent.shrunk(-extent.width, -extent.height);
    for (const LayerView &layer : view.layers)
        extent = extent.united(layer.window.common(limit));
    return extent.isEmpty() ? Area{0, 0, 1920, 1080} : extent;
}

/// A line just inside an area, on whole pixels.
Box frame(const Area &area, const Stroke &stroke) {
    return {area.shrunk(stroke.width / 2, stroke.width / 2), {}, stroke};
}

} // namespace

WallPlan::WallPlan(const ScreenView &view, const Area &room, std::vector<Mark> &marks)
    : m_view(view),
      m_extent(extentOf(view)),
      m_scale(std::min(room.width / m_extent.width, room.height / m_extent.height)),
      m_marks(marks) {
    m_place = {0, room.y, std::round(m_extent.width * m_scale), std::round(m_extent.height * m_scale)};
    m_place.x = std::round(room.x + (room.width - m_place.width) / 2);
}

double WallPlan::across(double x) const { return std::round(m_place.x + (x - m_extent.x) * m_scale); }
double WallPlan::down(double y) const { return std::round(m_place.y + (y - m_extent.y) * m_scale); }

Area WallPlan::onPaper(const Area &area) const {
    const Area shown = area.common(m_extent);
    if (shown.isEmpty())
        return {};
    const double x = across(shown.x);
    const double y = down(shown.y);
    return {x, y, std::max(across(shown.right()) - x, 1.0), std::max(down(shown.bottom()) - y, 1.0)};
}

void WallPlan::draw() {
    drawGround();
    drawRulers();
    for (const LayerView &layer : m_view.layers)
        drawLayer(layer);
    for (const OutputView &output : m_view.outputs)
        drawFeathers(output);
    drawCells();
    for (const OutputView &output : m_view.outputs) {
        const Area area = onPaper(output.interest);
        add(Box{area, {}, {rgb(0xFFFFFF, 65), 3}});
        add(Box{area, {}, {kInk, 1.2, 5}});
    }
    for (const LayerView &layer : m_view.layers)
        if (layer.isSelected)
            drawSelection(onPaper(layer.window));
    drawOutputTags();
    drawLayerCards();
}

void WallPlan::drawGround() {
    // What an output sends beside its area of interest is outside the wall.
    for (const OutputView &output : m_view.outputs) {
        const Area area = onPaper(output.frame);
        add(Box{area, kStripe});
        add(Lines{hatching(area, 8), {kHairline, 1.5}});
        add(frame(area, {rgb(0x9AA7B3), 1, 4}));
    }
    for (const OutputView &output : m_view.outputs)
        add(Box{onPaper(output.interest), kWall});
}

void WallPlan::drawRulers() {
    std::set<double> columns;
    std::set<double> rows;
    for (const OutputView &output : m_view.outputs) {
        columns.insert({output.interest.x, output.interest.right()});
        rows.insert({output.interest.y, output.interest.bottom()});
    }
    constexpr double kTick = 5;
    Lines ticks{{}, {kSoftInk, 1}};
    double free = 0;
    for (const double value : columns) {
        const double x = across(value);
        const QString text = QString::number(value, 'f', 0);
        const double half = textWidth(text, kTinySize) / 2;
        ticks.segments.push_back({x, m_place.y - kTick - 2, x, m_place.y - 2});
        if (x - half < free)
            continue;
        free = x + half + 6;
        add(Text{text, x, m_place.y - kTick - 5, kTinySize, kSoftInk, false, Anchor::Middle});
    }
    free = 0;
    for (const double value : rows) {
        const double y = down(value);
        ticks.segments.push_back({m_place.x - kTick - 2, y, m_place.x - 2, y});
        if (y - kTinySize < free)
            continue;
        free = y + 2;
        add(Text{QString::number(value, 'f', 0), m_place.x - kTick - 5, y + 4, kTinySize, kSoftInk, false,
                 Anchor::End});
    }
    add(std::move(ticks));
}

void WallPlan::drawLayer(const LayerView &layer) {
    const Area window = onPaper(layer.window);
    if (window.isEmpty())
        return;
    if (layer.isCut) {
        add(Lines{hatching(window, 7), {{kCut.red, kCut.green, kCut.blue, 55}, 1}});
        add(frame(window, {kCut, 2, 6}));
        return;
    }
    const TintColours &colours = coloursOf(layer.tint);
    Colour fill = colours.fill;
    fill.percent = static_cast<std::uint8_t>(layer.opacity);
    add(Box{window, fill});
    // Diagonals tell the extent of a window where neighbours have one colour.
    Colour faint = colours.line;
    faint.percent = 20;
    add(Lines{
        {{window.x, window.y, window.right(), window.bottom()}, {window.x, window.bottom(), window.right(), window.y}},
        {faint, 1}});
    add(Box{window, {}, {rgb(0xFFFFFF, 70), 3}});
    drawBorder(layer, window);
    add(frame(window, {colours.line, 1.5}));
}

void WallPlan::drawBorder(const LayerView &layer, const Area &window) {
    if (layer.borderOutside <= 0 && layer.borderInside <= 0)
        return;
    // At least two pixels, since a border is a look that an operator has chosen.
    const auto shown = [&](double width) { return width > 0 ? std::max(width * m_scale, 2.0) : 0.0; };
    const double outside = shown(layer.borderOutside);
    const double inside = shown(layer.borderInside);
    Stroke stroke{layer.borderColour, outside + inside};
    const double middle = (inside - outside) / 2;
    const Area line = window.shrunk(middle, middle);
    if (layer.isSoftBorder) {
        stroke.colour.percent = 45;
        add(Box{line, {}, stroke});
        stroke = {layer.borderColour, stroke.width / 2};
    }
    add(Box{line, {}, stroke});
}

void WallPlan::drawFeathers(const OutputView &output) {
    const auto &[top, bottom, left, right] = output.feathers;
    const Area &area = output.interest;
    const struct {
        Area strip;
        Fade fade;
        bool isRising; ///< the line of its intensity, read from the left or from above
    } edges[] = {
        {{area.x, area.y, area.width, top}, Fade::ToBottom, true},
        {{area.x, area.bottom() - bottom, area.width, bottom}, Fade::ToTop, false},
        {{area.x, area.y, left, area.height}, Fade::ToRight, true},
        {{area.right() - right, area.y, right, area.height}, Fade::ToLeft, false},
    };
    for (const auto &[part, fade, isRising] : edges) {
        const Area strip = onPaper(part.common(area));
        if (strip.isEmpty())
            continue;
        m_labels.keepFree(strip);
        add(Box{strip, kFeather, {}, 0, fade});
        const double first = isRising ? strip.bottom() : strip.y;
        const double last = isRising ? strip.y : strip.bottom();
        add(Lines{{{strip.x, first, strip.right(), last}}, {kRamp, 1.5}});
    }
}

void WallPlan::drawCells() {
    std::set<double> columns;
    std::set<double> rows;
    Area grid;
    for (const Area &cell : m_view.cells) {
        columns.insert({cell.x, cell.right()});
        rows.insert({cell.y, cell.bottom()});
        grid = grid.united(cell);
    }
    const Area place = onPaper(grid);
    if (place.isEmpty())
        return;
    Lines lines{{}, kCell};
    for (const double column : columns)
        if (const double x = across(column); x >= place.x && x <= place.right())
            lines.segments.push_back({x, place.y, x, place.bottom()});
    for (const double row : rows)
        if (const double y = down(row); y >= place.y && y <= place.bottom())
            lines.segments.push_back({place.x, y, place.right(), y});
    add(std::move(lines));
}

void WallPlan::drawSelection(const Area &window) {
    if (window.isEmpty())
        return;
    constexpr double kHandle = 8;
    add(Box{window, {}, {kSelected, 3}});
    for (const double x : {window.x, window.x + window.width / 2, window.right()})
        for (const double y : {window.y, window.y + window.height / 2, window.bottom()})
            if (x != window.x + window.width / 2 || y != window.y + window.height / 2)
                add(Box{{x - kHandle / 2, y - kHandle / 2, kHandle, kHandle}, kWhite, {kSelected, 2}});
}

void WallPlan::drawOutputTags() {
    constexpr double kHeight = 16;
    constexpr double kPadding = 5;
    for (const OutputView &output : m_view.outputs) {
        const Area area = onPaper(output.interest);
        QStringList texts{output.name, output.position};
        if (output.isNarrowed())
            texts.prepend(QStringLiteral("%1 \u00B7 %2 \u00D7 %3")
                              .arg(output.name)
                              .arg(output.interest.width, 0, 'f', 0)
                              .arg(output.interest.height, 0, 'f', 0));
        for (const QString &text : qAsConst(texts)) {
            const double width = textWidth(text, kTinySize, true) + 2 * kPadding;
            if (const auto tag = m_labels.place(area, width, kHeight, {}, LabelPlan::Corner::BottomLeft)) {
                add(Box{*tag, kInk, {kWhite, 1}, 2});
                add(Text{text, tag->x + kPadding, tag->bottom() - 4.5, kTinySize, kWhite, true});
                break;
            }
        }
    }
}

void WallPlan::drawLayerCards() {
    // From the top, so that what is seen best is labelled best.
    std::vector<Area> covers;
    for (auto layer = m_view.layers.rbegin(); layer != m_view.layers.rend(); ++layer) {
        const Area window = onPaper(layer->window);
        for (const CardSize size : {CardSize::Full, CardSize::Short, CardSize::Name, CardSize::Badge}) {
            const LayerCard card(*layer, size, window.width - 2 * LayerCard::kMargin);
            if (const auto place =
                    m_labels.place(window, card.width(), card.height(), covers, LabelPlan::Corner::TopLeft)) {
                card.draw(*place, m_marks);
                break;
            }
        }
        if (!layer->isCut && !window.isEmpty())
            covers.push_back(window);
    }
}

} // namespace quorixctl
