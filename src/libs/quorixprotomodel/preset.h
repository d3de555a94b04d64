/// The content of a preset.
#ifndef QUORIXPROTOMODEL_PRESET_H
#define QUORIXPROTOMODEL_PRESET_H

#include <ajson/decode.h>
#include <quorix_export.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/screen.h>

namespace Quorix::ProtoModel::Preset {

inline constexpr std::uint8_t bcPreset = 21; ///< base code of the message below
inline constexpr std::uint8_t fcApply = 1;

/// One screen in a preset.
struct s_Screen : s_ScreenId {
    std::uint8_t enable = 0; ///< the screen takes part in the preset
    Screen::s_GeneralBody general;
    Screen::s_ScreenMosaic mosaic; ///< as it was when the preset was made
    bool operator==(const s_Screen &) const = default;
};
QUORIX_AJSON(s_Screen, screenId, screenType, enable, general, mosaic)
using s_ScreenArry = std::vector<s_Screen>;

struct s_PresetCreate {
    std::uint8_t presetId = 0; ///< equal to the file id
    std::string name;
    std::int32_t startTime = 0; ///< time of creation
    s_ScreenArry screens;
    Layer::s_LayerDetailArray layers;
    bool operator==(const s_PresetCreate &) const = default;
};
QUORIX_AJSON(s_PresetCreate, presetId, name, startTime, screens, layers)

} // namespace Quorix::ProtoModel::Preset

extern template QUORIX_EXPORT bool Quorix::ProtoModel::decode(const std::string &, Preset::s_PresetCreate &,
                                                              std::string &);

#endif
