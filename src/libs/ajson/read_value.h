/// Typed values from a text. Each reader has a quick way for the form that the writer gives and leaves it, before
/// anything is stored, for the exact way by tokens.
#ifndef AJSON_READ_VALUE_H
#define AJSON_READ_VALUE_H

#include <ajson/reader.h>
#include <ajson/registration.h>
#include <ajson/unescape.h>
#include <list>
#include <memory>

namespace ajson::detail {

template <class T>
struct sequence_traits : std::false_type {};
template <class T, class A>
struct sequence_traits<std::vector<T, A>> : std::true_type {};
template <class T, class A>
struct sequence_traits<std::list<T, A>> : std::true_type {};
template <class T>
inline constexpr bool is_sequence = sequence_traits<T>::value;

template <class T>
inline constexpr bool is_shared = false;
template <class T>
inline constexpr bool is_shared<std::shared_ptr<T>> = true;

template <class T>
inline constexpr bool is_text = std::is_same_v<T, std::string>;

template <class T>
const char *read_scanned(reader &rd, T &value);
template <bool Roomy = false, class T>
const char *read_value(reader &rd, const char *p, T &value);
template <class T>
requires registered<T>
const char *read_opened(reader &rd, const char *p, T &value);

// ---- single values, exact: the current token is the value, the reader stays right behind it

inline bool is_true(string_ref text) {
    constexpr std::string_view word = "true";
    return text.len == word.size() && std::equal(word.begin(), word.end(), text.str, [](char lower, char c) {
               return lower == (c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c);
           });
}

inline bool token_to_bool(reader &rd) {
    const token &tok = rd.cur_tok_;
    switch (tok.type) {
    case token::t_string:
        return is_true(tok.str);
    case token::t_int:
    case token::t_uint:
        return tok.value.u64 != 0;
    case token::t_number:
        return tok.value.d64 != 0.0;
    default:
        rd.error("not a valid bool.");
    }
}

inline std::int64_t token_to_signed(reader &rd) {
    const token &tok = rd.cur_tok_;
    switch (tok.type) {
    case token::t_string:
        return is_true(tok.str) ? 1 : text_to_integer<std::int64_t>(tok.str.str, tok.str.str + tok.str.len);
    case token::t_int:
        return static_cast<std::int64_t>(0 - tok.value.u64);
    case token::t_uint:
        return static_cast<std::int64_t>(tok.value.u64);
    case token::t_number:
        return truncate<std::int64_t>(tok.neg ? -tok.value.d64 : tok.value.d64);
    default:
        rd.error("not a valid signed integral like number.");
    }
}

inline std::uint64_t token_to_unsigned(reader &rd) {
    const token &tok = rd.cur_tok_;
    switch (tok.type) {
    case token::t_string:
        return is_true(tok.str) ? 1 : text_to_integer<std::uint64_t>(tok.str.str, tok.str.str + tok.str.len);
    case token::t_int:
        rd.error("assign a negative signed integral to unsigned integral number.");
    case token::t_uint:
        return tok.value.u64;
    case token::t_number:
        if (tok.neg)
            rd.error("assign a negative float point to unsigned integral number.");
        return truncate<std::uint64_t>(tok.value.d64);
    default:
        rd.error("not a valid unsigned integral like number.");
    }
}

inline double token_to_double(reader &rd) {
    const token &tok = rd.cur_tok_;
    switch (tok.type) {
    case token::t_string:
        return text_to_double(tok.str.str, tok.str.str + tok.str.len);
    case token::t_int:
        return -static_cast<double>(tok.value.u64);
    case token::t_uint:
        return static_cast<double>(tok.value.u64);
    case token::t_number:
        return tok.neg ? -tok.value.d64 : tok.value.d64;
    default:
        rd.error("not a valid float point number.");
    }
}

inline void token_to_text(reader &rd, std::string &value) {
    const string_ref text = rd.cur_tok_.str;
    if (rd.cur_tok_.type != token::t_string || !unescape(text.str, text.str + text.len, value))
        rd.error("not a valid string.");
}

// ---- quick ways: the place behind the value, or null when the text has another form

/// What may follow a number that is whole and complete without another look.
inline bool ends_value(char c) { return c == ',' || c == '}' || c == ']'; }

/// Room that the quick way of a number wants: a sign, twenty digits and the byte behind.
inline constexpr std::size_t number_room = 24;

/// Requires: @ref number_room bytes at @p p.
template <class T>
const char *quick_whole(const char *p, T &value) {
    bool negative = false;
    if constexpr (std::is_signed_v<T>) {
        negative = *p == '-';
        p += negative ? 1 : 0;
    }
    const char *const first = p;
    std::uint64_t whole = 0;
    for (; is_digit(*p) && p - first < 20; ++p)
        whole = whole * 10 + static_cast<std::uint64_t>(*p - '0');
    if (p == first || !ends_value(*p))
        return nullptr;
    value = static_cast<T>(negative ? 0 - whole : whole);
    return p;
}

/// The closing quote of a string without escapes that begins at @p p, or null.
inline const char *quick_quotes(const char *p, const char *end) {
    if (p == end || *p != '"')
        return nullptr;
    const char *close = find_quote(p + 1, end);
    return close != end && *close == '"' ? close : nullptr;
}

/// The byte that begins a value of a type whose reading can be entered without looking any further, or NUL.
template <class T>
constexpr char opening() {
    if constexpr (std::is_arithmetic_v<T> || std::is_enum_v<T> || is_text<T>)
        return '\0';
    else if constexpr (is_sequence<T> || std::is_array_v<T>)
        return '[';
    else if constexpr (is_shared<T>)
        return opening<std::remove_const_t<typename T::element_type>>();
    else
        return '{';
}

// ---- arrays

/// Reads the elements behind the opening bracket at @p p. @p element(place) gives where the one that begins there is
/// to go. It is asked when the first token of the element is known to be whole: a fault in that token leaves the array
/// as it was, one further on leaves the new element behind.
template <class T, class Element>
const char *read_elements(reader &rd, const char *p, Element element) {
    const reader::level level(rd, p, "array must start with [.");
    const token &tok = rd.cur_tok_;
    for (;;) {
        const auto room = static_cast<std::size_t>(rd.end() - p);
        const char *behind = nullptr;
        if (room > 0 && *p == ']')
            return p + 1;
        if constexpr (opening<T>() != '\0') {
            if (room > 0 && *p == opening<T>())
                behind = read_value(rd, p, element(p));
        } else if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
            T number = 0;
            behind = room >= number_room ? quick_whole(p, number) : nullptr;
            if (behind != nullptr)
                element(p) = number;
        } else if constexpr (is_text<T>) {
            if (quick_quotes(p, rd.end()) != nullptr)
                behind = read_value(rd, p, element(p));
        }
        if (behind == nullptr) {
            rd.scan(p);
            if (tok.is(']')) // behind white space; a comma may stand in front of it
                return rd.cursor();
            behind = read_scanned(rd, element(p));
        }
        p = behind;
        if (p < rd.end() && *p == ',') {
            ++p;
            continue;
        }
        rd.scan(p);
        p = rd.cursor();
        if (tok.is(']'))
            return p;
        if (!tok.is(','))
            rd.error("no valid array!");
    }
}

template <class T, class A>
const char *read_opened(reader &rd, const char *p, std::vector<T, A> &value) {
    return read_elements<T>(rd, p, [&](const char *) -> T & { return value.emplace_back(); });
}
template <class T, class A>
const char *read_opened(reader &rd, const char *p, std::list<T, A> &value) {
    return read_elements<T>(rd, p, [&](const char *) -> T & { return value.emplace_back(); });
}
template <class T, std::size_t Size>
const char *read_opened(reader &rd, const char *p, T (&value)[Size]) {
    std::size_t count = 0;
    return read_elements<T>(rd, p, [&](const char *place) -> T & {
        if (count == Size) {
            rd.scan(place);
            rd.error("array overflow.");
        }
        return value[count++];
    });
}

// ---- records

template <class T>
struct record_reader {
    using members = members_of<T>;
    static constexpr const auto &keys = members::keys;

    /// Reads the members behind the opening brace at @p p: all in their order as long as each key is the next one,
    /// byte for byte, and from the first surprise on one by one.
    static const char *read(reader &rd, const char *p, T &value) {
        const reader::level level(rd, p, "read object must start with {!");
        std::size_t done = 0;
        const auto step = [&]<std::size_t I, auto Member>() {
            if (!expected<I>(p, rd.end()))
                return false;
            p = read_value<true>(rd, p + size<I>(), value.*Member);
            ++done;
            return true;
        };
        if (members::while_each(step) && p < rd.end() && *p == '}')
            return p + 1;
        return read_any_order(rd, p, value, done == 0);
    }

private:
    /// The first key is met without its separator, which is the opening brace.
    template <std::size_t I>
    static constexpr std::size_t size() {
        return keys.size(I) - (I == 0 ? 1 : 0);
    }
    template <std::size_t I>
    static bool expected(const char *p, const char *end) {
        return static_cast<std::size_t>(end - p) >= size<I>() + number_room &&
               same_bytes<size<I>()>(p, keys.key(I) + (I == 0 ? 1 : 0));
    }

    /// Goes on key by key, from the place behind the brace (@p first) or behind a value.
    [[gnu::noinline]] static const char *read_any_order(reader &rd, const char *p, T &value, bool first) {
        constexpr const char *fault = "invalid json document!";
        const token &tok = rd.cur_tok_;
        for (;; first = false) {
            string_ref key;
            if (p < rd.end() && *p == '}')
                return p + 1;
            const char *const quote = !first && p < rd.end() && *p == ',' ? p + 1 : p;
            const char *close = first || quote != p ? quick_quotes(quote, rd.end()) : nullptr;
            if (close != nullptr && rd.end() - close > 1 && close[1] == ':') {
                key = {quote + 1, static_cast<std::size_t>(close - quote - 1)};
                p = close + 2;
            } else {
                rd.scan(p);
                if (tok.is('}'))
                    return rd.cursor();
                if (!first) {
                    if (!tok.is(','))
                        rd.error(fault);
                    rd.scan(rd.cursor());
                }
                if (tok.type != token::t_string)
                    rd.error("object key must be string");
                key = tok.str;
                rd.scan(rd.cursor());
                if (!tok.is(':'))
                    rd.error(fault);
                p = rd.cursor();
            }
            const std::uint64_t head = keys.head_of(key, rd.end());
            const bool unknown = members::while_each([&]<std::size_t I, auto Member>() {
                if (!keys.template is<I>(key, head))
                    return true;
                p = read_value(rd, p, value.*Member);
                return false;
            });
            if (unknown) {
                rd.scan(p);
                skip_value(rd);
                p = rd.cursor();
            }
        }
    }
};

template <class T>
requires registered<T>
const char *read_opened(reader &rd, const char *p, T &value) { return record_reader<T>::read(rd, p, value); }

template <class T>
const char *read_opened(reader &rd, const char *p, std::shared_ptr<T> &value) {
    if (value == nullptr)
        value = std::make_shared<T>();
    return read_opened(rd, p, *value);
}

// ---- any value

/// Reads the value whose first token is the current one, and gives the place right behind it.
template <class T>
const char *read_scanned(reader &rd, T &value) {
    if constexpr (std::is_same_v<T, bool>) {
        value = token_to_bool(rd);
    } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
        value = static_cast<T>(token_to_signed(rd));
    } else if constexpr (std::is_unsigned_v<T> || std::is_enum_v<T>) {
        value = static_cast<T>(token_to_unsigned(rd));
    } else if constexpr (std::is_floating_point_v<T>) {
        value = static_cast<T>(token_to_double(rd));
    } else if constexpr (is_text<T>) {
        token_to_text(rd, value);
    } else if constexpr (is_shared<T>) {
        if (rd.cur_tok_.type != token::t_ctrl) {
            value.reset();
            return rd.cursor();
        }
        if (value == nullptr)
            value = std::make_shared<typename T::element_type>();
        return read_scanned(rd, *value);
    } else {
        if (!rd.cur_tok_.is(opening<T>()))
            rd.error(opening<T>() == '[' ? "array must start with [." : "read object must start with {!");
        return read_opened(rd, rd.cursor(), value);
    }
    return rd.cursor();
}

/// Reads the value that begins at or behind @p p, and gives the place right behind it. @p Roomy: the caller has made
/// sure of @ref number_room bytes.
template <bool Roomy, class T>
const char *read_value(reader &rd, const char *p, T &value) {
    const auto room = static_cast<std::size_t>(rd.end() - p);
    if constexpr (std::is_same_v<T, bool>) {
        if ((Roomy || room > 1) && (*p == '0' || *p == '1') && ends_value(p[1])) {
            value = *p == '1';
            return p + 1;
        }
    } else if constexpr (std::is_integral_v<T>) {
        if (Roomy || room >= number_room) {
            if (const char *behind = quick_whole(p, value))
                return behind;
        }
    } else if constexpr (is_text<T>) {
        if (const char *close = quick_quotes(p, rd.end())) {
            value.assign(p + 1, close);
            return close + 1;
        }
    } else if constexpr (opening<T>() != '\0') {
        if ((Roomy || room > 0) && *p == opening<T>())
            return read_opened(rd, p + 1, value);
    }
    rd.scan(p);
    return read_scanned(rd, value);
}

} // namespace ajson::detail

#endif
