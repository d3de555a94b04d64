/// Ready-made arrangements of layers on a screen.
#ifndef QUORIXBIZMODEL_LAYERLAYOUT_H
#define QUORIXBIZMODEL_LAYERLAYOUT_H

#include <quorix_export.h>

#include <QList>
#include <QMap>
#include <QPixmap>
#include <QString>

#include <cstdint>

namespace Quorix::BizModel {

/// The templates that an application offers for the layers of a screen, each with a picture. The application fills it
/// at start; the library itself doesn't use it.
///
/// Requires a QCoreApplication, since a template holds a QPixmap; without a QGuiApplication all pictures are null. No
/// lock: load() and reads belong to the application's thread. Pictures are let go when the application object ends.
class QUORIX_EXPORT LayerLayout {
    Q_DISABLE_COPY_MOVE(LayerLayout)

public:
    /// Numbers of layers to ask for.
    enum class LayerCount : std::int32_t { layr_0 = 0, layr_1 = 1, layr_2 = 2, layr_3 = 3, layr_4 = 4, all = 5 };

    /// One layer, in cells of its template's grid.
    struct LayerValue {
        int row_ = 0;
        int col_ = 0;
        int rowSpan_ = 0;
        int colSpan_ = 0;
    };

    /// One template. Numbers are as the file says: count_ need not be the size of layers_.
    struct Layout {
        QString layoutName_;
        QPixmap layoutPixmap_; ///< null if the picture couldn't be loaded
        int layoutType_ = 0;
        int count_ = 0; ///< layers
        int row_ = 0;   ///< rows of the grid
        int col_ = 0;   ///< columns of the grid
        int spacingType_ = 0;
        QList<LayerValue> layers_;
    };

    /// The one register, made at the first call; it is never destroyed.
    static LayerLayout *instance();

    /// Reads "layout.xml" of the folder @p path and adds to what is there. A file that isn't there or doesn't parse
    /// leaves a line in the log and changes nothing; a template without name or image is passed over.
    void load(const QString &path);

    /// The template of that name, the last read of several; a default one if there is none.
    Layout findLayout(const QString &name) const;
    /// The picture of that name, or a null one.
    QPixmap findPixmap(const QString &name) const;
    /// The templates of so many layers, in the order of the file. `all` gives those of 4, 3, 2 and 1 layers, in this
    /// order. Templates of other counts are found by name only.
    QList<Layout> getLayout(LayerCount count) const;

private:
    LayerLayout() = default;
    ~LayerLayout() = default;

    void insertLayout(const Layout &layout);
    void dropPixmaps();

    QMap<QString, Layout> m_layouts;
    QMap<QString, QPixmap> m_pixmap;
    QMap<int, QList<Layout>> m_layoutCntMap; ///< by Layout::count_; keeps all of one name
};

} // namespace Quorix::BizModel

#endif
