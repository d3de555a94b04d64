/// What a picture of a screen shows, taken from the model in one go.
#ifndef QUORIXCTL_SCREENVIEW_H
#define QUORIXCTL_SCREENVIEW_H

#include "drawing.h"

#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>

#include <QStringList>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace quorixctl {

/// One output in the mosaic. Areas are in pixels of the mosaic.
struct OutputView {
    QString name;
    QString position;                 ///< slot and port, where the name is too long
    Area frame;                       ///< all that the output sends
    Area interest;                    ///< the part of it that belongs to the screen
    std::array<double, 4> feathers{}; ///< widths by Enum::Screen::FeatherType, 0: none

    /// Whether the screen has less than the whole frame.
    [[nodiscard]] bool isNarrowed() const { return frame.width > interest.width || frame.height > interest.height; }
};

/// What a layer shows, for its colour.
enum class Tint { Input, Programme, Preview, Background, Logo, Nothing };

/// One layer of the scene.
struct LayerView {
    QString address; ///< within the scene: "3", "cut:3"
    QString name;
    QString source;
    QString sourceSize; ///< empty where it isn't known
    Tint tint = Tint::Nothing;
    Area window;
    int zOrder = 0;
    int opacity = 100; ///< percent
    /// Widths of the border outside and inside the window, pixels of the mosaic; both 0: none.
    double borderOutside = 0;
    double borderInside = 0;
    bool isSoftBorder = false;
    Colour borderColour;
    std::optional<Area> crop; ///< as fractions of the source
    bool isCut = false;
    bool isFill = false; ///< has a cut layer
    bool isSelected = false;
    QStringList looks; ///< what else is switched on, in words
};

/// What a card carries, of other screens, too. In units.
struct CardView {
    struct Load {
        bool isProgramme;
        int units;
    };
    QString name;
    int budget = 0; ///< in force on the screen
    std::vector<Load> loads;
};

/// A screen with one of its scenes.
struct ScreenView {
    QString device;
    QString address;
    QString name;
    bool isProgramme = false;
    QString size;      ///< of the mosaic
    QStringList facts; ///< in words
    Area mosaic;
    std::vector<OutputView> outputs;
    std::vector<Area> cells;       ///< of the grid of a multiviewer
    std::vector<LayerView> layers; ///< from the lowest to the highest
    std::vector<CardView> cards;   ///< with both scenes of a regular screen, the drawn one of an AUX screen
};

LayerView viewOf(const Quorix::BizModel::Layer &layer);
ScreenView viewOf(const std::shared_ptr<Quorix::BizModel::Device> &device,
                  const std::shared_ptr<Quorix::BizModel::Screen> &screen,
                  Quorix::BizModel::Enum::Layer::SceneType scene);

} // namespace quorixctl

#endif
