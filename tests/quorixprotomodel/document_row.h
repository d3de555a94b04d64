/// The stored form of a record, for tables of them. In a header, so that the analyser of `make check` doesn't walk
/// the codec anew for each record of a table.
#ifndef DOCUMENT_ROW_H
#define DOCUMENT_ROW_H

#include <ajson/decode.h>

#include <gtest/gtest.h>

#include <string>

template <class T>
T decoded(const std::string &text) {
    T record;
    std::string error;
    EXPECT_TRUE(Quorix::ProtoModel::decode(text, record, error)) << error;
    return record;
}

struct Row {
    std::string (*encodeNew)();                  ///< writes a new record
    std::string (*rewrite)(const std::string &); ///< reads into a new record and writes that
    bool (*readsAsNew)(const std::string &);     ///< reads into a new record and compares that with another new one
};

template <class T>
Row row() {
    return {[] { return ajson::encode(T{}); }, [](const std::string &text) { return ajson::encode(decoded<T>(text)); },
            [](const std::string &text) { return decoded<T>(text) == T{}; }};
}

#endif
