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
        const auto sourceId = source == Source::Input ? kInput : static_cast<uint32_t>(below(3));
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
    for (int wall = 0; wall < 3000 && !HasFailure(); ++wall) {
        SCOPED_TRACE(wall);
        draw();
        const auto screen = screens[static_cast<std::size_t>(below(4))];
        const auto regularScreen = std::dynamic_pointer_cast<RegularScreen>(screen);
        const auto auxScreen = std::dynamic_pointer_cast<AuxScreen>(screen);
        const Scene scene = below(2) == 0 ? Scene::PGM : Scene::PVW;
        const auto present = screen->layers(toInt(Scene::AllSceneType), toInt(LayerType::AllLayerType));
        ResourceCheck::LayerRects rects;
        for (int count = 1 + below(3); count > 0; --count)
            rects.append({present[below(present.size())], rect()});
        const auto fresh = drawnLayer(*screen, 255, scene);
        if (below(2) == 0)
            rects.append({fresh, rect()});
        const auto switched = below(3) == 0 ? present[below(present.size())] : std::weak_ptr<Layer>();

        const auto checked = ResourceCheck::outputPreoccupationResources(screen, rects, invalid, scene, switched);
        invalid.clear();
        const bool fits = auxScreen == nullptr
                              ? ResourceCheck::CheckOperationResources(regularScreen, rects, invalid, scene, switched)
                              : ResourceCheck::CheckAuxOperationResources(auxScreen, rects, invalid, scene);
        const ResourceExplanation explained = explainResources(screen, rects, scene, switched);
        EXPECT_EQ(explained.fits, fits);
        EXPECT_EQ(explained.slotResources, checked);
        EXPECT_EQ(Helper::sharedPtrs(explained.invalidOutputs), Helper::sharedPtrs(invalid));

        bool allFit = true;
        Outputs inTheWay;
        for (const auto &account : explained.cards) {
            // The sums of the check are those of the single costs.
            const s_subcardBody body{.slotId = account.slotId, .connectors = {}};
            const auto subcard = device->findSubcardBySlotId(static_cast<uint8_t>(account.slotId));
            int units = auxScreen == nullptr
                            ? ResourceCheck::calcAllocedResourcesOfSlot(body, screen, scene, true, switched)
                            : ResourceCheck::getResOfSlotAlloced(auxScreen, scene, subcard, rects);
            for (const auto &[reference, window] : rects) {
                const auto layer = reference.lock();
                if (auxScreen != nullptr)
                    units += ResourceCheck::getResOfSlotAlloced2Layer(auxScreen, subcard, layer, window);
                else
                    units += cost(screen, body, window, layer, switched) -
                             (layer == fresh ? 0 : cost(screen, body, layer->windowRect(), layer, switched));
            }
            EXPECT_EQ(account.units(), units);
            EXPECT_EQ(units, sum(account.screens, layersOf) + sum(account.changes, [](const auto &change) {
                                 return piecesOf(change.after) - piecesOf(change.before);
                             }));
            EXPECT_EQ(checked[account.slotId], auxScreen == nullptr ? units / 2 : units);
            EXPECT_LE(account.limit, account.budget);
            allFit = allFit && account.fits();
            inTheWay.append(account.outputsInTheWay);
        }
        EXPECT_EQ(allFit, fits || explained.cards.empty());
        EXPECT_EQ(Helper::sharedPtrs(inTheWay), Helper::sharedPtrs(invalid));
        refused += fits ? 0 : 1;
    }
    EXPECT_GT(refused, 300) << "hardly a wall is full: draw more";
    EXPECT_LT(refused, 2700);
}

} // namespace
} // namespace Quorix::Tests
