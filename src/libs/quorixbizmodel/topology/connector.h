/// A port position of a card in its present role.
#ifndef QUORIXBIZMODEL_CONNECTOR_H
#define QUORIXBIZMODEL_CONNECTOR_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/hub/relay.h>
#include <quorixprotomodel/device.h>

#include <QObject>
#include <QReadWriteLock>
#include <QSize>

#include <cstdint>
#include <memory>
#include <optional>

namespace Quorix::BizModel {

/// What is stored of a connector, under the keys of the document.
struct ConnectorState {
    InterfaceConfig::CardConnector m_cardConnectorInfo;
    uint8_t m_connectorId = 255;
    uint8_t m_iIndex = 255;
    ProtoModel::s_Size m_frameRate;
    float m_refreshRate = 30.0F;
    bool m_overLoad = false;
};

/// One physical port position: its type, capacity and work mode, and the entry of the capability file that describes
/// it. Its Subcard owns it. Type, work mode and capacity stand in the device's record of the card, which is the truth,
/// and a second time in the entry; a connector that the record doesn't list reads as INVALID, NoOutput and `invaild`.
///
/// Threads. Lives on the application's thread; all operations may be called from any thread, createConnects() and
/// unserailize() from one at a time. No lock is held when a signal goes out.
class QUORIX_EXPORT Connector : public QObject, public std::enable_shared_from_this<Connector> {
    Q_OBJECT

public:
    using CardConnector = InterfaceConfig::CardConnector;
    using CapacityMode = Enum::Interface::CapacityMode;
    using ConnectorType = Enum::Interface::ConnectorType;
    using WorkMode = Enum::Interface::WorkMode;

    /// @param connectorId position on the card; 255: not given yet.
    explicit Connector(uint8_t connectorId = 255);
    ~Connector() override;
    Q_DISABLE_COPY_MOVE(Connector)

    // In record and entry: without a record the setters do nothing.

    [[nodiscard]] ConnectorType type() const;
    void setType(ConnectorType type);
    [[nodiscard]] WorkMode workMode() const;
    void setWorkMode(WorkMode mode);
    [[nodiscard]] CapacityMode capacityMode() const;
    /// Signals when either copy differs.
    void setCapacityMode(CapacityMode mode);

    [[nodiscard]] uint8_t id() const;
    void setId(uint8_t id);
    /// Display index, 255 if none was given.
    [[nodiscard]] quint8 getIndex() const;
    void setIndex(quint8 index);
    [[nodiscard]] std::weak_ptr<Subcard> owerSubcard() const;
    void setOwerSubcard(std::weak_ptr<Subcard> subcard);

    // Fields of the entry.

    /// Replaces the entry, the live fields `Signal` and `Status` included, without a signal; the record stays.
    void setCardConnector(const CardConnector &cardConnector);
    /// A copy, so that a report on another thread can't change it under the reader's hands.
    [[nodiscard]] CardConnector cardConnector() const;
    [[nodiscard]] int seletedStatus() const;
    void setSeletedStatus(int status);
    /// Spacing on the drawing of the rear panel.
    [[nodiscard]] quint32 margin() const;
    void setMargin(quint32 margin);
    /// Number printed on the rear panel.
    [[nodiscard]] int printKeyNo() const;
    void setPrintKeyNo(int number);
    [[nodiscard]] bool visible() const;
    void setVisible(bool isVisible);
    [[nodiscard]] bool isEnabled() const;
    void setEnabled(bool isEnabled);
    /// Packed interface id of the copy partner; 268435455: none.
    [[nodiscard]] uint32_t copyId() const;
    void setCopyId(uint32_t id);
    /// Whether a signal is there; a change is signalled.
    void setActived(bool isActived);

    /// Visible size of the current timing, in pixels.
    [[nodiscard]] QSize getFrameRate() const;
    void setFrameRate(const QSize &size);
    /// Hertz. A value within 0.000001 Hz of the present one is not stored.
    [[nodiscard]] float getRefreshRate() const;
    void setRefreshRate(float rate);
    /// Whether the timing is beyond the bandwidth; a change is signalled.
    [[nodiscard]] bool isOverLoad() const;
    void setOverLoad(bool isOverLoad);

    // Kept for the editing of hot-backup pairs.

    [[nodiscard]] bool isHotBackForSameCapacity() const;
    void setHotBackForSameCapacity(bool isPossible);
    [[nodiscard]] bool isHotBackConnectorSelected() const;
    void setHotBackConnectorSelected(bool isSelected);

    /// Joins the signals to the hub, with the device of @p subcard, the card and this connector in front. Joining again
    /// for the same owners does nothing.
    void createConnects(std::weak_ptr<Subcard> subcard);
    /// Restores owner and relays after a load from disk.
    void unserailize(std::weak_ptr<Subcard> subcard);
    /// A copy of what is stored.
    [[nodiscard]] ConnectorState state() const;

Q_SIGNALS:
    void signalConnectorSignalChanged();
    void signalConnectorOverLoadChanged();
    void signalConnectorCapacityChanged();

private:
    friend class ModelArchive;
    using Record = ProtoModel::Device::s_Connectors;

    /// A copy of the device's record of this connector.
    [[nodiscard]] std::optional<Record> record() const;
    /// Writes a field of record and entry if there is a record; true if either differed.
    bool store(std::int32_t Record::*field, std::int32_t value);

    CardConnector m_cardConnectorInfo;
    uint8_t m_connectorId;
    std::weak_ptr<Subcard> m_pOwnerSubCard;
    uint8_t m_iIndex = 255;
    ProtoModel::s_Size m_frameRate;
    float m_refreshRate = 30.0F;
    bool m_overLoad = false;
    bool m_hotBackForSameCapacity = true;
    bool m_hotBackupSelected = false;
    mutable QReadWriteLock m_lock; ///< guards all of the above
    RelaySet m_relays;
};

} // namespace Quorix::BizModel

#endif
