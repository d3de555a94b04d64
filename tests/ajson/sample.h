/// A record with every kind of value, and a check that the codec's quick ways give what its exact ways give.
#ifndef TESTS_AJSON_SAMPLE_H
#define TESTS_AJSON_SAMPLE_H

#include <ajson/ajson.h>

#include <string_view>

namespace sample {

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

/// The same tokens with blanks between them, which keep the codec off its quick ways. Comments are lost, and what
/// stands behind a faulty token is left as it is.
inline std::string spaced(const std::string &text) {
    std::string result;
    std::size_t done = 0;
    ajson::reader rd(text.data(), text.size());
    try {
        for (rd.next(); rd.peek().type != ajson::token::t_end; rd.next()) {
            const ajson::detail::string_ref token = rd.peek().str;
            const std::string quote(rd.cursor() > token.str + token.len ? 1 : 0, '"');
            result.append(quote).append(token.str, token.len).append(quote).append(" ");
            done = rd.cur_offset_;
        }
    } catch (const ajson::exception &) {
        result += text.substr(done);
    }
    return result;
}

/// What becomes of a text: the values read, and the fault without its place.
inline std::string outcome(const std::string &text) {
    const std::vector<char> exact(text.begin(), text.end()); // so that a look too far is found
    Sample value;
    std::string fault;
    try {
        ajson::reader rd(exact.data(), exact.size());
        rd.next();
        ajson::json_impl<Sample>::read(rd, value);
    } catch (const ajson::exception &thrown) {
        fault = std::string_view(thrown.what()).substr(std::string_view(thrown.what()).find(" msg:"));
    }
    return ajson::encode(value) + fault;
}

} // namespace sample

#endif
