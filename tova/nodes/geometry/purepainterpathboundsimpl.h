#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

namespace Tova2 {

/// A free path, which has to be finite.
class PurePainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit PurePainterPathBoundsImpl(const QPainterPath& path) : PainterPathBoundsImpl(path) {}

protected:
    void buildPath() const override {} // it was given
};

} // namespace Tova2
