#include <quorixbizmodel/files/alphamap.h>

#include <algorithm>
#include <iterator>

namespace Quorix::BizModel {

namespace {

/// Source texts, not translations: the language may change while the application runs.
struct Shape {
    int id;
    const char *description;
    const char *path;
};

constexpr Shape kShapes[] = {
    {0, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "heart"), ":/shape/heart.png"},
    {1, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "star"), ":/shape/star.png"},
    {2, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "round"), ":/shape/round.png"},
    {3, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "moon"), ":/shape/moon.png"},
    {4, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "ellipse"), ":/shape/ellipse.png"},
    {5, QT_TRANSLATE_NOOP("Quorix::BizModel::Alphamap", "diamond"), ":/shape/diamond.png"},
};

/// The row of a shape, null for an id outside the table.
const Shape *findShape(int id) {
    const auto *found =
        std::find_if(std::begin(kShapes), std::end(kShapes), [id](const Shape &shape) { return shape.id == id; });
    return found == std::end(kShapes) ? nullptr : found;
}

} // namespace

Alphamap *Alphamap::instance() {
    static Alphamap map;
    return &map;
}

QList<int> Alphamap::getIds() const {
    QList<int> ids;
    for (const Shape &shape : kShapes)
        ids.append(shape.id);
    return ids;
}

QString Alphamap::getDescription(int id) const {
    const Shape *shape = findShape(id);
    return shape != nullptr ? tr(shape->description) : QString();
}

QString Alphamap::getTemplate(int id) const {
    const Shape *shape = findShape(id);
    return shape != nullptr ? QString::fromLatin1(shape->path) : QString();
}

QImage Alphamap::getAlphamap(int id) const {
    const QString path = getTemplate(id);
    return path.isEmpty() ? QImage() : QImage(path);
}

void Alphamap::init(const QString &) {}

} // namespace Quorix::BizModel
