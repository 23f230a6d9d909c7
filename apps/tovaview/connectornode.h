#pragma once

#include "diagram.h"

#include <tova/nodes/lineenddecoration.h>

namespace TovaView {

/// What an ending looks like on its line; none for figures that go with no line. Hollow ones are
/// filled with `ground`, and stay open where that is not one colour.
Tova2::LineEndDecoration decorationOf(const std::optional<Ending>& ending,
                                      const std::optional<Vetra::Color>& ground);
/// A line as a path that wears decorations, which may be empty, at its ends; what is no open line
/// as a shape without them. Coordinates are the scene's.
Tova2::Node makeConnectorNode(const Figure& line, const Tova2::LineEndDecoration& start = {},
                              const Tova2::LineEndDecoration& end = {});

} // namespace TovaView
