/// Typed values to compact JSON and back, without a tree in between.
///
///     struct s_Pos { std::int32_t x = 0; std::int32_t y = 0; };
///     QUORIX_AJSON(s_Pos, x, y)
///
///     std::string text = ajson::encode(s_Pos{3, 4});        // {"x":3,"y":4}
///     ajson::reader rd(text.data(), text.size());
///     rd.next();
///     ajson::json_impl<s_Pos>::read(rd, pos);               // throws ajson::exception
///
/// Values: bool, integers and enumerations of all widths, float, double, std::string, std::vector, std::list, arrays,
/// std::shared_ptr, and every record that is registered.
#ifndef AJSON_AJSON_H
#define AJSON_AJSON_H

#include <ajson/read_value.h>
#include <ajson/write_value.h>

namespace ajson {

/// The codec of one type.
template <class T>
struct json_impl {
    /// Reads the value whose first token is the current one and leaves the reader on the token behind it. At the first
    /// fault it throws ajson::exception; what was read until then stays in @p value.
    static void read(reader &rd, T &value) {
        rd.seek(detail::read_scanned(rd, value));
        rd.next();
    }

    template <class Stream>
    static void write(lite_write<Stream> &writer, const T &value) {
        writer.write_value(value);
    }

    /// The names of a record's members, in the order in which they are written.
    static const detail::field_list &this_field_list() requires detail::registered<T> {
        static const detail::field_list names = detail::split_fields(detail::members_of<T>::text());
        return names;
    }
};

/// A value as one line of ASCII text. A large document needs less memory when it is written to a stream and taken from
/// there.
template <class T>
std::string encode(const T &value) {
    ajson_string_stream<> stream;
    lite_write<> writer(stream);
    json_impl<T>::write(writer, value);
    return {stream.data(), stream.write_length()};
}

} // namespace ajson

#endif
