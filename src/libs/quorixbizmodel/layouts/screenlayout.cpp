#include <quorixbizmodel/layouts/layoutxml_p.h>
#include <quorixbizmodel/layouts/screenlayout.h>

#include <QDebug>

namespace Quorix::BizModel {

namespace {

constexpr LayoutXml::NumberRow<ScreenLayout::Layout> kScreen[] = {
    {"x", &ScreenLayout::Layout::x_},
    {"y", &ScreenLayout::Layout::y_},
    {"row", &ScreenLayout::Layout::row_},
    {"col", &ScreenLayout::Layout::col_},
};

QSize readSize(const LayoutXml::Node &parent) {
    return {LayoutXml::number(parent, "width"), LayoutXml::number(parent, "height")};
}

/// Reads the outputs of a template; false at the first screen that has none.
bool readScreens(QList<ScreenLayout::Layout> &screens, const LayoutXml::Node &layout) {
    return LayoutXml::forEachFrom(layout, "screen", [&](const LayoutXml::Node &node) {
        const LayoutXml::Node *output = node.first_node("output");
        if (output == nullptr) {
            qDebug() << "readLayout"
                     << "invalid xml root node [output].";
            return false;
        }
        ScreenLayout::Layout screen;
        LayoutXml::readNumbers(screen, node, kScreen);
        screen.size_ = readSize(node);
        screen.outputSize_ = readSize(*output);
        screens.append(screen);
        return true;
    });
}

} // namespace

ScreenLayout *ScreenLayout::instance() {
    static auto *const layouts = new ScreenLayout;
    return layouts;
}

void ScreenLayout::load(const QString &path) {
    LayoutXml::atApplicationEnd([] { instance()->m_pixmap.clear(); });
    LayoutXml::load(path, [&](const LayoutXml::Node &node) {
        const auto head = LayoutXml::readHead(node, path);
        if (!head)
            return;
        m_pixmap.insert(head->name, head->pixmap);
        QList<Layout> screens;
        if (readScreens(screens, node))
            m_layouts.insert(head->name, screens);
    });
}

QList<QString> ScreenLayout::getDescriptions() const { return m_layouts.keys(); }

QList<ScreenLayout::Layout> ScreenLayout::findLayout(const QString &name) const { return m_layouts.value(name); }

QPixmap ScreenLayout::findPixmap(const QString &name) const { return m_pixmap.value(name); }

} // namespace Quorix::BizModel
