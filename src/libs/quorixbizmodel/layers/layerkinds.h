/// The kinds of layer. They differ in the window sizes that they allow.
#ifndef QUORIXBIZMODEL_LAYERKINDS_H
#define QUORIXBIZMODEL_LAYERKINDS_H

#include <quorixbizmodel/layers/layer.h>

namespace Quorix::BizModel {

/// A window on a regular screen.
class QUORIX_EXPORT RegularLayer : public Layer {
public:
    explicit RegularLayer(QObject *parent = nullptr);
    RegularLayer(const RegularLayer &other);
    RegularLayer &operator=(const RegularLayer &other);

    /// Room for the border, where that is switched on.
    [[nodiscard]] QSize minWindowSize() const override;
    /// Three times the mosaic each way.
    [[nodiscard]] QSize maxWindowSize() const override;
    [[nodiscard]] QSize defaultWindowSize() const override;
};

/// The key of a cut and fill pair.
class QUORIX_EXPORT CutLayer : public RegularLayer {
public:
    explicit CutLayer(QObject *parent = nullptr);
    CutLayer(const CutLayer &other);
    CutLayer &operator=(const CutLayer &other);
};

/// The layer of an AUX screen: it fills the screen, so that all its sizes are one.
class QUORIX_EXPORT AUXLayer : public Layer {
    Q_OBJECT

public:
    explicit AUXLayer(QObject *parent = nullptr);
    AUXLayer(const AUXLayer &other);
    AUXLayer &operator=(const AUXLayer &other);

    [[nodiscard]] QSize minWindowSize() const override;
    [[nodiscard]] QSize maxWindowSize() const override;
    [[nodiscard]] QSize defaultWindowSize() const override;
};

/// A background picture.
class QUORIX_EXPORT BKGLayer : public Layer {
    Q_OBJECT

public:
    explicit BKGLayer(QObject *parent = nullptr);
    BKGLayer(const BKGLayer &other);
    BKGLayer &operator=(const BKGLayer &other);
};

/// A logo.
class QUORIX_EXPORT LogoLayer : public Layer {
    Q_OBJECT

public:
    explicit LogoLayer(QObject *parent = nullptr);
    LogoLayer(const LogoLayer &other);
    LogoLayer &operator=(const LogoLayer &other);
};

/// A window of the multiviewer. Its name is that of its source.
class QUORIX_EXPORT MVRLayer : public Layer {
    Q_OBJECT

public:
    explicit MVRLayer(QObject *parent = nullptr);
    MVRLayer(const MVRLayer &other);
    MVRLayer &operator=(const MVRLayer &other);

    /// A 64th of the source on each axis, at least 64 by 64.
    [[nodiscard]] static QSize layerMinimumSize(QSize sourceVaildSize);
    /// A 64th of the largest resolution of the input's connector type.
    [[nodiscard]] static QSize layerMinimumSize(const std::weak_ptr<Input> &wInput);
    [[nodiscard]] QSize minWindowSize() const override;
    /// The multiviewer's window, or the shown screen's where that is smaller; (-1, -1) without an owner.
    [[nodiscard]] QSize maxWindowSize() const override;
    [[nodiscard]] QString name() const override;
};

} // namespace Quorix::BizModel

#endif
