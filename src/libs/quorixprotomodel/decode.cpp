#include <quorixprotomodel/file.h>
#include <quorixprotomodel/preset.h>

namespace Quorix::ProtoModel {

template QUORIX_EXPORT bool decode(const std::string &, File::s_KeypadInfo &, std::string &);
template QUORIX_EXPORT bool decode(const std::string &, Preset::s_PresetCreate &, std::string &);

} // namespace Quorix::ProtoModel
