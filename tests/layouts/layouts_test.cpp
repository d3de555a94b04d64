#include <capability/config_files.h>
#include <quorixbizmodel/files/alphamap.h>
#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/mvrlayout.h>
#include <quorixbizmodel/layouts/screenlayout.h>
#include <support/messagelog.h>

#include <QApplication>
#include <QTranslator>

#include <climits>

using namespace Quorix::BizModel;
using Quorix::Tests::MessageLog;
using testing::ElementsAre;

namespace {

const QString kNoPicture = QStringLiteral("debug: readLayout unable to load pixmap");

QByteArray head(const QByteArray &name, const QByteArray &image = "none.png") {
    return "<layout><name>" + name + "</name><image>" + image + "</image>";
}

/// Elements with the numbers from 1 on.
QByteArray numbers(const char *tags) {
    QByteArray text;
    for (const QByteArray &tag : QByteArray(tags).split(' '))
        text += "<" + tag + ">" + QByteArray::number(text.count("</") + 1) + "</" + tag + ">";
    return text;
}

/// A folder with a layout file and, on demand, pictures. The registers live on: each test has names of its own.
struct LayoutsTest : testing::Test {
    /// What is said while a file with these templates is read.
    template <class Layouts>
    QStringList load(const QByteArray &templates, const char *root = "layouts") {
        dir.write("in/layout.xml", QByteArray("<") + root + ">" + templates + "</" + root + ">");
        Layouts::instance()->load(folder);
        return MessageLog::take();
    }
    void paint(const QString &name, const QSize &size) const {
        dir.write("in/" + name, {}); // makes the folder
        QImage image(size, QImage::Format_Grayscale8);
        image.fill(Qt::gray);
        ASSERT_TRUE(image.save(folder + '/' + name));
    }

    ConfigDir dir;
    const QString folder = dir.path() + "/in";
    MessageLog log;
};

/// Those of one test.
template <class Layout>
QString names(const QList<Layout> &layouts, const char *prefix) {
    QStringList found;
    for (const Layout &layout : layouts)
        if (layout.layoutName_.startsWith(prefix))
            found << layout.layoutName_;
    return found.join(',');
}

TEST_F(LayoutsTest, LayersGoByNameAndByCount) {
    QByteArray file;
    for (const char *count : {"1", "4", "2", "9", "3", "5", "0", "2"})
        file += head(QByteArray("n") + count) + "<layers><count>" + count + "</count></layers></layout>";
    load<LayerLayout>(file + head("nX") +
                      "<layoutType>7</layoutType><layers><layer/>text<count>-1</count><![CDATA[x]]><!--y--><row>2</row>"
                      "<layer>" +
                      numbers("row col rowspan colspan") + "</layer></layers></layout>");
    const auto *layouts = LayerLayout::instance();
    const auto ofCount = [&](int count) {
        return names(layouts->getLayout(static_cast<LayerLayout::LayerCount>(count)), "n");
    };
    EXPECT_EQ(ofCount(5) + ';' + ofCount(0) + ofCount(-1) + ofCount(6) + ofCount(9), "n4,n3,n2,n2,n1;n0");
    EXPECT_EQ(layouts->findLayout("n9").count_, 9);

    const auto odd = layouts->findLayout("nX"), none = layouts->findLayout("nothing");
    EXPECT_THAT((std::vector<int>{odd.layoutType_, odd.count_, odd.row_, odd.col_, odd.spacingType_}),
                ElementsAre(7, -1, 2, 0, 0));
    ASSERT_EQ(odd.layers_.size(), 4); // every element behind the first layer is one
    const LayerLayout::LayerValue &last = odd.layers_[3];
    EXPECT_THAT((std::vector<int>{last.row_, last.col_, last.rowSpan_, last.colSpan_}), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(none.layoutName_.isEmpty() && none.layoutPixmap_.isNull() && none.layers_.isEmpty());
}

TEST_F(LayoutsTest, ScreensWithoutOutputDropTheirTemplate) {
    paint("a.png", {2, 1});
    paint("b.png", {3, 1});
    const QByteArray good =
        "<screen><output>" + numbers("width height") + "</output>" + numbers("x y row col width height") + "</screen>";
    auto *layouts = ScreenLayout::instance();
    EXPECT_THAT(load<ScreenLayout>(head("s b", "a.png") + good + "</layout>" + head("s a", "a.png") + "</layout>"),
                ElementsAre());
    EXPECT_THAT(layouts->getDescriptions().filter("s "), ElementsAre("s a", "s b"));
    const ScreenLayout::Layout screen = layouts->findLayout("s b").value(0);
    EXPECT_THAT((std::vector<int>{screen.x_, screen.y_, screen.row_, screen.col_}), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(screen.size_ == QSize(5, 6) && screen.outputSize_ == QSize(1, 2));

    // Behind a screen, name and image count as such and as screens.
    EXPECT_THAT(load<ScreenLayout>(head("s b", "b.png") + good + good + "<screen/></layout><layout>" + good +
                                   "<name>s c</name><image>a.png</image></layout>"
                                   "<layout><image/></layout><layout><name/></layout>"),
                ElementsAre("debug: readLayout invalid xml root node [output].",
                            "debug: readLayout invalid xml root node [output].",
                            "debug: readLayout invalid xml attrib node [name].",
                            "debug: readLayout invalid xml attrib node [image]."));
    EXPECT_EQ(layouts->findLayout("s b").size(), 1); // the older one, with the new picture
    EXPECT_EQ(layouts->findPixmap("s b").width(), 3);
    EXPECT_TRUE(layouts->findLayout("s c").isEmpty() && !layouts->findPixmap("s c").isNull());
}

TEST_F(LayoutsTest, MultiviewerKeepsTheOrderOfTheFile) {
    load<MvrLayout>(head("m b") + "</layout>" + head("m a") + "</layout>" + head("m b") + "<mvrs><mvr>" +
                    numbers("mvrtype mvrindex row col rowspan colspan leftmargin rightmargin topmargin bottommargin") +
                    "</mvr></mvrs></layout>");
    const auto *layouts = MvrLayout::instance();
    EXPECT_EQ(names(layouts->getLayoutsList(), "m "), "m b,m a,m b");
    EXPECT_EQ(names(layouts->getLayoutsMap().values(), "m "), "m a,m b");
    const MvrLayout::MvrValue m = layouts->findLayout("m b").mvrs_.value(0);
    EXPECT_THAT((std::vector<int>{m.mvrType_, m.mvrIndex_, m.row_, m.col_, m.rowSpan_, m.colSpan_, m.leftMargin,
                                  m.rightMargin, m.topMargin, m.bottomMargin}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST_F(LayoutsTest, NumbersEndWhereTheirDigitsEnd) {
    const std::pair<const char *, int> rows[] = {
        {" \t\n-7x", -7},         {"+12", 12}, {"+-1", 0}, {"", 0}, {"99999999999", INT_MAX}, {"0x10", 0},
        {"-99999999999", INT_MIN}};
    for (const auto &[text, value] : rows) {
        load<LayerLayout>(head("number") + "<layoutType>" + text + "</layoutType></layout>");
        EXPECT_EQ(LayerLayout::instance()->findLayout("number").layoutType_, value) << text;
    }
}

TEST_F(LayoutsTest, PicturesComeFromTheFolderOnly) {
    for (const char *name : {"a.png", "sub/a.png", "../outside.png"})
        paint(name, {2, 2});
    paint("%1.png", {16384, 1});
    paint("wide.png", {16385, 1});
    const std::pair<int, QList<QByteArray>> rows[] = {
        {2, {"a.png", "sub/a.png", "sub/../a.png"}},
        {16384, {"%1.png"}},
        {0, {"", "../outside.png", "sub/../../outside.png", folder.toUtf8() + "/a.png"}},
        {0, {"missing.png", "wide.png"}}};
    for (const auto &[width, images] : rows)
        for (const QByteArray &image : images) {
            const QStringList lines = load<LayerLayout>(head("picture", image) + "</layout>");
            EXPECT_EQ(lines, width == 0 ? QStringList(kNoPicture) : QStringList()) << image.constData();
            EXPECT_EQ(LayerLayout::instance()->findPixmap("picture").width(), width) << image.constData();
        }
}

TEST_F(LayoutsTest, BadFilesChangeNothing) {
    const auto before = MvrLayout::instance()->getLayoutsList().size();
    const QString place = QStringLiteral(" file [ \"%1\" ]").arg(folder);
    MvrLayout::instance()->load(folder);
    EXPECT_THAT(MessageLog::take(), ElementsAre("debug: can not open" + place));
    EXPECT_THAT(load<MvrLayout>(head("bad") + "</layout>", "layout"),
                ElementsAre("debug: invalid xml root node [layouts]."));
    EXPECT_THAT(load<MvrLayout>(head("bad")), ElementsAre("debug: can not read" + place + " unexpected end of data"));
    EXPECT_EQ(MvrLayout::instance()->getLayoutsList().size(), before);
}

TEST_F(LayoutsTest, NestingIsHeldWhateverHidesIt) {
    const QByteArray rows = R"(<a>|<a">|<a b'="/>">|<a b"="'" c' = '">'>|<b/><a>|<a></b><a>|<a><!--</a>-->|<a><?</a>?>)"
                            R"(|<a><![CDATA[</a>]]>|<a><!X "'>|<a><!DOCTYPEx[>|<a><!DOCTYPE x [>[</a>]">]>)"
                            R"(|<a><?></a>?>|<a><!--></a>--></a ><a >)";
    for (const QByteArray &row : rows.split('|'))
        for (const int times : {511, 512}) { // below the root
            const QStringList lines = load<MvrLayout>(row.repeated(times) + QByteArray("</a>").repeated(times));
            EXPECT_EQ(lines.size(), times == 511 ? 0 : 1) << row.constData() << lines.value(0).toStdString();
            EXPECT_EQ(lines.filter("nested too deeply"), lines);
        }
}

TEST_F(LayoutsTest, SampleDeploymentReads) {
    LayerLayout::instance()->load(QUORIX_DATA_DIR "/layouts/layers");
    ScreenLayout::instance()->load(QUORIX_DATA_DIR "/layouts/screens");
    MvrLayout::instance()->load(QUORIX_DATA_DIR "/layouts/mvr");
    EXPECT_THAT(MessageLog::take(), ElementsAre()); // every picture is there
    EXPECT_EQ(MvrLayout::instance()->findLayout("Director").layoutPixmap_.size(), QSize(96, 54));
}

/// In a process of its own: it ends the application and goes on without a GUI.
TEST_F(LayoutsTest, PicturesEndWithTheApplication) {
    paint("a.png", {2, 2});
    const QByteArray file = head("end", "a.png") + "</layout>";
    const auto passes = [&] {
        load<LayerLayout>(file), load<ScreenLayout>(file), load<MvrLayout>(file);
        const QPixmap copies[] = {LayerLayout::instance()->findPixmap("end"),
                                  ScreenLayout::instance()->findPixmap("end"),
                                  MvrLayout::instance()->findLayout("end").layoutPixmap_};
        delete QCoreApplication::instance();
        for (const QPixmap &copy : copies) // the lists of a register share one picture
            if (!copy.isDetached())
                return false;
        int argc = 0;
        const QCoreApplication plain(argc, nullptr);
        return load<LayerLayout>(file) == QStringList(kNoPicture) &&
               LayerLayout::instance()->findPixmap("end").isNull();
    };
    EXPECT_EXIT(std::_Exit(passes() ? 0 : 1), testing::ExitedWithCode(0), "");
}

/// Puts a mark behind every text.
struct Marker : QTranslator {
    QString translate(const char *, const char *text, const char *, int) const override { return QString(text) + '*'; }
    bool isEmpty() const override { return false; }
};

TEST(Alphamap, GivesTheTableInTheLanguageOfTheMoment) {
    Alphamap *map = Alphamap::instance();
    const QStringList names{"heart", "star", "round", "moon", "ellipse", "diamond"};
    EXPECT_THAT(map->getIds(), ElementsAre(0, 1, 2, 3, 4, 5));
    for (const int id : {-1, 0, 1, 2, 3, 4, 5, 6}) {
        EXPECT_EQ(map->getDescription(id), names.value(id));
        EXPECT_EQ(map->getTemplate(id), names.value(id).isEmpty() ? "" : ":/shape/" + names[id] + ".png");
        EXPECT_TRUE(map->getAlphamap(id).isNull()); // the application has the pictures
    }
    Marker marker;
    QCoreApplication::installTranslator(&marker);
    EXPECT_EQ(map->getDescription(3), "moon*");
    QCoreApplication::removeTranslator(&marker);
}

} // namespace
