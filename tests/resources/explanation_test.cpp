#include "budgets.h"

#include <numeric>
#include <random>

namespace Quorix::Tests {
namespace {

using ProtoModel::Device::s_subcardBody;

template <class List, class Cost>
int sum(const List &list, Cost cost) {
    return std::accumulate(list.begin(), list.end(), 0,
                           [&](int units, const auto &entry) { return units + std::invoke(cost, entry); });
}

int piecesOf(const ResourceExplanation::LayerCost &layer) {
    const int units = sum(layer.pieces, &ResourceExplanation::Piece::units);
    EXPECT_EQ(units, layer.units);
    return units;
}

int layersOf(const ResourceExplanation::ScreenCost &screen) {
    const int units = sum(screen.layers, piecesOf);
    EXPECT_EQ(units, screen.units);
    return units;
}

/// The rule of regular screens in terms of the costs of single layers.
struct RuleBook {
    std::shared_ptr<Device> device;
    ResourceCheck::LayerRects rects;
    Scene scene;
    std::shared_ptr<Layer> switched;

    int onRegular(const std::shared_ptr<Screen> &screen, const s_subcardBody &card, const QRect &rect,
                  const std::shared_ptr<Layer> &layer) const {
        return layer == nullptr ? 0
                                : ResourceCheck::calcResourcesOfRectEx(screen, card, rect, layer->layerMode(),
                                                                       layer->capacity(), layer, switched);
    }

    int allocedOn(const s_subcardBody &card, const std::shared_ptr<Screen> &asked) const {
        return sum(device->regulerScreens(), [&](const std::weak_ptr<Screen> &reference) {
            const auto screen = reference.lock();
            const auto inScene = [&](Scene type) {
                return sum(screen->layers(type, LayerType::Regular), [&](const std::weak_ptr<Layer> &entry) {
                    const auto layer = entry.lock();
                    const auto cut = layer->isCutLayerEnable() ? layer->cutLayer().lock() : nullptr;
                    return onRegular(screen, card, layer->windowRect(), layer) +
                           onRegular(screen, card, cut == nullptr ? QRect() : cut->windowRect(), cut);
                });
            };
            return screen == asked ? inScene(scene) : std::max(inScene(Scene::PGM), inScene(Scene::PVW));
        });
    }

    bool check(const std::shared_ptr<RegularScreen> &screen, QMap<int, int> &figures) const {
        int limit = 65535;
        const auto cards = device->protoSubcards(screen);
        for (const auto &card : cards)
            limit = std::min(limit, device->subcardResources(card.cardType));
        bool fits = true;
        for (const auto &card : cards) {
            int units = allocedOn(card, screen);
            EXPECT_EQ(ResourceCheck::calcAllocedResourcesOfSlot(card, screen, scene, true, switched), units);
            for (const auto &[reference, rect] : rects) {
                const auto layer = reference.lock();
                if (layer->layerId() != 255)
                    units -= onRegular(screen, card, layer->windowRect(), layer);
                units += onRegular(screen, card, rect, layer);
                figures[card.slotId] = units / 2;
            }
            fits = fits && units <= limit;
        }
        return fits;
    }
};

/// A wall drawn at random over the outputs of the fixture, and a proposal for one of its screens.
struct RandomWalls : Budgets {
    std::mt19937 random{20240229};
    std::vector<std::shared_ptr<Screen>> screens;

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    QRect rect() {
        // Now and then on the grid of the outputs, where edges touch.
        const auto place = [&](int step) { return below(3) == 0 ? step * (below(5) - 1) : below(5000) - 500; };
        return {place(960), place(540), below(4) == 0 ? 960 : below(3000), below(4) == 0 ? 1080 : below(1500)};
    }
    std::shared_ptr<Layer> drawnLayer(Screen &screen, int id, Scene scene, LayerType type = LayerType::Invalid) {
        const Source sources[] = {Source::Input, Source::Input, Source::PGM, Source::Empty, Source::BKG};
        const Capacity capacities[] = {Capacity::_SL, Capacity::_DL, Capacity::_4K, Capacity::invaild};
        const Source source = sources[below(5)];
        const auto sourceId = source == Source::Input ? 1U << 16U : static_cast<uint32_t>(below(3));
        return made(screen, id, rect(), capacities[below(4)], scene, source, sourceId, type);
    }

    void SetUp() override {
        Budgets::SetUp();
        screens = {regular, addedScreen<RegularScreen>(QStringLiteral("second"), 1), aux,
                   addedScreen<AuxScreen>(QStringLiteral("aux2"), 1)};
        outputs.push_back(twin);
        device->setConnectorCapacity(7, 1, Capacity::_4K);
    }

    void draw() {
        for (const auto &screen : screens) {
            screen->clearLayer();
            QList<QPair<std::weak_ptr<Output>, QPoint>> mosaic;
            for (const auto &output : outputs)
                if (below(2) == 0)
                    mosaic.append({output, {960 * below(5), 540 * below(3)}});
            screen->updateOutputs(mosaic, {1, 1});
            for (int id = 0; id < 4; ++id)
                for (const Scene scene : {Scene::PVW, Scene::PGM}) {
                    const auto layer = drawnLayer(*screen, id, scene);
                    screen->addLayer(layer);
                    if (below(4) != 0 || screen->screenType() == Enum::Screen::ScreenType::AUXScreen)
                        continue;
                    layer->setCutAndFill({.enable = below(2) == 0, .isBinding = false});
                    screen->addLayer(drawnLayer(*screen, id, scene, LayerType::Cut));
                }
        }
        for (const uint8_t slotId : {uint8_t{6}, uint8_t{7}})
            device->findSubcardBySlotId(slotId).lock()->setCardType(below(3) == 0 ? Enum::Device::CardType::_MVR
                                                                                  : Enum::Device::CardType::_OUTPUT);
        log.take();
        MessageLog::take();
    }
};

TEST_F(RandomWalls, AnExplanationIsTheCheckTakenApart) {
    int refused = 0;
    for (int wall = 0; wall < 3000; ++wall) {
        SCOPED_TRACE(wall);
        draw();
        const auto screen = screens[static_cast<std::size_t>(below(4))];
        const Scene scene = below(2) == 0 ? Scene::PGM : Scene::PVW;
        RuleBook book{device, {}, scene, nullptr};
        const auto present = screen->layers(toInt(Scene::AllSceneType), toInt(LayerType::AllLayerType));
        for (int count = 1 + below(3); count > 0; --count)
            book.rects.append({present[below(present.size())], rect()});
        const auto fresh = drawnLayer(*screen, 255, scene);
        if (below(2) == 0)
            book.rects.append({fresh, rect()});
        if (below(3) == 0)
            book.switched = present[below(present.size())].lock();

        invalid.clear();
        const auto regularScreen = std::dynamic_pointer_cast<RegularScreen>(screen);
        const auto auxScreen = std::dynamic_pointer_cast<AuxScreen>(screen);
        const bool fits =
            auxScreen == nullptr
                ? ResourceCheck::CheckOperationResources(regularScreen, book.rects, invalid, scene, book.switched)
                : ResourceCheck::CheckAuxOperationResources(auxScreen, book.rects, invalid, scene);
        const auto offenders = invalidOutputs();
        const auto checked =
            ResourceCheck::outputPreoccupationResources(screen, book.rects, invalid, scene, book.switched);
        const ResourceExplanation explained = explainResources(screen, book.rects, scene, book.switched);
        EXPECT_EQ(explained.fits, fits);
        EXPECT_EQ(explained.slotResources, checked);
        invalid = explained.invalidOutputs;
        EXPECT_EQ(invalidOutputs(), offenders);

        if (regularScreen != nullptr) {
            QMap<int, int> figures;
            EXPECT_EQ(book.check(regularScreen, figures), fits);
            EXPECT_EQ(checked, figures);
        }

        bool allFit = true;
        invalid.clear();
        for (const auto &account : explained.cards) {
            EXPECT_EQ(account.alloced, sum(account.screens, layersOf) - sum(account.changes, [](const auto &change) {
                                           return piecesOf(change.before);
                                       }));
            EXPECT_EQ(account.added, sum(account.changes, [](const auto &change) { return piecesOf(change.after); }));
            EXPECT_EQ(checked[account.slotId], auxScreen == nullptr ? account.units() / 2 : account.units());
            EXPECT_LE(account.limit, account.budget);
            allFit = allFit && account.fits();
            invalid.append(account.outputsInTheWay);
        }
        EXPECT_EQ(allFit, fits || explained.cards.empty());
        EXPECT_EQ(invalidOutputs(), offenders);
        refused += fits ? 0 : 1;
        if (HasFailure())
            break;
    }
    EXPECT_GT(refused, 300) << "hardly a wall is full: draw more";
    EXPECT_LT(refused, 2700);
}

} // namespace
} // namespace Quorix::Tests
