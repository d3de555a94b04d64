/// The model's classes by name, and their references as types that queued signals and QVariant can carry.
#ifndef QUORIXBIZMODEL_MODELREFERENCES_H
#define QUORIXBIZMODEL_MODELREFERENCES_H

#include <QMetaType>

#include <memory>

/// Declares one class, and its weak and shared references as meta-types. One type has one id, whatever the spelling
/// under which DeviceList registers it.
#define QUORIX_MODEL_CLASS(Class)                                                                                      \
    namespace Quorix::BizModel {                                                                                       \
    class Class;                                                                                                       \
    }                                                                                                                  \
    Q_DECLARE_METATYPE(std::weak_ptr<Quorix::BizModel::Class>)                                                         \
    Q_DECLARE_METATYPE(std::shared_ptr<Quorix::BizModel::Class>)

QUORIX_MODEL_CLASS(Device)
QUORIX_MODEL_CLASS(Subcard)
QUORIX_MODEL_CLASS(Connector)
QUORIX_MODEL_CLASS(Interface)
QUORIX_MODEL_CLASS(Input)
QUORIX_MODEL_CLASS(Output)
QUORIX_MODEL_CLASS(Screen)
QUORIX_MODEL_CLASS(RegularScreen)
QUORIX_MODEL_CLASS(AuxScreen)
QUORIX_MODEL_CLASS(MVRScreen)
QUORIX_MODEL_CLASS(Layer)
QUORIX_MODEL_CLASS(MVRLayer)
QUORIX_MODEL_CLASS(File)
QUORIX_MODEL_CLASS(Image)
QUORIX_MODEL_CLASS(BKG)
QUORIX_MODEL_CLASS(Logo)
QUORIX_MODEL_CLASS(Preset)
QUORIX_MODEL_CLASS(UserKey)
QUORIX_MODEL_CLASS(Keypad)

#undef QUORIX_MODEL_CLASS

#endif
