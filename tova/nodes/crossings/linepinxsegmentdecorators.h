#pragma once

#include "nodes/crossings/pathxsegmentdecorator.h"

namespace Tova2 {

/// Base of the styles that cut the vertical line and leave the horizontal one alone.
class PinStyleXSegmentDecorator : public PathXSegmentDecorator {
public:
    using PathXSegmentDecorator::PathXSegmentDecorator;

    bool isPinStyle() const override { return true; }

protected:
    static Clearance pinClearance(double reach, bool vertical);
    /// Gaps that meet become one mark, that of the line crossed first.
    void cutForMark(const PinMark& mark);

private:
    bool m_hasCut = false;
};

/// The line is cut for the whole length of the mark.
class LinePinXSegmentDecorator : public PinStyleXSegmentDecorator {
public:
    using PinStyleXSegmentDecorator::PinStyleXSegmentDecorator;

    bool decorate(const PathIntersection& crossing) override;
    Clearance baseClearance(bool vertical) const override { return pinClearance(2, vertical); }
};

/// A pin with more room.
class LineLightPinXSegmentDecorator final : public LinePinXSegmentDecorator {
public:
    using LinePinXSegmentDecorator::LinePinXSegmentDecorator;

    Clearance baseClearance(bool vertical) const override { return pinClearance(3, vertical); }
};

/// A long mark over a line that is cut only where the other line passes.
class LineGradPinXSegmentDecorator final : public PinStyleXSegmentDecorator {
public:
    using PinStyleXSegmentDecorator::PinStyleXSegmentDecorator;

    bool decorate(const PathIntersection& crossing) override;
    Clearance baseClearance(bool vertical) const override { return pinClearance(5, vertical); }
};

} // namespace Tova2
