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

struct Row {
    std::string got;
    const char *wanted;
};

TEST(Reader, Scalars) {
    using Bool = bool;
    const Row rows[] = {
        {readAs<Bool>("TrUe "), "1"},
        {readAs<Bool>("\"true\""), "1"},
        {readAs<Bool>("yes "), "0"},
        {readAs<Bool>("-7"), "1"},
        {readAs<Bool>("0.0"), "0"},
        {readAs<Bool>("["), "error at line :0 col :1 msg:not a valid bool."},
        {readAs<std::int32_t>("true "), "1"},
        {readAs<std::int32_t>("true"), "error at line :0 col :4 msg:not a valid string!"},
        {readAs<std::int32_t>("false "), "0"},
        {readAs<std::int32_t>("1.9"), "1"},
        {readAs<std::int32_t>("-1.9"), "-1"},
        {readAs<std::int32_t>("-"), "0"},
        {readAs<std::int32_t>("\" -42x\""), "-42"},
        {readAs<std::int32_t>("4294967297"), "1"},
        {readAs<std::int32_t>("1e5"), "100000"},
        {readAs<std::int32_t>("1e"), "1"},
        {readAs<std::int32_t>("1e-"), "1"},
        {readAs<std::int64_t>("1e30"), "9223372036854775807"},
        {readAs<std::int64_t>("-1e30"), "-9223372036854775808"},
        {readAs<std::int64_t>("\"99999999999999999999\""), "9223372036854775807"},
        {readAs<std::int32_t>("}"), "error at line :0 col :1 msg:not a valid signed integral like number."},
        {readAs<std::uint64_t>("18446744073709551617"), "1"}, // wraps at 64 bits
        {readAs<std::uint8_t>("300"), "44"},
        {readAs<std::uint32_t>("\"-1\""), "4294967295"},
        {readAs<std::uint32_t>("-0"),
         "error at line :0 col :2 msg:assign a negative signed integral to unsigned integral number."},
        {readAs<std::uint32_t>("-"),
         "error at line :0 col :1 msg:assign a negative signed integral to unsigned integral number."},
        {readAs<std::uint32_t>("-0.5"),
         "error at line :0 col :4 msg:assign a negative float point to unsigned integral number."},
        {readAs<std::uint32_t>(""), "error at line :0 col :0 msg:not a valid unsigned integral like number."},
        {readAs<double>("1.7777777777777777"), "1.7777777777777777"},
        {readAs<double>("-.5e-1"), "-0.050000000000000003"},
        {readAs<double>("-12"), "-12"},
        {readAs<double>("0e99999999999"), "0"},
        {readAs<double>("1e-99999999999"), "0"},
        {readAs<double>("0.00001e305"), "1.0000000000000001e+300"},
        {readAs<double>("1e999"), "0"}, // infinity, which is written as 0
        {readAs<double>("\" 0x1p3\""), "8"},
        {readAs<double>("\"-2.5e1x\""), "-25"},
        {readAs<double>("\"0x-1\""), "0"}, // the 0 in front of the x
        {readAs<double>("\"-\""), "0"},
        {readAs<double>("1.2.3"), "error at line :0 col :3 msg:not a valid number!"},
        {readAs<double>("1e2.5 "), "100"},
        {readAs<float>("{"), "error at line :0 col :1 msg:not a valid float point number."},
        {readAs<std::string>("bare "), "\"bare\""},
        {readAs<std::string>("12"), "error at line :0 col :2 msg:not a valid string."},
        {readAs<sample::Mode>("70000"), "70000"},
        {readAs<sample::Mode>("-1"),
         "error at line :0 col :2 msg:assign a negative signed integral to unsigned integral number."},
    };
    for (const Row &row : rows)
        EXPECT_EQ(row.got, row.wanted) << &row - rows;
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
    for (const Row &row : rows)
        EXPECT_EQ(row.got, row.wanted) << &row - rows;
}

TEST(Reader, Strings) {
    const struct {
        const char *text;
        std::string wanted;
    } rows[] = {
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
    for (const auto &row : rows) {
        std::string value = "old";
        std::string error;
        EXPECT_EQ(Quorix::ProtoModel::decode(row.text, value, error) ? value : error, row.wanted) << row.text;
    }
    // Text that is gathered in pieces loses nothing at their seams.
    std::string text = "\"", wanted;
    for (int i = 0; i < 400; ++i) {
        text += i % 3 == 0 ? "\\u4E2D" : "x";
        wanted += i % 3 == 0 ? "\xE4\xB8\xAD" : "x";
    }
    std::string value, error;
    ASSERT_TRUE(Quorix::ProtoModel::decode(text + '"', value, error));
    EXPECT_EQ(value, wanted);
}

TEST(Reader, FaultsLeaveWhatWasRead) {
    const struct {
        const char *text, *wanted;
    } rows[] = {
        {R"({"numbers":[1,]},)", "[1]"},     {R"({"numbers":[1,{}]})", "[1,0]"}, // appended, then refused
        {R"({"numbers":[1,"a)", "[1]"},      {R"({"numbers":[1],"numbers":[2)", "[1,2]"},
        {R"({"numbers":[1,-5}})", "[1,-5]"},
    };
    for (const auto &row : rows) {
        Sample sample;
        std::string error = "untouched";
        const bool done = Quorix::ProtoModel::decode(row.text, sample, error);
        EXPECT_EQ(done, error == "untouched");
        EXPECT_EQ(ajson::encode(sample.numbers), row.wanted) << row.text;
    }
    Sample sample;
    std::string error;
    EXPECT_FALSE(Quorix::ProtoModel::decode(R"({"bytes":[1,2,3,4]})", sample, error));
    EXPECT_EQ(error, "error at line :0 col :17 msg:array overflow.");
    EXPECT_EQ(sample.bytes[2], 3);
    EXPECT_FALSE(Quorix::ProtoModel::decode("{\"bytes\":[1,2,3, \n ", sample, error));
    EXPECT_EQ(error, "error at line :1 col :1 msg:array overflow.");
}

TEST(Reader, Tokens) {
    const char text[] = "{\"a\\n\":-12 1.5]/";
    ajson::reader rd(text, static_cast<std::size_t>(-1));
    EXPECT_EQ(std::tuple(rd.cur_line_, rd.cur_col_, rd.cur_offset_, rd.end_mark_, rd.decimal, rd.exp),
              std::tuple(0U, 0U, 0U, false, 0.1, 0));
    using ajson::token;
    const struct {
        token::type_t type;
        const char *text;
        std::size_t offset;
    } rows[] = {{token::t_ctrl, "{", 1},   {token::t_string, "a\\n", 6}, {token::t_ctrl, ":", 7},
                {token::t_int, "-12", 10}, {token::t_number, "1.5", 14}, {token::t_ctrl, "]", 15}};
    for (const auto &row : rows) {
        rd.next();
        EXPECT_EQ(rd.peek().type, row.type);
        EXPECT_EQ(std::string(rd.peek().str.str, rd.peek().str.len), row.text);
        EXPECT_EQ(std::tuple(rd.cur_offset_, rd.cur_col_), std::tuple(row.offset, row.offset));
        EXPECT_TRUE(rd.expect(row.text[0]));
    }
    EXPECT_THROW(rd.next(), ajson::exception);
    EXPECT_TRUE(ajson::reader(nullptr, 5).end_mark_);
    EXPECT_TRUE(ajson::reader("\0x", 2).end_mark_);
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
