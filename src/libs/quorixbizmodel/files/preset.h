/// What screens show, kept on a device.
#ifndef QUORIXBIZMODEL_PRESET_H
#define QUORIXBIZMODEL_PRESET_H

#include <quorixbizmodel/files/file.h>
#include <quorixprotomodel/preset.h>

#include <QList>

#include <cstdint>
#include <vector>

namespace Quorix::BizModel {

/// What is stored of a preset, under the keys of the document.
struct PresetState : FileState {
    ProtoModel::Preset::s_PresetCreate m_contents;
};

/// A snapshot of one or more screens: their mosaics, and all their layers as full records. The content keeps the name
/// of each screen, so that one that has gone can still be named; a layer's identity says which screen it belongs to.
///
/// To load one into a device that may have changed since, an application asks preCheckPresetValidity() and
/// curCheckPresetValidity(), repairs the content by checkLayerSourceValidity(), calls loadPreset(), and gets the
/// sentence for its user from afterCheckPresetValidity(). A preset without a device can do none of this.
///
/// The steps of a load and setScreens() belong to the application's thread.
class QUORIX_EXPORT Preset : public File {
    Q_OBJECT

public:
    /// A preset of the type `PresetPVW`, with the id 255, without screens.
    Preset();
    ~Preset() override;
    Q_DISABLE_COPY_MOVE(Preset)

    /// Also names the preset by its number.
    void setFileId(uint8_t id) override;
    /// Takes a record and its JSON over in silence; lists of the text are appended to those that are there. False, with
    /// the reason in @p errMsg, for a text that can't be read to its end; what came before that is taken over all the
    /// same.
    bool initModelData(const Detail &fileDetail, QString &errMsg) override;
    /// Gives the content the id and the name of a record.
    void initPresetModelData(const Detail &fileDetail);

    /// A copy of the content.
    [[nodiscard]] ProtoModel::Preset::s_PresetCreate presetDetail() const;
    /// For the application's thread; not to be kept over a call that may change the content.
    [[nodiscard]] const ProtoModel::Preset::s_ScreenArry &screens() const;
    [[nodiscard]] bool containsAuxScreen() const;
    /// Takes the snapshot; ids without a screen are passed over.
    /// @param fileType picks the scene: `PresetPGM`, `PresetPVW`; any other keeps no layers. The preset's own type
    /// stays
    void setScreens(const std::vector<ProtoModel::s_ScreenId> &screens, FileType fileType);

    /// Whether the device has a screen of the preset, and the preset's mosaics aren't all without cells.
    bool preCheckPresetValidity(QString &errMsg);
    /// Whether the regular layers fit into the preview of the device, beside those of the screens that stay.
    bool curCheckPresetValidity(QString &errMsg);
    /// Takes the source from the layers whose input or picture the device no longer has.
    void checkLayerSourceValidity();
    /// Appends the screens that a load would touch.
    /// @param presetType `PresetPVW` or `PresetPGM`; the device's setting picks the scene
    bool presetSelectedScreens(QList<std::weak_ptr<Screen>> &selectedScreens, const FileType &presetType,
                               QString &errMsg);
    /// Replaces a scene of these screens by the layers of the preset, and appends the screens. The screens are silent;
    /// those that can't be served are passed over.
    bool loadPreset(QList<std::weak_ptr<Screen>> &selectedScreens, const FileType &presetType, QString &errMsg);
    /// Tells, as a sentence, which screens couldn't be loaded. Pass an empty @p errMsg, which stays so after a load
    /// without fault: a text that stands there is taken for one.
    void afterCheckPresetValidity(QString &errMsg);

    /// Whether a layer of the content shows a source. @param sourceType Enum::Layer::SourceType
    [[nodiscard]] bool isSourceUsedByPreset(const uint32_t &id, int sourceType) const;
    /// Whether the thumbnail must be drawn again; true for a new preset.
    [[nodiscard]] bool isNeedRepaint() const;
    void setIsNeedRepaint(bool isNeeded);
    /// A copy of what is stored.
    [[nodiscard]] PresetState state() const;

private:
    friend class ModelArchive;
    ProtoModel::Preset::s_PresetCreate m_contents;
    bool m_isNeedRepaint = true;
};

} // namespace Quorix::BizModel

#endif
