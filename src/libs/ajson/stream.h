/// Where the text of a value is put together.
#ifndef AJSON_STREAM_H
#define AJSON_STREAM_H

#include <ajson/text.h>
#include <algorithm>
#include <cstdlib>
#include <new>

namespace ajson {

/// The memory of a stream: one block that grows.
struct block_allocator {
    static char *allocate(std::size_t size) { return check(std::malloc(size)); }
    static char *grow(char *block, std::size_t size) { return check(std::realloc(block, size)); }
    static void release(char *block) { std::free(block); }

private:
    static char *check(void *block) {
        if (block == nullptr)
            throw std::bad_alloc();
        return static_cast<char *>(block);
    }
};

/// A growing text in one block, whose length is a multiple of 1024 bytes. A block that is too short grows by half, or
/// to what is needed, so that the text is copied a few times only and the block is never half empty.
template <class Alloc = block_allocator>
class ajson_string_stream {
public:
    static constexpr std::size_t unit = 1024;

    ajson_string_stream()
        : head_(Alloc::allocate(unit)), read_(head_), write_(head_), tail_(head_ + unit), length_(unit) {}
    ~ajson_string_stream() { Alloc::release(head_); }
    ajson_string_stream(const ajson_string_stream &) = delete;
    ajson_string_stream &operator=(const ajson_string_stream &) = delete;

    void put(char c) {
        char *out = prepare(write_, 1);
        *out = c;
        write_ = out + 1;
    }
    void write(const char *text, std::size_t length) {
        char *out = prepare(write_, length);
        if (length != 0)
            std::memcpy(out, text, length);
        write_ = out + length;
    }

    [[nodiscard]] const char *data() const { return read_; }
    [[nodiscard]] std::size_t write_length() const { return static_cast<std::size_t>(write_ - read_); }

    /// The place to write at, for those who keep it themselves: `prepare` makes sure of @p size bytes behind it and
    /// gives it back, moved if the block has moved; `commit` says how far they came.
    [[nodiscard]] char *place() const { return write_; }
    [[nodiscard]] char *prepare(char *out, std::size_t size) {
        if (static_cast<std::size_t>(tail_ - out) >= size) [[likely]]
            return out;
        return grow(out, size);
    }
    void commit(char *out) { write_ = out; }

private:
    [[gnu::noinline]] char *grow(char *out, std::size_t size) {
        const auto used = static_cast<std::size_t>(out - head_);
        const std::size_t needed = (used + size + unit - 1) / unit * unit;
        const std::size_t length = std::max(needed, (length_ + length_ / 2) / unit * unit);
        status_ = -1; // stays when the memory is not to be had
        head_ = Alloc::grow(head_, length);
        status_ = 0;
        read_ = head_;
        write_ = head_ + used;
        tail_ = head_ + length;
        length_ = length;
        return write_;
    }

    char *head_;
    char *read_;
    char *write_;
    char *tail_;
    int status_ = 0; ///< 0, or -1 after a block that could not be had
    std::size_t length_;
};

} // namespace ajson

#endif
