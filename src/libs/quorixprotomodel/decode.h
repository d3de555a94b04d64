/// Takes the JSON content of a preset, a user key or a keypad file into its record.
#ifndef QUORIXPROTOMODEL_DECODE_H
#define QUORIXPROTOMODEL_DECODE_H

#include <ajson/ajson.h>

#include <quorix_export.h>

#include <cstddef>
#include <exception>
#include <string>

namespace Quorix::ProtoModel {

/// Reads @p text into @p out; members without a key keep what they hold. The text ends at its first NUL, and what
/// stands behind the record isn't looked at, except that the token right behind it must be a token.
/// @return true when the text was read; otherwise false, with the reader's message in @p error (which success leaves
/// alone) and what was read before the fault in @p out.
/// Throws nothing that derives from std::exception.
template <class T>
bool decode(const std::string &text, T &out, std::string &error) {
    try {
        ajson::reader reader(text.c_str(), static_cast<std::size_t>(-1));
        reader.next();
        ajson::json_impl<T>::read(reader, out);
        return true;
    } catch (const std::exception &fault) {
        error = fault.what();
        return false;
    }
}

} // namespace Quorix::ProtoModel

#endif
