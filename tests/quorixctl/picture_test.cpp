/// Pictures of screens.
#include "commandrun.h"

#include <quorixctl/picture/labels.h>
#include <quorixctl/picture/screenpicture.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QLocale>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <limits>
#include <random>

namespace {

using namespace quorixctl;

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All texts of a well-formed document; what is wrong with another one.
QStringList textsOf(const std::string &svg) {
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    QStringList texts;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("text"))
            texts << reader.readElementText();
    return reader.hasError() ? QStringList(reader.errorString()) : texts;
}

TEST(Picture, ShowsTheWallInBothForms) {
    const QTemporaryDir folder;
    const QString svg = folder.filePath(QStringLiteral("wall.svg"));
    const QString png = folder.filePath(QStringLiteral("wall.PNG"));
    ASSERT_EQ(run({"draw", report("alder-max.json"), "-o", svg}).code, 0);
    const QByteArray first = contentOf(svg);
    const QStringList texts = textsOf(first.toStdString());
    for (const char *wanted : {"Main Wall", "PVW  preview", "Output 3-3", "Output 1-4 \u00B7 1600 \u00D7 1080",
                               "Layer 10 \u00B7 cut", "z9", "Input 10-1 \u00B7 3840 \u00D7 1080",
                               "crop 50 \u00D7 100 %", "selected", "7360", "Out2 in slot 13", "PGM 8, PVW 20 of 16"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(wanted))) << wanted;

    // The same bytes, whatever the station's language.
    QLocale::setDefault(QLocale::German);
    EXPECT_EQ(run({"draw", report("alder-max.json"), "--screen", "2:0", "--scene", "pvw", "-o", svg}).code, 0);
    QLocale::setDefault(QLocale::system());
    EXPECT_EQ(contentOf(svg), first);

    ASSERT_EQ(run({"draw", report("alder-max.json"), "--screen", "regular:1", "-o", png}).code, 0);
    const QImage image(png);
    EXPECT_EQ(image.width(), 1200);
    EXPECT_EQ(image.pixelColor(600, 91), QColor(0x2C, 0x7A, 0x44)); // the rule under the title, of a preview
}

TEST(Picture, EachKindOfScreenHasItsScene) {
    const QTemporaryDir folder;
    const QString svg = folder.filePath(QStringLiteral("screen.svg"));
    const struct {
        QStringList options;
        const char *text;
    } rows[] = {
        {{"--screen", "aux:0"}, "PGM 2 of 4"},
        {{"--screen", "aux:0"}, "Confidence-PGM \u00B7 3840 \u00D7 1080"},
        {{"--screen", "mvr:0"}, "Stage Blend-PGM"},
        {{"--screen", "mvr:0"}, "grid of the multiviewer"},
        {{"--screen", "regular:0", "--scene", "pgm"}, "PGM  programme"},
        {{"--screen", "mvr:0", "--scene", "pvw"}, "PVW  preview"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(run(QStringList{"draw", report("alder-max.json"), "-o", svg} + row.options).code, 0);
        EXPECT_TRUE(textsOf(contentOf(svg).toStdString()).contains(QString::fromUtf8(row.text))) << row.text;
    }
}

TEST(Picture, NoReportBreaksIt) {
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    ScreenView view;
    EXPECT_FALSE(textsOf(svgOf(pictureOf(view))).isEmpty());
    view.cells = {Area{kLeast, kLeast, 2 * kMost, 2 * kMost}, Area{0, 0, 320, 180}, Area{}};
    view.name = QStringLiteral("<&>\"\x01 ") + QString(QChar(0xFFFF)) + QString(2000, QChar(0x4E3B));
    for (const Area &window : {Area{kLeast, kLeast, kMost, kMost}, Area{kMost, kMost, kMost, kMost}, Area{},
                               Area{5, 5, -9, -9}, Area{0, 0, 1, 1}, Area{kLeast, 0, 2 * kMost, 3}})
        for (const bool isCut : {false, true})
            for (int i = 0; i < 30; ++i) {
                LayerView layer;
                layer.window = window;
                layer.isCut = isCut;
                layer.isSelected = i == 0;
                layer.borderInside = kMost;
                layer.crop = Area{-5, 9, 1e9, 0};
                view.layers.push_back(layer);
            }
    for (const Area &frame : {Area{0, 0, 1920, 1080}, Area{0, 0, 1920, 1080}, Area{0, 0, 0, 0}, Area{9, 9, -1, kMost}})
        view.outputs.push_back({QStringLiteral("twin"), {}, frame, frame, {kMost, 1, kMost, 1}});
    view.cards.push_back({view.name, 0, {{true, 0}, {false, 9}}});
    for (const Area &mosaic : {Area{}, Area{0, 0, 1920, 1080}, Area{kLeast, kLeast, 2 * kMost, 2 * kMost}}) {
        view.mosaic = mosaic;
        const Drawing drawing = pictureOf(view);
        EXPECT_LT(drawing.height, 3000);
        const QStringList texts = textsOf(svgOf(drawing));
        EXPECT_TRUE(texts.contains(QStringLiteral("and 300 more below them"))) << texts.first();
        EXPECT_EQ(imageOf(drawing).width(), 1200);
    }
}

TEST(Picture, NoLabelCoversAnother) {
    std::mt19937 random(7);
    const auto number = [&](double least, double most) { return std::uniform_real_distribution(least, most)(random); };
    LabelPlan plan;
    std::vector<Area> placed;
    for (int i = 0; i < 400; ++i) {
        const Area window{number(0, 900), number(0, 500), number(20, 400), number(20, 300)};
        const Area cover{number(0, 900), number(0, 500), number(20, 300), number(20, 200)};
        const auto corner = i % 2 == 0 ? LabelPlan::Corner::TopLeft : LabelPlan::Corner::BottomLeft;
        const auto label = plan.place(window, number(20, 120), number(10, 40), {cover}, corner);
        if (!label)
            continue;
        EXPECT_FALSE(label->meets(cover));
        EXPECT_NEAR(label->united(window).width, window.width, 1e-9); // inside
        EXPECT_NEAR(label->united(window).height, window.height, 1e-9);
        for (const Area &other : placed)
            EXPECT_FALSE(label->meets(other));
        placed.push_back(*label);
    }
    EXPECT_GT(placed.size(), 30U);
}

} // namespace
