#include "screenview.h"

#include "../address.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/resources/resourcescheck.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/output.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
namespace Records = Quorix::ProtoModel;

struct BorderStyle {
    const char *name;
    bool isOutside;
    bool isInside;
    bool isSoft;
};

/// By Enum::Layer::BorderType.
constexpr BorderStyle kBorders[] = {
    {"hard", false, true, false},        {"hard outside", true, false, false}, {"hard both", true, true, false},
    {"soft", false, true, true},         {"halo", true, true, true},           {"halo inside", false, true, true},
    {"halo outside", true, false, true},
};

/// By Enum::Screen::State.
constexpr const char *kStates[] = {"", "taking", "out of resources", "T-bar", "cutting", "matching PGM"};

struct Look {
    const char *name;
    bool (Layer::*isOn)() const;
};

constexpr Look kLooks[] = {
    {"frozen", &Layer::frezzeEnable},
    {"monochrome", &Layer::monochromeEnable},
    {"inverse", &Layer::inverseEnable},
    {"mask", &Layer::maskEnable},
};

Area areaOf(const Records::s_Rect &rect) {
    return {static_cast<double>(rect.x), static_cast<double>(rect.y), static_cast<double>(rect.width),
            static_cast<double>(rect.height)};
}

Colour colourOf(const Records::s_RGB &colour) {
    const auto part = [](int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); };
    return {part(colour.R), part(colour.G), part(colour.B), 100};
}

QString sizeText(const Area &area) {
    return QStringLiteral("%1 \u00D7 %2").arg(area.width, 0, 'f', 0).arg(area.height, 0, 'f', 0);
}

OutputView viewOf(const std::shared_ptr<Device> &device, const Records::Screen::s_OutputDetail &detail) {
    OutputView view;
    const double x = detail.pos.x;
    const double y = detail.pos.y;
    view.interest = areaOf(detail.crop);
    view.frame = {x, y, view.interest.right(), view.interest.bottom()};
    view.interest.x += x;
    view.interest.y += y;
    view.position = QStringLiteral("%1-%2").arg(detail.interfaceId.slotId).arg(detail.interfaceId.connectorId);
    view.name = QStringLiteral("missing output %1").arg(view.position);
    if (const auto output = device->findOutput(detail.interfaceId.id()).lock()) {
        view.name = output->name();
        view.frame.width = output->presetFrameRate().width();
        view.frame.height = output->presetFrameRate().height();
    }
    for (const Records::Screen::s_Feather &feather : detail.feather)
        if (feather.enable != 0 && feather.type >= 0 && static_cast<std::size_t>(feather.type) < view.feathers.size())
            view.feathers[static_cast<std::size_t>(feather.type)] = std::max(feather.width, 0);
    return view;
}

void readBorder(const Records::Layer::s_LayerBorderBody &border, LayerView &view) {
    if (border.enable == 0 || border.type < 0 || static_cast<std::size_t>(border.type) >= std::size(kBorders))
        return;
    const BorderStyle &style = kBorders[border.type];
    const double width = std::max(border.size.hWidth, border.size.vWidth);
    view.borderOutside = style.isOutside ? width : 0;
    view.borderInside = style.isInside ? width : 0;
    view.isSoftBorder = style.isSoft;
    view.borderColour = colourOf(border.color);
    view.looks << QStringLiteral("border %1 %2").arg(QLatin1String(style.name)).arg(width);
}

Tint tintOf(int sourceType) {
    using Source = Enum::Layer::SourceType;
    switch (static_cast<Source>(sourceType)) {
    case Source::Input:
        return Tint::Input;
    case Source::PGM:
        return Tint::Programme;
    case Source::PVW:
        return Tint::Preview;
    case Source::BKG:
        return Tint::Background;
    case Source::LOGO:
        return Tint::Logo;
    default:
        return Tint::Nothing;
    }
}

QString sourceText(const Layer &layer) {
    switch (tintOf(toInt(layer.sourceType()))) {
    case Tint::Background:
        return QStringLiteral("background %1").arg(layer.sourceId());
    case Tint::Logo:
        return QStringLiteral("logo %1").arg(layer.sourceId());
    case Tint::Nothing:
        return QStringLiteral("no source");
    default:
        return layer.sourceName();
    }
}

QStringList factsOf(const Screen &screen, const ScreenView &view) {
    const auto [rows, columns] = screen.grid();
    const auto count = [](std::size_t number, const char *what) {
        return QStringLiteral("%1 %2%3").arg(number).arg(QLatin1String(what), QLatin1String(number == 1 ? "" : "s"));
    };
    QStringList facts{QStringLiteral("grid %1 \u00D7 %2").arg(columns).arg(rows), count(view.outputs.size(), "output"),
                      count(view.layers.size(), "layer")};
    if (const auto *multiviewer = dynamic_cast<const MVRScreen *>(&screen))
        facts << QStringLiteral("cells %1 \u00D7 %2")
                     .arg(multiviewer->rowColSpan().width())
                     .arg(multiviewer->rowColSpan().height());
    if (screen.physicalEnable())
        facts << QStringLiteral("physical %1 \u00D7 %2")
                     .arg(screen.physicalQSize().width())
                     .arg(screen.physicalQSize().height());
    const auto state = static_cast<std::size_t>(screen.state());
    if (state > 0 && state < std::size(kStates))
        facts << QString::fromLatin1(kStates[state]);
    if (screen.state() == Enum::Screen::State::Tbar_taking)
        facts.last() += QStringLiteral(" at %1 %").arg(screen.TBar().percent);
    if (screen.freeze())
        facts << QStringLiteral("frozen");
    if (screen.FTBEnable())
        facts << QStringLiteral("faded to black");
    return facts;
}

std::vector<CardView> cardsOf(Device &device, const std::shared_ptr<Screen> &screen, Enum::Layer::SceneType drawn) {
    using Enum::Layer::SceneType;
    std::vector<CardView> cards;
    const bool isRegular = screen->screenType() == Enum::Screen::ScreenType::RegularScreen;
    const auto aux = std::dynamic_pointer_cast<AuxScreen>(screen);
    if (!isRegular && aux == nullptr)
        return cards;
    int least = std::numeric_limits<int>::max();
    for (const auto &body : device.protoSubcards(screen)) {
        const auto slotId = static_cast<uint8_t>(body.slotId);
        CardView card{cardText(device, slotId), device.subcardResources(body.cardType), {}};
        least = std::min(least, card.budget);
        for (const SceneType scene : {SceneType::PGM, SceneType::PVW})
            if (isRegular || scene == drawn)
                card.loads.push_back(
                    {scene == SceneType::PGM,
                     isRegular
                         ? ResourceCheck::calcAllocedResourcesOfSlot(body, screen, scene, true, {})
                         : ResourceCheck::getResOfSlotAlloced(aux, scene, device.findSubcardBySlotId(slotId), {})});
        cards.push_back(std::move(card));
    }
    // The smallest budget of a regular screen's cards holds on all of them.
    if (isRegular)
        for (CardView &card : cards)
            card.budget = least;
    return cards;
}

} // namespace

LayerView viewOf(const Layer &layer) {
    const Layer::Detail detail = layer.layerDetail();
    LayerView view;
    view.address = layerText(layer.screenLayerId()).section(QLatin1Char('/'), 2);
    view.name = layer.name();
    view.source = sourceText(layer);
    if (const QSize size = layer.sourceValidSize(); !size.isEmpty())
        view.sourceSize = QStringLiteral("%1 \u00D7 %2").arg(size.width()).arg(size.height());
    view.tint = tintOf(detail.source.general.type);
    view.window = areaOf(detail.window);
    view.zOrder = detail.zorder;
    view.opacity = std::clamp(detail.opacity, 0, 100);
    view.isCut = layer.isCutLayer();
    const auto cut = layer.cutLayer().lock();
    view.isFill = cut && cut->isCutLayerEnable();
    view.isSelected = layer.selected();
    if (view.isCut)
        view.looks << QStringLiteral("cut");
    if (view.isFill)
        view.looks << (layer.isFillBindingCut() ? QStringLiteral("fill, bound") : QStringLiteral("fill"));
    readBorder(detail.border, view);
    if (Layer::Crop crop; layer.souceCropEnable() && layer.souceCropRatio(crop)) {
        constexpr double kWhole = 100000;
        view.crop =
            Area{crop.xRatio / kWhole, crop.yRatio / kWhole, crop.widthRatio / kWhole, crop.heightRatio / kWhole};
        view.looks << QStringLiteral("crop %1 \u00D7 %2 %").arg(crop.widthRatio / 1000).arg(crop.heightRatio / 1000);
    }
    if (view.opacity < 100)
        view.looks << QStringLiteral("opacity %1 %").arg(view.opacity);
    for (const Look &look : kLooks)
        if ((layer.*look.isOn)())
            view.looks << QString::fromLatin1(look.name);
    if (view.isSelected)
        view.looks << QStringLiteral("selected");
    return view;
}

ScreenView viewOf(const std::shared_ptr<Device> &device, const std::shared_ptr<Screen> &screen,
                  Enum::Layer::SceneType scene) {
    ScreenView view;
    view.device = QStringLiteral("%1 \u00B7 %2").arg(device->typeName(), device->name());
    view.address = screenText(screen->screenIdentity());
    view.name = screen->name();
    view.isProgramme = scene == Enum::Layer::SceneType::PGM;
    for (const Records::Screen::s_OutputDetail &detail : screen->outputDetailArry()) {
        view.outputs.push_back(viewOf(device, detail));
        view.mosaic = view.mosaic.united(view.outputs.back().interest);
    }
    view.size = sizeText(view.mosaic);
    if (const auto *multiviewer = dynamic_cast<const MVRScreen *>(screen.get()))
        for (const QRect &cell : multiviewer->gridCellRects())
            view.cells.push_back(areaOf(Helper::qRect2SRect(cell)));
    for (const auto &reference : screen->layers(scene))
        if (const auto layer = reference.lock())
            view.layers.push_back(viewOf(*layer));
    std::stable_sort(view.layers.begin(), view.layers.end(),
                     [](const LayerView &left, const LayerView &right) { return left.zOrder < right.zOrder; });
    view.cards = cardsOf(*device, screen, scene);
    view.facts = factsOf(*screen, view);
    return view;
}

} // namespace quorixctl
