/// What both readers of capability files share: a guarded parser, numbers, and tables of attributes and children.
/// Private to the room.
#ifndef QUORIXBIZMODEL_CONFIGXML_P_H
#define QUORIXBIZMODEL_CONFIGXML_P_H

#include <QDomElement>
#include <QMap>
#include <QString>

#include <span>
#include <type_traits>

class QByteArray;
class QDomDocument;

namespace Quorix::BizModel::ConfigXml {

/// Elements may be nested so deep and carry so many attributes. The files need 7 and 15; QDomDocument recurses and
/// compares each attribute with each, so that a hostile file would overflow the stack or hang.
inline constexpr int kMaxDepth = 64;
inline constexpr int kMaxAttributes = 256;

/// Where and why a text was refused; line and column count from 1.
struct ParseError {
    QString text;
    int line = 0;
    int column = 0;
};

/// Parses @p xml with namespace processing, after a look at its limits. Internal document type definitions are refused.
/// @return false with the reason in @p error
bool parse(const QByteArray &xml, QDomDocument &document, ParseError &error);

/// True when the root's attribute "version" is absent or exactly "1.0".
bool isVersion1(const QDomElement &root);

/// Reads a decimal integer with blanks round it; one beyond 64 bits doesn't parse.
bool parseInteger(const QString &text, qint64 &value);
/// Reads a finite decimal number with blanks round it; the station's locale has no say.
bool parseReal(const QString &text, float &value);

/// The value that a text stands for: a number that doesn't parse is 0, one too large for @p T keeps its low bits, and a
/// bool is true for every number but 0.
template <class T>
T fromText(const QString &text) {
    if constexpr (std::is_same_v<T, QString>) {
        return text;
    } else if constexpr (std::is_floating_point_v<T>) {
        float value = 0.0F;
        return parseReal(text, value) ? value : T{};
    } else {
        qint64 value = 0;
        if (!parseInteger(text, value))
            value = 0;
        if constexpr (std::is_same_v<T, bool>)
            return value != 0;
        else if constexpr (std::is_enum_v<T>)
            return static_cast<T>(static_cast<std::underlying_type_t<T>>(value));
        else
            return static_cast<T>(value);
    }
}

/// The value of an attribute; @p absent is the text of one that isn't there.
template <class T>
T attribute(const QDomElement &element, const char *name, const char *absent = "0") {
    return fromText<T>(element.attribute(QLatin1String(name), QLatin1String(absent)));
}

template <class T>
struct MemberTraits;
template <class R, class V>
struct MemberTraits<V R::*> {
    using Record = R;
    using Value = V;
};
template <auto Member>
using RecordOf = typename MemberTraits<decltype(Member)>::Record;
template <auto Member>
using ValueOf = typename MemberTraits<decltype(Member)>::Value;

/// Stores a text's value in a member: the third column of an attribute table.
template <auto Member>
void put(RecordOf<Member> &record, const QString &text) {
    record.*Member = fromText<ValueOf<Member>>(text);
}

/// One row: attribute, text of an absent one, where its value goes.
template <class Record>
struct AttributeRow {
    const char *name;
    const char *absent;
    void (*store)(Record &, const QString &);
};

template <class Record, std::size_t N>
void readAttributes(Record &record, const QDomElement &element, const AttributeRow<Record> (&rows)[N]) {
    for (const AttributeRow<Record> &row : rows)
        row.store(record, element.attribute(QLatin1String(row.name), QLatin1String(row.absent)));
}

/// Calls @p visit with each child element in document order until it returns false. Comments and texts are passed over.
/// @return false if a call did
template <class Visit>
bool forEachChild(const QDomElement &parent, Visit visit) {
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        if (!visit(child))
            return false;
    return true;
}

enum class Presence { Required, Optional };

/// One row: child element, whether it has to be there, how it is read.
template <class Record, class Context>
struct ChildRow {
    const char *tag;
    Presence presence;
    bool (*read)(Record &, const QDomElement &, Context &);
};

/// Stores a child's text in a member: the third column of a table of children.
template <auto Member, class Context>
bool text(RecordOf<Member> &record, const QDomElement &element, Context &) {
    put<Member>(record, element.text());
    return true;
}

/// Reads the children of @p parent in the order of @p rows, up to the first that fails or is missing; `context.missing`
/// is told the latter's tag.
template <class Record, class Context, std::size_t N>
bool readChildren(Record &record, const QDomElement &parent, Context &context,
                  const ChildRow<Record, Context> (&rows)[N]) {
    for (const ChildRow<Record, Context> &row : rows) {
        const QDomElement child = parent.firstChildElement(QLatin1String(row.tag));
        if (child.isNull()) {
            if (row.presence == Presence::Optional)
                continue;
            context.missing(row.tag);
            return false;
        }
        if (!row.read(record, child, context))
            return false;
    }
    return true;
}

/// The texts of the children "en" and "zh_CN" by language key; that of an absent child is empty.
QMap<QString, QString> readNames(const QDomElement &name);

/// The text of @p language, else that of "en", else empty. A key that holds an empty text gives the empty text.
/// An empty @p language means the application's property "quorix_locale".
QString nameIn(const QMap<QString, QString> &names, const QString &language);

} // namespace Quorix::BizModel::ConfigXml

#endif
