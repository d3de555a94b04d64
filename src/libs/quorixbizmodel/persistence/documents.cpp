#include <quorixbizmodel/persistence/documents_p.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <iterator>
#include <type_traits>

namespace Quorix::BizModel {

ModelArchive::~ModelArchive() { endOnModelThread(std::move(m_held)); }

template <class List>
auto ModelArchive::copies(QReadWriteLock &lock, const List &list) {
    using Object = typename List::value_type::element_type;
    StoredList<Object> states;
    auto references = copyOf(lock, list);
    states.reserve(references.size());
    for (const auto &object : references)
        states.push_back(object == nullptr ? nullptr : std::make_shared<Stored<Object>>(stateOf(*object)));
    std::move(references.begin(), references.end(), std::back_inserter(m_held));
    return states;
}

DeviceDocument ModelArchive::stateOf(Device &device) {
    DeviceDocument document;
    {
        const ReadGuard guard(device.m_detailRWLock);
        document.m_modelId = device.m_modelId;
        document.m_detail = device.m_detail;
        document.m_bIsMuliScreens = device.m_bIsMuliScreens;
    }
    document.m_regularScreens = copies(device.m_screensRWLock, device.m_regularScreens);
    document.m_AUXScreens = copies(device.m_screensRWLock, device.m_AUXScreens);
    document.m_MVRSscreens = copies(device.m_screensRWLock, device.m_MVRSscreens);
    document.m_logos = copies(device.m_logosRWLock, device.m_logos);
    document.m_bkgs = copies(device.m_bkgsRWLock, device.m_bkgs);
    document.m_umdFiles = copies(device.m_umdsRWLock, device.m_umdFiles);
    document.m_inputs = copies(device.m_inputsRWLock, device.m_inputs);
    document.m_outputs = copies(device.m_outputsRWLock, device.m_outputs);
    document.m_userKey = copies(device.m_userKeyRWLock, device.m_userKey);
    document.m_keypads = copies(device.m_keypadsRWLock, device.m_keypads);
    document.m_subcards = copies(device.m_subcardsRWLock, device.m_subcards);
    {
        const ReadGuard guard(device.m_deviceBaseInfoRWLock);
        const auto &info = device.m_pDeviceBaseInfo;
        document.m_pDeviceBaseInfo =
            info == nullptr ? nullptr : std::make_shared<ProtoModel::DeviceBaseInfo>(std::as_const(*info));
    }
    document.m_deviceGroupInfo = copyOf(device.m_deviceGroupInfoRWLock, device.m_deviceGroupInfo);
    return document;
}

ScreenDocument ModelArchive::stateOf(const Screen &screen) {
    ScreenDocument document;
    static_cast<ScreenState &>(document) = screen.storedState();
    document.m_regularLayerList = copies(screen.m_layerListRWLock, screen.m_regularLayerList);
    document.m_auxLayerList = copies(screen.m_layerListRWLock, screen.m_auxLayerList);
    document.m_mvrLayerList = copies(screen.m_layerListRWLock, screen.m_mvrLayerList);
    document.m_bkgLayerList = copies(screen.m_layerListRWLock, screen.m_bkgLayerList);
    document.m_logoLayerList = copies(screen.m_layerListRWLock, screen.m_logoLayerList);
    return document;
}

MVRScreenDocument ModelArchive::stateOf(const MVRScreen &screen) {
    return {stateOf(static_cast<const Screen &>(screen)), copyOf(screen.m_detailRWLock, screen.m_rowColSpan)};
}

SubcardDocument ModelArchive::stateOf(const Subcard &card) {
    return {copies(card.m_connectorsRWLock, card.m_connectors), card.slotId()};
}

template <class Object>
std::shared_ptr<Object> ModelArchive::make() {
    std::shared_ptr<Object> object;
    if constexpr (std::is_base_of_v<File, Object>)
        object = makeModelObject<Object>();
    else
        object = std::make_shared<Object>();
    moveToModelThread(*object);
    return object;
}

template <class List, class Documents>
void ModelArchive::restoreList(List &list, Documents &documents) {
    for (const auto &document : documents) {
        list.emplace_back();
        if (document == nullptr)
            continue;
        list.back() = make<typename List::value_type::element_type>();
        restore(*list.back(), *document);
    }
}

template <class Base, class Kind, class State, class Field>
void ModelArchive::restoreKind(Kind &object, State &state, Field Kind::*to, Field State::*from) {
    restore(static_cast<Base &>(object), state);
    object.*to = std::move(state.*from);
}

// Without locks: nobody else knows the objects yet.

void ModelArchive::restore(Device &device, DeviceDocument &document) {
    device.m_modelId = document.m_modelId;
    device.m_detail = std::move(document.m_detail);
    restoreList(device.m_regularScreens, document.m_regularScreens);
    restoreList(device.m_AUXScreens, document.m_AUXScreens);
    restoreList(device.m_MVRSscreens, document.m_MVRSscreens);
    restoreList(device.m_logos, document.m_logos);
    restoreList(device.m_bkgs, document.m_bkgs);
    restoreList(device.m_umdFiles, document.m_umdFiles);
    restoreList(device.m_inputs, document.m_inputs);
    restoreList(device.m_outputs, document.m_outputs);
    restoreList(device.m_userKey, document.m_userKey);
    restoreList(device.m_keypads, document.m_keypads);
    restoreList(device.m_subcards, document.m_subcards);
    device.m_bIsMuliScreens = document.m_bIsMuliScreens;
    device.m_pDeviceBaseInfo = std::move(document.m_pDeviceBaseInfo);
    device.m_deviceGroupInfo = std::move(document.m_deviceGroupInfo);
}

void ModelArchive::restore(Screen &screen, ScreenDocument &document) {
    screen.m_detail = std::move(document.m_detail);
    restoreList(screen.m_regularLayerList, document.m_regularLayerList);
    restoreList(screen.m_auxLayerList, document.m_auxLayerList);
    restoreList(screen.m_mvrLayerList, document.m_mvrLayerList);
    restoreList(screen.m_bkgLayerList, document.m_bkgLayerList);
    restoreList(screen.m_logoLayerList, document.m_logoLayerList);
    screen.m_iZOrder = document.m_iZOrder;
    screen.m_screenState = document.m_screenState;
    screen.m_lastScreenState = document.m_lastScreenState;
    screen.m_curOperationTarget = document.m_curOperationTarget;
}

void ModelArchive::restore(MVRScreen &screen, MVRScreenDocument &document) {
    restoreKind<Screen>(screen, document, &MVRScreen::m_rowColSpan, &MVRScreenDocument::m_rowColSpan);
}

void ModelArchive::restore(Subcard &card, SubcardDocument &document) {
    restoreList(card.m_connectors, document.m_connectors);
    card.m_slotId = document.m_slotId;
}

void ModelArchive::restore(Connector &connector, ConnectorState &state) {
    connector.m_cardConnectorInfo = std::move(state.m_cardConnectorInfo);
    connector.m_connectorId = state.m_connectorId;
    connector.m_iIndex = state.m_iIndex;
    connector.m_frameRate = state.m_frameRate;
    connector.m_refreshRate = state.m_refreshRate;
    connector.m_overLoad = state.m_overLoad;
}

void ModelArchive::restore(Layer &layer, LayerState &state) { static_cast<LayerState &>(layer) = std::move(state); }

void ModelArchive::restore(Interface &interface, InterfaceState &state) {
    interface.m_detail = std::move(state.m_detail);
    interface.storeIdWhileLocked(interface.m_detail.interfaceId);
    interface.m_cropLocked = state.m_cropLocked;
    interface.m_cutoutPosInfo = state.m_cutoutPosInfo;
    interface.m_bOverLoad = state.m_bOverLoad;
}

void ModelArchive::restore(Input &input, InputState &state) {
    restoreKind<Interface>(input, state, &Input::m_pickUpPoint, &InputState::m_pickUpPoint);
}

void ModelArchive::restore(Output &output, OutputState &state) {
    restoreKind<Interface>(output, state, &Output::m_outputZorder, &OutputState::m_outputZorder);
}

void ModelArchive::restore(File &file, FileState &state) { file.m_detail = std::move(state.m_detail); }

void ModelArchive::restore(Image &image, ImageState &state) {
    restore(static_cast<File &>(image), state);
    image.m_thumbnailHashKey = std::move(state.m_thumbnailHashKey);
    image.m_originalImageHashKey = std::move(state.m_originalImageHashKey);
}

void ModelArchive::restore(Preset &preset, PresetState &state) {
    restoreKind<File>(preset, state, &Preset::m_contents, &PresetState::m_contents);
}

void ModelArchive::restore(UserKey &key, UserKeyState &state) {
    restoreKind<File>(key, state, &UserKey::m_contents, &UserKeyState::m_contents);
}

void ModelArchive::restore(Keypad &keypad, KeypadState &state) {
    restoreKind<File>(keypad, state, &Keypad::m_keypadInfo, &KeypadState::m_keypadInfo);
}

namespace {

template <class Document>
DocumentText encoded(const Document &document) {
    auto text = std::make_unique<DocumentText::element_type>();
    ajson::lite_write writer(*text);
    ajson::json_impl<Document>::write(writer, document);
    return text;
}

template <class Document>
Document decoded(const char *text, std::size_t size) {
    Document document;
    ajson::reader reader(text, size);
    reader.next();
    ajson::json_impl<Document>::read(reader, document);
    return document;
}

} // namespace

DocumentText ModelArchive::textOf(Device &device) { return encoded(stateOf(device)); }

DocumentText ModelArchive::textOf(const Preset &preset) { return encoded(stateOf(preset)); }

std::shared_ptr<Device> ModelArchive::decodeDevice(const char *text, std::size_t size) {
    auto document = decoded<DeviceDocument>(text, size);
    auto device = std::make_shared<Device>(Invalid_DeviceModelId);
    restore(*device, document);
    return device;
}

std::shared_ptr<Preset> ModelArchive::decodePreset(const char *text, std::size_t size) {
    auto state = decoded<Stored<Preset>>(text, size);
    auto preset = make<Preset>();
    restore(*preset, state);
    return preset;
}

} // namespace Quorix::BizModel
