#include "sample.h"

#include <ajson/decode.h>
#include <gtest/gtest.h>
#include <random>

namespace {

using sample::Pair;
using sample::Sample;

/// What becomes of a text: the value as the codec writes it, or the fault.
template <class T>
std::string readAs(const std::string &text, T value = {}) {
    ajson::reader rd(text.data(), text.size());
    try {
        rd.next();
        ajson::json_impl<T>::read(rd, value);
        return ajson::encode(value);
    } catch (const ajson::exception &fault) {
        return fault.what();
    }
}

template <class T>
std::string readAll(std::initializer_list<const char *> texts) {
    std::string all;
    for (const char *text : texts)
        all += (all.empty() ? "" : " ") + readAs<T>(text);
    return all;
}

/// What was read, and what was wanted.
using Row = std::pair<std::string, std::string>;
const std::string kNegative = " msg:assign a negative signed integral to unsigned integral number.";

TEST(Reader, Scalars) {
    const Row rows[] = {
        {readAll<bool>({"TrUe ", "\"true\"", "yes ", "-7", "0.0"}), "1 1 0 1 0"},
        {readAll<bool>({"["}), "error at line :0 col :1 msg:not a valid bool."},
        {readAll<std::int32_t>({"true ", "false ", "1.9", "-1.9", "-", "\" -42x\""}), "1 0 1 -1 0 -42"},
        {readAll<std::int32_t>({"4294967297", "1e5", "1e", "1e-"}), "1 100000 1 1"},
        {readAll<std::int32_t>({"true"}), "error at line :0 col :4 msg:not a valid string!"},
        {readAll<std::int32_t>({"}"}), "error at line :0 col :1 msg:not a valid signed integral like number."},
        {readAll<std::int64_t>({"1e30", "-1e30"}), "9223372036854775807 -9223372036854775808"},
        {readAll<std::int64_t>({"\"99999999999999999999\""}), "9223372036854775807"},
        {readAll<std::uint64_t>({"18446744073709551617"}), "1"}, // wraps at 64 bits
        {readAll<std::uint8_t>({"300"}), "44"},
        {readAll<std::uint32_t>({"\"-1\""}), "4294967295"},
        {readAll<std::uint32_t>({"-0"}), "error at line :0 col :2" + kNegative},
        {readAll<std::uint32_t>({"-"}), "error at line :0 col :1" + kNegative},
        {readAll<sample::Mode>({"-1"}), "error at line :0 col :2" + kNegative},
        {readAll<std::uint32_t>({"-0.5"}),
         "error at line :0 col :4 msg:assign a negative float point to unsigned integral number."},
        {readAll<std::uint32_t>({""}), "error at line :0 col :0 msg:not a valid unsigned integral like number."},
        {readAll<double>({"1.7777777777777777", "-.5e-1", "-12"}), "1.7777777777777777 -0.050000000000000003 -12"},
        {readAll<double>({"0e99999999999", "1e-99999999999", "0.00001e305"}), "0 0 1.0000000000000001e+300"},
        {readAll<double>({"1e999"}), "0"},                                       // infinity, which is written as 0
        {readAll<double>({"\" 0x1p3\"", "\"-2.5e1x\"", "\"0x-1\""}), "8 -25 0"}, // the last one: 0 in front of the x
        {readAll<double>({"\"-\"", "1e2.5 "}), "0 100"},
        {readAll<double>({"1.2.3"}), "error at line :0 col :3 msg:not a valid number!"},
        {readAll<float>({"{"}), "error at line :0 col :1 msg:not a valid float point number."},
        {readAll<std::string>({"bare "}), "\"bare\""},
        {readAll<std::string>({"12"}), "error at line :0 col :2 msg:not a valid string."},
        {readAll<sample::Mode>({"70000"}), "70000"},
    };
    for (const auto &[got, wanted] : rows)
        EXPECT_EQ(got, wanted);
}

TEST(Reader, Structures) {
    const std::string deepArray(600, '[');
    std::string parts;
    for (int i = 0; i < 257; ++i) // an object and an array a step
        parts += "{\"parts\":[";
    const Row rows[] = {
        {readAs<Pair>("{}"), R"({"x":0,"y":-1})"},
        {readAs<Pair>(" { y : 2 , x : 1 } "), R"({"x":1,"y":2})"},
        {readAs<Pair>(R"({"x":1,"z":{"x":[1,{},]},"x":3})"), R"({"x":3,"y":-1})"},
        {readAs<Pair>(R"({"\u0078":5})"), R"({"x":0,"y":-1})"}, // keys are compared with their escapes in place
        {readAs<Pair>("// first\n{/* second */\"x\":1}"), R"({"x":1,"y":-1})"},
        {readAs<Pair>("{\n\n\"a\":1,}"), "error at line :2 col :7 msg:object key must be string"},
        {readAs<Pair>(""), "error at line :0 col :0 msg:read object must start with {!"},
        {readAs<Pair>("\"{\""), "error at line :0 col :3 msg:read object must start with {!"},
        {readAs<Pair>("{\r\n\t\"x\" 1}"), "error at line :1 col :6 msg:invalid json document!"},
        {readAs<Pair>("{\"x\":1 2}"), "error at line :0 col :8 msg:invalid json document!"},
        {readAs<Pair>("{\"x\":1e+5}"), "error at line :0 col :9 msg:invalid json document!"}, // 1, then the word +5
        {readAs<Pair>("{\"z\":}"), "error at line :0 col :6 msg:invalid json document!"},
        {readAs<Pair>("{\"z\":{\"x\":1,}}"), "error at line :0 col :13 msg:invalid json document!"},
        {readAs<Pair>("{\"x\":1}/"), "error at line :0 col :8 msg:not a comment!"},
        {readAs<Pair>("{\"x\":1} x"), "error at line :0 col :9 msg:not a valid string!"},
        {readAs<Pair>("{\"x\":1} 2 \""), R"({"x":1,"y":-1})"}, // one token behind the record is looked at
        {readAs<Pair>("{\"x\n\":1}"), "error at line :0 col :3 msg:not a valid quote string!"},
        {readAs<Pair>("{\"z\":" + deepArray), "error at line :0 col :517 msg:invalid json document!"},
        {readAs<Sample>(parts), "error at line :0 col :2561 msg:read object must start with {!"},
        {readAs<std::vector<int>>("[1,2,]", {7}), "[7,1,2]"},
        {readAs<std::vector<int>>("[1 2]"), "error at line :0 col :4 msg:no valid array!"},
        {readAs<std::list<std::string>>("{}"), "error at line :0 col :1 msg:array must start with [."},
        {readAs<std::vector<Pair>>("[{},{\"y\":3}]"), R"([{"x":0,"y":-1},{"x":0,"y":3}])"},
        {readAs<std::shared_ptr<Pair>>("0", std::make_shared<Pair>()), "0"},
        {readAs<std::shared_ptr<Pair>>("{\"y\":3}", std::make_shared<Pair>(Pair{5, 6})), R"({"x":5,"y":3})"},
    };
    for (const auto &[got, wanted] : rows)
        EXPECT_EQ(got, wanted);
}

TEST(Reader, Strings) {
    const std::pair<std::string, std::string> rows[] = {
        {std::string("\0\"a\"", 4), "error at line :0 col :0 msg:not a valid string."}, // a text ends at its NUL
        {R"("\"\/\\\b\f\n\r\t")", "\"/\\\b\f\n\r\t"},
        {R"("\u0041\u00e9\u4E2D")", "A\xC3\xA9\xE4\xB8\xAD"},
        {R"("\u0001\uF600")", "\xF0\x9F\x98\x80"}, // the writer's form of U+1F600
        {R"("\uD83D\uDE00")", "\xF0\x9F\x98\x80"}, // the surrogate pair of other programs
        {R"("\u0001\u0000")", "\xF0\x90\x80\x80"}, // U+10000
        {R"("\u0009\u0041")", "\tA"},              // the writer has a letter for this one: no half
        {R"("\u0001x")", "\x01x"},
        {R"("\uD83Dx")", "\xED\xA0\xBDx"},
        {"\"\\u0041\\u0000\"", "error at line :0 col :14 msg:not a valid string."},
        {"\"\\u00g0\"", "error at line :0 col :8 msg:not a valid string."},
        {"\"\\u123\"", "error at line :0 col :7 msg:not a valid string."},
        {"\"\\x\"", "error at line :0 col :4 msg:not a valid string."},
        {"\"a\tb\"", "a\tb"},
    };
    for (const auto &[text, wanted] : rows) {
        std::string value = "old", error;
        EXPECT_EQ(Quorix::ProtoModel::decode(text, value, error) ? value : error, wanted) << text;
    }
    // Text that is gathered in pieces loses nothing at their seams.
    std::string text = "\"", wanted, value, error;
    for (int i = 0; i < 400; ++i)
        text += i % 3 == 0 ? "\\u4E2D" : "x", wanted += i % 3 == 0 ? "\xE4\xB8\xAD" : "x";
    EXPECT_TRUE(Quorix::ProtoModel::decode(text + '"', value, error) && value == wanted) << error;
}

TEST(Reader, FaultsLeaveWhatWasRead) {
    const std::pair<const char *, const char *> rows[] = {
        {R"({"numbers":[1,]},)", "[1]"},     {R"({"numbers":[1,{}]})", "[1,0]"}, // appended, then refused
        {R"({"numbers":[1,"a)", "[1]"},      {R"({"numbers":[1],"numbers":[2)", "[1,2]"},
        {R"({"numbers":[1,-5}})", "[1,-5]"},
    };
    for (const auto &[text, wanted] : rows) {
        Sample sample;
        std::string error = "untouched";
        const bool isRead = Quorix::ProtoModel::decode(text, sample, error);
        EXPECT_EQ(isRead, error == "untouched");
        EXPECT_EQ(ajson::encode(sample.numbers), wanted) << text;
    }
    Sample sample;
    std::string error;
    EXPECT_FALSE(Quorix::ProtoModel::decode(R"({"bytes":[1,2,3,4]})", sample, error));
    EXPECT_TRUE(error == "error at line :0 col :17 msg:array overflow." && sample.bytes[2] == 3) << error;
    EXPECT_FALSE(Quorix::ProtoModel::decode("{\"bytes\":[1,2,3, \n ", sample, error));
    EXPECT_EQ(error, "error at line :1 col :1 msg:array overflow.");
}

TEST(Reader, Tokens) {
    const char text[] = "{\"a\\n\":-12 1.5]/";
    ajson::reader rd(text, static_cast<std::size_t>(-1));
    EXPECT_EQ(std::tuple(rd.cur_line_, rd.cur_col_, rd.cur_offset_, rd.end_mark_, rd.decimal, rd.exp),
              std::tuple(0U, 0U, 0U, false, 0.1, 0));
    using ajson::token;
    const std::tuple<token::type_t, std::string, std::size_t> rows[] = {
        {token::t_ctrl, "{", 1},   {token::t_string, "a\\n", 6}, {token::t_ctrl, ":", 7},
        {token::t_int, "-12", 10}, {token::t_number, "1.5", 14}, {token::t_ctrl, "]", 15}};
    for (const auto &[type, word, offset] : rows) {
        rd.next();
        EXPECT_EQ(rd.peek().type, type);
        EXPECT_EQ(std::string(rd.peek().str.str, rd.peek().str.len), word);
        EXPECT_EQ(std::tuple(rd.cur_offset_, rd.cur_col_), std::tuple(offset, offset));
        EXPECT_TRUE(rd.expect(word[0]));
    }
    EXPECT_THROW(rd.next(), ajson::exception);
    EXPECT_TRUE(ajson::reader(nullptr, 5).end_mark_ && ajson::reader("\0x", 2).end_mark_);
}

// The quick ways give what the exact ways give, for whole, cut and damaged texts.
TEST(Reader, QuickAndExactWaysAgree) {
    const std::string whole =
        R"({"flag":1,"count":-5,"byte":255,"large":-9007199254740993,"huge":18446744073709551615,)"
        R"("ratio":1.7777777777777777,"rate":0.5,"name":"a\u0001\uF600\n\uD83D\uDE00z","mode":70000,)"
        R"("numbers":[1,-2,3.5,],"names":["x","yy"],"pairs":[{"x":1,"y":2},{"x":3}],"bytes":[1,2,3],)"
        R"("link":{"x":7,"y":8},"parts":[{"count":4,"parts":[0]},0],"x":11,"count":12} )";
    for (std::size_t length = 0; length <= whole.size(); ++length)
        ASSERT_EQ(sample::outcome(whole.substr(0, length)), sample::outcome(sample::spaced(whole.substr(0, length))));
    const std::string pieces[] = {"{",       "}",      "[",          "]",     ",",           ":",
                                  "\"",      "\\",     "-",          ".",     "e",           "0",
                                  "true",    "\n",     "\r",         "//",    "/*",          "*/",
                                  "\\u0001", "1e5",    "\"x\":",     "inf",   "1.2.",        std::string(1, '\0'),
                                  "\x80",    "\"-7\"", "\"link\":0", "1e400", "\"zz\":[{}]", "\"1e5\""};
    std::mt19937 random(1);
    for (int round = 0; round < 4000; ++round) {
        std::string text = whole;
        for (auto changes = random() % 3 + 1; changes > 0; --changes) {
            const std::size_t at = random() % text.size();
            text.replace(at, random() % 6, pieces[random() % std::size(pieces)]);
        }
        ASSERT_EQ(sample::outcome(text), sample::outcome(sample::spaced(text))) << text;
    }
}

} // namespace
