#pragma once

#include "nodes/crossings/linehopxsegmentdecorator.h"
#include "nodes/crossings/linepinxsegmentdecorators.h"

#include <memory>
#include <string_view>

namespace Tova2 {

/// A scene's way to show crossings.
class PathIntersectionsDecorator {
public:
    virtual ~PathIntersectionsDecorator();
    /// The name by which a scene chooses it.
    virtual std::string_view name() const = 0;
    virtual std::unique_ptr<PathXSegmentDecorator>
    createSegmentDecorator(const CrossingContext& context, QPointF current, QPointF next) const = 0;
};

/// One that makes segment decorators of one kind.
template <class SegmentDecorator>
class PathIntersectionsDecoratorOf : public PathIntersectionsDecorator {
public:
    std::unique_ptr<PathXSegmentDecorator> createSegmentDecorator(const CrossingContext& context,
                                                                  QPointF current,
                                                                  QPointF next) const override
    {
        return std::make_unique<SegmentDecorator>(context, current, next);
    }
};

class LineHopIntersectionsDecorator final
    : public PathIntersectionsDecoratorOf<LineHopXSegmentDecorator> {
public:
    std::string_view name() const override { return "hop"; }
};

class LinePinIntersectionsDecorator final
    : public PathIntersectionsDecoratorOf<LinePinXSegmentDecorator> {
public:
    std::string_view name() const override { return "pin"; }
};

class LineGradPinIntersectionsDecorator final
    : public PathIntersectionsDecoratorOf<LineGradPinXSegmentDecorator> {
public:
    std::string_view name() const override { return "grad_pin"; }
};

class LineLightPinIntersectionsDecorator final
    : public PathIntersectionsDecoratorOf<LineLightPinXSegmentDecorator> {
public:
    std::string_view name() const override { return "light_pin"; }
};

/// "hop", "pin", "grad_pin" or "light_pin"; null for any other name.
std::unique_ptr<PathIntersectionsDecorator> makePathIntersectionsDecorator(std::string_view name);

} // namespace Tova2
