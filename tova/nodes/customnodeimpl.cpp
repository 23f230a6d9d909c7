#include "nodes/customnodeimpl.h"

#include "nodes/destruction.h"
#include "nodes/flagscope.h"
#include "nodes/paintcontext.h"
#include "nodes/scenelink.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainter>

#include <utility>

namespace Tova2 {

namespace {

/// Gives the painter back as it was, also when a host throws.
class PainterLoan {
public:
    explicit PainterLoan(PaintContext& context)
        : m_context(context), m_painter(context.localPainter())
    {
        m_painter.save();
    }
    ~PainterLoan()
    {
        m_painter.restore();
        // A host that saves and restores unevenly leaves some other state.
        m_context.forgetPainterState();
    }
    PainterLoan(const PainterLoan&) = delete;
    PainterLoan& operator=(const PainterLoan&) = delete;

    QPainter* painter() { return &m_painter; }

private:
    PaintContext& m_context;
    QPainter& m_painter;
};

} // namespace

CustomNodeImpl::~CustomNodeImpl()
{
    letGo(m_painter.get());
}

/// Its last node may be another one by now.
void CustomNodeImpl::letGo(CustomNodePainter* painter) const
{
    if (painter && painter->m_node == this)
        painter->m_node = nullptr;
}

void CustomNodeImpl::setPainter(CustomNodePainter* painter)
{
    if (m_painter == painter)
        return;
    const Vetra::Holder<CustomNodePainter> next(painter);
    const auto old = std::exchange(m_painter, next);
    letGo(old.get());
    if (painter)
        painter->m_node = this;
    reportChange(ChangeLevel::Geometry);
}

void CustomNodeImpl::boundsChanging()
{
    reportChange(ChangeLevel::Announced);
}

QRectF CustomNodeImpl::geometryRectAt(double viewScale) const
{
    const auto painter = m_painter;
    // One that asks back, or by way of another node, finds its own node empty.
    if (!painter || m_isAsked)
        return {};
    const DestructionDelay delay;
    const QRectF rect = askForBounds(*painter, viewScale);
    // No change to anybody else, but what the scene keeps is not true.
    if (std::exchange(m_isMistaken, false) && sceneLink())
        sceneLink()->noteChange(const_cast<CustomNodeImpl&>(*this), ChangeLevel::Announced);
    return rect;
}

QRectF CustomNodeImpl::askForBounds(CustomNodePainter& painter, double viewScale) const
{
    const FlagScope asked(m_isAsked);
    try {
        const QRectF rect = Vetra::toQt(painter.getBoundingRect(viewScale));
        return isFinite(rect) ? rect : QRectF();
    } catch (...) {
        return {};
    }
}

Bounds CustomNodeImpl::outline() const
{
    const auto painter = m_painter;
    if (!painter)
        return Bounds();
    const Bounds stroked = painter->getOutlineStroked(1.0);
    return isFinite(Vetra::toQt(stroked.boundingRect())) ? stroked : Bounds();
}

void CustomNodeImpl::paintThrough(PaintContext& context, PaintCall call) const
{
    const auto painter = m_painter;
    if (!painter)
        return;
    const PaintOptions options = context.options();
    const auto target = Vetra::fromQt(geometryRectAt(options.viewScale));
    context.setStyle(drawStyle());
    PainterLoan loan(context);
    ((*painter).*call)(loan.painter(), options.viewScale, target, options);
}

void CustomNodeImpl::paintSilhouette(PaintContext& context) const
{
    paintThrough(context, &CustomNodePainter::paintMask);
}

QPainterPath CustomNodeImpl::silhouetteOutline(double viewScale) const
{
    const auto painter = m_painter;
    const QPainterPath path =
        painter ? painter->getOutlineStroked(viewScale).asQPainterPath() : QPainterPath();
    return isFinite(path.controlPointRect()) ? path : QPainterPath();
}

void CustomNodeImpl::paintNode(PaintContext& context) const
{
    paintThrough(context, &CustomNodePainter::paint);
}

} // namespace Tova2
