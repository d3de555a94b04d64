/// What an application may rely on is all there: operations by their signatures, and signals of the hub. The tables say
/// what; a row that no longer holds doesn't compile, doesn't link or fails here by name.
#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/quorixbizmodel.h>
#include <quorixprotomodel/quorixprotomodel.h>
#include <quorixtiming/quorixtiming.h>
#include <support/builders.h>

#include <gtest/gtest.h>

#include <QMetaMethod>
#include <QRegExp>

#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace {

using namespace Quorix;
using namespace Quorix::BizModel;
using Quorix::Tests::readLines;

template <class T>
using weak = std::weak_ptr<T>;
template <class T>
using shared = std::shared_ptr<T>;
template <class Class, class Function>
using Member = Function Class::*;

using Address = std::array<std::uintptr_t, 2>;

/// The words of a pointer to a function or to a member: what the linker has to find in the library.
template <class Pointer>
Address addressOf(Pointer pointer) {
    static_assert(sizeof(Pointer) <= sizeof(Address));
    Address words{};
    std::memcpy(words.data(), &pointer, sizeof pointer);
    return words;
}

#define MAKES(...)
#define FREE(name, ...) {#name, addressOf(static_cast<std::add_pointer_t<__VA_ARGS__>>(&name))},
#define STATIC(Class, name, ...) FREE(Class::name, __VA_ARGS__)
#define HAS(Class, name, ...) {#Class "::" #name, addressOf(static_cast<Member<Class, __VA_ARGS__>>(&Class::name))},
const std::pair<const char *, Address> kOperations[] = {
#include "operations.def"
};
#undef MAKES
#undef FREE
#undef STATIC
#undef HAS

#define MAKES(...) static_assert(std::is_constructible_v<__VA_ARGS__>);
#define FREE(...)
#define STATIC(...)
#define HAS(...)
#include "operations.def"

TEST(Completeness, EveryOperationIsExported) {
    for (const auto &[name, address] : kOperations)
        EXPECT_NE(address, Address{}) << name;
}

TEST(Completeness, TheHubHasTheSignalsOfTheTable) {
    QStringList present;
    const QMetaObject &meta = DeviceList::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            present += QString::fromLatin1(meta.method(i).methodSignature());
    QStringList told =
        readLines(QStringLiteral(QUORIX_TEST_DIR "/signals.tsv")).replaceInStrings(QRegExp(QStringLiteral("\t.*")), {});
    present.sort();
    told.sort();
    EXPECT_EQ(present.join('\n').toStdString(), told.join('\n').toStdString());
}

TEST(Completeness, SignalsCanBeQueued) {
    DeviceList::instance(); // registers the types
    for (const QMetaObject *meta : {&DeviceList::staticMetaObject, &Device::staticMetaObject})
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
            for (int k = 0; k < meta->method(i).parameterCount(); ++k)
                EXPECT_NE(meta->method(i).parameterType(k), QMetaType::UnknownType)
                    << meta->method(i).methodSignature().constData();
}

} // namespace
