/// From the JSON body of a device's file to a record.
#ifndef AJSON_DECODE_H
#define AJSON_DECODE_H

#include <ajson/ajson.h>

namespace Quorix::ProtoModel {

/// Reads a record from a text, which ends at its first NUL; what stands behind the record is of no interest.
/// @return true, with @p error untouched; or false, with the reason in @p error and @p out filled as far as it came.
template <class T>
bool decode(const std::string &text, T &out, std::string &error) {
    try {
        ajson::reader rd(text.c_str(), static_cast<std::size_t>(-1));
        rd.next();
        ajson::json_impl<T>::read(rd, out);
        return true;
    } catch (const std::exception &fault) {
        error = fault.what();
        return false;
    }
}

} // namespace Quorix::ProtoModel

#endif
