/// A card in a slot.
#ifndef QUORIXBIZMODEL_SUBCARD_H
#define QUORIXBIZMODEL_SUBCARD_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixprotomodel/device.h>

#include <QList>
#include <QMap>
#include <QObject>
#include <QReadWriteLock>

#include <atomic>
#include <cstdint>
#include <list>
#include <memory>
#include <vector>

namespace Quorix::BizModel {

/// A card in a slot; it owns its connectors. Model id, type and status stand in the device's record of the slot, which
/// is the truth: without a device or a record modelId() is -1, cardType() `Undefined`, onlineStatus() 0, and the
/// setters do nothing.
///
/// Threads. Lives on the application's thread; all operations may be called from any thread.
class QUORIX_EXPORT Subcard : public QObject, public std::enable_shared_from_this<Subcard> {
    Q_OBJECT

public:
    using CapacityMode = Enum::Interface::CapacityMode;
    using CardType = Enum::Device::CardType;
    using ConnectorType = Enum::Interface::ConnectorType;
    using WorkMode = Enum::Interface::WorkMode;

    /// A card in no slot (255). @p parent isn't used: shared references own a card.
    explicit Subcard(QObject *parent = nullptr);
    /// The second number, a card type, isn't kept: it belongs in the device's record.
    Subcard(uint8_t slotId, uint8_t cardType);
    /// A copy has the same device, slot and selection, and shares the connectors, whose owner stays the first card.
    Subcard(const Subcard &other);
    Subcard &operator=(const Subcard &other);
    ~Subcard() override;

    [[nodiscard]] std::weak_ptr<Device> owerDevice() const;
    void setOwerDevice(std::weak_ptr<Device> device);
    [[nodiscard]] uint8_t slotId() const { return m_slotId; }
    void setSlotId(uint8_t slotId) { m_slotId = slotId; }
    [[nodiscard]] bool isSelected() const { return m_isSelected; }
    void setSelected(bool isSelected) { m_isSelected = isSelected; }

    // In the device's record.

    [[nodiscard]] int modelId() const;
    /// Sets the status to normal and the card type to what the model is in this slot, too.
    void setModelId(uint32_t id);
    [[nodiscard]] CardType cardType() const;
    void setCardType(CardType type);
    /// A value of Enum::Device::SlotStatusType.
    [[nodiscard]] int onlineStatus() const;
    void setOnlineStatus(int status);
    [[nodiscard]] Enum::Device::ComponentType cardComponentType() const;

    // Connectors, in the order of creation.

    /// Capacity of the first connector that has one; `invaild` if none has.
    [[nodiscard]] CapacityMode capacityMode() const;
    /// The same among the connectors of one capacity group.
    [[nodiscard]] CapacityMode capacityMode(int valueGroup) const;
    [[nodiscard]] std::weak_ptr<Connector> connector(int position) const;
    [[nodiscard]] QList<std::weak_ptr<Connector>> connectors() const;
    /// Position to the capability entry in force.
    [[nodiscard]] QMap<unsigned char, InterfaceConfig::s_CardConnector> cardConnectors() const;

    /// Appends a connector, which becomes this card's, and joins its relays; gives it back. Null changes nothing.
    std::shared_ptr<Connector> addConnector(std::shared_ptr<Connector> pConnector);
    std::shared_ptr<Connector> addConnector();
    std::shared_ptr<Connector> addConnector(int pos, ConnectorType type);
    /// Fills the capability entry; the device's record only if it lists a connector with that id. An id or index beyond
    /// 8 bits is refused with null.
    std::shared_ptr<Connector> addConnector(int id, int index, ConnectorType type, CapacityMode capacity,
                                            WorkMode workMode, const quint32 &margin, int printKeyNo, bool isVisible);

    /// Lays the connectors out as the capability file does for a card model; an unknown model changes nothing.
    void initCardConnector(quint16 modelId);
    /// Follows a report: each connector whose position, type and capacity the capability file knows for this card gets
    /// that entry. A position keeps its object; what the report doesn't name stays.
    void initCardConnector(const std::vector<ProtoModel::Device::s_Connectors> &reported);
    /// `Value` of the first connector group of a capacity group, at its present capacity, whose connectors are all here
    /// in capacity and work mode; 0 if none is.
    [[nodiscard]] int interfaceGroup(int capacityGroup) const;
    /// Removes the connectors, also those of the record.
    void clearAll();

    /// Restores the owners, and the relays of the connectors, after a load from disk.
    void unserailize(std::weak_ptr<Device> device);

private:
    friend class ModelArchive;
    /// Without the null entries that a document may leave.
    [[nodiscard]] std::vector<std::shared_ptr<Connector>> connectorList() const;
    /// A field of the record, or @p otherwise without one.
    [[nodiscard]] int recordValue(std::int32_t ProtoModel::Device::s_subcardBody::*field, int otherwise) const;
    /// A connector of this card that doesn't stand in the list yet.
    std::shared_ptr<Connector> makeConnector(int id, const Connector::CardConnector &entry);
    /// Gives the connector at a position its entry; makes one if there is none.
    std::shared_ptr<Connector> placeConnector(int position, const Connector::CardConnector &entry);

    std::weak_ptr<Device> m_pOwnerDevice;
    std::list<std::shared_ptr<Connector>> m_connectors;
    mutable QReadWriteLock m_connectorsRWLock; ///< guards the two fields above
    std::atomic<uint8_t> m_slotId = 255;
    std::atomic<bool> m_isSelected = false;
};

} // namespace Quorix::BizModel

#endif
