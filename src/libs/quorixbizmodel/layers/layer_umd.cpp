#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

namespace Quorix::BizModel {

using ProtoModel::s_RGB;
using ProtoModel::s_RGBO;
using ProtoModel::Layer::s_LayerUMDBody;
using ProtoModel::Layer::s_LayerUMDBodyArray;

namespace {

using Enum::Layer::UMDIndex;

constexpr struct {
    QString s_UMDData::*text;
    UMDIndex corner;
} kCorners[] = {
    {&s_UMDData::SourceName, UMDIndex::TopLeft},
    {&s_UMDData::SourceFrameRate, UMDIndex::BottomLeft},
    {&s_UMDData::AUXTip, UMDIndex::TopRight},
};

} // namespace

void Layer::setUMDData(const s_LayerUMDBodyArray &umd) {
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.UMD = umd;
    }
    Q_EMIT signalUMDChanged();
}

s_LayerUMDBodyArray Layer::layerUMD() const { return copyOf(m_detailRWLock, m_detail.UMD); }

bool Layer::umdEnabled() const {
    const ReadGuard guard(m_detailRWLock);
    return m_detail.UMD.empty() || Helper::int2Bool(m_detail.UMD.front().enable);
}

void Layer::setUMDEnable(bool isEnabled) {
    {
        const WriteGuard guard(m_detailRWLock);
        for (auto &umd : m_detail.UMD)
            umd.enable = Helper::bool2Int(isEnabled);
    }
    Q_EMIT signalUMDEnableChanged();
}

s_RGBO Layer::umdColor() const {
    const ReadGuard guard(m_detailRWLock);
    return m_detail.UMD.empty() ? s_RGBO{} : m_detail.UMD.front().color.foregroundColor;
}

void Layer::setUMDColor(const s_RGBO &color) {
    {
        const WriteGuard guard(m_detailRWLock);
        for (auto &umd : m_detail.UMD)
            umd.color.foregroundColor = color;
    }
    Q_EMIT signalUMDColorChanged();
}

const Layer::UMDData &Layer::UMDContent() const { return m_umdData; }
void Layer::setUMDContent(const UMDData &content) { m_umdData = content; }

bool Layer::generateLayerUMD(int /*fileId*/, int /*fileType*/, s_LayerUMDBodyArray &arry) const {
    const auto present = layerUMD();
    s_LayerUMDBody umd;
    umd.enable = Helper::bool2Int(umdEnabled());
    static_cast<s_RGB &>(umd.color.foregroundColor) =
        present.empty() ? Helper::qColor2RGB(Constants::Layer::defaultMVRUMDforegroundColor)
                        : static_cast<const s_RGB &>(present.front().color.foregroundColor);
    static_cast<s_RGB &>(umd.color.backgroundColor) =
        Helper::qColor2RGB(Constants::Layer::defaultMVRUMDbackgroundColor);
    for (const auto &row : kCorners) {
        if ((m_umdData.*row.text).isEmpty())
            continue;
        umd.index = toInt(row.corner);
        arry.push_back(umd);
    }
    return true;
}

} // namespace Quorix::BizModel
