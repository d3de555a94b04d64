/// The documents of a device: what stands in them, and the way from the model and back.
#ifndef QUORIXBIZMODEL_DOCUMENTS_P_H
#define QUORIXBIZMODEL_DOCUMENTS_P_H

#include <ajson/ajson.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/files/userkey.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Quorix::BizModel {

/// A state that begins as that of a new object, so that a key which a document leaves out changes nothing.
template <class Object>
struct Stored;
/// Null entries are written as 0, and read back.
template <class Object>
using StoredList = std::vector<std::shared_ptr<Stored<Object>>>;

struct SubcardDocument {
    StoredList<Connector> m_connectors;
    uint8_t m_slotId = 255;
};

struct ScreenDocument : ScreenState {
    StoredList<RegularLayer> m_regularLayerList; ///< cut layers, too; they come back as this class
    StoredList<AUXLayer> m_auxLayerList;
    StoredList<MVRLayer> m_mvrLayerList;
    StoredList<BKGLayer> m_bkgLayerList;
    StoredList<LogoLayer> m_logoLayerList;
};

struct MVRScreenDocument : ScreenDocument {
    ProtoModel::s_Size m_rowColSpan;
};

struct DeviceDocument {
    uint32_t m_modelId = 65535;
    ProtoModel::Device::s_DeviceDetail m_detail;
    StoredList<RegularScreen> m_regularScreens;
    StoredList<AuxScreen> m_AUXScreens;
    StoredList<MVRScreen> m_MVRSscreens;
    StoredList<Logo> m_logos;
    StoredList<BKG> m_bkgs;
    StoredList<File> m_umdFiles;
    StoredList<Input> m_inputs;
    StoredList<Output> m_outputs;
    StoredList<UserKey> m_userKey;
    StoredList<Keypad> m_keypads;
    StoredList<Subcard> m_subcards;
    bool m_bIsMuliScreens = false;
    std::shared_ptr<ProtoModel::DeviceBaseInfo> m_pDeviceBaseInfo = std::make_shared<ProtoModel::DeviceBaseInfo>();
    ProtoModel::Device::s_DeviceGroupInfoBody m_deviceGroupInfo;
};

/// A document as one line of text.
using DocumentText = std::unique_ptr<ajson::ajson_string_stream<>>;

/// Copies what is stored of the model's objects, and puts it back into new ones: the one class that knows all of their
/// fields.
///
/// A copy takes each list under its lock, then each object under its own; never two locks at once. The references that
/// it takes end with the archive, on the thread of the application, since any of them may be the last one by then.
///
/// What is put back signals nothing and has no owner yet.
class ModelArchive {
public:
    ModelArchive() = default;
    ~ModelArchive();
    Q_DISABLE_COPY_MOVE(ModelArchive)

    [[nodiscard]] DeviceDocument stateOf(Device &device);
    [[nodiscard]] MVRScreenDocument stateOf(const MVRScreen &screen);
    [[nodiscard]] ScreenDocument stateOf(const Screen &screen);
    [[nodiscard]] SubcardDocument stateOf(const Subcard &card);
    [[nodiscard]] ConnectorState stateOf(const Connector &connector) { return connector.state(); }
    [[nodiscard]] LayerState stateOf(const Layer &layer) { return layer.state(); }
    [[nodiscard]] InputState stateOf(const Input &input) { return input.state(); }
    [[nodiscard]] OutputState stateOf(const Output &output) { return output.state(); }
    [[nodiscard]] ImageState stateOf(const Image &image) { return image.state(); }
    [[nodiscard]] PresetState stateOf(const Preset &preset) { return preset.state(); }
    [[nodiscard]] UserKeyState stateOf(const UserKey &key) { return key.state(); }
    [[nodiscard]] KeypadState stateOf(const Keypad &keypad) { return keypad.state(); }
    [[nodiscard]] FileState stateOf(const File &file) { return file.state(); }

    /// The document of an object as it is at this moment; no lock is held while it is written. From any thread.
    [[nodiscard]] DocumentText textOf(Device &device);
    [[nodiscard]] DocumentText textOf(const Preset &preset);
    /// A device from its document, with lists of objects that know nothing yet of their owners; its presets have
    /// documents of their own. Both throw ajson::exception.
    /// @param text ends at its first NUL
    [[nodiscard]] static std::shared_ptr<Device> decodeDevice(const char *text, std::size_t size);
    [[nodiscard]] static std::shared_ptr<Preset> decodePreset(const char *text, std::size_t size);

    /// Keeps a reference up to the end of the archive.
    void hold(std::shared_ptr<const void> reference) { m_held.push_back(std::move(reference)); }

private:
    static void restore(Device &device, DeviceDocument &document);
    template <class List>
    [[nodiscard]] auto copies(QReadWriteLock &lock, const List &list);

    template <class Object>
    static std::shared_ptr<Object> make();
    template <class List, class Documents>
    static void restoreList(List &list, Documents &documents);
    /// Puts back what a kind shares with others, and the one field that it has beside that.
    template <class Base, class Kind, class State, class Field>
    static void restoreKind(Kind &object, State &state, Field Kind::*to, Field State::*from);
    static void restore(Screen &screen, ScreenDocument &document);
    static void restore(MVRScreen &screen, MVRScreenDocument &document);
    static void restore(Subcard &card, SubcardDocument &document);
    static void restore(Connector &connector, ConnectorState &state);
    static void restore(Layer &layer, LayerState &state);
    static void restore(Interface &interface, InterfaceState &state);
    static void restore(Input &input, InputState &state);
    static void restore(Output &output, OutputState &state);
    static void restore(File &file, FileState &state);
    static void restore(Image &image, ImageState &state);
    static void restore(Preset &preset, PresetState &state);
    static void restore(UserKey &key, UserKeyState &state);
    static void restore(Keypad &keypad, KeypadState &state);

    std::vector<std::shared_ptr<const void>> m_held;
};

template <class Object>
using StateOf = decltype(std::declval<ModelArchive &>().stateOf(std::declval<const Object &>()));

template <class Object>
struct Stored : StateOf<Object> {
    Stored() : StateOf<Object>(ofNew()) {}
    explicit Stored(StateOf<Object> state) : StateOf<Object>(std::move(state)) {}

private:
    static const StateOf<Object> &ofNew() {
        static const StateOf<Object> state = ModelArchive().stateOf(Object());
        return state;
    }
};

/// Written and read as the state.
template <class Object>
constexpr auto ajson_members(ajson::detail::tag<Stored<Object>>) {
    return ajson::detail::members_of<StateOf<Object>>{};
}

QUORIX_AJSON(InterfaceConfig::s_CardConnector, Connector, Enable, BackupPos, Margin, Signal, Status, PrintKeyNo,
             Visible, Step)
QUORIX_AJSON(ConnectorState, m_cardConnectorInfo, m_connectorId, m_iIndex, m_frameRate, m_refreshRate, m_overLoad)
QUORIX_AJSON(SubcardDocument, m_connectors, m_slotId)
QUORIX_AJSON(InputState, m_detail, m_cropLocked, m_cutoutPosInfo, m_bOverLoad, m_pickUpPoint)
QUORIX_AJSON(OutputState, m_detail, m_cropLocked, m_cutoutPosInfo, m_bOverLoad, m_outputZorder)
QUORIX_AJSON(LayerState, m_detail, m_enumCapacity, m_bWindowWHRatio, m_eAspectRatioType, m_bWindowWHRatioLockd,
             m_dBorderWHRatio, m_bBorderWHRatioLockd, m_uiBorderColor)
QUORIX_AJSON(ScreenDocument, m_detail, m_regularLayerList, m_auxLayerList, m_mvrLayerList, m_bkgLayerList,
             m_logoLayerList, m_iZOrder, m_screenState, m_lastScreenState, m_curOperationTarget)
QUORIX_AJSON(MVRScreenDocument, m_detail, m_regularLayerList, m_auxLayerList, m_mvrLayerList, m_bkgLayerList,
             m_logoLayerList, m_iZOrder, m_screenState, m_lastScreenState, m_curOperationTarget, m_rowColSpan)
QUORIX_AJSON(FileState, m_detail)
QUORIX_AJSON(ImageState, m_detail, m_thumbnailHashKey, m_originalImageHashKey)
QUORIX_AJSON(PresetState, m_detail, m_contents)
QUORIX_AJSON(UserKeyState, m_detail, m_contents)
QUORIX_AJSON(KeypadState, m_detail, m_keypadInfo)
// The model id stands twice.
QUORIX_AJSON(DeviceDocument, m_modelId, m_detail, m_regularScreens, m_AUXScreens, m_MVRSscreens, m_logos, m_bkgs,
             m_umdFiles, m_inputs, m_outputs, m_modelId, m_userKey, m_keypads, m_subcards, m_bIsMuliScreens,
             m_pDeviceBaseInfo, m_deviceGroupInfo)

} // namespace Quorix::BizModel

#endif
