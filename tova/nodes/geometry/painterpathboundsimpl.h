#pragma once

#include "nodes/geometry/boundsimpl.h"

#include <QPainterPath>

namespace Tova2 {

/// Answers every query on a path, which is built when first needed. The path is always finite.
class PainterPathBoundsImpl : public BoundsImpl {
public:
    bool equals(const BoundsImpl& other) const override;
    Bounds transformed(const Vetra::Transform& t) const override;
    Bounds unionedWith(const Bounds& other) const override;
    Bounds unionedWith(const Rect& rect) const override;
    Bounds intersectedWith(const BoundsImpl& other) const override;
    Bounds intersectedWith(const Rect& rect) const override;
    bool intersects(const BoundsImpl& other) const override;
    bool intersects(const Rect& rect) const override;
    bool contains(const Point& point) const override;
    bool contains(const BoundsImpl& other) const override;
    bool contains(const Rect& rect) const override;
    bool containsPath(const QPainterPath& path) const override;
    bool intersectsPath(const QPainterPath& path) const override;
    std::vector<Rect> boundingRects() const override;
    const QPainterPath& asQPainterPath() const override;

protected:
    PainterPathBoundsImpl() = default;
    explicit PainterPathBoundsImpl(const QPainterPath& path) : m_path(path), m_isBuilt(true) {}
    void setPath(const QPainterPath& path) const { m_path = path; }

private:
    mutable QPainterPath m_path;
    mutable bool m_isBuilt = false;
};

} // namespace Tova2
