#include <quorixbizmodel/resources/resourceexplanation.h>

#include "accounting_p.h"

#include <quorixbizmodel/screens/screenkinds.h>

namespace Quorix::BizModel {

ResourceExplanation explainResources(const std::weak_ptr<Screen> &wScreen, const ResourceCheck::LayerRects &layerRects,
                                     Enum::Layer::SceneType sceneType, const std::weak_ptr<Layer> &switchLayer) {
    ResourceExplanation explanation;
    const Accounting::Outcome outcome{explanation.slotResources, explanation.invalidOutputs, &explanation.cards};
    const auto screen = wScreen.lock();
    if (screen == nullptr)
        return explanation;
    if (screen->screenType() == Enum::Screen::ScreenType::RegularScreen)
        explanation.fits = Accounting::checkRegular(std::dynamic_pointer_cast<RegularScreen>(screen), layerRects,
                                                    sceneType, switchLayer.lock(), outcome);
    else if (screen->screenType() == Enum::Screen::ScreenType::AUXScreen)
        explanation.fits =
            Accounting::checkAux(std::dynamic_pointer_cast<AuxScreen>(screen), layerRects, sceneType, outcome);
    return explanation;
}

} // namespace Quorix::BizModel
