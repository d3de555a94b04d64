#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/layoutxml_p.h>

namespace Quorix::BizModel {

namespace {

constexpr LayoutXml::NumberRow<LayerLayout::LayerValue> kLayer[] = {
    {"row", &LayerLayout::LayerValue::row_},
    {"col", &LayerLayout::LayerValue::col_},
    {"rowspan", &LayerLayout::LayerValue::rowSpan_},
    {"colspan", &LayerLayout::LayerValue::colSpan_},
};

} // namespace

LayerLayout *LayerLayout::instance() {
    static auto *const layouts = new LayerLayout;
    return layouts;
}

void LayerLayout::load(const QString &path) {
    LayoutXml::atApplicationEnd([] { instance()->dropPixmaps(); });
    LayoutXml::load(path, [&](const LayoutXml::Node &node) {
        const auto layout = LayoutXml::readGridLayout(node, path, "layers", "layer", &Layout::layers_, kLayer);
        if (layout)
            insertLayout(*layout);
    });
}

void LayerLayout::insertLayout(const Layout &layout) {
    m_pixmap.insert(layout.layoutName_, layout.layoutPixmap_);
    m_layoutCntMap[layout.count_].append(layout);
    m_layouts.insert(layout.layoutName_, layout);
}

LayerLayout::Layout LayerLayout::findLayout(const QString &name) const { return m_layouts.value(name); }

QPixmap LayerLayout::findPixmap(const QString &name) const { return m_pixmap.value(name); }

QList<LayerLayout::Layout> LayerLayout::getLayout(LayerCount count) const {
    if (count < LayerCount::layr_0 || count > LayerCount::all)
        return {};
    if (count != LayerCount::all)
        return m_layoutCntMap.value(toInt(count));
    QList<Layout> layouts;
    for (const int layers : {4, 3, 2, 1})
        layouts += m_layoutCntMap.value(layers);
    return layouts;
}

void LayerLayout::dropPixmaps() {
    m_pixmap.clear();
    for (Layout &layout : m_layouts)
        layout.layoutPixmap_ = {};
    for (QList<Layout> &layouts : m_layoutCntMap)
        for (Layout &layout : layouts)
            layout.layoutPixmap_ = {};
}

} // namespace Quorix::BizModel
