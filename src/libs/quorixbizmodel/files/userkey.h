/// A key that gives a layer the look that it has stored.
#ifndef QUORIXBIZMODEL_USERKEY_H
#define QUORIXBIZMODEL_USERKEY_H

#include <quorixbizmodel/files/file.h>
#include <quorixprotomodel/layer.h>

#include <cstdint>
#include <string>

namespace Quorix::BizModel {

/// The content of a user key. The model carries it; what a key does to a layer is the application's matter.
struct s_UserKeyDetail {
    ProtoModel::Layer::s_LayerFullDetail layerFullDetail;
    ProtoModel::Layer::s_LayerFullDetail cutLayerFullDetail; ///< the cut layer that belongs to it
    std::string name;                                        ///< UTF-8
    std::uint8_t userKeyId = 255;                            ///< 255: none yet
    std::int32_t userKeyColor = 0;
    // What the key applies of the layer.
    bool bLayerSourcesBody = false;
    bool bLayerCutFillBody = false;
    bool bLayerFlipBody = false;
    bool bLayerBorderBody = false;
    bool bLayerMaskBody = false;
    bool bLayerRectBody = false;
    bool bLayerPosBody = false;
    bool bLayerColorBody = false;
    bool bLayerInputCropBody = false;
    bool bLayerNoSourceLayerBody = false;
    bool bLayerNoSourceLayerColorBody = false;
    bool operator==(const s_UserKeyDetail &) const = default;
};
QUORIX_AJSON(s_UserKeyDetail, layerFullDetail, cutLayerFullDetail, name, userKeyId, userKeyColor, bLayerSourcesBody,
             bLayerCutFillBody, bLayerFlipBody, bLayerBorderBody, bLayerMaskBody, bLayerRectBody, bLayerPosBody,
             bLayerColorBody, bLayerInputCropBody, bLayerNoSourceLayerBody, bLayerNoSourceLayerColorBody)

/// What is stored of a user key, under the keys of the document.
struct UserKeyState : FileState {
    s_UserKeyDetail m_contents;
};

/// One user key. The number of the key is apart from that of its file.
class QUORIX_EXPORT UserKey : public File {
    Q_OBJECT

public:
    /// A file of the type `UserKeyFile`.
    UserKey();
    ~UserKey() override;
    Q_DISABLE_COPY_MOVE(UserKey)

    void setFileId(uint8_t id) override;
    /// Takes a record and its JSON over in silence. False, with the reason in @p errMsg, for a text that can't be read
    /// to its end; what came before that is taken over all the same. @p errMsg stays as it is on success.
    bool initModelData(const Detail &fileDetail, QString &errMsg) override;
    /// Gives the content the name of a record.
    void initUserKeyModelData(const Detail &fileDetail);

    /// Replaces the content, without a signal of its own, and names the file after it.
    void setUserKeyDetail(s_UserKeyDetail detail);
    [[nodiscard]] s_UserKeyDetail getUserKeyDetail() const;
    /// The device's list isn't sorted again.
    void setUserkeyId(uint8_t id);
    [[nodiscard]] uint8_t userkeyId() const;
    /// A copy of what is stored.
    [[nodiscard]] UserKeyState state() const;

private:
    friend class ModelArchive;
    s_UserKeyDetail m_contents;
};

} // namespace Quorix::BizModel

extern template QUORIX_EXPORT bool Quorix::ProtoModel::decode(const std::string &, BizModel::s_UserKeyDetail &,
                                                              std::string &);

#endif
