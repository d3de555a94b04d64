#include <quorixbizmodel/layouts/layoutxml_p.h>
#include <quorixbizmodel/layouts/mvrlayout.h>

namespace Quorix::BizModel {

namespace {

constexpr LayoutXml::NumberRow<MvrLayout::MvrValue> kMvr[] = {
    {"mvrtype", &MvrLayout::MvrValue::mvrType_},
    {"mvrindex", &MvrLayout::MvrValue::mvrIndex_},
    {"row", &MvrLayout::MvrValue::row_},
    {"col", &MvrLayout::MvrValue::col_},
    {"rowspan", &MvrLayout::MvrValue::rowSpan_},
    {"colspan", &MvrLayout::MvrValue::colSpan_},
    {"leftmargin", &MvrLayout::MvrValue::leftMargin},
    {"rightmargin", &MvrLayout::MvrValue::rightMargin},
    {"topmargin", &MvrLayout::MvrValue::topMargin},
    {"bottommargin", &MvrLayout::MvrValue::bottomMargin},
};

} // namespace

MvrLayout *MvrLayout::instance() {
    static auto *const layouts = new MvrLayout;
    return layouts;
}

void MvrLayout::load(const QString &path) {
    LayoutXml::atApplicationEnd([] { instance()->dropPixmaps(); });
    LayoutXml::load(path, [&](const LayoutXml::Node &node) {
        const auto layout = LayoutXml::readGridLayout(node, path, "mvrs", "mvr", &Layout::mvrs_, kMvr);
        if (!layout)
            return;
        m_layouts.insert(layout->layoutName_, *layout);
        m_layoutList.append(*layout);
    });
}

MvrLayout::Layout MvrLayout::findLayout(const QString &name) const { return m_layouts.value(name); }

void MvrLayout::dropPixmaps() {
    for (Layout &layout : m_layouts)
        layout.layoutPixmap_ = {};
    for (Layout &layout : m_layoutList)
        layout.layoutPixmap_ = {};
}

} // namespace Quorix::BizModel
