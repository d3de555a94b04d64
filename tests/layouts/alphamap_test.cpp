#include <quorixbizmodel/files/alphamap.h>

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QTranslator>

using namespace Quorix::BizModel;

namespace {

/// Puts a mark behind every text of the class.
struct Marker : QTranslator {
    QString translate(const char *context, const char *text, const char *, int) const override {
        return qstrcmp(context, "Quorix::BizModel::Alphamap") == 0 ? QLatin1String(text) + QLatin1Char('*') : QString();
    }
    bool isEmpty() const override { return false; }
};

TEST(Alphamap, GivesTheTableInTheLanguageOfTheMoment) {
    Alphamap *map = Alphamap::instance();
    EXPECT_THAT(map->getIds(), testing::ElementsAre(0, 1, 2, 3, 4, 5));
    const char *const names[] = {"heart", "star", "round", "moon", "ellipse", "diamond"};
    for (const int id : map->getIds()) {
        EXPECT_EQ(map->getDescription(id), names[id]);
        EXPECT_EQ(map->getTemplate(id), QStringLiteral(":/shape/%1.png").arg(QLatin1String(names[id])));
    }
    Marker marker;
    QCoreApplication::installTranslator(&marker);
    EXPECT_EQ(map->getDescription(3), "moon*");
    QCoreApplication::removeTranslator(&marker);
    for (const int id : {-1, 6}) {
        EXPECT_EQ(map->getDescription(id) + map->getTemplate(id), QString());
        EXPECT_TRUE(map->getAlphamap(id).isNull());
    }
}

} // namespace
