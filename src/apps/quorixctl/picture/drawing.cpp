#include "drawing.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorixctl {
namespace {

/// Advance widths of DejaVu Sans from the blank to the tilde, in hundredths of the font size. Most other fonts without
/// serifs are narrower.
constexpr std::array<std::uint8_t, 95> kAdvances{
    32, 40, 46, 84, 64, 95, 78, 27, 39,  39, 50, 84, 32, 36, 32, 34, 64, 64, 64, 64, 64, 64, 64, 64,
    64, 64, 34, 34, 84, 84, 84, 53, 100, 68, 69, 70, 77, 63, 58, 77, 75, 29, 29, 66, 56, 86, 75, 79,
    60, 79, 69, 63, 61, 73, 68, 99, 69,  61, 69, 39, 34, 39, 84, 50, 50, 61, 63, 55, 63, 62, 35, 63,
    63, 28, 28, 58, 28, 97, 63, 61, 63,  63, 41, 52, 39, 63, 59, 82, 59, 59, 52, 64, 34, 64, 84};
constexpr int kLatin = 80;   ///< of the letters behind ASCII that a label may hold
constexpr int kSquare = 100; ///< of ideographs
constexpr double kBold = 1.12;

int advance(QChar character) {
    const ushort code = character.unicode();
    if (code >= 32 && code < 127)
        return kAdvances[code - 32U];
    if (code == 0xB7) // the dot between words
        return kAdvances[0];
    return code < 0x2E80 ? kLatin : kSquare;
}

} // namespace

Area Area::common(const Area &other) const {
    const double left = std::max(x, other.x);
    const double top = std::max(y, other.y);
    return {left, top, std::min(right(), other.right()) - left, std::min(bottom(), other.bottom()) - top};
}

Area Area::united(const Area &other) const {
    if (isEmpty() || other.isEmpty())
        return isEmpty() ? other : *this;
    const double left = std::min(x, other.x);
    const double top = std::min(y, other.y);
    return {left, top, std::max(right(), other.right()) - left, std::max(bottom(), other.bottom()) - top};
}

double textWidth(const QString &text, double size, bool isBold) {
    int hundredths = 0;
    for (const QChar character : text)
        hundredths += advance(character);
    return hundredths * size * (isBold ? kBold : 1.0) / 100;
}

QString elided(const QString &text, double size, bool isBold, double room) {
    if (textWidth(text, size, isBold) <= room)
        return text;
    const QString ellipsis = QStringLiteral("\u2026");
    QString cut = text;
    while (!cut.isEmpty() && textWidth(cut + ellipsis, size, isBold) > room)
        cut.chop(cut.size() > 1 && cut.at(cut.size() - 1).isLowSurrogate() ? 2 : 1);
    return cut.isEmpty() ? QString() : cut + ellipsis;
}

std::vector<Segment> hatching(const Area &area, double step) {
    std::vector<Segment> segments;
    if (area.isEmpty())
        return segments;
    // Each line is x + y = sum.
    for (double sum = std::ceil((area.x + area.y) / step) * step; sum < area.right() + area.bottom(); sum += step) {
        const double left = std::max(area.x, sum - area.bottom());
        const double right = std::min(area.right(), sum - area.y);
        segments.push_back({left, sum - left, right, sum - right});
    }
    return segments;
}

} // namespace quorixctl
