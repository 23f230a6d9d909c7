#include "tova/nodes/style/lodscale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tova2 {

namespace {

double usable(double viewScale)
{
    return std::isfinite(viewScale) && viewScale > 0 ? viewScale : 1;
}

// The reciprocal of a subnormal number would overflow.
double reciprocal(double viewScale)
{
    return std::min(1 / viewScale, std::numeric_limits<double>::max());
}

template <class Function>
const Function* shared()
{
    // Never destroyed: strokes kept in statics refer to it until the process ends.
    static const auto* const function = new Function;
    return function;
}

} // namespace

LodScale::~LodScale() = default;

const LodScale* LodScale::instance()
{
    struct Plain : LodScale {};
    return shared<Plain>();
}

double LodScale::scale(double) const
{
    return 1;
}

Vetra::StringID LodScale::name() const
{
    static const Vetra::StringID id("None");
    return id;
}

const ConstantLodScale* ConstantLodScale::instance()
{
    return shared<ConstantLodScale>();
}

double ConstantLodScale::scale(double viewScale) const
{
    return reciprocal(usable(viewScale));
}

Vetra::StringID ConstantLodScale::name() const
{
    static const Vetra::StringID id("Constant");
    return id;
}

const ConstantInLodScale* ConstantInLodScale::instance()
{
    return shared<ConstantInLodScale>();
}

double ConstantInLodScale::scale(double viewScale) const
{
    const double s = usable(viewScale);
    return s <= 1 ? 1 : reciprocal(s);
}

Vetra::StringID ConstantInLodScale::name() const
{
    static const Vetra::StringID id("ConstantIn");
    return id;
}

const ConstantOutLodScale* ConstantOutLodScale::instance()
{
    return shared<ConstantOutLodScale>();
}

double ConstantOutLodScale::scale(double viewScale) const
{
    const double s = usable(viewScale);
    return s >= 1 ? 1 : reciprocal(s);
}

Vetra::StringID ConstantOutLodScale::name() const
{
    static const Vetra::StringID id("ConstantOut");
    return id;
}

LinearlyScaleUntilLodScale::LinearlyScaleUntilLodScale(double limit) : m_limit(usable(limit)) {}

double LinearlyScaleUntilLodScale::scale(double viewScale) const
{
    const double s = usable(viewScale);
    return s <= m_limit ? 1 : m_limit / s;
}

Vetra::StringID LinearlyScaleUntilLodScale::name() const
{
    static const Vetra::StringID id("LinearlyScaleUntilLodScale");
    return id;
}

const SelectionNonLinearLodScale* SelectionNonLinearLodScale::instance()
{
    return shared<SelectionNonLinearLodScale>();
}

double SelectionNonLinearLodScale::scale(double viewScale) const
{
    return std::pow(reciprocal(usable(viewScale)), 0.7);
}

Vetra::StringID SelectionNonLinearLodScale::name() const
{
    static const Vetra::StringID id("SelectionNonLinear");
    return id;
}

const SplitLinearLodScale* SplitLinearLodScale::instance()
{
    return shared<SplitLinearLodScale>();
}

double SplitLinearLodScale::scale(double viewScale) const
{
    const double s = usable(viewScale);
    return s <= 1 ? s : reciprocal(s) * std::min(2.0, (s + 1) / 11 + 1);
}

Vetra::StringID SplitLinearLodScale::name() const
{
    static const Vetra::StringID id("SplitLinear");
    return id;
}

LodScaleKind lodScaleKind(const LodScale& function)
{
    const auto name = function.name();
    for (int kind = 0; kind < static_cast<int>(LodScaleKind::UnknownScale); ++kind)
        if (lodScaleOfKind(static_cast<LodScaleKind>(kind))->name() == name)
            return static_cast<LodScaleKind>(kind);
    return LodScaleKind::UnknownScale;
}

const LodScale* lodScaleOfKind(LodScaleKind kind)
{
    switch (kind) {
    case LodScaleKind::Constant:
        return ConstantLodScale::instance();
    case LodScaleKind::ConstantOut:
        return ConstantOutLodScale::instance();
    case LodScaleKind::ConstantIn:
        return ConstantInLodScale::instance();
    case LodScaleKind::SplitLinear:
        return SplitLinearLodScale::instance();
    case LodScaleKind::SelectionNonLinear:
        return SelectionNonLinearLodScale::instance();
    case LodScaleKind::None:
    case LodScaleKind::UnknownScale:
        break;
    }
    return LodScale::instance();
}

} // namespace Tova2
