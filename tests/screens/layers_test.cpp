/// The layer lists of a screen: order, events, what new layers start with, selection, reported layers.
#include <layers/layers.h>

namespace Quorix::Tests {

using References = QList<std::weak_ptr<Layer>>;

constexpr auto PVW = SceneType::PVW;
constexpr auto PGM = SceneType::PGM;

/// Layers are named by kind, scene and id: "Rv0" is the regular layer 0 of PVW, "Cg1" the cut layer 1 of PGM.
struct LayerLists : Wall {
    std::shared_ptr<Layer> added(const QString &name, Screen &screen) {
        auto layer = Screen::createLayer(static_cast<LayerType>(2 << QString("RAMBLC").indexOf(name[0])));
        layer->setSceneType(name[1] == 'v' ? PVW : PGM);
        layer->setLayerId(static_cast<uint8_t>(name.mid(2).toInt()));
        layer->setName(name);
        log.name(layer.get(), name);
        EXPECT_EQ(screen.addLayer(layer).lock(), layer);
        return layer;
    }
    std::shared_ptr<Layer> added(const QString &name) { return added(name, *regular); }
    /// In silence.
    References add(const char *layers) {
        References references;
        for (const auto &name : QString(layers).split(' '))
            references.append(added(name));
        log.take();
        return references;
    }

    static QString names(const References &layers) {
        QStringList texts;
        for (const auto &layer : livingReferences(layers))
            texts.append(layer->name());
        return texts.join(' ');
    }
    QString heard(const QString &screen = "regular") { return events(screen).join(' '); }
};

TEST_F(LayerLists, KeepTheirOrder) {
    add("Rv3 Lv0 Rv0 Cv9 Cv0 Rg0 Cg0 Cv1 Bv2 Bv1 Av0");
    // A cut layer without its fill waits at the end for the next sort.
    EXPECT_EQ(names(regular->layers(6, 126)), "Rv0 Rg0 Rv3 Cv0 Cg0 Cv9 Cv1 Av0 Bv1 Bv2 Lv0");
    add("Rv2");
    EXPECT_EQ(names(regular->layers(6, 126)), "Rv0 Rg0 Rv2 Rv3 Cv0 Cg0 Cv1 Cv9 Av0 Bv1 Bv2 Lv0");
    EXPECT_EQ(names(regular->layers(4, 48)), "Bv1 Bv2 Lv0");
    auto id = regular->PGMLayers(LayerType::Cut).first().lock()->screenLayerId();
    EXPECT_EQ(regular->layer(id).lock()->name(), "Cg0");
    id.screenType = 4; // of another screen
    EXPECT_FALSE(regular->containsLayer(id));
    const auto idle = regular->addLayer(Screen::createLayer(LayerType::AUX)).lock(); // in no scene yet
    EXPECT_EQ(regular->layer(idle->screenLayerId()).lock(), idle);
    // No cut layer is switched on.
    EXPECT_TRUE(!regular->isExsitLayer("Cg0", SceneType::AllSceneType, LayerType::Cut) &&
                regular->layerCount(6, 66) == 4U);
    const auto cuts = regular->PVWLayers(LayerType::Cut);
    cuts.first().lock()->setCutAndFill({.enable = true, .isBinding = false});
    EXPECT_EQ(Screen::filterCutLayer(cuts + References{{}}), 2U);
}

TEST_F(LayerLists, SignalComingAndGoing) {
    const auto fill = added("Rv0");
    const auto cut = added("Cv0");
    auto lone = added("Cg5");
    EXPECT_EQ(heard(), "PVWLayerAdded(Rv0) LayerAdded(Rv0) PVWLayerAdded(Cv0) LayerAdded(Cv0) PGMLayerAdded(Cg5) "
                       "LayerAdded(Cg5)");
    EXPECT_EQ(regular->addLayer(fill).lock(), fill);
    EXPECT_TRUE(regular->addLayer(std::make_shared<Layer>()).expired()); // of no kind
    regular->appendSelectedLayer({fill, lone}, false);
    EXPECT_EQ(heard(), "");
    regular->removeLayer({lone, cut}); // a cut layer goes with its fill alone, but is deselected
    EXPECT_EQ(heard(), "SelectedLayersChanged(false)");
    regular->removeLayer({fill, lone, {}});
    EXPECT_EQ(heard(), "PVWLayerRemoved(Cv0) LayerRemoved(Cv0) PVWLayerRemoved(Rv0) LayerRemoved(Rv0) "
                       "SelectedLayersChanged(false)");
    // Ends come outside the lock, so that whoever hears of one may call back.
    QObject::connect(lone.get(), &QObject::destroyed, [&] { added("Bv0"); });
    lone.reset();
    regular->clearLayer();
    EXPECT_EQ(heard(), "PVWLayerAdded(Bv0) LayerAdded(Bv0)");
}

TEST_F(LayerLists, LoseTheScreenThatTheyShow) {
    using Type = SourceType;
    for (const auto &[name, type, id] :
         {std::tuple("Av0", Type::PGM, 0U), {"Av1", Type::PGM, 256U}, {"Ag0", Type::PVW, 0U}, {"Ag1", Type::Input, 0U}})
        added(name, *aux)->setSource(sourceOf(type, id));
    log.take();
    EXPECT_EQ(names(aux->layers(SourceType::PGM, LayerType::AUX)), "Av0 Av1");
    regular->removeLayer(std::weak_ptr<Screen>(regular));
    EXPECT_EQ(heard("aux"), "");
    aux->removeLayer(std::weak_ptr<Screen>(regular));
    EXPECT_EQ(heard("aux"), "PVWLayerRemoved(Av0) LayerRemoved(Av0) PGMLayerRemoved(Ag0) LayerRemoved(Ag0)");
}

TEST_F(LayerLists, GiveNewLayersTheirNumbersAndNames) {
    add("Rv0 Rv1 Rv3 Cv0 Rg9");
    EXPECT_EQ(regular->nextLayerId(PVW, LayerType::Regular), 2);
    EXPECT_THAT(regular->nextLayerId(PVW, LayerType::Regular, 3), ElementsAre(2, 4, 5));
    EXPECT_EQ(regular->nextLayerId(PVW, LayerType::Regular, kHighest).size(), 252);
    EXPECT_EQ(regular->nextZOrder(PVW, LayerType::AllLayerType), 3);
    const auto chosen = regular->layers(6, 2) << std::weak_ptr<Layer>();
    EXPECT_THAT(regular->nextZOrder(chosen, 9), ElementsAre(8, 10, 12, 4));
    regular->PVWLayers(LayerType::Regular).first().lock()->setName("layer 1");
    EXPECT_EQ(regular->nextLayerName(0, SourceType::Input, PVW, LayerType::Regular), "layer 2");
    EXPECT_EQ(regular->nextLayerName(chosen, SourceType::Input, 4).join('|'), "layer 2|layer 3|layer 4|layer 1");

    References many;
    for (int i = 0; i < 300; ++i)
        many.append(added(QStringLiteral("Bv%1").arg(i % 256)));
    EXPECT_EQ(regular->nextLayerId(PVW, LayerType::BKG), 255);
    EXPECT_THAT(regular->nextLayerId(PVW, LayerType::BKG, 5), IsEmpty());
    EXPECT_EQ(regular->nextZOrder(many, 300).size(), 300);
}

TEST_F(LayerLists, AreSelectedByIdAndReleasedByObject) {
    const auto layers = add("Rv0 Rg0 Lv0");
    regular->appendSelectedLayer(layers + References{{}}, true);
    EXPECT_EQ(heard(), "SelectedLayersChanged(true)");
    EXPECT_TRUE(names(regular->selectedLayers()) == "Rv0 Lv0" && !layers[1].lock()->selected());
    regular->appendSelectedLayer({layers[0]}, true);
    regular->removeSelectedLayer(References{layers[1], {}}, true);
    EXPECT_EQ(heard(), "");
    regular->removeSelectedLayer(References{layers[0]}, true);
    EXPECT_EQ(heard(), "SelectedLayersChanged(true)");
    regular->clearSelectedLayers(false);
    EXPECT_FALSE(layers[0].lock()->selected() || layers[2].lock()->selected());
}

TEST_F(LayerLists, AreReplacedByAReport) {
    device->setConnectorCapacity(1, 0, Enum::Interface::CapacityMode::_4K);
    const auto kept = livingReferences(add("Rv0 Rg0 Cg0 Cg4")); // no new layer takes the place of an old one
    ProtoModel::Layer::s_LayerFullDetail cut;
    cut.layerIdenti = {{}, {.layerId = 1, .layerType = toInt(LayerType::Cut), .sceneType = toInt(PGM)}};
    cut.cutFill.enable = true, cut.selected = 2, cut.general.name = "cut";
    cut.source.general = sourceOf(*input);
    auto fill = cut;
    fill.layerIdenti.layerType = toInt(LayerType::Regular), fill.general.name = "fill";
    QString error;
    EXPECT_TRUE(regular->initPGMLayerData({cut, fill, {}}, error, false));
    EXPECT_EQ(heard(), "PGMLayerRemoved(Cg0) LayerRemoved(Cg0) PGMLayerRemoved(Rg0) LayerRemoved(Rg0) "
                       "PGMLayerAdded(?) LayerAdded(?) PGMLayerAdded(?) LayerAdded(?)");
    EXPECT_EQ(names(regular->layers(6, 126)), "Rv0 fill cut Cg4");
    const auto white = regular->PGMLayers(LayerType::Cut).first().lock();
    EXPECT_TRUE(white->sourceType() == SourceType::NoSource && white->capacity() == Layer::Capacity::_SL);
    EXPECT_EQ(white->testColor(), (ProtoModel::s_ColorEnableRGB{{255, 255, 255}, 1}));
    EXPECT_TRUE(white->layerSource().source.crop.size() == 1U && !white->signalsBlocked());
    EXPECT_EQ(regular->PGMLayers(LayerType::Regular).first().lock()->sourceType(), SourceType::Input);

    EXPECT_TRUE(regular->initModelData({fill, cut, {}}, error));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(log.take().join(' '), "signalActivedScreenChanged(device, regular)");
    EXPECT_TRUE(names(regular->selectedLayers()) == "fill cut" && regular->operationTarget() == PGM);
}

TEST_F(LayerLists, LieOnTheirOutputs) {
    place(*regular, {0, 1});
    const auto layers = add("Rv0 Rv1");
    layers[0].lock()->setWindowRect({1919, 5, 2, 2}, {}, false);
    layers[1].lock()->setWindowRect({3840, 0, 10, 10}, {}, false);
    const auto rects = regular->layerFullScreenRect(layers + References{{}});
    ASSERT_EQ(rects.size(), 3);
    EXPECT_TRUE(rects[0].second == QRect(0, 0, 3840, 1080) && rects[1].second == QRect());
    EXPECT_EQ(aux->calcLayerMirrorRect(regular, {100, 7, 200, 50}), QRect(3540, 7, 200, 50));
}

} // namespace Quorix::Tests
