/// Plain text tables for a terminal.
#ifndef QUORIXCTL_TABLE_H
#define QUORIXCTL_TABLE_H

#include <QStringList>
#include <QTextStream>
#include <QVector>

namespace quorixctl {

/// Rows of cells under a heading; columns are as wide as their widest cell.
class Table {
public:
    explicit Table(QStringList heading) : m_rows{std::move(heading)} {}
    void addRow(const QStringList &row) { m_rows.append(row); }
    bool isEmpty() const { return m_rows.size() < 2; }
    /// Prints heading, rule and rows, each line behind @p indent blanks.
    void print(QTextStream &out, int indent = 0) const;

private:
    QVector<QStringList> m_rows;
};

} // namespace quorixctl

#endif
