/// Who uses an input, an output, a source or a screen, and how the user is asked.
#include <layers/layers.h>
#include <quorixbizmodel/screens/mvrscreen.h>

namespace Quorix::Tests {

namespace {

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

constexpr uint32_t kInput = 65536;

} // namespace

/// Beside the wall a regular screen "other" with id 5 and a multiviewer "mvr" with id 0.
struct Usage : Layers {
    std::shared_ptr<RegularScreen> other;
    std::shared_ptr<MVRScreen> mvr;

    void SetUp() override {
        Layers::SetUp();
        other = addedScreen<RegularScreen>("other"_q, 5);
        mvr = addedScreen<MVRScreen>("mvr"_q);
        log.take();
        MessageLog::take();
    }

    /// The text of a question, which is empty as long as nothing is used.
    static QString text(const std::function<bool(QString &)> &ask) {
        QString info;
        const bool isUsed = ask(info);
        EXPECT_EQ(isUsed, !info.isEmpty()) << info.toStdString();
        return info;
    }
};

TEST_F(Usage, OfInputsNamesScreensOnceAndTheGenlock) {
    layer->setSource(sourceOf(*input));
    addedLayer(*other, LayerType::Regular, SceneType::PGM, SourceType::Input, kInput);
    addedLayer(*mvr, LayerType::MVR, SceneType::PGM, SourceType::Input, kInput);
    other->setName("regular"_q);
    device->setGenlockInfo({.type = 2, .interfaceId = kInput});
    QString info;
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(device->isInputUsed(kInput, info));
        EXPECT_EQ(info, "regular,mvr,genlock"_q);
    }
    EXPECT_TRUE(device->isInputUsed(second->interfaceId(), info)); // by what stood there
    EXPECT_EQ(info, "regular,mvr,genlock"_q);

    // An output stands where the second input does, and is in use.
    QString error;
    ASSERT_TRUE(device->addInterface(detailOf(1, 1, 4), error));
    ASSERT_TRUE(regular->addOutput(device->findOutput(1, 1), {3840, 0}, false));
    const auto busy = [&](uint8_t slot, uint8_t port) {
        return text([&](QString &users) { return device->isInterfaceBusy(slot, port, users); });
    };
    const auto withPort = [&](uint8_t slot, uint8_t port) {
        return text([&](QString &users) { return device->isInputOrRelatedCapacityInputUsed(slot, port, 2, users); });
    };
    const auto withGroup = [&](uint8_t slot, int group) {
        return text([&](QString &users) { return device->isInputOrRelatedTypeInputUsed(slot, group, 0, 2, users); });
    };
    MessageLog::take();
    EXPECT_THAT((QStringList{busy(1, 0), busy(1, 1), busy(6, 0), busy(9, 9)}),
                ElementsAre(info, ""_q, "regular"_q, ""_q));
    EXPECT_THAT((QStringList{withPort(1, 1), withPort(1, 2), withPort(9, 0)}), ElementsAre(info, ""_q, ""_q));
    EXPECT_THAT((QStringList{withGroup(1, 0), withGroup(1, 1), withGroup(4, 0)}), ElementsAre(info, ""_q, ""_q));
    EXPECT_THAT(MessageLog::take(),
                ElementsAre("warning: Update subcard mode has failed. The subcard pos is invalid."_q,
                            "warning: Not find slot: 4"_q));
}

TEST_F(Usage, OfOutputsNamesTheKindsOfScreen) {
    place(*aux, {0, 2});
    ASSERT_TRUE(mvr->addOutput(outputs[0], {}, false) && mvr->addOutput(outputs[3], {1920, 0}, false));
    const struct {
        const char *users;
        std::shared_ptr<Screen> first;
    } rows[] = {{"regular,AUX,MVR", regular}, {"regular", regular}, {"AUX", aux}, {"MVR", mvr}, {"", nullptr}};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto id = outputs[i]->interfaceFullId();
        EXPECT_EQ(text([&](QString &info) { return device->isOutputUsed(id, info); }),
                  QString::fromLatin1(rows[i].users));
        EXPECT_EQ(device->isOutputUsed(id.id()), rows[i].first != nullptr);
        EXPECT_EQ(device->findScreenOfUseOutput(outputs[i]).lock(), rows[i].first);
    }
    QString info = "so far "_q;
    EXPECT_TRUE(device->isOutputUsed(outputs[0]->interfaceFullId(), info));
    EXPECT_FALSE(device->isOutputUsedByScreen(outputs[2]->interfaceFullId(), info));
    EXPECT_EQ(info, "so far regular,AUX,MVR"_q);
    EXPECT_TRUE(device->isOutputUsedByScreen(outputs[1]->interfaceFullId(), info));
    EXPECT_EQ(info, "regular"_q);
}

TEST_F(Usage, OfScreensIsAskedBeforeTheyAreEmptied) {
    const auto opening = "This operation will empty the relevant "_q, closing = ",Do you want to continue?"_q;
    EXPECT_TRUE(device->clearScreenContentsTip(other).isNull() && device->clearScreenContentsTip({}).isEmpty());
    const auto onAux = addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::PVW, 5);
    EXPECT_EQ(device->clearScreenContentsTip(other), opening + "AUX Layer"_q + closing);
    EXPECT_EQ(device->clearScreenContentsTip(aux), opening + "AUX Layer"_q + closing);
    EXPECT_TRUE(device->isScreenUsedInLayer(other) && !device->isScreenUsedInMvr(other));
    addedLayer(*mvr, LayerType::MVR, SceneType::PGM, SourceType::PGM, 5);
    addedLayer(*other, LayerType::BKG, SceneType::PVW, SourceType::BKG, 7);
    EXPECT_EQ(device->clearScreenContentsTip(other), opening + "Layer,MVR,AUX Layer"_q + closing);
    EXPECT_FALSE(device->isScreenUsedInLayer(regular) || device->isScreenUsedInLayer({}));
    MessageLog::take();
    EXPECT_TRUE(device->clearScreenContentsTip(mvr).isNull());
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Invalid screen type: 8"_q));

    log.take();
    device->clearScreenContents(other);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_TRUE(other->layers(6, 126).isEmpty() && device->isScreenUsedInAux(other));
}

TEST_F(Usage, IsFoundByCardAndSource) {
    place(*other, {3});
    place(*aux, {2});
    EXPECT_THAT(device->findAssociatedScreens(regular), ElementsAre(0, 5, 0)); // the last one is the AUX screen
    EXPECT_THAT(device->findScreens({6, 1}), ElementsAre(0));
    EXPECT_THAT(device->findAssociatedScreens({}), IsEmpty());

    for (const auto &screen : {std::shared_ptr<Screen>(other), std::shared_ptr<Screen>(aux)})
        addedLayer(*screen, LayerType::BKG, SceneType::PGM, SourceType::BKG, 7);
    const auto users = device->findScreensUsedBKG(SourceType::BKG, 7);
    EXPECT_TRUE(users.size() == 1 && users[0].lock() == other);
    EXPECT_FALSE(device->isSourceUsedByRegulerLayer(263, SourceType::BKG) ||
                 device->isSourceUsedByMVR(7, SourceType::BKG));
    device->removeAllLyaerBySource(7, SourceType::BKG);
    EXPECT_TRUE(device->isSourceUsedByAux(7, SourceType::BKG) &&
                !device->isSourceUsedByRegulerLayer(7, SourceType::BKG));

    QList<std::weak_ptr<Input>> inputs{std::make_shared<Input>(), input, second};
    second->setActualTiming(fullHd());
    device->sortInputsBySource(inputs);
    EXPECT_TRUE(inputs[0].lock() == second && inputs[1].lock() == input && inputs[2].expired());
}

} // namespace Quorix::Tests
