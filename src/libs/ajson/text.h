/// Views of text that is not owned, and the names of a record's members.
#ifndef AJSON_TEXT_H
#define AJSON_TEXT_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace ajson::detail {

/// A run of bytes inside a text that someone else owns.
struct string_ref {
    const char *str = nullptr;
    std::size_t len = 0;

    friend bool operator==(const string_ref &a, const string_ref &b) {
        return a.len == b.len && (a.len == 0 || std::memcmp(a.str, b.str, a.len) == 0);
    }
};

/// The names of one record's members, in the order of registration.
using field_list = std::vector<string_ref>;

/// True for the white space that may stand in a list of names: tab, line feed, form feed, carriage return, blank.
inline constexpr std::array<bool, 256> char_table = [] {
    std::array<bool, 256> table{};
    for (const std::size_t c : {9U, 10U, 12U, 13U, 32U})
        table[c] = true;
    return table;
}();

/// Calls @p found(begin, length) for each name of a list whose separators are commas and white space.
template <class Found>
constexpr void for_each_name(const char *text, std::size_t length, Found found) {
    for (std::size_t i = 0; i < length;) {
        const std::size_t begin = i;
        while (i < length && text[i] != ',' && !char_table[static_cast<unsigned char>(text[i])])
            ++i;
        if (i > begin)
            found(text + begin, i - begin);
        else
            ++i;
    }
}

/// The names of a list, which must outlive the result. Blanks round the commas make no difference, empty parts drop
/// out.
inline field_list split_fields(const char *text) {
    field_list names;
    for_each_name(text, std::strlen(text), [&](const char *str, std::size_t len) { names.push_back({str, len}); });
    return names;
}

// Eight bytes at a time: each function marks bytes by their top bit; the lowest mark is exact, those above it may not
// be.
inline constexpr std::uint64_t every_byte(unsigned value) { return 0x0101010101010101U * value; }
inline constexpr std::uint64_t top_bits = every_byte(0x80);

inline std::uint64_t load8(const char *p) {
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    if constexpr (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    return word;
}
inline constexpr std::uint64_t bytes_equal(std::uint64_t word, char c) {
    const std::uint64_t x = word ^ every_byte(static_cast<unsigned char>(c));
    return (x - every_byte(1)) & ~x & top_bits;
}
inline std::size_t first_mark(std::uint64_t marks) { return static_cast<std::size_t>(std::countr_zero(marks)) / 8; }

/// The first quote, backslash or line feed in [p, end), or @p end.
inline const char *find_quote(const char *p, const char *end) {
    for (; end - p >= 8; p += 8) {
        const std::uint64_t word = load8(p);
        const std::uint64_t marks = bytes_equal(word, '"') | bytes_equal(word, '\\') | bytes_equal(word, '\n');
        if (marks != 0)
            return p + first_mark(marks);
    }
    while (p < end && *p != '"' && *p != '\\' && *p != '\n')
        ++p;
    return p;
}

/// True if the @p Size bytes at @p a are those at @p b: whole words, the last one overlapping, and a single branch.
template <std::size_t Size>
bool same_bytes(const char *a, const char *b) {
    const auto differ = [a, b]<class Word>(Word, std::size_t at) {
        Word x = 0;
        Word y = 0;
        __builtin_memcpy(&x, a + at, sizeof x);
        __builtin_memcpy(&y, b + at, sizeof y);
        return static_cast<std::uint64_t>(x ^ y);
    };
    std::uint64_t difference = 0;
    if constexpr (Size >= 8) {
        for (std::size_t at = 0; at + 8 <= Size; at += 8)
            difference |= differ(std::uint64_t{}, at);
        if constexpr (Size % 8 != 0)
            difference |= differ(std::uint64_t{}, Size - 8);
    } else if constexpr (Size >= 4) {
        difference = differ(std::uint32_t{}, 0) | differ(std::uint32_t{}, Size - 4);
    } else {
        static_assert(Size >= 4, "a key is never shorter");
    }
    return difference == 0;
}

inline constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// The value of a hexadecimal digit of either case, or -1.
inline constexpr int hex_digit(char c) {
    if (is_digit(c))
        return c - '0';
    const int letter = (c | 0x20) - 'a';
    return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

} // namespace ajson::detail

#endif
