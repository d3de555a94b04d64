/// Ready-made mosaics of outputs.
#ifndef QUORIXBIZMODEL_SCREENLAYOUT_H
#define QUORIXBIZMODEL_SCREENLAYOUT_H

#include <quorix_export.h>

#include <QList>
#include <QMap>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace Quorix::BizModel {

/// The templates that an application offers for the building of a screen, each with a picture. The application fills
/// it at start; the library itself doesn't use it. Threads, pictures and life time are those of LayerLayout.
class QUORIX_EXPORT ScreenLayout {
    Q_DISABLE_COPY_MOVE(ScreenLayout)

public:
    /// One output of a template, in pixels of the screen.
    struct Layout {
        int x_ = 0;
        int y_ = 0;
        int row_ = 0;
        int col_ = 0;
        QSize size_;       ///< of this part of the screen
        QSize outputSize_; ///< of the output behind it
    };

    /// The one register, made at the first call; it is never destroyed.
    static ScreenLayout *instance();

    /// Reads "layout.xml" of the folder @p path and adds to what is there. A file that isn't there or doesn't parse
    /// leaves a line in the log and changes nothing; a template without name or image, or with a screen that has no
    /// output, is passed over.
    void load(const QString &path);

    /// The names of all templates, in their alphabetical order.
    QList<QString> getDescriptions() const;
    /// The outputs of the template of that name, or an empty list.
    QList<Layout> findLayout(const QString &name) const;
    /// The picture of that name, or a null one. A template that was passed over for an output has its picture here.
    QPixmap findPixmap(const QString &name) const;

private:
    ScreenLayout() = default;
    ~ScreenLayout() = default;

    QMap<QString, QList<Layout>> m_layouts;
    QMap<QString, QPixmap> m_pixmap;
};

} // namespace Quorix::BizModel

#endif
