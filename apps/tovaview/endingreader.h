#pragma once

#include "diagram.h"

#include <QJsonObject>

namespace TovaView {

/// What an edge of dot's JSON wears at its ends, drawn there as `tail` and `head`, into a connector
/// whose line is known. The line is led on to the tips. `top` is where y is 0 on the page.
void readEndings(const QJsonObject& edge, double top, std::vector<Figure> tail,
                 std::vector<Figure> head, Connector& connector);

} // namespace TovaView
