/// The kinds of screen that show a programme; the multiviewer's is MVRScreen.
#ifndef QUORIXBIZMODEL_SCREENKINDS_H
#define QUORIXBIZMODEL_SCREENKINDS_H

#include <quorixbizmodel/screens/screen.h>

namespace Quorix::BizModel {

/// A screen of main outputs. Where its device has no capability record, what the record would say is false.
class QUORIX_EXPORT RegularScreen : public Screen {
    Q_OBJECT

public:
    explicit RegularScreen(QObject *parent = nullptr);
    RegularScreen(const RegularScreen &other);
    RegularScreen &operator=(const RegularScreen &other) = default;

    /// With every cell of the grid filled, unless device or splice mode take an incomplete mosaic.
    [[nodiscard]] bool isComplete() const override;
    [[nodiscard]] bool isSupportVirtualScreen() const override;
    [[nodiscard]] bool isSupportProjectionFusion() const override;
    /// Three times the mosaic each way, centred on it.
    [[nodiscard]] QRect layerValidRangeWindowRect() const override;
    /// Cuts a proposed layer window to the size of the valid range, then pushes it inside.
    [[nodiscard]] QRect recalcLayerValidWindowRect(const QRect &rect) const;
};

/// A screen of AUX outputs. Its scene is always edited directly.
class QUORIX_EXPORT AuxScreen : public Screen {
    Q_OBJECT

public:
    explicit AuxScreen(QObject *parent = nullptr);
    AuxScreen(const AuxScreen &other);
    AuxScreen &operator=(const AuxScreen &other) = default;

    [[nodiscard]] bool PGMEdit() const override;
    [[nodiscard]] bool isComplete() const override;
    [[nodiscard]] bool isSupportVirtualScreen() const override;
    [[nodiscard]] bool isSupportProjectionFusion() const override;
    [[nodiscard]] bool isSupportOutputAOI() const override;
};

/// The screen of the echo output. A device keeps none of them.
class QUORIX_EXPORT EchoScreen : public Screen {
    Q_OBJECT

public:
    explicit EchoScreen(QObject *parent = nullptr);
    EchoScreen(const EchoScreen &other);
    EchoScreen &operator=(const EchoScreen &other) = default;
};

} // namespace Quorix::BizModel

#endif
