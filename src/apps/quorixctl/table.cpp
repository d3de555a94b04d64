#include "table.h"

#include <algorithm>

namespace quorixctl {
namespace {

/// Columns that a text takes on a terminal: ideographs take two.
int displayWidth(const QString &text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x2E80; })) +
           text.size();
}

} // namespace

void Table::print(QTextStream &out, int indent) const {
    QVector<int> widths(m_rows.first().size(), 0);
    for (const QStringList &row : m_rows)
        for (int i = 0; i < std::min(row.size(), widths.size()); ++i)
            widths[i] = std::max(widths[i], displayWidth(row[i]));
    const auto printRow = [&](const QStringList &row) {
        QString line(indent, QLatin1Char(' '));
        for (int i = 0; i < std::min(row.size(), widths.size()); ++i)
            line += row[i] + QString(widths[i] - displayWidth(row[i]) + 2, QLatin1Char(' '));
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        out << line << '\n';
    };
    printRow(m_rows.first());
    QStringList rule;
    std::transform(widths.begin(), widths.end(), std::back_inserter(rule),
                   [](int width) { return QString(width, QLatin1Char('-')); });
    printRow(rule);
    std::for_each(m_rows.begin() + 1, m_rows.end(), printRow);
}

} // namespace quorixctl
