#include "budgets.h"

namespace Quorix::Tests {
namespace {

struct Row {
    const char *tag;
    QRect rect;
    Capacity capacity;
    Source source;
    int six;
    int seven;
};

const Row kRows[] = {
    {"two outputs of a card count once", {3000, 0, 2000, 1080}, Capacity::_SL, Source::Input, 0, 2},
    {"both strips on one output", {2000, 0, 1000, 500}, Capacity::_DL, Source::Input, 0, 4},
    {"four strips", kOnSix, Capacity::_4K, Source::Input, 8, 0},
    {"edges touch", {960, 0, 960, 540}, Capacity::_SL, Source::Input, 2, 0},
    {"the overlap takes each half over the joint", {1420, 0, 1000, 500}, Capacity::_DL, Source::Input, 4, 4},
    {"the joint is out of the overlap's reach", {1420, 0, 980, 500}, Capacity::_DL, Source::Input, 4, 2},
    {"strips that coincide count once", {100, 0, 8, 100}, Capacity::_DL, Source::Input, 2, 0},
    {"no source: anywhere", {-5000, 0, 10, 10}, Capacity::_4K, Source::Empty, 2, 2},
    {"nothing to cut: one strip", kOnSix, Capacity::_4K, Source::BKG, 2, 0},
    {"no area", {100, 100, 0, 540}, Capacity::_SL, Source::Input, 0, 0},
    {"beside the mosaic", {100, 1080, 960, 540}, Capacity::_4K, Source::Input, 0, 0},
    {"as far away as can be", {{kHighest - 960, 0}, QPoint{kHighest, kHighest}}, Capacity::_4K, Source::Input, 0, 0},
    {"as large as can be", {{-kHighest, -kHighest}, QPoint{kHighest, kHighest}}, Capacity::_4K, Source::Input, 0, 0},
};

TEST_F(Budgets, ALayerCostsItsDistinctStrips) {
    place(*regular, {0, 1, 2});
    for (const Row &row : kRows) {
        SCOPED_TRACE(row.tag);
        const auto layer = made(*regular, 0, {}, row.capacity, Scene::PVW, row.source, kInput);
        EXPECT_EQ(cost(regular, six, row.rect, layer), row.six);
        EXPECT_EQ(cost(regular, seven, row.rect, layer), row.seven);
        EXPECT_EQ(cost(regular, seven, row.rect, layer, layer), 0);
        layer->setCapacity(Capacity::invaild); // from here on the capacity asked for
        EXPECT_EQ(
            ResourceCheck::calcResourcesOfRectEx(regular, seven, row.rect, LayerMode::Single, row.capacity, layer, {}),
            row.seven / 2);
        QList<int> slotIds;
        for (const auto &[slotId, units] : {std::pair(6, row.six), std::pair(7, row.seven)})
            if (units > 0 && row.source != Source::Empty)
                slotIds << slotId;
        EXPECT_EQ(ResourceCheck::findLayerSourceInSlot(regular, row.rect, LayerMode::Mix, row.capacity, layer),
                  slotIds);
    }
}

TEST_F(Budgets, TheCropThatShowsIsCut) {
    place(*regular, {0, 1});
    const auto layer = made(*regular, 0, {}, Capacity::_DL, Scene::PVW, Source::Input, kInput);
    const auto costs = [&](const QRect &crop, const QRect &rect) {
        layer->setSouceCrop({Helper::qRect2SRect(crop), kInput, toInt(Source::Input), 1});
        return std::pair(cost(regular, six, rect, layer), cost(regular, seven, rect, layer));
    };
    EXPECT_EQ(costs({0, 0, 1000, 2160}, kOnSix), std::pair(2, 0)) << "within the first strip";
    EXPECT_EQ(costs({0, 0, 1000, 2160}, {920, 0, 1000, 500}), std::pair(2, 2)) << "a single piece is four pixels wider";
    EXPECT_EQ(costs({1900, 0, 100, 100}, kOnSix), std::pair(4, 0)) << "over the seam of the input";
    EXPECT_EQ(costs({5000, 0, 100, 100}, kOnSix), std::pair(0, 0)) << "outside of the input";
}

TEST_F(Budgets, OtherScreensCountWithTheLargerScene) {
    place(*regular, {0});
    const auto other = addedScreen<RegularScreen>(QStringLiteral("other"), 1);
    ASSERT_TRUE(other->addOutput(twin, {0, 0}, false));
    added(*other, 0, kOnSix, Capacity::_DL, Scene::PVW, Source::Input, kInput);
    const auto programme = added(*other, 0, kOnSix, Capacity::_DL, Scene::PGM, Source::Input, kInput);
    added(*other, 1, kOnSix, Capacity::_SL, Scene::PGM);
    EXPECT_EQ(alloced(six), 6) << "4 in PVW, 6 in PGM";
    EXPECT_EQ(alloced(six, programme), 4) << "2 in PGM";
    added(*regular, 0, kOnSix, Capacity::_SL, Scene::PGM);
    EXPECT_EQ(alloced(six), 6) << "of the screen itself the scene asked for";
    added(*regular, 0, kOnSix);
    EXPECT_EQ(alloced(six), 8);
    EXPECT_EQ(ResourceCheck::calcAllocedResourcesOfSlot(six, regular, Scene::PVW, false, {}), 6);
    EXPECT_EQ(ResourceCheck::outputAllocedResources(regular, Scene::PVW), (QMap<int, int>{{6, 4}}));
}

TEST_F(Budgets, ACutLayerCostsWhileItIsSwitchedOn) {
    place(*regular, {0, 1});
    const auto fill = added(*regular, 3, kOnSix);
    added(*regular, 3, kOnSeven, Capacity::_DL, Scene::PVW, Source::Input, kInput, LayerType::Cut);
    EXPECT_EQ(alloced(seven), 0);
    fill->setCutAndFill({.enable = true, .isBinding = false});
    EXPECT_EQ(alloced(seven), 4) << "where it stands, by its own capacity";
    EXPECT_EQ(alloced(seven, fill->cutLayer()), 0);
    EXPECT_EQ(alloced(seven, fill), 4) << "switching the fill doesn't exempt it";
}

TEST_F(Budgets, AProgrammeOnAnAuxScreenCostsItsOutputs) {
    place(*regular, {1, 2}); // slot 7, dual link and single link
    device->setConnectorCapacity(7, 0, Capacity::_DL);
    ASSERT_TRUE(aux->addOutput(outputs[0], {0, 0}, false));
    ASSERT_TRUE(aux->addOutput(twin, {960, 0}, false)); // half under the first
    const auto slotSix = device->findSubcardBySlotId(6);
    const auto cost = [&](const std::shared_ptr<Layer> &layer, const QRect &rect) {
        return ResourceCheck::getResOfSlotAlloced2Layer(aux, slotSix, layer, rect);
    };
    const auto layer = added(*aux, 0, {0, 0, 1920, 540}, Capacity::_4K, Scene::PVW, Source::PGM, 0U);
    EXPECT_EQ(ResourceCheck::getResOfPGMLayer(layer, {outputs[0]}), 3);
    EXPECT_EQ(ResourceCheck::getResOfPGMLayer(layer, {twin}), 1) << "the right half, shown from 960 on";
    EXPECT_EQ(ResourceCheck::getResOfPGMLayer(layer, {outputs[0], twin}), 3) << "each shown output once";
    EXPECT_EQ(ResourceCheck::getResOfPGMLayer(layer, {outputs[3]}), 0) << "not in the mosaic";
    EXPECT_EQ(cost(layer, {2000, 0, 100, 100}), 1) << "proposed on the twin, scaled by where it stands";
    EXPECT_EQ(cost(layer, {5000, 0, 100, 100}), 0);
    EXPECT_EQ(cost(added(*aux, 1, kOnSix, Capacity::_4K, Scene::PVW, Source::PGM, 256U), kOnSix), 0)
        << "no such screen";
    EXPECT_EQ(cost(added(*aux, 2, kOnSix, Capacity::_4K, Scene::PVW, Source::BKG), kOnSix), 0);
    const auto other = addedScreen<AuxScreen>(QStringLiteral("other"), 1);
    EXPECT_EQ(cost(made(*other, 0, kOnSix, Capacity::_4K, Scene::PVW, Source::PGM, 0U), kOnSix), 0) << "met on its own";
    EXPECT_EQ(cost(added(*aux, 3, kOnSix, Capacity::_4K, Scene::PVW, Source::Input, kInput), kOnSix), 4);
    EXPECT_EQ(cost(added(*aux, 4, kOnSix, Capacity::invaild, Scene::PVW, Source::Input), kOnSix), 0);
}

TEST_F(Budgets, WhatHasGoneCostsNothingAndIsLogged) {
    const auto layer = made(*regular, 0, kOnSix);
    const auto orphan = std::make_shared<RegularScreen>();
    MessageLog::take();
    const auto cost = [&](const std::weak_ptr<Screen> &screen, const std::weak_ptr<Layer> &asked) {
        return ResourceCheck::calcResourcesOfRectEx(screen, six, kOnSix, LayerMode::Mix, Capacity::_SL, asked, {});
    };
    EXPECT_EQ(cost({}, layer), 0);
    EXPECT_EQ(cost(orphan, layer), 0);
    EXPECT_EQ(cost(regular, {}), 0);
    EXPECT_TRUE(ResourceCheck::findLayerSourceInSlot(regular, kOnSix, LayerMode::Mix, Capacity::_SL, {}).isEmpty());
    EXPECT_EQ(ResourceCheck::calcAllocedResourcesOfSlot(six, orphan, Scene::PVW, true, {}), 0);
    EXPECT_EQ(ResourceCheck::getResOfSlotAlloced(aux, Scene::PVW, {}, {}), 0);
    EXPECT_EQ(ResourceCheck::getResOfOutputAlloced2Layer(layer, {}), 0);
    EXPECT_EQ(MessageLog::take(), (QStringList{"warning: Input split: calc resources screen is nullptr.",
                                               "warning: Input split: calc resources device is nullptr.",
                                               "warning: Input split: calc resources layer is nullptr.",
                                               "warning: Input split: calc resources layer is nullptr."}));
}

TEST_F(Budgets, TheEstimateLooksAtCapacityAlone) {
    place(*regular, {0, 1});
    const auto estimate = [&](const auto &body, LayerMode mode, Capacity capacity) {
        return calcResourcesOfRect(regular, body, kOnSix, mode, capacity);
    };
    EXPECT_EQ(estimate(six, LayerMode::Mix, Capacity::_4K), 8);
    EXPECT_EQ(estimate(six, LayerMode::Single, Capacity::_DL), 2);
    EXPECT_EQ(estimate(six, LayerMode::Mix, Capacity::invaild), 0);
    EXPECT_EQ(estimate(seven, LayerMode::Mix, Capacity::_4K), 0);
}

} // namespace
} // namespace Quorix::Tests
