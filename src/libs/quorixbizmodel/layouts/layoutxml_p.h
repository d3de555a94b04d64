/// What the readers of layout files share: a guarded parser, the head of a template, tables of numbers. Private to the
/// room.
#ifndef QUORIXBIZMODEL_LAYOUTXML_P_H
#define QUORIXBIZMODEL_LAYOUTXML_P_H

#include <QList>
#include <QPixmap>
#include <QString>

#include <rapidxml/rapidxml.hpp>

#include <functional>
#include <optional>

namespace Quorix::BizModel::LayoutXml {

using Node = rapidxml::xml_node<char>;

/// Elements may be nested so deep. The files need 5; the parser recurses, and a hostile file would overflow the stack.
inline constexpr int kMaxDepth = 512;

/// Reads "layout.xml" of @p folder and calls @p readLayout with each template in the order of the file. A file that
/// can't be opened, doesn't parse or has another root leaves a debug line, and no call is made.
void load(const QString &folder, const std::function<void(const Node &layout)> &readLayout);

/// Has @p dropPixmaps called when the application object ends: no pixmap may outlive it. Once is enough for all calls
/// with one function.
void atApplicationEnd(void (*dropPixmaps)());

/// What every template begins with.
struct Head {
    QString name;
    QPixmap pixmap; ///< null if the picture couldn't be loaded
};

/// Reads name and picture; nothing, with a debug line, if the template has no name or no image.
std::optional<Head> readHead(const Node &layout, const QString &folder);

/// The number in the child @p tag; 0 if there is none. Leading blanks, a sign and digits count, what follows doesn't;
/// a number beyond an int is held at its ends.
int number(const Node &parent, const char *tag);

/// One row: child element, where its number goes.
template <class Record>
struct NumberRow {
    const char *tag;
    int Record::*field;
};

template <class Record, std::size_t N>
void readNumbers(Record &record, const Node &parent, const NumberRow<Record> (&rows)[N]) {
    for (const NumberRow<Record> &row : rows)
        record.*row.field = number(parent, row.tag);
}

/// Calls @p visit with the first child @p tag and every element behind it, whatever its name, until it returns false.
/// @return false if a call did
template <class Visit>
bool forEachFrom(const Node &parent, const char *tag, Visit visit) {
    for (const Node *node = parent.first_node(tag); node != nullptr; node = node->next_sibling())
        if (node->type() == rapidxml::node_element && !visit(*node))
            return false;
    return true;
}

/// Reads a template that lays its entries out on a grid. @p list names the child that holds the grid, @p entry the
/// first of the entries in it, which go to @p entries by the table @p rows.
template <class Layout, class Value, std::size_t N>
std::optional<Layout> readGridLayout(const Node &node, const QString &folder, const char *list, const char *entry,
                                     QList<Value> Layout::*entries, const NumberRow<Value> (&rows)[N]) {
    static constexpr NumberRow<Layout> kGrid[] = {
        {"count", &Layout::count_},
        {"row", &Layout::row_},
        {"col", &Layout::col_},
        {"spacing", &Layout::spacingType_},
    };
    const auto head = readHead(node, folder);
    if (!head)
        return std::nullopt;
    Layout layout;
    layout.layoutName_ = head->name;
    layout.layoutPixmap_ = head->pixmap;
    layout.layoutType_ = number(node, "layoutType");
    if (const Node *grid = node.first_node(list)) {
        readNumbers(layout, *grid, kGrid);
        forEachFrom(*grid, entry, [&](const Node &item) {
            Value value;
            readNumbers(value, item, rows);
            (layout.*entries).append(value);
            return true;
        });
    }
    return layout;
}

} // namespace Quorix::BizModel::LayoutXml

#endif
