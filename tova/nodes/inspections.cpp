// What each kind of node has to tell besides what all nodes have.

#include "nodes/inspection.h"

#include "nodes/customnodeimpl.h"
#include "nodes/fancyroundedrectnodeimpl.h"
#include "nodes/imagenodeimpl.h"
#include "nodes/linenodeimpl.h"
#include "nodes/nodekind.h"
#include "nodes/opencurvedpathnodeimpl.h"
#include "nodes/openlinearpathnodeimpl.h"
#include "nodes/roundedrectnodeimpl.h"
#include "nodes/shapenodeimpl.h"
#include "nodes/textnodeimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

namespace {

void inspectEnd(Inspection& out, const char* label, const LineEndDecoration& decoration)
{
    if (!decoration.isValid())
        return;
    out.line(label) << implBehind(decoration.getNode()) << " at "
                    << Vetra::toQt(decoration.getPosition()) << ", rotation "
                    << decoration.getRotation() << ", backoff " << decoration.getLineBackoff();
}

void inspectEnds(Inspection& out, const LineEnds& ends)
{
    inspectEnd(out, "Start Decoration", ends.decoration(LineEnds::Which::Start));
    inspectEnd(out, "End Decoration", ends.decoration(LineEnds::Which::End));
}

} // namespace

void PathNodeImpl::inspect(Inspection& out) const
{
    if (!strokes().empty())
        out.list("Strokes", strokes(), [&](const Stroke& stroke) { out << stroke; });
}

void LinearPathNodeImpl::inspect(Inspection& out) const
{
    PathNodeImpl::inspect(out);
    out.list("Points", points(), [&](const QPointF& point) { out << point; });
    out.list("Path Intersections", crossings(), [&](const PathIntersection& crossing) {
        out << QPointF(crossing.x, crossing.y) << ", role " << crossing.role << ", other "
            << crossing.other.getImpl() << ", clearance";
        for (const double distance : crossing.clearance)
            out << " " << distance;
    });
}

void OpenLinearPathNodeImpl::inspect(Inspection& out) const
{
    static constexpr const char* kCorners[] = {"sharp", "rounded", "bevel"};
    out.line("Corners") << kCorners[static_cast<std::size_t>(m_cornerStyle) % std::size(kCorners)]
                        << ", radius " << m_cornerRadius;
    inspectEnds(out, m_ends);
    LinearPathNodeImpl::inspect(out);
}

void CurvedPathNodeImpl::inspect(Inspection& out) const
{
    PathNodeImpl::inspect(out);
    out.list("Vertices", vertices(), [&](const Vertex& vertex) {
        out << Vetra::toQt(vertex.position) << ", forward " << Vetra::toQt(vertex.forwardTangent)
            << ", backward " << Vetra::toQt(vertex.backwardTangent);
    });
}

void OpenCurvedPathNodeImpl::inspect(Inspection& out) const
{
    inspectEnds(out, m_ends);
    CurvedPathNodeImpl::inspect(out);
}

void LineNodeImpl::inspect(Inspection& out) const
{
    out.line("Line") << m_line.p1() << " to " << m_line.p2();
    inspectEnds(out, m_ends);
}

void ShapeNodeImpl::inspect(Inspection& out) const
{
    out.line("Elements") << static_cast<double>(m_figure.elements().size());
}

void RoundedRectNodeImpl::inspect(Inspection& out) const
{
    out.line("Radius") << m_radius;
}

void FancyRoundedRectNodeImpl::inspect(Inspection& out) const
{
    out.list("Radii", m_given.radii, [&](double radius) { out << radius; });
}

void TextNodeImpl::inspect(Inspection& out) const
{
    out.line("Text").quote(m_text);
    out.line("Colour") << m_color;
}

void ImageNodeImpl::inspect(Inspection& out) const
{
    const QSize natural = naturalSize();
    out.line("Source") << (m_source ? "yes" : "none") << ", natural size " << natural.width()
                       << " x " << natural.height();
}

void CustomNodeImpl::inspect(Inspection& out) const
{
    out.line("Painter") << (m_painter ? "yes" : "none");
}

} // namespace Tova2
