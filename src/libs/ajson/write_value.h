/// Typed values to text. The place to write at travels by value; a value whose longest text is known needs no look at
/// the room left, since its owner has made sure of it.
#ifndef AJSON_WRITE_VALUE_H
#define AJSON_WRITE_VALUE_H

#include <ajson/read_value.h>
#include <ajson/stream.h>

namespace ajson {

namespace detail {

/// Decodes the code point at @p p, which moves behind it; U+FFFD for a byte that begins no valid sequence.
inline std::uint32_t take_utf8(const char *&p, const char *end) {
    const auto byte = [](char c) { return static_cast<std::uint32_t>(static_cast<unsigned char>(c)); };
    constexpr std::uint32_t replacement = 0xFFFD;
    const std::uint32_t lead = byte(*p++);
    if (lead < 0x80)
        return lead;
    const unsigned more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || end - p < static_cast<std::ptrdiff_t>(more))
        return replacement;
    std::uint32_t code = lead & (0x3FU >> more);
    for (unsigned i = 0; i < more; ++i) {
        if ((byte(p[i]) & 0xC0U) != 0x80U)
            return replacement;
        code = (code << 6) | (byte(p[i]) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 4> least{0, 0x80, 0x800, 0x10000};
    if (code < least[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return replacement;
    p += more;
    return code;
}

inline char *put_unicode_escape(char *out, std::uint32_t value) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    *out++ = '\\';
    *out++ = 'u';
    for (int shift = 12; shift >= 0; shift -= 4)
        *out++ = digits[(value >> shift) & 0xFU];
    return out;
}

/// The longest text of one code point: two escapes.
inline constexpr std::size_t escape_room = 12;

inline char *put_code_point(char *out, std::uint32_t code) {
    constexpr std::string_view bytes = "\b\t\n\f\r\"\\";
    constexpr std::string_view letters = "btnfr\"\\";
    if (const std::size_t at = code < 0x80 ? bytes.find(static_cast<char>(code)) : std::string_view::npos;
        at != std::string_view::npos) {
        *out++ = '\\';
        *out++ = letters[at];
        return out;
    }
    if (code >= 32 && code <= 126) {
        *out++ = static_cast<char>(code);
        return out;
    }
    if (code >= 0x10000)
        out = put_unicode_escape(out, code >> 16);
    return put_unicode_escape(out, code & 0xFFFFU);
}

/// The first byte in [p, end) that isn't written as it is, or @p end.
inline const char *find_special(const char *p, const char *end) {
    const auto plain = [](char c) { return c >= 32 && c <= 126 && c != '"' && c != '\\'; };
    for (; end - p >= 8; p += 8) {
        const std::uint64_t word = load8(p);
        const std::uint64_t outside = ((word - every_byte(32)) | word | (word + every_byte(1))) & top_bits;
        const std::uint64_t marks = outside | bytes_equal(word, '"') | bytes_equal(word, '\\');
        if (marks != 0)
            return p + first_mark(marks);
    }
    while (p < end && plain(*p))
        ++p;
    return p;
}

template <class Stream>
char *put_text(Stream &stream, char *out, const char *p, std::size_t length) {
    const char *const end = p + length;
    out = stream.prepare(out, length + 2);
    *out++ = '"';
    for (;;) {
        const char *special = find_special(p, end);
        const auto run = static_cast<std::size_t>(special - p);
        std::memcpy(out, p, run);
        out += run;
        p = special;
        if (p == end || *p == '\0')
            break;
        const std::uint32_t code = take_utf8(p, end);
        out = stream.prepare(out, escape_room + static_cast<std::size_t>(end - p) + 1);
        out = put_code_point(out, code);
    }
    *out++ = '"';
    return out;
}

template <class T>
struct record_writer;

/// The longest text of a value of a type, or 0 if that depends on the value.
template <class T>
constexpr std::size_t longest() {
    if constexpr (std::is_same_v<T, bool>) {
        return 1;
    } else if constexpr (std::is_enum_v<T>) {
        return longest<std::underlying_type_t<T>>();
    } else if constexpr (std::is_integral_v<T>) {
        return std::numeric_limits<T>::digits10 + 2;
    } else if constexpr (std::is_floating_point_v<T>) {
        return 25; // as -1.7976931348623157e+308, and one to spare
    } else if constexpr (std::is_array_v<T>) {
        constexpr std::size_t element = longest<std::remove_extent_t<T>>();
        return element == 0 ? 0 : std::extent_v<T> * (element + 1) + 2;
    } else if constexpr (is_text<T> || is_sequence<T> || is_shared<T>) {
        return 0;
    } else {
        return record_writer<T>::longest_text;
    }
}

/// Puts a value at @p out and gives the place behind it. A value of a type with a longest text finds the room made.
template <class Stream, class T>
char *put_value(Stream &stream, char *out, const T &value);

/// Most integers of a record are switches and small ids, which need no call.
template <class T>
char *put_integer(char *out, T value) {
    if (value >= 0 && value < 10) {
        *out = static_cast<char>('0' + value);
        return out + 1;
    }
    return std::to_chars(out, out + longest<T>(), value).ptr;
}

inline char *put_double(char *out, double value) {
    if (!std::isfinite(value))
        value = 0.0;
    return std::to_chars(out, out + longest<double>(), value, std::chars_format::general, 17).ptr;
}

template <class Stream, class Range>
char *put_elements(Stream &stream, char *out, const Range &range) {
    using element = std::remove_cvref_t<decltype(*std::begin(range))>;
    constexpr std::size_t room = 1 + longest<element>();
    out = stream.prepare(out, 2);
    *out++ = '[';
    bool first = true;
    for (const auto &value : range) {
        out = stream.prepare(out, room);
        if (!first)
            *out++ = ',';
        first = false;
        out = put_value(stream, out, value);
    }
    out = stream.prepare(out, 1);
    *out++ = ']';
    return out;
}

template <class T>
struct record_writer {
    using members = members_of<T>;
    static constexpr const auto &keys = members::keys;

    static constexpr std::array<std::size_t, members::count> longest_member = [] {
        std::array<std::size_t, members::count> lengths{};
        members::for_each([&]<std::size_t I, auto Member>() {
            lengths[I] = longest<std::remove_cvref_t<decltype(std::declval<T &>().*Member)>>();
        });
        return lengths;
    }();

    /// What to make sure of in front of each member: all up to the closing brace, or up to a value of unknown length.
    static constexpr std::array<std::size_t, members::count + 1> room = [] {
        std::array<std::size_t, members::count + 1> sums{};
        sums[members::count] = 1;
        for (std::size_t i = members::count; i-- > 0;)
            sums[i] = keys.size(i) + (longest_member[i] == 0 ? 0 : longest_member[i] + sums[i + 1]);
        return sums;
    }();

    static constexpr std::size_t longest_text =
        std::find(longest_member.begin(), longest_member.end(), 0U) == longest_member.end() ? room[0] : 0;

    template <class Stream>
    static char *put(Stream &stream, char *out, const T &value) {
        members::for_each([&]<std::size_t I, auto Member>() {
            if constexpr (longest_text == 0 && (I == 0 || longest_member[I == 0 ? 0 : I - 1] == 0))
                out = stream.prepare(out, room[I]);
            std::memcpy(out, keys.key(I), keys.size(I));
            out = put_value(stream, out + keys.size(I), value.*Member);
        });
        if constexpr (members::count > 0 && longest_member[members::count - 1] == 0)
            out = stream.prepare(out, room[members::count]);
        *out++ = '}';
        return out;
    }
};

template <class Stream, class T>
char *put_value(Stream &stream, char *out, const T &value) {
    if constexpr (std::is_same_v<T, bool>) {
        *out = value ? '1' : '0';
        return out + 1;
    } else if constexpr (std::is_enum_v<T>) {
        return put_value(stream, out, static_cast<std::underlying_type_t<T>>(value));
    } else if constexpr (std::is_integral_v<T>) {
        return put_integer(out, value);
    } else if constexpr (std::is_floating_point_v<T>) {
        return put_double(out, static_cast<double>(value));
    } else if constexpr (is_text<T>) {
        return put_text(stream, out, value.data(), value.size());
    } else if constexpr (is_sequence<T> || std::is_array_v<T>) {
        return put_elements(stream, out, value);
    } else if constexpr (is_shared<T>) {
        if (value != nullptr) {
            out = stream.prepare(out, longest<typename T::element_type>());
            return put_value(stream, out, *value);
        }
        out = stream.prepare(out, 1);
        *out = '0';
        return out + 1;
    } else {
        static_assert(registered<T>, "a type without a registration: add a line QUORIX_AJSON(Type, members...)");
        return record_writer<T>::put(stream, out, value);
    }
}

} // namespace detail

/// Writes single pieces and whole values to a stream.
template <class Stream = ajson_string_stream<>>
class lite_write {
public:
    explicit lite_write(Stream &stream) : stream_(stream) {}

    void put(char c) { stream_.put(c); }
    void write_bool(bool value) { stream_.put(value ? '1' : '0'); }
    /// Text as it is.
    void write_liter(const char *text, std::size_t length) { stream_.write(text, length); }
    /// A JSON string from UTF-8; it ends at a NUL. All that isn't printable ASCII becomes escapes.
    void write_str(const char *text, std::size_t length) {
        stream_.commit(detail::put_text(stream_, stream_.place(), text, length));
    }
    template <class T>
    void write_value(const T &value) {
        char *out = stream_.prepare(stream_.place(), detail::longest<T>());
        stream_.commit(detail::put_value(stream_, out, value));
    }
    /// The code point at @p p, which moves behind it; U+FFFD where no valid UTF-8 begins.
    static std::uint32_t decode(const char *&p, const char *end) { return detail::take_utf8(p, end); }

private:
    Stream &stream_;
};

} // namespace ajson

#endif
