#pragma once

#include "scene/viewreach.h"

#include <QRectF>

namespace Tova2 {

/// A part of a scene that needs painting again: a rectangle at a view scale of 1, and how much
/// farther strokes may reach at others. Empty means everything.
struct DirtyArea {
    QRectF rect;
    ViewReach reach;

    QRectF at(double viewScale) const
    {
        if (rect.isNull())
            return rect;
        const double margin = reach.at(viewScale);
        return rect.adjusted(-margin, -margin, margin, margin);
    }
};

/// Whoever shows a scene. It merges the requests of a turn of the event loop and asks nothing of
/// the scene meanwhile.
class RepaintSink {
public:
    virtual void repaintRequested(const DirtyArea& area) = 0;

protected:
    ~RepaintSink() = default;
};

} // namespace Tova2
