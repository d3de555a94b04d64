/// The screen of a multiviewer.
#ifndef QUORIXBIZMODEL_MVRSCREEN_H
#define QUORIXBIZMODEL_MVRSCREEN_H

#include <quorixbizmodel/screens/screen.h>

#include <QRectF>

namespace Quorix::BizModel {

/// A screen on an output card of its own, laid out as a grid of cells in which layers show inputs, or the programme and
/// preview of regular screens. Its scene is always edited directly. Rectangles touch where they share a pixel.
class QUORIX_EXPORT MVRScreen : public Screen {
    Q_OBJECT

public:
    explicit MVRScreen(QObject *parent = nullptr);
    /// Copies no state, as the base.
    MVRScreen(const MVRScreen &other);
    MVRScreen &operator=(const MVRScreen &other);

    [[nodiscard]] bool PGMEdit() const override;
    /// For each layer that has its owner: the cells that it touches, within its largest size; its own window where
    /// other layers are in the way.
    [[nodiscard]] QList<QPair<std::weak_ptr<Layer>, QRect>>
    layerFullScreenRect(QList<std::weak_ptr<Layer>> layers) const override;
    void createConnects(std::weak_ptr<Device> device) override;

    /// Grid: width columns by height rows.
    [[nodiscard]] QSize rowColSpan() const;
    void setRowColSpan(QSize span);
    /// The cells, row by row, counted from 0, 0 wherever the mosaic lies. What is left over of its size belongs to no
    /// cell. Columns and rows count as 1 to 256.
    [[nodiscard]] QList<QRect> gridCellRects() const;
    /// The union of the cells that a rectangle touches.
    [[nodiscard]] QRect gridUnitRect(QRect itemRect) const;

    // Dragging and dropping

    /// The other PGM layers whose window touches a rectangle.
    [[nodiscard]] QList<std::weak_ptr<MVRLayer>> overLappedLayers(const std::weak_ptr<Layer> &pOperatLayer,
                                                                  QRect layerRect) const;
    /// Cuts a dragged rectangle clear of layers, across or down as the pointer came from.
    [[nodiscard]] QRect vaildDragRect(QRect dragScreenRect, const QList<std::weak_ptr<MVRLayer>> &overLappedLayers,
                                      QPoint lastScreenPoint) const;
    /// Moves @p gridUnitRect clear of another rectangle: below or above, to the right or to the left. With equal edges
    /// it goes to the right, and upwards.
    [[nodiscard]] QRect validDropRect(Qt::Orientation ori, QRect gridUnitRect, QRect overLappedItemRect) const;
    /// Cuts @p gridUnitRect clear of another rectangle; with equal edges it stays.
    [[nodiscard]] QRect maxValidRect(Qt::Orientation ori, QRect gridUnitRect, QRect overLappedItemRect) const;
    /// Whether a rectangle lies in the screen and meets no PGM layer but @p pItem. @param moving plays no part
    [[nodiscard]] bool checkItemRect(const QRectF &rect, const std::weak_ptr<MVRLayer> &pItem, bool moving) const;
    /// No effect: layers that lose their source leave by removeLayer().
    void removeLayers(int sourceType, int sourceId);

Q_SIGNALS:
    void signalRowColSpanChanged();

private:
    friend class ModelArchive;
    /// Columns and rows; m_detailRWLock.
    ProtoModel::s_Size m_rowColSpan{Constants::Screen::gridCol, Constants::Screen::gridRow};
};

} // namespace Quorix::BizModel

#endif
