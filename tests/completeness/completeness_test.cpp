/// What an application may rely on is all there: operations by their signatures, signals of the hub, and texts. The
/// tables say what; a row that no longer holds doesn't compile, doesn't link or fails here by name.
#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/quorixbizmodel.h>
#include <quorixprotomodel/quorixprotomodel.h>
#include <quorixtiming/quorixtiming.h>
#include <support/builders.h>

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>

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

/// All sources of the libraries, neighbouring literals joined.
QString sources() {
    QString all;
    QDirIterator files(QStringLiteral(QUORIX_TEST_DIR "/../../src/libs"),
                       {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        all += readLines(files.next()).join('\n');
    return all.remove(QRegularExpression(QStringLiteral("\"\\s*\"")));
}

QStringList table(const char *name) { return readLines(QStringLiteral(QUORIX_TEST_DIR "/") + QLatin1String(name)); }

TEST(Completeness, EveryOperationIsExported) {
    for (const auto &[name, address] : kOperations)
        EXPECT_NE(address, Address{}) << name;
}

TEST(Completeness, EverySignalOfTheHubHasItsSource) {
    QSet<QString> emitted;
    auto found = QRegularExpression(QStringLiteral("(?:DeviceList::|instance\\(\\)->|Q_EMIT )(signal\\w+)"))
                     .globalMatch(sources());
    while (found.hasNext())
        emitted.insert(found.next().captured(1));
    // "library": the library emits it. "host": it never does; the application may, on the hub.
    QSet<QString> present;
    const QMetaObject &meta = DeviceList::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        if (const QMetaMethod method = meta.method(i); method.methodType() == QMetaMethod::Signal) {
            const bool isEmitted = emitted.contains(QString::fromLatin1(method.name()));
            present += QString::fromLatin1(method.methodSignature() + (isEmitted ? "\tlibrary" : "\thost"));
        }
    const QStringList rows = table("signals.tsv");
    const QSet<QString> told(rows.begin(), rows.end());
    EXPECT_EQ((present - told).values().join('\n').toStdString(), "");
    EXPECT_EQ((told - present).values().join('\n').toStdString(), "");
}

TEST(Completeness, SignalsCanBeQueued) {
    DeviceList::instance(); // registers the types
    for (const QMetaObject *meta : {&DeviceList::staticMetaObject, &Device::staticMetaObject})
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
            for (int k = 0; k < meta->method(i).parameterCount(); ++k)
                EXPECT_NE(meta->method(i).parameterType(k), QMetaType::UnknownType)
                    << meta->method(i).methodSignature().constData();
}

TEST(Completeness, EveryTextOccurs) {
    const QString all = sources();
    for (const QString &text : table("texts.txt"))
        EXPECT_TRUE(all.contains('"' + text + '"')) << qPrintable(text);
}

} // namespace
