#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

#include <vector>

namespace Tova2 {

/// Two or more valid, finite rectangles, which may overlap.
class RectListPainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit RectListPainterPathBoundsImpl(std::vector<Rect> rects) : m_rects(std::move(rects)) {}
    Bounds transformed(const Vetra::Transform& t) const override;

protected:
    void buildPath() const override;

private:
    std::vector<Rect> m_rects;
};

} // namespace Tova2
