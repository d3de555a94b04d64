/// Escapes in strings: from the text to UTF-8.
#ifndef AJSON_UNESCAPE_H
#define AJSON_UNESCAPE_H

#include <ajson/text.h>
#include <optional>
#include <string>

namespace ajson::detail {

/// The value of a complete `\u` escape at @p p, or -1.
inline std::int32_t unicode_escape(const char *p, const char *end) {
    if (end - p < 6 || p[0] != '\\' || p[1] != 'u')
        return -1;
    std::int32_t value = 0;
    for (int i = 2; i < 6; ++i) {
        const int digit = hex_digit(p[i]);
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

/// Appends a code point to a place with room for four bytes, as UTF-8; a lone surrogate takes three bytes like others.
inline char *put_utf8(char *out, std::uint32_t code) {
    const auto put = [&out](std::uint32_t byte) { *out++ = static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0U | (code >> 6));
        put(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        put(0xE0U | (code >> 12));
        put(0x80U | ((code >> 6) & 0x3FU));
        put(0x80U | (code & 0x3FU));
    } else {
        put(0xF0U | (code >> 18));
        put(0x80U | ((code >> 12) & 0x3FU));
        put(0x80U | ((code >> 6) & 0x3FU));
        put(0x80U | (code & 0x3FU));
    }
    return out;
}

/// The code point of two escapes in a row, or nothing when they stand for themselves.
///
/// The writer gives a code point from U+10000 on as its upper and its lower 16 bits; other programs give a surrogate
/// pair. Both come back as the one character. The upper half of the writer's form lies between 1 and 16, less the
/// values that the writer never puts as `\u` escapes.
inline std::optional<std::uint32_t> joined(std::int32_t upper, std::int32_t lower) {
    const auto high = static_cast<std::uint32_t>(upper);
    const auto low = static_cast<std::uint32_t>(lower);
    if (lower < 0)
        return std::nullopt;
    if (high >= 1 && high <= 0x10 && !(high >= 8 && high <= 13 && high != 11))
        return (high << 16) | low;
    if (high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000)
        return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
    return std::nullopt;
}

/// Decodes one escape. @p p stands on the backslash and moves behind the escape.
/// @return the place behind what was put, or null for a bad escape, `\u0000` included.
inline char *unescape_one(const char *&p, const char *end, char *out) {
    if (end - p < 2)
        return nullptr;
    constexpr std::string_view letters = "\"/\\bfnrt";
    constexpr std::string_view bytes = "\"/\\\b\f\n\r\t";
    if (const std::size_t at = letters.find(p[1]); at != std::string_view::npos) {
        p += 2;
        *out = bytes[at];
        return out + 1;
    }
    const std::int32_t value = unicode_escape(p, end);
    if (value <= 0)
        return nullptr;
    p += 6;
    if (const auto pair = joined(value, unicode_escape(p, end))) {
        p += 6;
        return put_utf8(out, *pair);
    }
    return put_utf8(out, static_cast<std::uint32_t>(value));
}

/// Puts the unescaped text of [p, end) in place of what @p value holds; false, and nothing there, for a bad escape.
inline bool unescape(const char *p, const char *end, std::string &value) {
    // Pieces are gathered here first, so that the string takes its memory once and no more than it needs.
    std::array<char, 256> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): only what was written is read
    char *out = piece.data();
    char *const full = piece.data() + piece.size() - 4;
    value.clear();
    while (p < end) {
        if (*p != '\\') {
            *out++ = *p++;
        } else {
            char *behind = unescape_one(p, end, out);
            if (behind == nullptr) {
                value.clear();
                return false;
            }
            out = behind;
        }
        if (out >= full) {
            value.append(piece.data(), out);
            out = piece.data();
        }
    }
    value.append(piece.data(), out);
    return true;
}

} // namespace ajson::detail

#endif
