/// Shared by the files whose content is JSON.
#ifndef QUORIXBIZMODEL_CONTENT_P_H
#define QUORIXBIZMODEL_CONTENT_P_H

#include <ajson/decode.h>
#include <quorixbizmodel/common/guarded.h>

#include <string>
#include <utility>

namespace Quorix::BizModel {

/// Reads a text into the content of a file: what it doesn't name stays as it was, lists grow. What a broken text has
/// given until its fault is stored all the same. No lock is held while reading.
/// @return false, with the reason in @p error, for a broken text; @p error stays as it is on success
template <class Content>
bool isDecoded(QReadWriteLock &lock, Content &content, const std::string &text, std::string &error) {
    Content read = copyOf(lock, content);
    const bool isWhole = ProtoModel::decode(text, read, error);
    const WriteGuard guard(lock);
    std::swap(content, read);
    return isWhole;
}

} // namespace Quorix::BizModel

#endif
