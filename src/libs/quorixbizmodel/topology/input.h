/// An interface that receives a picture.
#ifndef QUORIXBIZMODEL_INPUT_H
#define QUORIXBIZMODEL_INPUT_H

#include <quorixbizmodel/topology/interface.h>

#include <QPoint>

namespace Quorix::BizModel {

/// What is stored of an input, under the keys of the document.
struct InputState : InterfaceState {
    ProtoModel::s_Pos m_pickUpPoint;
};

/// The signal path into a card. Its device owns it.
class QUORIX_EXPORT Input : public Interface {
    Q_OBJECT

public:
    Input();
    /// The input that the capability files imply on a connector.
    Input(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId);
    Input(const Input &other);
    Input &operator=(const Input &other);
    ~Input() override;

    /// Whether the source may be offered an EDID: not on SDI, USB and analogue ports.
    [[nodiscard]] bool isAllowSetEDID() const;
    /// The pixel at which the cutout colour is picked.
    void setPickPoint(QPoint point);
    [[nodiscard]] QPoint getPickPoint() const;

    // Bandwidth (bandwidth.cpp)

    /// True if the pixel clock is within the limits, the reverse sense of isBandwidthExceeded(). Arguments as there.
    bool checkMinBandWidthResult(int hTotal, int vTotal, float refreshRate, QString &error);
    /// By the fixed limits of some card models, else by the pixel clock; a depth of 0 counts as 8, no colour space as
    /// RGB.
    bool isBandwidthExceeded(int hTotal, int vTotal, float refreshRate, ColorSpace colorSpace, ColorDepth bitDepth,
                             QString &error) override;

    /// A copy of what is stored.
    [[nodiscard]] InputState state() const;

private:
    friend class ModelArchive;
    ProtoModel::s_Pos m_pickUpPoint; ///< m_detailRWLock
};

} // namespace Quorix::BizModel

#endif
