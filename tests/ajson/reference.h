/// A slow reader that follows the grammar step by step, byte by byte, with one token of look-ahead and counters that
/// move with every byte. The codec has to give the same values, texts and places for every input.
#ifndef TESTS_AJSON_REFERENCE_H
#define TESTS_AJSON_REFERENCE_H

#include <ajson/ajson.h>

#include <cstdlib>
#include <string_view>

namespace reference {

enum class Mode : std::int32_t { Off = 0, On = 1, Far = 70000 };

struct Pair {
    std::int32_t x = 0;
    std::int32_t y = -1;
};
QUORIX_AJSON(Pair, x, y)

/// Every kind of value; "count" stands twice and "x" is inherited.
struct Sample : Pair {
    bool flag = false;
    std::int32_t count = 0;
    std::uint8_t byte = 0;
    std::int64_t large = 0;
    std::uint64_t huge = 0;
    double ratio = 0;
    float rate = 0;
    std::string name = "N/A";
    Mode mode = Mode::Off;
    std::vector<std::int32_t> numbers;
    std::list<std::string> names;
    std::vector<Pair> pairs;
    std::uint8_t bytes[3] = {};
    std::shared_ptr<Pair> link = std::make_shared<Pair>();
    std::vector<std::shared_ptr<Sample>> parts;
};
QUORIX_AJSON(Sample, flag, count, byte, large, huge, ratio, rate, name, mode, numbers, names, pairs, bytes, link, parts,
             x, count)

class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text.substr(0, text.find('\0'))) {}

    std::size_t line = 0, col = 0, offset = 0;

    void next() {
        while (look() == '/' || oneOf(" \t\r\n"))
            look() == '/' ? comment() : take();
        m_token = {{m_text.data() + offset, 1}, ajson::token::t_end, {}, false};
        const std::size_t begin = offset;
        if (look() < 0)
            return;
        m_token.type = ajson::token::t_string;
        if (look() == '"') {
            take();
            while (look() != '"') {
                if (look() == '\\') // protects what stands behind it, be it a line feed
                    take();
                else if (look() == '\n')
                    error("not a valid quote string!");
                if (look() < 0)
                    error("not a valid quote string!");
                take();
            }
            take();
            m_token.str = {m_text.data() + begin + 1, offset - begin - 2};
            return;
        }
        if (oneOf("{}[]:,")) {
            m_token.type = ajson::token::t_ctrl;
            take();
        } else if (oneOf("-0123456789")) {
            number();
        } else {
            while (!oneOf(" \t\n\r,:[]{}")) {
                take();
                if (look() < 0)
                    error("not a valid string!");
            }
        }
        m_token.str.len = offset - begin;
    }

    template <class T>
    void read(T &value) {
        using namespace ajson::detail;
        if constexpr (opening<T>() == '\0') { // what a single token means has its own tables of cases
            ajson::reader rd(m_text.data(), m_text.size());
            rd.cur_tok_ = m_token;
            rd.seek(m_text.data() + offset);
            read_scanned(rd, value);
            next();
        } else if constexpr (is_shared<T>) {
            const bool there = m_token.type == ajson::token::t_ctrl;
            if (!there || value == nullptr)
                value = there ? std::make_shared<typename T::element_type>() : nullptr;
            there ? read(*value) : skip();
        } else if constexpr (std::is_array_v<T>) {
            std::size_t index = 0;
            elements([&] { index < std::extent_v<T> ? read(value[index++]) : error("array overflow."); });
        } else if constexpr (is_sequence<T>) {
            elements([&] { read(value.emplace_back()); });
        } else {
            object("read object must start with {!", "object key must be string", [&](std::string_view key) {
                const auto &keys = members_of<T>::keys;
                const bool unknown = members_of<T>::while_each([&]<std::size_t I, auto Member>() {
                    const bool found = key == std::string_view(keys.name(I), keys.name_size(I));
                    if (found)
                        read(value.*Member);
                    return !found;
                });
                if (unknown)
                    skip();
            });
        }
    }

private:
    void skip() {
        constexpr const char *fault = "invalid json document!";
        if (is('{'))
            object(fault, fault, [this](std::string_view) { skip(); });
        else if (is('['))
            elements([this] { skip(); }, fault, fault);
        else
            m_token.type == ajson::token::t_ctrl ? error(fault) : next();
    }

    void comment() {
        take();
        if (look() == '/') {
            while (look() >= 0 && look() != '\n')
                take();
        } else if (look() == '*') {
            take();
            for (bool star = false; !star || look() != '/'; take()) {
                if (look() < 0)
                    error("not a comment!");
                star = look() == '*';
            }
            take();
        } else {
            error("not a comment!");
        }
    }

    void number() {
        m_token.neg = look() == '-';
        m_token.type = m_token.neg ? ajson::token::t_int : ajson::token::t_uint;
        if (m_token.neg)
            take();
        const std::size_t begin = offset;
        const auto digits = [this] {
            std::uint64_t value = 0;
            for (; oneOf("0123456789"); take())
                value = value * 10 + static_cast<std::uint64_t>(look() - '0');
            return value;
        };
        m_token.value.u64 = digits();
        const bool point = look() == '.';
        if (point) {
            take();
            digits();
            if (look() == '.')
                error("not a valid number!");
        }
        const bool exponent = oneOf("eE");
        if (exponent) {
            take();
            if (look() == '-')
                take();
            digits();
        }
        if (point || exponent) {
            m_token.type = ajson::token::t_number;
            m_token.value.d64 = std::strtod(std::string(m_text.substr(begin, offset - begin)).c_str(), nullptr);
        }
    }

    template <class Read>
    void elements(Read element, const char *start = "array must start with [.", const char *fault = "no valid array!") {
        enter('[', start);
        while (!is(']')) {
            element();
            if (!is(',') && !is(']'))
                error(fault);
            if (is(','))
                next();
        }
        leave();
    }
    template <class Read>
    void object(const char *start, const char *noKey, Read member) {
        enter('{', start);
        for (bool more = !is('}'); more;) {
            if (m_token.type != ajson::token::t_string)
                error(noKey);
            const std::string_view key(m_token.str.str, m_token.str.len);
            next();
            if (!is(':'))
                error("invalid json document!");
            next();
            member(key);
            more = is(',');
            if (!more && !is('}'))
                error("invalid json document!");
            if (more)
                next();
        }
        leave();
    }
    void enter(char bracket, const char *fault) {
        if (!is(bracket) || m_depth++ == 512)
            error(fault);
        next();
    }
    void leave() {
        --m_depth;
        next();
    }

    [[nodiscard]] int look() const { return offset < m_text.size() ? static_cast<unsigned char>(m_text[offset]) : -1; }
    [[nodiscard]] bool oneOf(std::string_view set) const {
        return look() >= 0 && set.find(m_text[offset]) != std::string_view::npos;
    }
    [[nodiscard]] bool is(char c) const { return m_token.type == ajson::token::t_ctrl && *m_token.str.str == c; }
    void take() {
        const char c = m_text[offset++];
        line += c == '\n' ? 1 : 0;
        col = c == '\n' ? 0 : col + (c == '\r' ? 0 : 1);
    }
    [[noreturn]] void error(const std::string &text) const {
        throw ajson::exception("error at line :" + std::to_string(line) + " col :" + std::to_string(col) +
                               " msg:" + text);
    }

    std::string_view m_text;
    ajson::token m_token;
    unsigned m_depth = 0;
};

/// What a reader makes of a text: the values read, and the fault or the place where it came to stand.
struct Outcome {
    std::string values, fault;
    std::size_t offset = 0, line = 0, col = 0;
    bool operator==(const Outcome &) const = default;
};

template <class Read>
Outcome outcomeOf(Read read) {
    Sample sample;
    Outcome outcome;
    try {
        outcome = read(sample);
    } catch (const ajson::exception &fault) {
        outcome.fault = fault.what();
    }
    outcome.values = ajson::encode(sample);
    return outcome;
}

inline Outcome byCodec(std::string_view text) {
    return outcomeOf([text](Sample &sample) {
        // A copy without anything behind it, so that a look too far is found.
        const std::vector<char> exact(text.begin(), text.end());
        ajson::reader rd(exact.data(), exact.size());
        rd.next();
        ajson::json_impl<Sample>::read(rd, sample);
        return Outcome{"", "", rd.cur_offset_, rd.cur_line_, rd.cur_col_};
    });
}

inline Outcome bySteps(std::string_view text) {
    return outcomeOf([text](Sample &sample) {
        Reader rd(text);
        rd.next();
        rd.read(sample);
        return Outcome{"", "", rd.offset, rd.line, rd.col};
    });
}

} // namespace reference

#endif
