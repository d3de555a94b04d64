/// An interface that sends a picture.
#ifndef QUORIXBIZMODEL_OUTPUT_H
#define QUORIXBIZMODEL_OUTPUT_H

#include <quorixbizmodel/topology/interface.h>
#include <quorixprotomodel/screen.h>

#include <QList>

namespace Quorix::BizModel {

/// What is stored of an output, under the keys of the document.
struct OutputState : InterfaceState {
    std::int32_t m_outputZorder = 0;
};

/// The signal path out of a card. Its device owns it. A new output is set to Rec. 709 and SDR, where a plain record has
/// no preset.
class QUORIX_EXPORT Output : public Interface {
    Q_OBJECT

public:
    Output();
    /// The output that the capability files imply on a connector.
    Output(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId);
    /// A copy has the saved parameters and the proposed timing, too.
    Output(const Output &other);
    Output &operator=(const Output &other);
    ~Output() override;

    /// Stacking position.
    [[nodiscard]] int zOrder() const;
    void setZorder(int zOrder);

    // Membership of a screen: saved on joining, reset on leaving, put back when the application wants it. The last two
    // act on the copy partner, too, if the device has one.

    void backupParaBeforeAdd2Screen();
    /// Before any backup this sets the zero timing.
    void reloadParaBeforeAdd2Screen();
    void resetParamAfterRemovedByScreen();
    void resetHDRParam();

    // Bandwidth (bandwidth.cpp)

    /// By the fixed limits of the connector's capacity; none without an owner or a record of the connector.
    bool isBandwidthExceeded(int hTotal, int vTotal, float refreshRate, ColorSpace colorSpace, ColorDepth bitDepth,
                             QString &error) override;
    /// The rates of @p refreshList, in hertz, that pass for a frame of @p frameRate pixels, in the list's order. Judged
    /// with the preset colour space and depth; @p colorSpace and @p bitDepth play no part.
    QList<float> getValidRefreshList(QSize frameRate, ColorSpace colorSpace, ColorDepth bitDepth,
                                     const QList<float> &refreshList);
    /// Works out a timing and keeps it as the proposed one; true if it is within the limits. Judged as above.
    bool calTotalTime(QSize frameRate, float refreshRate, ColorSpace colorSpace, ColorDepth bitDepth, int interlaced);

    /// A copy of what is stored.
    [[nodiscard]] OutputState state() const;

Q_SIGNALS:
    void outputZorderChanged();

private:
    friend class ModelArchive;
    void initHDRDefaultValue();
    /// The port that mirrors this one, null if there is none.
    [[nodiscard]] std::shared_ptr<Interface> copyPartner() const;

    std::int32_t m_outputZorder = 0;                                   ///< m_detailRWLock
    Timing m_currentTiming;                                            ///< m_detailRWLock
    ProtoModel::Screen::s_ScreenRefOutputPara m_paraBeforeAddToScreen; ///< m_detailRWLock
};

} // namespace Quorix::BizModel

#endif
