#include "budgets.h"

#include <quorixbizmodel/screens/mvrscreen.h>

namespace Quorix::Tests {
namespace {

using testing::ElementsAre;

TEST_F(Budgets, AMoveIsJudgedOnBothCards) {
    place(*regular, {0, 1});
    const auto layer = added(*regular, 0, kOnSix);
    added(*regular, 1, kOnSeven, Capacity::_4K, Scene::PVW, Source::Input, kInput);
    const auto fresh = made(*regular, 255, {});
    const auto programme = added(*regular, 0, kOnSix, Capacity::_SL, Scene::PGM);
    const struct {
        const char *tag;
        ResourceCheck::LayerRects proposal;
        QMap<int, int> figures;
    } rows[] = {
        {"within the card", {{layer, {100, 100, 500, 500}}}, {{6, 1}, {7, 4}}},
        {"to the other card", {{layer, kOnSeven}}, {{6, 0}, {7, 5}}},
        {"over the joint", {{layer, {1000, 0, 1000, 500}}}, {{6, 1}, {7, 5}}},
        {"out of the mosaic", {{layer, {0, 5000, 960, 540}}}, {{6, 0}, {7, 4}}},
        {"a new layer takes nothing off", {{fresh, kOnSix}}, {{6, 2}, {7, 4}}},
        {"two at once", {{layer, kOnSeven}, {fresh, kOnSeven}}, {{6, 0}, {7, 6}}},
        {"named twice, taken off twice", {{layer, kOnSix}, {layer, kOnSix}}, {{6, 1}, {7, 4}}},
        {"nothing living, no figure", {{std::weak_ptr<Layer>(), kOnSix}}, {}},
        {"of the other scene, taken off all the same", {{programme, {0, 5000, 9, 9}}}, {{6, 0}, {7, 4}}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(figures(regular, row.proposal), row.figures) << row.tag;
}

TEST_F(Budgets, TheSmallestBudgetHoldsOnEveryCard) {
    place(*regular, {0, 1, 2});
    const auto layer = made(*regular, 255, {});
    for (const int id : {0, 1, 2, 3, 4, 5, 6})
        added(*regular, id, kOnSeven);
    EXPECT_TRUE(fits({{layer, kOnSeven}})) << "16 of 16";
    EXPECT_FALSE(fits({{layer, kOnSeven}, {made(*regular, 255, {}), {4000, 0, 100, 100}}}));
    EXPECT_THAT(Helper::sharedPtrs(invalid), ElementsAre(outputs[1], outputs[2]));

    device->findSubcardBySlotId(6).lock()->setCardType(Enum::Device::CardType::_MVR);
    EXPECT_FALSE(fits({{layer, kOnSix}})) << "14 of 4 on the other card";
    EXPECT_TRUE(invalid.isEmpty()) << "but none of its outputs is under the layer";
    EXPECT_FALSE(fits({{layer, kOnSix}, {std::weak_ptr<Layer>(), {4000, 0, 10, 10}}}));
    EXPECT_THAT(Helper::sharedPtrs(invalid), ElementsAre(outputs[2])) << "the place of a layer that has gone counts";
    EXPECT_EQ(ResourceCheck::outputAllocedResources(regular, Scene::PVW), (QMap<int, int>{{6, 0}, {7, 7}}));
}

TEST_F(Budgets, WithoutMuchThereIsLittleToCheck) {
    const auto layer = made(*regular, 255, {});
    EXPECT_TRUE(fits({{layer, kOnSix}})) << "no cards";
    invalid.append(outputs[0]);
    EXPECT_TRUE(fits({}));
    EXPECT_EQ(invalid.size(), 1) << "an empty proposal leaves the list alone";
    EXPECT_FALSE(fitsAux({{layer, kOnSix}})) << "no outputs";
    EXPECT_TRUE(fitsAux({}));
    EXPECT_FALSE(ResourceCheck::CheckOperationResources({}, {}, invalid, Scene::PVW, {}));
    const auto orphan = std::make_shared<RegularScreen>();
    EXPECT_FALSE(ResourceCheck::CheckOperationResources(orphan, {{layer, kOnSix}}, invalid, Scene::PVW, {}));
    EXPECT_TRUE(ResourceCheck::CheckOperationResources(orphan, {}, invalid, Scene::PVW, {}));
}

TEST_F(Budgets, AnAuxCardIsJudgedByItsOwnBudget) {
    device->findSubcardBySlotId(6).lock()->setCardType(Enum::Device::CardType::_MVR);
    ASSERT_TRUE(aux->addOutput(outputs[0], {0, 0}, false));
    ASSERT_TRUE(aux->addOutput(twin, {1920, 0}, false));
    ASSERT_TRUE(aux->addOutput(outputs[1], {3840, 0}, false));
    const auto fresh = made(*aux, 255, {}, Capacity::_SL, Scene::PVW, Source::Input);
    for (const int id : {0, 1, 2})
        added(*aux, id, kOnSix, Capacity::_SL, Scene::PVW, Source::Input);
    invalid.append(outputs[2]);
    EXPECT_TRUE(fitsAux({{fresh, kOnSix}})) << "four single links";
    const auto moved = added(*aux, 3, kOnSix, Capacity::_SL, Scene::PVW, Source::Input);
    EXPECT_FALSE(fitsAux({{fresh, kOnSix}})) << "a fifth";
    EXPECT_THAT(Helper::sharedPtrs(invalid), ElementsAre(outputs[2], outputs[0])) << "appended; the first output alone";
    EXPECT_EQ(figures(aux, {{fresh, kOnSix}}), (QMap<int, int>{{6, 5}})) << "ends there";
    EXPECT_TRUE(fitsAux({{moved, {100, 100, 4000, 100}}})) << "its old place doesn't count";
    moved->setCapacity(Capacity::_4K);
    moved->setWindowRect({3840, 0, 10, 10}, {}, false);
    EXPECT_EQ(ResourceCheck::outputAllocedResources(aux, Scene::PVW), (QMap<int, int>{{6, 3}, {7, 4}}));
    EXPECT_EQ(ResourceCheck::outputAllocedResources(aux, Scene::PGM), (QMap<int, int>{{6, 0}, {7, 0}}));

    const auto other = addedScreen<AuxScreen>(QStringLiteral("other"), 1);
    ASSERT_TRUE(other->addOutput(outputs[3], {0, 0}, false)); // slot 7
    added(*other, 0, kOnSix, Capacity::_SL, Scene::PVW, Source::Input);
    for (const int id : {0, 1})
        added(*other, id, kOnSix, Capacity::_SL, Scene::PGM, Source::Input);
    EXPECT_EQ(figures(aux, {{moved, {1900, 0, 3000, 10}}}), (QMap<int, int>{{6, 7}})) << "4 on each card";
    EXPECT_EQ(figures(aux, {{moved, {3840, 0, 10, 10}}}), (QMap<int, int>{{6, 3}, {7, 6}}));
}

TEST_F(Budgets, AKindWithoutACheckGivesWhatIsLeft) {
    place(*regular, {0});
    const auto multiviewer = addedScreen<MVRScreen>(QStringLiteral("mvr"));
    multiviewer->setScreenType(Enum::Screen::ScreenType::MVRScreen);
    const auto layer = made(*regular, 255, {});
    const ResourceCheck::LayerRects proposal{{layer, kOnSix}};
    EXPECT_EQ(figures(regular, proposal), (QMap<int, int>{{6, 1}}));
    EXPECT_EQ(figures(multiviewer, proposal), (QMap<int, int>{{6, 1}}));
    EXPECT_FALSE(explainResources(multiviewer, proposal, Scene::PVW, {}).fits);
    EXPECT_TRUE(figures({}, {}).isEmpty());
    EXPECT_TRUE(ResourceCheck::outputAllocedResources(multiviewer, Scene::PVW).isEmpty());
}

} // namespace
} // namespace Quorix::Tests
