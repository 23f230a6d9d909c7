#include "nodes/curvedpathnodeimpl.h"

#include "nodes/destruction.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

namespace {

bool isUsable(const Vertex& v)
{
    return isFinite(Vetra::toQt(v.position)) && isFinite(Vetra::toQt(v.forwardTangent)) &&
           isFinite(Vetra::toQt(v.backwardTangent)) &&
           isFinite(Vetra::toQt(v.position + v.forwardTangent)) &&
           isFinite(Vetra::toQt(v.position + v.backwardTangent));
}

} // namespace

void CurvedPathNodeImpl::setVertices(std::vector<Vertex> vertices)
{
    const auto usable = [](const Vertex& v) { return isUsable(v); };
    if (!std::all_of(vertices.begin(), vertices.end(), usable) || vertices == m_vertices)
        return;
    m_vertices = std::move(vertices);
    reportVertices();
}

void CurvedPathNodeImpl::setVertex(std::size_t index, const Vertex& vertex)
{
    if (!isUsable(vertex) || vertex == m_vertices[index])
        return;
    m_vertices[index] = vertex;
    reportVertices();
}

void CurvedPathNodeImpl::append(const Vertex& vertex)
{
    if (!isUsable(vertex))
        return;
    m_vertices.push_back(vertex);
    reportVertices();
}

void CurvedPathNodeImpl::scaleVertices(double factor)
{
    auto vertices = m_vertices;
    for (Vertex& v : vertices)
        v = {v.position * factor, v.forwardTangent * factor, v.backwardTangent * factor};
    setVertices(std::move(vertices));
}

void CurvedPathNodeImpl::translateVertices(const Vetra::GLPoint<double>& distance)
{
    auto vertices = m_vertices;
    for (Vertex& v : vertices)
        v.position += distance;
    setVertices(std::move(vertices));
}

void CurvedPathNodeImpl::reportVertices()
{
    const DestructionDelay delay;
    reportChange(ChangeLevel::Geometry);
    verticesChanged();
}

Cubic CurvedPathNodeImpl::curve(std::size_t segment) const
{
    const Vertex& from = m_vertices[segment];
    const Vertex& to = m_vertices[(segment + 1) % m_vertices.size()];
    return {{Vetra::toQt(from.position), Vetra::toQt(from.position + from.forwardTangent),
             Vetra::toQt(to.position + to.backwardTangent), Vetra::toQt(to.position)}};
}

CurvedPathNodeImpl::Range CurvedPathNodeImpl::drawnRange() const
{
    const std::size_t count = segmentCount();
    return count > 0 ? Range{0, count - 1} : Range{1, 0};
}

PathNodeImpl::Flattened CurvedPathNodeImpl::flattened() const
{
    const Range drawn = drawnRange();
    if (drawn.first > drawn.last)
        return {};
    Flattened flat;
    flat.points.push_back(drawnCurve(drawn.first).points.front());
    for (std::size_t segment = drawn.first; segment <= drawn.last; ++segment) {
        drawnCurve(segment).appendChords(flat.points);
        flat.segments.resize(flat.points.size() - 1, static_cast<std::uint32_t>(segment));
    }
    if (isClosed())
        flat.points.pop_back(); // the first again
    flat.points.shrink_to_fit();
    flat.segments.shrink_to_fit();
    return flat;
}

QRectF CurvedPathNodeImpl::exactRect() const
{
    if (m_vertices.empty())
        return {};
    QRectF all(Vetra::toQt(m_vertices.front().position), QSizeF(0, 0));
    for (std::size_t segment = 0; segment < segmentCount(); ++segment) {
        const QRectF rect = curve(segment).boundingRect();
        all.setCoords(std::min(all.left(), rect.left()), std::min(all.top(), rect.top()),
                      std::max(all.right(), rect.right()), std::max(all.bottom(), rect.bottom()));
    }
    return all;
}

QPainterPath CurvedPathNodeImpl::pathOf(const Range& range) const
{
    const std::size_t count = segmentCount();
    QPainterPath path(drawnCurve(range.first % count).points[0]);
    for (std::size_t segment = range.first; segment <= range.last; ++segment) {
        const auto& p = drawnCurve(segment % count).points;
        path.cubicTo(p[1], p[2], p[3]);
    }
    return path;
}

} // namespace Tova2
