#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/textdata.h>

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace {

using Quorix::BizModel::Helper;

const QString kLong = "A name that is much longer than forty pixels";

template <class Widget>
void expectElision() {
    Widget widget;
    widget.setText(kLong);
    widget.resize(40, 20);
    Helper::caclThumbnailText(&widget);
    EXPECT_LT(widget.text().size(), kLong.size());
    EXPECT_EQ(widget.toolTip(), kLong);
    EXPECT_EQ(Helper::realText(&widget), kLong);

    widget.resize(4000, 20);
    Helper::caclThumbnailText(&widget);
    EXPECT_EQ(widget.text(), kLong);
    EXPECT_EQ(widget.toolTip(), "");

    Helper::appendThumbnailText(&widget, "[1] ");
    EXPECT_EQ(widget.text(), "[1] " + kLong);
    Helper::appendThumbnailText(&widget, "name");
    EXPECT_EQ(widget.text(), "[1] " + kLong);
    EXPECT_EQ(Helper::realData(&widget, 0)->m_text, "[1] " + kLong);
}

TEST(HelperWidgets, TheFullTextIsKeptBesideTheShortenedOne) {
    expectElision<QLabel>();
    expectElision<QPushButton>();
}

TEST(HelperWidgets, WithoutATextThereIsNothingToChange) {
    QLabel empty;
    empty.setToolTip("tip");
    Helper::caclThumbnailText(&empty);
    EXPECT_EQ(empty.toolTip(), "tip");

    QLabel label("text");
    Helper::appendThumbnailText(&label, "more ");
    EXPECT_EQ(label.text(), "text");
    EXPECT_EQ(Helper::realData(&label, 0), nullptr);
}

TEST(HelperWidgets, AllLabelsAndPushButtonsBelowAreReached) {
    QWidget top;
    auto *const group = new QWidget(&top);
    auto *const label = new QLabel(kLong, group);
    auto *const button = new QPushButton(kLong, &top);
    auto *const box = new QCheckBox(kLong, group);
    for (QWidget *widget : {static_cast<QWidget *>(label), static_cast<QWidget *>(button), static_cast<QWidget *>(box)})
        widget->resize(40, 20);
    Helper::allCaclThumbnailText(&top);
    Helper::appendCaclThumbnailText(&top, "[2] ");
    EXPECT_EQ(Helper::realText(label), "[2] " + kLong);
    EXPECT_EQ(Helper::realText(button), "[2] " + kLong);
    EXPECT_EQ(button->toolTip(), "[2] " + kLong);
    EXPECT_EQ(box->text(), kLong);
}

TEST(HelperWidgets, RealTextOfWidgetsWithoutARecord) {
    QWidget plain;
    QLabel label("label");
    QCheckBox box("box");
    EXPECT_EQ(Helper::realText(&label), "label");
    EXPECT_EQ(Helper::realText(&box), "box");
    EXPECT_EQ(Helper::realText(&plain), "");
    EXPECT_EQ(Helper::realText(nullptr), "");
    EXPECT_EQ(Helper::realData(&label, 5), nullptr);
    EXPECT_EQ(Helper::realData(&label, -1), nullptr);
    EXPECT_EQ(Helper::realData(nullptr, 0), nullptr);
    Helper::allCaclThumbnailText(nullptr);
}

} // namespace
