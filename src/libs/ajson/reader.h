/// The tokens of a JSON text, one at a time, in place.
#ifndef AJSON_READER_H
#define AJSON_READER_H

#include <ajson/number.h>
#include <exception>
#include <quorix_export.h>
#include <string>
#include <utility>

namespace ajson {

/// Thrown for every fault of a text.
class QUORIX_EXPORT exception : public std::exception {
public:
    explicit exception(std::string message) : msg_(std::move(message)) {}
    [[nodiscard]] const char *what() const noexcept override { return msg_.c_str(); }

    std::string msg_;
};

struct token {
    enum type_t { t_string = 0, t_int = 1, t_uint = 2, t_number = 3, t_ctrl = 4, t_end = 5 };
    union value_t {
        std::int64_t i64;
        std::uint64_t u64; ///< magnitude of t_int and t_uint; wraps at 64 bits
        double d64;        ///< magnitude of t_number
    };

    detail::string_ref str; ///< the token's text; of a quoted string what stands between the quotes, escapes in place
    type_t type = t_end;
    value_t value{};
    bool neg = false; ///< a number had a leading minus sign

    [[nodiscard]] bool is(char ctrl) const { return type == t_ctrl && *str.str == ctrl; }
};

/// Reads tokens from a text that it neither copies nor owns. One thread at a time.
///
/// The value readers look ahead by nothing but bytes: `scan` takes the next token where it is wanted, and the line and
/// the column are counted only when someone asks, that is in `next` and in `error`.
class reader {
public:
    /// Nesting beyond this is refused, so that no text overflows the stack.
    static constexpr unsigned max_depth = 512;

    /// A length of `size_t(-1)` means that the text ends at its first NUL. A NUL inside the length ends the text, too.
    reader(const char *text, std::size_t length)
        : len_(length), end_mark_(text == nullptr || length == 0 || *text == '\0'), ptr_(text) {
        if (text == nullptr)
            len_ = 0;
        else if (length == static_cast<std::size_t>(-1))
            len_ = std::strlen(text);
        const void *nul = len_ == 0 ? nullptr : std::memchr(text, 0, len_);
        end_ = nul == nullptr ? text + len_ : static_cast<const char *>(nul);
    }

    /// The current token.
    [[nodiscard]] const token &peek() const { return cur_tok_; }

    /// Goes on to the next token and counts lines and columns up to its end.
    void next() {
        scan(cursor());
        count();
    }

    /// True if the current token begins with @p c.
    [[nodiscard]] bool expect(char c) const {
        if (cur_tok_.type == token::t_end)
            return c == '\0';
        return cur_tok_.str.len > 0 && *cur_tok_.str.str == c;
    }

    /// Throws an exception that names the place reached.
    [[noreturn, gnu::cold, gnu::noinline]] void error(const char *message) {
        count();
        throw exception("error at line :" + std::to_string(cur_line_) + " col :" + std::to_string(cur_col_) +
                        " msg:" + message);
    }
    [[noreturn, gnu::cold, gnu::noinline]] void error_at(const char *place, const char *message) {
        seek(place);
        error(message);
    }

    /// Takes the token that begins at or behind @p p as the current one.
    void scan(const char *p);

    /// Where the next token is looked for: right behind the current one.
    [[nodiscard]] const char *cursor() const { return ptr_ + cur_offset_; }
    [[nodiscard]] const char *end() const { return end_; }
    void seek(const char *p) { cur_offset_ = static_cast<std::size_t>(p - ptr_); }

    /// One more level of nesting, ended by the object's own end; throws @p message when it is one too many. @p p is
    /// the place behind the opening bracket.
    class level {
    public:
        level(reader &rd, const char *p, const char *message) : rd_(rd) {
            if (rd.depth_ == max_depth) [[unlikely]]
                rd.error_at(p, message);
            ++rd.depth_;
        }
        ~level() { --rd_.depth_; }
        level(const level &) = delete;
        level &operator=(const level &) = delete;

    private:
        reader &rd_;
    };

    token cur_tok_;
    std::size_t cur_col_ = 0;  ///< bytes taken on the line, carriage returns not counted; from 0
    std::size_t cur_line_ = 0; ///< from 0
    std::size_t len_ = 0;
    std::size_t cur_offset_ = 0;
    bool end_mark_ = false;
    const char *ptr_ = nullptr;
    double decimal = 0.1; ///< place value of the next fraction digit
    int exp = 0;          ///< the exponent being read

private:
    [[gnu::noinline]] void count() {
        for (; counted_ < cur_offset_; ++counted_) {
            if (ptr_[counted_] == '\n') {
                ++cur_line_;
                cur_col_ = 0;
            } else if (ptr_[counted_] != '\r') {
                ++cur_col_;
            }
        }
    }
    [[nodiscard]] const char *skip_space(const char *p);
    [[nodiscard]] const char *skip_comment(const char *p);
    [[nodiscard]] const char *scan_quoted(const char *p);
    [[nodiscard]] const char *scan_bare(const char *p);
    [[nodiscard]] const char *scan_number(const char *p);

    const char *end_ = nullptr; ///< the first NUL or the end of the text
    std::size_t counted_ = 0;   ///< lines and columns are counted up to this offset
    unsigned depth_ = 0;
};

inline const char *reader::skip_comment(const char *p) {
    const char *behind = p + 1;
    if (behind < end_ && *behind == '/') {
        const void *feed = std::memchr(behind, '\n', static_cast<std::size_t>(end_ - behind));
        return feed == nullptr ? end_ : static_cast<const char *>(feed);
    }
    if (behind >= end_ || *behind != '*')
        error_at(behind, "not a comment!");
    for (p = behind + 1; end_ - p >= 2; ++p) {
        if (p[0] == '*' && p[1] == '/')
            return p + 2;
    }
    error_at(end_, "not a comment!");
}

inline const char *reader::skip_space(const char *p) {
    while (p < end_) {
        if (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n')
            ++p;
        else if (*p == '/')
            p = skip_comment(p);
        else
            return p;
    }
    end_mark_ = true;
    return end_;
}

inline const char *reader::scan_quoted(const char *p) {
    const char *begin = ++p;
    for (;;) {
        p = detail::find_quote(p, end_);
        if (p < end_ && *p == '"')
            break;
        if (p + 1 >= end_ || *p == '\n')
            error_at(p == end_ || *p == '\n' ? p : end_, "not a valid quote string!");
        p += 2; // a backslash and what it protects
    }
    cur_tok_.str = {begin, static_cast<std::size_t>(p - begin)};
    return p + 1;
}

inline const char *reader::scan_bare(const char *p) {
    static constexpr std::array<bool, 256> stops = [] {
        std::array<bool, 256> table{};
        for (const char c : {' ', '\t', '\n', '\r', ',', ':', '[', ']', '{', '}'})
            table[static_cast<unsigned char>(c)] = true;
        return table;
    }();
    const char *begin = p;
    while (p < end_ && !stops[static_cast<unsigned char>(*p)])
        ++p;
    if (p == end_)
        error_at(p, "not a valid string!");
    cur_tok_.str = {begin, static_cast<std::size_t>(p - begin)};
    return p;
}

inline const char *reader::scan_number(const char *p) {
    const char *begin = p;
    cur_tok_.neg = *p == '-';
    cur_tok_.type = cur_tok_.neg ? token::t_int : token::t_uint;
    p += cur_tok_.neg ? 1 : 0;
    const char *magnitude = p;
    std::uint64_t whole = 0;
    for (; p < end_ && detail::is_digit(*p); ++p)
        whole = whole * 10 + static_cast<std::uint64_t>(*p - '0');
    cur_tok_.value.u64 = whole;
    if (p < end_ && *p == '.') {
        cur_tok_.type = token::t_number;
        decimal = 0.1;
        for (++p; p < end_ && detail::is_digit(*p); ++p)
            decimal *= 0.1;
        if (p < end_ && *p == '.')
            error_at(p, "not a valid number!");
    }
    if (p < end_ && (*p == 'e' || *p == 'E')) {
        cur_tok_.type = token::t_number;
        exp = 0;
        ++p;
        const bool negative = p < end_ && *p == '-';
        for (p += negative ? 1 : 0; p < end_ && detail::is_digit(*p); ++p)
            exp = std::min(exp * 10 + (*p - '0'), 99999999);
        exp = negative ? -exp : exp;
    }
    if (cur_tok_.type == token::t_number)
        cur_tok_.value.d64 = detail::decimal_value(magnitude, p);
    cur_tok_.str = {begin, static_cast<std::size_t>(p - begin)};
    return p;
}

inline void reader::scan(const char *p) {
    p = end_mark_ ? end_ : skip_space(p); // a second look at the end may begin before it
    cur_tok_.neg = false;
    cur_tok_.value.u64 = 0;
    if (end_mark_) {
        cur_tok_.type = token::t_end;
        cur_tok_.str = {p, 1};
        seek(p);
        return;
    }
    switch (*p) {
    case '{':
    case '}':
    case '[':
    case ']':
    case ':':
    case ',':
        cur_tok_.type = token::t_ctrl;
        cur_tok_.str = {p, 1};
        ++p;
        break;
    case '"':
        cur_tok_.type = token::t_string;
        p = scan_quoted(p);
        break;
    default:
        cur_tok_.type = token::t_string;
        p = *p == '-' || detail::is_digit(*p) ? scan_number(p) : scan_bare(p);
    }
    seek(p);
}

namespace detail {

/// Passes over the value whose first token is the current one; the reader stands right behind it.
inline void skip_value(reader &rd) {
    constexpr const char *fault = "invalid json document!";
    const token &tok = rd.cur_tok_;
    if (tok.type != token::t_ctrl)
        return;
    const bool object = tok.is('{');
    if (!object && !tok.is('['))
        rd.error(fault);
    const char close = object ? '}' : ']';
    const reader::level level(rd, rd.cursor(), fault);
    rd.scan(rd.cursor());
    if (tok.is(close))
        return;
    for (;;) {
        if (object) {
            if (tok.type != token::t_string)
                rd.error(fault);
            rd.scan(rd.cursor());
            if (!tok.is(':'))
                rd.error(fault);
            rd.scan(rd.cursor());
        } else if (tok.is(close)) { // behind a comma
            return;
        }
        skip_value(rd);
        rd.scan(rd.cursor());
        if (tok.is(close))
            return;
        if (!tok.is(','))
            rd.error(fault);
        rd.scan(rd.cursor());
    }
}

} // namespace detail

/// Passes over the current value and leaves the reader on the token behind it.
inline void skip(reader &rd) {
    detail::skip_value(rd);
    rd.next();
}

} // namespace ajson

#endif
