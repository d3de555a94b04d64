#include "sample.h"

#include <cmath>
#include <gtest/gtest.h>
#include <new>

namespace {

std::size_t heapBlocks = 0;

struct Shape {
    std::uint8_t address[6] = {0, 16, 255, 1, 2, 3};
    std::vector<std::shared_ptr<sample::Pair>> points{nullptr, std::make_shared<sample::Pair>()};
    std::int64_t low = std::numeric_limits<std::int64_t>::min();
};
QUORIX_AJSON(Shape, address, points, low);

class Guarded {
public:
    [[nodiscard]] int level() const { return m_level; }

private:
    int m_level = 3;
    QUORIX_AJSON_FRIEND(Guarded, m_level)
};

struct Many {
    int a = 1, b = 2, c = 3, d = 4, e = 5, f = 6, g = 7, h = 8, i = 9, j = 10, k = 11, l = 12, m = 13;
    int n = 14, o = 15, p = 16, q = 17, r = 18, s = 19, t = 20, u = 21, v = 22, w = 23, x = 24, y = 25, z = 26;
    bool operator==(const Many &) const = default;
};
QUORIX_AJSON(Many, a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t, u, v, w, x, y, z)

TEST(Writer, Values) {
    const std::pair<std::string, std::string> rows[] = {
        {ajson::encode(0.5), "0.5"},
        {ajson::encode(3.0), "3"},
        {ajson::encode(0.1F), "0.10000000149011612"},
        {ajson::encode(1e17), "1e+17"},
        {ajson::encode(12345678901234567.0), "12345678901234568"},
        {ajson::encode(-0.0), "-0"},
        {ajson::encode(std::nan("")), "0"},
        {ajson::encode(-HUGE_VAL), "0"},
        {ajson::encode(true), "1"},
        {ajson::encode(sample::Mode::Far), "70000"},
        {ajson::encode(std::uint8_t{255}), "255"},
        {ajson::encode(std::vector<int>{}), "[]"},
        {ajson::encode(std::string("a\"/\\\b\t\n\f\r\x01\x7F")), R"("a\"/\\\b\t\n\f\r\u0001\u007F")"},
        {ajson::encode(std::string("\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80\xF0\x90\x80\x80")),
         R"("\u00E9\u4E2D\u0001\uF600\u0001\u0000")"},
        {ajson::encode(std::string("a\0b", 3)), "\"a\""},
        {ajson::encode(std::string("\xC3(\xFF\xED\xA0\x80")), R"("\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD")"},
        {ajson::encode(Shape{}),
         R"({"address":[0,16,255,1,2,3],"points":[0,{"x":0,"y":-1}],"low":-9223372036854775808})"},
        {ajson::encode(Guarded{}), R"({"m_level":3})"},
    };
    for (const auto &[got, wanted] : rows)
        EXPECT_EQ(got, wanted);
}

TEST(Writer, NamesOfMembers) {
    std::string names;
    for (const auto &name : ajson::json_impl<sample::Sample>::this_field_list())
        names += std::string(name.str, name.len) + ' ';
    EXPECT_EQ(names, "flag count byte large huge ratio rate name mode numbers names pairs bytes link parts x count ");
    EXPECT_EQ(ajson::detail::split_fields(" ,a,,b\t\n c,d ").size(), 4U);
}

TEST(Writer, AllMembersComeBack) {
    Many other;
    std::string text = ajson::encode(Many{});
    other.z = other.a = 0;
    ajson::reader rd(text.data(), text.size());
    rd.next();
    ajson::json_impl<Many>::read(rd, other);
    EXPECT_TRUE(other == Many{} && rd.peek().type == ajson::token::t_end);
}

/// Counts what a stream takes at once.
struct CountedBlocks : ajson::block_allocator {
    static inline std::size_t largest = 0;
    static inline bool wholeUnits = true;
    static char *grow(char *block, std::size_t size) {
        largest = size;
        wholeUnits = wholeUnits && size % 1024 == 0;
        return block_allocator::grow(block, size);
    }
};

TEST(Writer, BlockGrowsInUnitsAndByHalf) {
    ajson::ajson_string_stream<CountedBlocks> stream;
    ajson::lite_write<ajson::ajson_string_stream<CountedBlocks>> writer(stream);
    std::string wanted;
    for (int i = 0; i < 200000; ++i) {
        writer.put('x');
        writer.write_liter("yz", 2);
        wanted += "xyz";
        ASSERT_LE(CountedBlocks::largest, wanted.size() + wanted.size() / 2 + 1024);
    }
    EXPECT_EQ(std::string(stream.data(), stream.write_length()), wanted);
    EXPECT_TRUE(CountedBlocks::wholeUnits);
    const std::string big(5000, '\x01');
    writer.write_str(big.data(), big.size());
    EXPECT_EQ(stream.write_length(), wanted.size() + 30002);
}

TEST(Reader, TakesNoMemoryButTheValues) {
    std::string text = ajson::encode(sample::Sample{});
    text.insert(1, R"("numbers":[],"unknown":{"key":["value",1.5e3]},"name":"\u0041 short",)");
    sample::Sample sample;
    const std::size_t before = heapBlocks;
    ajson::reader rd(text.data(), text.size());
    rd.next();
    ajson::json_impl<sample::Sample>::read(rd, sample);
    EXPECT_EQ(heapBlocks - before, 0U);
}

} // namespace

// Out of line, so that the compiler doesn't pair them with the library's own. Sanitizers bring theirs and count
// nothing.
#ifndef QUORIX_SANITIZED
[[gnu::noinline]] void *operator new(std::size_t size) {
    ++heapBlocks;
    if (void *block = std::malloc(size))
        return block;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void *block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void *block, std::size_t) noexcept { std::free(block); }
#endif
