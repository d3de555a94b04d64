#include "layercard.h"

#include "palette.h"

#include <algorithm>

namespace quorixctl {
namespace {

constexpr double kPadding = 5;
constexpr double kLine = 15;
constexpr double kBadgeHeight = 14;
constexpr double kIconWidth = 24;
constexpr double kIconHeight = 11;
constexpr double kIconGap = 5;
/// Less than this of a text tells nothing.
constexpr double kLeastText = 44;

} // namespace

LayerCard::LayerCard(const LayerView &layer, CardSize size, double room)
    : m_layer(layer), m_badge(QStringLiteral("z%1").arg(layer.zOrder)) {
    m_badgeWidth = textWidth(m_badge, kTinySize, true) + 8;
    if (size == CardSize::Badge) {
        m_width = m_badgeWidth;
        m_height = kBadgeHeight;
        return;
    }
    const double inner = room - 2 * kPadding;
    const auto fit = [&](const QString &text, double textSize, bool isBold, double before) {
        const double widest = std::max(inner - before, kLeastText);
        QString shown = elided(text, textSize, isBold, widest);
        m_width = std::max(m_width, before + textWidth(shown, textSize, isBold) + 2 * kPadding);
        m_height += kLine;
        return shown;
    };
    m_height = 2 * kPadding - 2;
    m_name = fit(layer.isCut ? layer.name + QStringLiteral(" \u00B7 cut") : layer.name, kTextSize, true,
                 m_badgeWidth + kIconGap);
    if (size == CardSize::Name)
        return;
    QStringList source{layer.source, size == CardSize::Full ? layer.sourceSize : QString()};
    source.removeAll(QString());
    source.removeAll(layer.name); // layers of a multiviewer are called as what they show
    if (!source.isEmpty())
        m_source = fit(source.join(QStringLiteral(" \u00B7 ")), kSmallSize, false, 0);
    if (layer.crop)
        m_crop = fit(QStringLiteral("crop %1 \u00D7 %2 %")
                         .arg(layer.crop->width * 100, 0, 'f', 0)
                         .arg(layer.crop->height * 100, 0, 'f', 0),
                     kSmallSize, false, kIconWidth + kIconGap);
}

void LayerCard::draw(const Area &place, std::vector<Mark> &marks) const {
    const Colour line = m_layer.isCut ? kCut : coloursOf(m_layer.tint).line;
    const bool isBare = m_name.isEmpty();
    const double left = isBare ? place.x : place.x + kPadding;
    double baseline = place.y + (isBare ? 10.5 : kPadding + 10.5);
    if (!isBare)
        marks.emplace_back(Box{place, rgb(0xFFFFFF, 92), {line, 1}, 3});
    marks.emplace_back(Box{{left, baseline - 10.5, m_badgeWidth, kBadgeHeight}, line, {}, 2});
    marks.emplace_back(Text{m_badge, left + m_badgeWidth / 2, baseline, kTinySize, kWhite, true, Anchor::Middle});
    if (isBare)
        return;
    marks.emplace_back(Text{m_name, left + m_badgeWidth + kIconGap, baseline + 0.5, kTextSize, kInk, true});
    if (!m_source.isEmpty())
        marks.emplace_back(Text{m_source, left, baseline += kLine, kSmallSize, kSoftInk});
    if (m_crop.isEmpty())
        return;
    baseline += kLine;
    const Area icon{left, baseline - kIconHeight + 1, kIconWidth, kIconHeight};
    const Area &crop = *m_layer.crop;
    const Area part{icon.x + crop.x * icon.width, icon.y + crop.y * icon.height, crop.width * icon.width,
                    crop.height * icon.height};
    marks.emplace_back(Box{icon, kWhite, {kSoftInk, 1}});
    if (const Area inside = part.common(icon); !inside.isEmpty())
        marks.emplace_back(Box{inside, line});
    marks.emplace_back(Text{m_crop, left + kIconWidth + kIconGap, baseline, kSmallSize, kSoftInk});
}

} // namespace quorixctl
