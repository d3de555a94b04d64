/// How screens, layers, sources and interfaces are written on the command line and in the host's output.
///
///     SCREEN   KIND:ID               regular:0, aux:2, mvr:0; a kind may be given as its number
///     LAYER    SCREEN/SCENE/ID       regular:0/pvw/3, of the kind that belongs to the screen
///              SCREEN/SCENE/KIND:ID  regular:0/pgm/cut:3, regular:0/pvw/bkg:0
///     SOURCE   input:SLOT-CONNECTOR, pgm:ID, pvw:ID, bkg:ID, logo:ID, none; slot and connector from 0
///
/// Inputs and outputs alone are SLOT-CONNECTOR, as in 4-0.
#ifndef QUORIXCTL_ADDRESS_H
#define QUORIXCTL_ADDRESS_H

#include <quorixprotomodel/layer.h>

#include <QString>

#include <cstdint>

namespace Quorix::BizModel {
class Device;
}

namespace quorixctl {

QString screenText(const Quorix::ProtoModel::s_ScreenId &id);
QString layerText(const Quorix::ProtoModel::s_ScreenLayerId &id);
/// "pvw" or "pgm".
QString sceneText(int scene);
/// The kind of a layer by its name here.
QString layerKindText(int kind);

/// "Out2 in slot 13".
QString cardText(Quorix::BizModel::Device &device, int slotId);
QString sourceText(const Quorix::ProtoModel::Layer::s_LayerSourceGeneral &source);
/// SLOT-CONNECTOR of a packed id.
QString interfaceText(std::uint32_t id);

// These throw UsageError, with what is wrong, for a text that is no such address.

Quorix::ProtoModel::s_ScreenId parseScreen(const QString &text);
Quorix::ProtoModel::s_ScreenLayerId parseLayer(const QString &text);
Quorix::ProtoModel::Layer::s_LayerSourceGeneral parseSource(const QString &text);
Quorix::ProtoModel::s_InterfaceID parseInterface(const QString &text);
int parseScene(const QString &text);
/// A whole number from @p minimum to @p maximum; @p what names it in the reason.
int parseNumber(const QString &text, int minimum, int maximum, const char *what);

} // namespace quorixctl

#endif
