/// Ready-made divisions of a multiviewer screen.
#ifndef QUORIXBIZMODEL_MVRLAYOUT_H
#define QUORIXBIZMODEL_MVRLAYOUT_H

#include <quorix_export.h>

#include <QList>
#include <QMap>
#include <QPixmap>
#include <QString>

#include <cstdint>

namespace Quorix::BizModel {

/// The templates that an application offers for a multiviewer: which cell shows an input, the preview or the programme.
/// The application fills it at start; the library itself doesn't use it. Threads, pictures and life time are those of
/// LayerLayout.
class QUORIX_EXPORT MvrLayout {
    Q_DISABLE_COPY_MOVE(MvrLayout)

public:
    /// What a cell shows.
    enum class MvrType : std::int32_t { Input_ = 0, PVW_ = 1, PGM_ = 2, Unknown_ = 3 };

    /// One cell of a template's grid.
    struct MvrValue {
        int mvrType_ = 0;  ///< the number of an MvrType
        int mvrIndex_ = 0; ///< among the cells of its type
        int row_ = 0;
        int col_ = 0;
        int rowSpan_ = 0;
        int colSpan_ = 0;
        int leftMargin = 0;
        int rightMargin = 0;
        int topMargin = 0;
        int bottomMargin = 0;
    };

    /// One template. Numbers are as the file says: count_ need not be the size of mvrs_.
    struct Layout {
        QString layoutName_;
        QPixmap layoutPixmap_; ///< null if the picture couldn't be loaded
        int layoutType_ = 0;
        int count_ = 0; ///< cells
        int row_ = 0;   ///< rows of the grid
        int col_ = 0;   ///< columns of the grid
        int spacingType_ = 0;
        QList<MvrValue> mvrs_;
    };

    /// The one register, made at the first call; it is never destroyed.
    static MvrLayout *instance();

    /// Reads "layout.xml" of the folder @p path and adds to what is there. A file that isn't there or doesn't parse
    /// leaves a line in the log and changes nothing; a template without name or image is passed over.
    void load(const QString &path);

    /// The template of that name, the last read of several; a default one if there is none.
    Layout findLayout(const QString &name) const;
    QMap<QString, Layout> getLayoutsMap() const { return m_layouts; }
    /// All templates in the order of the file, those of one name too.
    QList<Layout> getLayoutsList() const { return m_layoutList; }

private:
    MvrLayout() = default;
    ~MvrLayout() = default;

    void dropPixmaps();

    QMap<QString, Layout> m_layouts;
    QList<Layout> m_layoutList;
};

} // namespace Quorix::BizModel

#endif
