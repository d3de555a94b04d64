#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/common/textdata.h>

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>

#include <memory>

namespace Quorix::BizModel {

ST_TextData::~ST_TextData() = default;

namespace {

constexpr uint kTextSlot = 0;

// A record on the widget itself is what hosts look for, although Qt recommends properties by now.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
ST_TextData *textData(const QWidget &widget, uint id) { return dynamic_cast<ST_TextData *>(widget.userData(id)); }

/// Qt drops what stood in the slot without deleting it.
void setTextData(QWidget &widget, std::unique_ptr<ST_TextData> data) {
    const std::unique_ptr<ST_TextData> replaced(textData(widget, kTextSlot));
    widget.setUserData(kTextSlot, data.release());
}
QT_WARNING_POP

template <class Widget>
void elide(Widget *widget) {
    if (widget == nullptr)
        return;
    if (textData(*widget, kTextSlot) == nullptr)
        setTextData(*widget, std::make_unique<ST_TextData>(widget->text()));
    const QString fullText = textData(*widget, kTextSlot)->m_text;
    if (fullText.isEmpty())
        return;
    const QString shown =
        widget->fontMetrics().elidedText(fullText, Qt::ElideRight, widget->width(), Qt::TextShowMnemonic);
    widget->setText(shown);
    widget->setToolTip(shown == fullText ? QString() : fullText);
}

template <class Widget>
void prepend(Widget *widget, const QString &text) {
    const ST_TextData *const kept = widget != nullptr ? textData(*widget, kTextSlot) : nullptr;
    if (kept == nullptr)
        return;
    const QString oldText = kept->m_text;
    setTextData(*widget, std::make_unique<ST_TextData>(oldText.contains(text) ? oldText : text + oldText));
    elide(widget);
}

/// Calls @p act for each label and push button below @p widget.
template <class Act>
void forTextWidgets(QWidget *widget, Act act) {
    if (widget == nullptr)
        return;
    for (QWidget *const child : widget->findChildren<QWidget *>()) {
        if (auto *const label = qobject_cast<QLabel *>(child))
            act(label);
        else if (auto *const button = qobject_cast<QPushButton *>(child))
            act(button);
    }
}

} // namespace

void Helper::caclThumbnailText(QLabel *widget) { elide(widget); }
void Helper::caclThumbnailText(QPushButton *widget) { elide(widget); }
void Helper::appendThumbnailText(QLabel *widget, const QString &text) { prepend(widget, text); }
void Helper::appendThumbnailText(QPushButton *widget, const QString &text) { prepend(widget, text); }

void Helper::allCaclThumbnailText(QWidget *widget) {
    forTextWidgets(widget, [](auto *child) { elide(child); });
}

void Helper::appendCaclThumbnailText(QWidget *widget, const QString &text) {
    forTextWidgets(widget, [&text](auto *child) { prepend(child, text); });
}

ST_TextData *Helper::realData(QWidget *pWidget, int id) {
    // A slot that was never filled is null, but a negative id would be a huge index.
    return pWidget != nullptr && id >= 0 ? textData(*pWidget, static_cast<uint>(id)) : nullptr;
}

QString Helper::realText(QWidget *pWidget) {
    if (const ST_TextData *const data = realData(pWidget, kTextSlot))
        return data->m_text;
    if (const auto *const label = qobject_cast<const QLabel *>(pWidget))
        return label->text();
    if (const auto *const button = qobject_cast<const QAbstractButton *>(pWidget))
        return button->text();
    return {};
}

} // namespace Quorix::BizModel
