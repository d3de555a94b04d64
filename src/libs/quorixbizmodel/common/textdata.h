/// What the elided-text helpers keep on a widget.
#ifndef QUORIXBIZMODEL_TEXTDATA_H
#define QUORIXBIZMODEL_TEXTDATA_H

#include <quorix_export.h>

#include <QObject>
#include <QString>

#include <utility>

namespace Quorix::BizModel {

/// The full text of a widget whose visible text is elided; stands in the widget's user-data slot 0, owned by it.
struct QUORIX_EXPORT ST_TextData : public QObjectUserData {
    explicit ST_TextData(QString text = {}) : m_text(std::move(text)) {}
    ~ST_TextData() override;

    QString m_text;
};

} // namespace Quorix::BizModel

#endif
