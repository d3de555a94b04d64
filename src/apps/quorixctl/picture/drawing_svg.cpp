#include "drawing.h"

#include <charconv>
#include <cmath>
#include <set>

namespace quorixctl {
namespace {

constexpr char kFonts[] = "DejaVu Sans,Verdana,Noto Sans CJK SC,Droid Sans Fallback,sans-serif";
/// The vector from the dense end of a fill to its vanishing one, in units of its box.
constexpr const char *kVectors[] = {"", R"(x2="1" y2="0")", R"(x1="1" x2="0" y2="0")", R"(x2="0" y2="1")",
                                    R"(y1="1" x2="0" y2="0")"};

/// Hundredths of a pixel at most, the same digits everywhere.
std::string number(double value) {
    const long long hundredths = std::llround(value * 100);
    char digits[24];
    const auto whole = std::to_chars(std::begin(digits), std::end(digits), std::llabs(hundredths) / 100);
    std::string text = hundredths < 0 ? "-" : "";
    text.append(std::begin(digits), whole.ptr);
    const auto fraction = static_cast<int>(std::llabs(hundredths) % 100);
    if (fraction != 0) {
        text += '.';
        text += static_cast<char>('0' + fraction / 10);
        if (fraction % 10 != 0)
            text += static_cast<char>('0' + fraction % 10);
    }
    return text;
}

/// Markup is escaped; what no XML document may hold is replaced.
std::string escaped(const QString &text) {
    QString result = text;
    for (QChar &letter : result) {
        if (letter.unicode() < 0x20)
            letter = QLatin1Char(' ');
        else if (letter.unicode() >= 0xFFFE)
            letter = QLatin1Char('?');
    }
    return result.toHtmlEscaped().toStdString();
}

std::string hex(const Colour &colour) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {colour.red, colour.green, colour.blue})
        text += {kDigits[part >> 4U], kDigits[part & 15U]};
    return text;
}

std::string attribute(const char *name, double value) { return std::string(" ") + name + "=\"" + number(value) + '"'; }

std::string paint(const char *name, const Colour &colour) {
    std::string text = std::string(" ") + name + "=\"" + hex(colour) + '"';
    if (colour.percent < 100)
        text += attribute((std::string(name) + "-opacity").c_str(), colour.percent / 100.0);
    return text;
}

std::string line(const Stroke &stroke) {
    if (stroke.width <= 0)
        return {};
    std::string text = paint("stroke", stroke.colour) + attribute("stroke-width", stroke.width);
    if (stroke.dash > 0)
        text += attribute("stroke-dasharray", stroke.dash);
    return text;
}

std::string gradientId(const Box &box) {
    return "fade" + std::to_string(static_cast<int>(box.fade)) + '-' + hex(box.fill).substr(1) + '-' +
           std::to_string(box.fill.percent);
}

struct Writer {
    std::string &svg;

    void operator()(const Box &box) const {
        svg += "<rect" + attribute("x", box.area.x) + attribute("y", box.area.y) + attribute("width", box.area.width) +
               attribute("height", box.area.height);
        if (box.radius > 0)
            svg += attribute("rx", box.radius);
        if (box.fade != Fade::None)
            svg += " fill=\"url(#" + gradientId(box) + ")\"";
        else
            svg += box.fill.percent == 0 ? std::string(" fill=\"none\"") : paint("fill", box.fill);
        svg += line(box.stroke) + "/>\n";
    }

    void operator()(const Lines &lines) const {
        if (lines.segments.empty())
            return;
        svg += "<path d=\"";
        for (const Segment &segment : lines.segments)
            svg += 'M' + number(segment.x1) + ' ' + number(segment.y1) + 'L' + number(segment.x2) + ' ' +
                   number(segment.y2);
        svg += "\" fill=\"none\"" + line(lines.stroke) + "/>\n";
    }

    void operator()(const Text &text) const {
        constexpr const char *kAnchors[] = {"", R"( text-anchor="middle")", R"( text-anchor="end")"};
        svg += "<text" + attribute("x", text.x) + attribute("y", text.baseline) + attribute("font-size", text.size) +
               kAnchors[static_cast<int>(text.anchor)] + (text.isBold ? R"( font-weight="bold")" : "") +
               paint("fill", text.colour) + '>' + escaped(text.text) + "</text>\n";
    }
};

/// Each fading fill needs a definition of its colour and direction, once.
std::string gradients(const Drawing &drawing) {
    std::set<std::string> known;
    std::string text;
    for (const Mark &mark : drawing.marks) {
        const Box *box = std::get_if<Box>(&mark);
        if (box == nullptr || box->fade == Fade::None || !known.insert(gradientId(*box)).second)
            continue;
        const std::string colour = "stop-color=\"" + hex(box->fill) + '"';
        text += "<linearGradient id=\"" + gradientId(*box) + "\" " + kVectors[static_cast<int>(box->fade)] + "><stop " +
                colour + attribute("stop-opacity", box->fill.percent / 100.0) + "/><stop offset=\"1\" " + colour +
                " stop-opacity=\"0\"/></linearGradient>\n";
    }
    return text.empty() ? text : "<defs>\n" + text + "</defs>\n";
}

} // namespace

std::string svgOf(const Drawing &drawing) {
    const std::string width = number(drawing.width);
    const std::string height = number(drawing.height);
    std::string svg = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                      "\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                      width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + ' ' + height +
                      "\" font-family=\"" + kFonts + "\">\n<title>" + escaped(drawing.title) + "</title>\n" +
                      gradients(drawing) + "<rect width=\"100%\" height=\"100%\"" + paint("fill", drawing.paper) +
                      "/>\n";
    for (const Mark &mark : drawing.marks)
        std::visit(Writer{svg}, mark);
    return svg + "</svg>\n";
}

} // namespace quorixctl
