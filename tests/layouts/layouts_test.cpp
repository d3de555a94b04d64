#include <capability/config_files.h>
#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/mvrlayout.h>
#include <quorixbizmodel/layouts/screenlayout.h>
#include <support/messagelog.h>

#include <QApplication>

#include <climits>

using namespace Quorix::BizModel;
using Quorix::Tests::MessageLog;
using testing::ElementsAre;

namespace {

const QString kNoPicture = QStringLiteral("debug: readLayout unable to load pixmap");

QByteArray head(const QByteArray &name, const QByteArray &image = "none.png") {
    return "<layout><name>" + name + "</name><image>" + image + "</image>";
}

/// A folder with a layout file and, on demand, pictures. The registers live on: each test has names of its own.
struct LayoutsTest : testing::Test {
    template <class Layouts>
    QStringList load(const QByteArray &templates) {
        const MessageLog log;
        dir.write(QStringLiteral("layout.xml"), "<layouts>" + templates + "</layouts>");
        Layouts::instance()->load(dir.path());
        return MessageLog::take();
    }
    void paint(const QString &name, const QSize &size) const {
        const QString path = dir.path() + QLatin1Char('/') + name;
        ASSERT_TRUE(QFileInfo(path).dir().mkpath(QStringLiteral(".")));
        QImage image(size, QImage::Format_Grayscale8);
        image.fill(Qt::gray);
        ASSERT_TRUE(image.save(path));
    }

    ConfigDir dir;
};

template <class Layout>
QStringList names(const QList<Layout> &layouts, const char *prefix) {
    QStringList found;
    for (const Layout &layout : layouts)
        if (layout.layoutName_.startsWith(QLatin1String(prefix)))
            found << layout.layoutName_;
    return found;
}

TEST_F(LayoutsTest, LayersGoByNameAndByCount) {
    QByteArray file;
    for (const char *count : {"1", "4", "2", "9", "3", "5", "0", "2"})
        file += head(QByteArray("n") + count) + "<layers><count>" + count + "</count></layers></layout>";
    file += head("nX") +
            "<layoutType>7</layoutType><layers><layer/>text<count>-1</count><![CDATA[x]]><!--y--><row>2"
            "</row><layer><row>4</row><col>5</col><rowspan>6</rowspan><colspan>8</colspan></layer></layers></layout>";
    load<LayerLayout>(file);
    const auto *layouts = LayerLayout::instance();
    using Count = LayerLayout::LayerCount;
    EXPECT_THAT(names(layouts->getLayout(Count::all), "n"), ElementsAre("n4", "n3", "n2", "n2", "n1"));
    EXPECT_THAT(names(layouts->getLayout(Count::layr_0), "n"), ElementsAre("n0"));
    for (const int count : {-1, 6, 9})
        EXPECT_TRUE(layouts->getLayout(static_cast<Count>(count)).isEmpty());
    EXPECT_EQ(layouts->findLayout("n9").count_, 9);

    const LayerLayout::Layout odd = layouts->findLayout("nX");
    EXPECT_THAT((std::vector<int>{odd.layoutType_, odd.count_, odd.row_, odd.col_, odd.spacingType_}),
                ElementsAre(7, -1, 2, 0, 0));
    ASSERT_EQ(odd.layers_.size(), 4); // every element behind the first layer is one
    const LayerLayout::LayerValue &last = odd.layers_[3];
    EXPECT_THAT((std::vector<int>{last.row_, last.col_, last.rowSpan_, last.colSpan_}), ElementsAre(4, 5, 6, 8));
    const LayerLayout::Layout none = layouts->findLayout("nothing");
    EXPECT_TRUE(none.layoutName_.isEmpty() && none.layoutPixmap_.isNull() && none.layers_.isEmpty());
}

TEST_F(LayoutsTest, ScreensWithoutOutputDropTheirTemplate) {
    paint(QStringLiteral("a.png"), {2, 1});
    paint(QStringLiteral("b.png"), {3, 1});
    const QByteArray good = "<screen><output><width>5</width><height>6</height></output><x>1</x><y>2</y><row>3</row>"
                            "<col>4</col><width>7</width><height>8</height></screen>";
    auto *layouts = ScreenLayout::instance();
    EXPECT_THAT(load<ScreenLayout>(head("s b", "a.png") + good + "</layout>" + head("s a", "a.png") + "</layout>"),
                ElementsAre());
    EXPECT_THAT(layouts->getDescriptions().filter("s "), ElementsAre("s a", "s b"));
    const ScreenLayout::Layout screen = layouts->findLayout("s b").value(0);
    EXPECT_THAT((std::vector<int>{screen.x_, screen.y_, screen.row_, screen.col_}), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(screen.size_ == QSize(7, 8) && screen.outputSize_ == QSize(5, 6));

    const QByteArray late =
        "<layout>" + good + "<name>s c</name><image>a.png</image></layout>"; // both count as screens
    EXPECT_THAT(load<ScreenLayout>(head("s b", "b.png") + good + good + "<screen/></layout>" + late +
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
    QByteArray cell;
    for (const char *tag : {"mvrtype", "mvrindex", "row", "col", "rowspan", "colspan", "leftmargin", "rightmargin",
                            "topmargin", "bottommargin"})
        cell += QByteArray("<") + tag + ">" + QByteArray::number(cell.count("</") + 1) + "</" + tag + ">";
    load<MvrLayout>(head("m b") + "</layout>" + head("m a") + "</layout>" + head("m b") + "<mvrs><mvr>" + cell +
                    "</mvr></mvrs></layout>");
    const auto *layouts = MvrLayout::instance();
    EXPECT_THAT(names(layouts->getLayoutsList(), "m "), ElementsAre("m b", "m a", "m b"));
    EXPECT_THAT(names(layouts->getLayoutsMap().values(), "m "), ElementsAre("m a", "m b"));
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
    for (const char *name : {"in/a.png", "in/sub/a.png", "outside.png"})
        paint(QLatin1String(name), {2, 2});
    paint(QStringLiteral("in/%1.png"), {16384, 1});
    paint(QStringLiteral("in/wide.png"), {16385, 1});
    const std::pair<QByteArray, int> rows[] = {{"a.png", 2},
                                               {"sub/a.png", 2},
                                               {"sub/../a.png", 2},
                                               {"%1.png", 16384},
                                               {"wide.png", 0},
                                               {"../outside.png", 0},
                                               {"", 0},
                                               {"sub/../../outside.png", 0},
                                               {"missing.png", 0},
                                               {(dir.path() + "/in/a.png").toUtf8(), 0}};
    for (const auto &[image, width] : rows) {
        dir.write(QStringLiteral("in/layout.xml"), "<layouts>" + head("picture", image) + "</layout></layouts>");
        const MessageLog log;
        LayerLayout::instance()->load(dir.path() + QStringLiteral("/in"));
        EXPECT_EQ(LayerLayout::instance()->findPixmap("picture").width(), width) << image.constData();
        EXPECT_EQ(MessageLog::take(), width == 0 ? QStringList(kNoPicture) : QStringList()) << image.constData();
    }
}

TEST_F(LayoutsTest, BadFilesChangeNothing) {
    const QString place = QStringLiteral(" file [ \"%1\" ]").arg(dir.path());
    const MessageLog log;
    MvrLayout::instance()->load(dir.path());
    EXPECT_THAT(MessageLog::take(), ElementsAre("debug: can not open" + place));
    const auto before = MvrLayout::instance()->getLayoutsList().size();
    const std::pair<QByteArray, QString> rows[] = {
        {"", QStringLiteral("debug: invalid xml root node [layouts].")},
        {"<layout/>", QStringLiteral("debug: invalid xml root node [layouts].")},
        {"<layouts>" + head("bad") + "</layout>", "debug: can not read" + place + " unexpected end of data"},
    };
    for (const auto &[file, line] : rows) {
        dir.write(QStringLiteral("layout.xml"), file);
        MvrLayout::instance()->load(dir.path());
        EXPECT_THAT(MessageLog::take(), ElementsAre(line)) << file.constData();
    }
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
    const QString folder = QStringLiteral(QUORIX_DATA_DIR "/layouts/");
    const MessageLog log;
    LayerLayout::instance()->load(folder + "layers");
    ScreenLayout::instance()->load(folder + "screens");
    MvrLayout::instance()->load(folder + "mvr");
    EXPECT_THAT(MessageLog::take(), ElementsAre()); // every picture is there
    const LayerLayout::Layout stage = LayerLayout::instance()->findLayout("Stage");
    EXPECT_EQ(stage.layers_.size(), stage.count_);
    EXPECT_EQ(ScreenLayout::instance()->findLayout("Blend").size(), 2);
    EXPECT_EQ(MvrLayout::instance()->findLayout("Director").layoutPixmap_.size(), QSize(96, 54));
}

/// In a process of its own: it ends the application and goes on without a GUI.
TEST_F(LayoutsTest, PicturesEndWithTheApplication) {
    paint(QStringLiteral("a.png"), {2, 2});
    const QByteArray file = (head("end", "a.png") + "</layout>").repeated(2);
    const auto run = [&] {
        load<LayerLayout>(file), load<ScreenLayout>(file), load<MvrLayout>(file);
        const auto byCount = [] { return LayerLayout::instance()->getLayout(LayerLayout::LayerCount::layr_0); };
        const QPixmap copies[] = {LayerLayout::instance()->findPixmap("end"),
                                  byCount().at(byCount().size() - 2).layoutPixmap_, // the first of the two
                                  ScreenLayout::instance()->findPixmap("end"),
                                  MvrLayout::instance()->findLayout("end").layoutPixmap_};
        delete QCoreApplication::instance();
        for (const QPixmap &copy : copies)
            if (copy.isNull() || !copy.isDetached())
                return 1;
        int argc = 0;
        const QCoreApplication plain(argc, nullptr);
        const bool isSaid = load<LayerLayout>(file) == QStringList({kNoPicture, kNoPicture});
        return isSaid && LayerLayout::instance()->findPixmap("end").isNull() ? 0 : 2;
    };
    EXPECT_EXIT(std::_Exit(run()), testing::ExitedWithCode(0), "");
}

} // namespace
