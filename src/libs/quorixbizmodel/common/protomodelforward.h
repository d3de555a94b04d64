/// Records that headers of the model name without needing their fields.
#ifndef QUORIXBIZMODEL_PROTOMODELFORWARD_H
#define QUORIXBIZMODEL_PROTOMODELFORWARD_H

#include <cstdint>

namespace Quorix::ProtoModel {
struct s_InterfaceID;
struct s_Pos;
struct s_RGB;
struct s_RGBO;
struct s_Rect;
struct s_Size;
struct s_TimingDetailBody;
// Stands in a header without classes of its own: lupdate takes the next braces for the body of this enumeration.
enum class Boolean : std::int32_t;
} // namespace Quorix::ProtoModel

#endif
