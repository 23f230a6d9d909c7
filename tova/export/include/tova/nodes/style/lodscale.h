#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/stringid.h"

namespace Tova2 {

/// Says by how much to multiply a size in scene units (a stroke's width, a radius) at a given view
/// scale. The base leaves the size alone, so that it follows the zoom.
///
/// Functions are immutable and shared: whoever takes a pointer to one never owns it, and a function
/// made by the host has to outlive its users. A view scale that is not finite or not above 0 counts
/// as 1, and no result is infinite. A host's function depends on nothing but the view scale: it is
/// asked in the middle of other work, and must neither throw nor edit anything.
class TOVA_EXPORT LodScale {
public:
    static const LodScale* instance();

    virtual ~LodScale();
    LodScale(const LodScale&) = delete;
    LodScale& operator=(const LodScale&) = delete;

    virtual double scale(double viewScale) const;
    virtual Vetra::StringID name() const; ///< "None"

protected:
    LodScale() = default;

    TOVA_BASE_TYPE("Tova2.LodScale");
};

/// "Constant": the same size on screen at every zoom.
class TOVA_EXPORT ConstantLodScale : public LodScale {
public:
    static const ConstantLodScale* instance();
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

    TOVA_DERIVED_TYPE("Tova2.ConstantLodScale", LodScale);
};

/// "ConstantIn": does not grow when zooming in beyond 1.
class TOVA_EXPORT ConstantInLodScale : public LodScale {
public:
    static const ConstantInLodScale* instance();
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

    TOVA_DERIVED_TYPE("Tova2.ConstantInLodScale", LodScale);
};

/// "ConstantOut": does not shrink when zooming out below 1.
class TOVA_EXPORT ConstantOutLodScale : public LodScale {
public:
    static const ConstantOutLodScale* instance();
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

    TOVA_DERIVED_TYPE("Tova2.ConstantOutLodScale", LodScale);
};

/// "LinearlyScaleUntilLodScale": grows with the zoom up to a view scale of `limit`, then stays.
class TOVA_EXPORT LinearlyScaleUntilLodScale : public LodScale {
public:
    /// A limit that is not finite or not above 0 counts as 1.
    explicit LinearlyScaleUntilLodScale(double limit);
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

private:
    double m_limit;

    TOVA_DERIVED_TYPE("Tova2.LinearlyScaleUntilLodScale", LodScale);
};

/// "SelectionNonLinear": shrinks against the zoom, but more slowly than a constant size would.
class TOVA_EXPORT SelectionNonLinearLodScale : public LodScale {
public:
    static const SelectionNonLinearLodScale* instance();
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

    TOVA_DERIVED_TYPE("Tova2.SelectionNonLinearLodScale", LodScale);
};

/// "SplitLinear": above 1 the size on screen grows slowly, to at most twice the base. Up to 1 the
/// multiplier is the view scale itself, so that the size on screen falls with its square.
class TOVA_EXPORT SplitLinearLodScale : public LodScale {
public:
    static const SplitLinearLodScale* instance();
    double scale(double viewScale) const override;
    Vetra::StringID name() const override;

    TOVA_DERIVED_TYPE("Tova2.SplitLinearLodScale", LodScale);
};

/// The functions that a keyword can name; the enumerators are the keywords.
enum class LodScaleKind {
    None,
    Constant,
    ConstantOut,
    ConstantIn,
    SplitLinear,
    SelectionNonLinear,
    UnknownScale ///< any other function
};
/// By the function's name.
TOVA_EXPORT LodScaleKind lodScaleKind(const LodScale& function);
/// The shared function of a kind; `LodScale::instance()` for `UnknownScale`.
TOVA_EXPORT const LodScale* lodScaleOfKind(LodScaleKind kind);

} // namespace Tova2
