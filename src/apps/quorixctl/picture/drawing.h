/// Flat drawings: one list of marks, which two back ends put on paper.
#ifndef QUORIXCTL_DRAWING_H
#define QUORIXCTL_DRAWING_H

#include <QImage>
#include <QString>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quorixctl {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t percent = 0; ///< opacity; a default colour isn't seen
    bool operator==(const Colour &) const = default;
};

/// @param hex as in 0x2F6DA8
constexpr Colour rgb(std::uint32_t hex, std::uint8_t percent = 100) {
    return {static_cast<std::uint8_t>(hex >> 16U & 255U), static_cast<std::uint8_t>(hex >> 8U & 255U),
            static_cast<std::uint8_t>(hex & 255U), percent};
}

/// A rectangle, y downwards. In real numbers, so that no report overflows it.
struct Area {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
    /// Smaller by @p dx and @p dy at each side.
    [[nodiscard]] Area shrunk(double dx, double dy) const { return {x + dx, y + dy, width - 2 * dx, height - 2 * dy}; }
    [[nodiscard]] Area common(const Area &other) const;
    /// The smallest area that holds both; an empty one counts for nothing.
    [[nodiscard]] Area united(const Area &other) const;
    [[nodiscard]] bool meets(const Area &other) const { return !common(other).isEmpty(); }
};

/// Where a fill dies away to.
enum class Fade { None, ToRight, ToLeft, ToBottom, ToTop };
enum class Anchor { Start, Middle, End };

/// A line style; there is no line of no width.
struct Stroke {
    Colour colour;
    double width = 0;
    double dash = 0; ///< length of dashes and gaps; 0: solid
};

struct Box {
    Area area;
    Colour fill{};
    Stroke stroke{};
    double radius = 0;
    Fade fade = Fade::None;
};

struct Segment {
    double x1, y1, x2, y2;
};

struct Lines {
    std::vector<Segment> segments;
    Stroke stroke;
};

struct Text {
    QString text;
    double x;
    double baseline;
    double size;
    Colour colour;
    bool isBold = false;
    Anchor anchor = Anchor::Start;
};

using Mark = std::variant<Box, Lines, Text>;

/// In pixels from the top left corner; later marks lie above earlier ones.
struct Drawing {
    int width = 0;
    int height = 0;
    Colour paper{};
    QString title;
    std::vector<Mark> marks;
};

/// An SVG document. The same drawing gives the same bytes, on every station and in every language.
std::string svgOf(const Drawing &drawing);
/// The same in pixels. Requires: there is a QGuiApplication.
QImage imageOf(const Drawing &drawing);

/// Room that a text takes, estimated without a font, so that layouts don't depend on the station. Pixels.
double textWidth(const QString &text, double size, bool isBold = false);
/// The text, cut with an ellipsis where it is wider than @p room.
QString elided(const QString &text, double size, bool isBold, double room);
/// Diagonal lines over an area, @p step pixels apart; they continue from one area to the next.
std::vector<Segment> hatching(const Area &area, double step);

} // namespace quorixctl

#endif
