/// The list of a record's members, told once, for reader and writer.
#ifndef AJSON_REGISTRATION_H
#define AJSON_REGISTRATION_H

#include <ajson/text.h>
#include <string_view>
#include <type_traits>
#include <utility>

namespace ajson::detail {

/// Carries a record's type, so that argument-dependent lookup finds its registration and never that of a base.
template <class T>
struct tag {};

/// The keys of a record as the writer puts them and the reader meets them: `{"x":` for the first, `,"y":` for others.
template <std::size_t Count, std::size_t Bytes>
struct key_table {
    static constexpr std::size_t marks = 4; ///< bytes round a name: separator, two quotes, colon

    std::array<char, Bytes> text{};
    std::array<std::uint16_t, Count + 1> at{};
    std::array<std::uint64_t, Count> head{}; ///< the first eight bytes of the name, zeros behind a shorter one

    constexpr explicit key_table(std::string_view list) {
        std::size_t pos = 0;
        std::size_t index = 0;
        for_each_name(list.data(), list.size(), [&](const char *name, std::size_t length) {
            at[index] = static_cast<std::uint16_t>(pos);
            text[pos++] = index == 0 ? '{' : ',';
            text[pos++] = '"';
            for (std::size_t i = 0; i < length; ++i) {
                text[pos++] = name[i];
                if (i < 8)
                    head[index] |= static_cast<std::uint64_t>(static_cast<unsigned char>(name[i])) << (8 * i);
            }
            text[pos++] = '"';
            text[pos++] = ':';
            at[++index] = static_cast<std::uint16_t>(pos);
        });
    }

    [[nodiscard]] constexpr const char *key(std::size_t i) const { return text.data() + at[i]; }
    [[nodiscard]] constexpr std::size_t size(std::size_t i) const { return std::size_t{at[i + 1]} - at[i]; }
    [[nodiscard]] constexpr const char *name(std::size_t i) const { return key(i) + 2; }
    [[nodiscard]] constexpr std::size_t name_size(std::size_t i) const { return size(i) - marks; }

    /// The first eight bytes of a name in a text that ends at @p end, with zeros behind a shorter one.
    [[nodiscard]] static std::uint64_t head_of(string_ref wanted, const char *end) {
        std::uint64_t bytes = 0;
        if (end - wanted.str >= 8) {
            bytes = load8(wanted.str);
            return wanted.len >= 8 ? bytes : bytes & ((std::uint64_t{1} << (8 * wanted.len)) - 1);
        }
        for (std::size_t i = 0; i < wanted.len; ++i)
            bytes |= static_cast<std::uint64_t>(static_cast<unsigned char>(wanted.str[i])) << (8 * i);
        return bytes;
    }

    /// True if @p wanted, whose first bytes are @p first, is the name at place @p I.
    template <std::size_t I>
    [[nodiscard]] constexpr bool is(string_ref wanted, std::uint64_t first) const {
        return head[I] == first && name_size(I) == wanted.len &&
               (wanted.len <= 8 || std::memcmp(name(I) + 8, wanted.str + 8, wanted.len - 8) == 0);
    }
};

consteval std::size_t count_names(std::string_view list) {
    std::size_t count = 0;
    for_each_name(list.data(), list.size(), [&](const char *, std::size_t) { ++count; });
    return count;
}
consteval std::size_t count_bytes(std::string_view list) {
    std::size_t bytes = 0;
    for_each_name(list.data(), list.size(), [&](const char *, std::size_t length) { bytes += length + 4; });
    return bytes;
}

/// What a registration gives: the list's text (List::text()) and a pointer to each member.
template <class List, auto... Member>
struct registration {
    static constexpr std::size_t count = sizeof...(Member);
    static constexpr key_table<count, count_bytes(List::text())> keys{List::text()};
    static_assert(count_names(List::text()) == count);
    using places = std::make_index_sequence<count>;

    static constexpr const char *text() { return List::text(); }

    /// Calls @p visit<I>(pointer to member) for each member in order.
    template <class Visit>
    static constexpr void for_each(Visit &&visit) {
        [&]<std::size_t... I>(std::index_sequence<I...>) { (visit.template operator()<I, Member>(), ...); }
        (places{});
    }

    /// The same until one gives false; true if none did.
    template <class Visit>
    static constexpr bool while_each(Visit &&visit) {
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            return (visit.template operator()<I, Member>() && ...);
        }
        (places{});
    }
};

template <class T>
concept registered = requires {
    ajson_members(tag<T>{});
};

template <class T>
using members_of = decltype(ajson_members(tag<T>{}));

} // namespace ajson::detail

// One step of expansion for each member; the nested scans give room for 256 members.
#define AJSON_PARENS ()
#define AJSON_EXPAND(...) AJSON_EXPAND3(AJSON_EXPAND3(AJSON_EXPAND3(AJSON_EXPAND3(__VA_ARGS__))))
#define AJSON_EXPAND3(...) AJSON_EXPAND2(AJSON_EXPAND2(AJSON_EXPAND2(AJSON_EXPAND2(__VA_ARGS__))))
#define AJSON_EXPAND2(...) AJSON_EXPAND1(AJSON_EXPAND1(AJSON_EXPAND1(AJSON_EXPAND1(__VA_ARGS__))))
#define AJSON_EXPAND1(...) AJSON_EXPAND0(AJSON_EXPAND0(AJSON_EXPAND0(AJSON_EXPAND0(__VA_ARGS__))))
#define AJSON_EXPAND0(...) __VA_ARGS__
#define AJSON_MEMBER(Type, member, ...) , &Type::member __VA_OPT__(AJSON_MEMBER_AGAIN AJSON_PARENS(Type, __VA_ARGS__))
#define AJSON_MEMBER_AGAIN() AJSON_MEMBER

/// Registers a record with the codec: `QUORIX_AJSON(s_Pos, x, y)`, beside the record and in its namespace, with or
/// without a semicolon. The members are written in this order under their own names; inherited ones stand among them,
/// flat; one may be named twice.
#define QUORIX_AJSON(Type, ...)                                                                                        \
    constexpr auto ajson_members [[maybe_unused]] (ajson::detail::tag<Type>) {                                         \
        struct list {                                                                                                  \
            static constexpr const char *text() { return #__VA_ARGS__; }                                               \
        };                                                                                                             \
        return ajson::detail::registration<list AJSON_EXPAND(AJSON_MEMBER(Type, __VA_ARGS__))>{};                      \
    }

/// The same inside a class, where it reaches private members.
#define QUORIX_AJSON_FRIEND(Type, ...) friend QUORIX_AJSON(Type, __VA_ARGS__)

#endif
