/// Grey masks in fixed shapes that an application can offer for masking a layer.
#ifndef QUORIXBIZMODEL_ALPHAMAP_H
#define QUORIXBIZMODEL_ALPHAMAP_H

#include <quorix_export.h>

#include <QImage>
#include <QList>
#include <QObject>
#include <QString>

namespace Quorix::BizModel {

/// The table of shapes. Their pictures are resources of the application; the library knows only the paths. All of it
/// may be called from any thread.
class QUORIX_EXPORT Alphamap : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Alphamap)

public:
    static Alphamap *instance();

    /// The numbers of the shapes, from 0 on.
    QList<int> getIds() const;
    /// Name of a shape in the language of the moment; empty for an id outside the table.
    QString getDescription(int id) const;
    /// Resource path of a shape's picture; empty for an id outside the table.
    QString getTemplate(int id) const;
    /// The picture; null for an id outside the table, or if the application has no such picture.
    QImage getAlphamap(int id) const;
    /// Nothing: the table is fixed.
    void init(const QString &strPath);

private:
    Alphamap() = default;
    ~Alphamap() override = default;
};

} // namespace Quorix::BizModel

#endif
