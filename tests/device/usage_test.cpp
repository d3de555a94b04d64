/// Who uses an input, an output, a source or a screen, and how the user is asked.
#include <layers/layers.h>
#include <quorixbizmodel/screens/mvrscreen.h>

namespace Quorix::Tests {

/// Beside the wall a regular screen "other" with id 5 and a multiviewer "mvr" with id 0.
struct Usage : Layers {
    std::shared_ptr<RegularScreen> other;
    std::shared_ptr<MVRScreen> mvr;

    void SetUp() override {
        Layers::SetUp();
        other = addedScreen<RegularScreen>("other", 5);
        mvr = addedScreen<MVRScreen>("mvr");
        log.take();
        MessageLog::take();
    }

    /// The text of a question about use, which is empty as long as there is none.
    template <class... Parameter, class... Argument>
    QString users(bool (Device::*question)(Parameter...), const Argument &...arguments) {
        QString info;
        const bool isUsed = (device.get()->*question)(arguments..., info);
        EXPECT_EQ(isUsed, !info.isEmpty()) << info.toStdString();
        return info;
    }
};

TEST_F(Usage, OfInputsNamesScreensOnceAndTheGenlock) {
    const uint32_t id = input->interfaceId();
    layer->setSource(sourceOf(*input));
    addedLayer(*other, LayerType::Regular, SceneType::PGM, SourceType::Input, id);
    addedLayer(*mvr, LayerType::MVR, SceneType::PGM, SourceType::Input, id);
    other->setName("regular");
    device->setGenlockInfo({.type = 2, .interfaceId = id});
    QString info;
    for (const uint32_t asked : {id, id, second->interfaceId()}) { // the last one by what stands there
        EXPECT_TRUE(device->isInputUsed(asked, info));
        EXPECT_EQ(info, "regular,mvr,genlock");
    }

    // An output stands where the second input does, and is in use.
    QString error;
    ASSERT_TRUE(device->addInterface(detailOf(1, 1, 4), error));
    ASSERT_TRUE(regular->addOutput(device->findOutput(1, 1), {3840, 0}, false));
    MessageLog::take();
    const auto busy = [&](uint8_t slot, uint8_t port) { return users(&Device::isInterfaceBusy, slot, port); };
    const auto withPort = [&](uint8_t slot, uint8_t port) {
        return users(&Device::isInputOrRelatedCapacityInputUsed, slot, port, 2);
    };
    const auto withGroup = [&](uint8_t slot, int group) {
        return users(&Device::isInputOrRelatedTypeInputUsed, slot, group, uint8_t{0}, 2);
    };
    EXPECT_THAT((QStringList{busy(1, 0), busy(1, 1), busy(6, 0), busy(9, 9)}), ElementsAre(info, "", "regular", ""));
    EXPECT_THAT((QStringList{withPort(1, 1), withPort(1, 2), withPort(9, 0)}), ElementsAre(info, "", ""));
    EXPECT_THAT((QStringList{withGroup(1, 0), withGroup(1, 1), withGroup(4, 0)}), ElementsAre(info, "", ""));
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Update subcard mode has failed. The subcard pos is invalid.",
                                                "warning: Not find slot: 4"));
}

TEST_F(Usage, OfOutputsNamesTheKindsOfScreen) {
    place(*aux, {0, 2});
    ASSERT_TRUE(mvr->addOutput(outputs[0], {}, false) && mvr->addOutput(outputs[3], {1920, 0}, false));
    const std::pair<const char *, std::shared_ptr<Screen>> rows[] = {
        {"regular,AUX,MVR", regular}, {"regular", regular}, {"AUX", aux}, {"MVR", mvr}, {"", nullptr}};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto id = outputs[i]->interfaceFullId();
        QString info = "so far ";
        EXPECT_EQ(device->isOutputUsed(id, info), rows[i].second != nullptr);
        EXPECT_EQ(info, QLatin1String("so far ") + rows[i].first);
        EXPECT_EQ(device->isOutputUsedByScreen(id, info), i < 2);
        EXPECT_EQ(info, i < 2 ? QString("regular") : QLatin1String("so far ") + rows[i].first);
        EXPECT_EQ(device->isOutputUsed(id.id()), rows[i].second != nullptr);
        EXPECT_EQ(device->findScreenOfUseOutput(outputs[i]).lock(), rows[i].second);
    }
}

TEST_F(Usage, OfScreensIsAskedBeforeTheyAreEmptied) {
    const auto question = [](const char *contents) {
        return QStringLiteral("This operation will empty the relevant %1,Do you want to continue?").arg(contents);
    };
    EXPECT_TRUE(device->clearScreenContentsTip(other).isNull() && device->clearScreenContentsTip({}).isEmpty());
    addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::PVW, 5);
    EXPECT_EQ(device->clearScreenContentsTip(other), question("AUX Layer"));
    EXPECT_EQ(device->clearScreenContentsTip(aux), question("AUX Layer"));
    EXPECT_TRUE(device->isScreenUsedInLayer(other) && !device->isScreenUsedInMvr(other));
    addedLayer(*mvr, LayerType::MVR, SceneType::PGM, SourceType::PGM, 5);
    addedLayer(*other, LayerType::BKG, SceneType::PVW, SourceType::BKG, 7);
    EXPECT_EQ(device->clearScreenContentsTip(other), question("Layer,MVR,AUX Layer"));
    EXPECT_FALSE(device->isScreenUsedInLayer(regular) || device->isScreenUsedInLayer({}));
    MessageLog::take();
    EXPECT_TRUE(device->clearScreenContentsTip(mvr).isNull());
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Invalid screen type: 8"));

    log.take();
    device->clearScreenContents(other);
    EXPECT_TRUE(log.take().isEmpty() && other->layers(6, 126).isEmpty() && device->isScreenUsedInAux(other));
}

TEST_F(Usage, IsFoundByCardAndSource) {
    place(*other, {3});
    place(*aux, {2});
    EXPECT_THAT(device->findAssociatedScreens(regular), ElementsAre(0, 5, 0)); // the last one is the AUX screen
    EXPECT_THAT(device->findScreens({6, 1}), ElementsAre(0));
    EXPECT_THAT(device->findAssociatedScreens({}), IsEmpty());

    for (const auto &screen : {std::shared_ptr<Screen>(other), std::shared_ptr<Screen>(aux)})
        addedLayer(*screen, LayerType::BKG, SceneType::PGM, SourceType::BKG, 7);
    const auto shown = device->findScreensUsedBKG(SourceType::BKG, 7);
    EXPECT_TRUE(shown.size() == 1 && shown[0].lock() == other && !device->isSourceUsedByMVR(7, SourceType::BKG) &&
                !device->isSourceUsedByRegulerLayer(263, SourceType::BKG));
    device->removeAllLyaerBySource(7, SourceType::BKG);
    EXPECT_TRUE(device->isSourceUsedByAux(7, SourceType::BKG) &&
                !device->isSourceUsedByRegulerLayer(7, SourceType::BKG));

    QList<std::weak_ptr<Input>> inputs{std::make_shared<Input>(), input, second};
    second->setActualTiming(fullHd());
    device->sortInputsBySource(inputs);
    EXPECT_TRUE(inputs[0].lock() == second && inputs[1].lock() == input && inputs[2].expired());
}

} // namespace Quorix::Tests
