#pragma once

#include "tova/tova.h"

#include <QImage>

#include <string>
#include <vector>

namespace Tova2::Looks {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

/// One look, shown from the scene's origin on.
struct Cell {
    std::string caption;
    Vetra::Holder<Scene> scene;
    double zoom = 1;
};
using Cells = std::vector<Cell>;

/// Of a cell without its caption, in pixels at a ratio of 1.
inline constexpr double kCellWidth = 76, kCellHeight = 50;
/// Where a look has room around it.
inline constexpr Rect kBox{12, 9, 52, 32};

/// Cells side by side, each with its caption below.
QImage drawSheet(const Cells& cells, int columns, double pixelRatio);

Cell cellOf(const std::string& caption, const std::vector<Node>& nodes, double zoom = 1);
DrawStyle smooth(const Stroke& stroke, const Fill& fill);
template <class T>
T styled(T node, const DrawStyle& style)
{
    node.setDrawStyle(style);
    return node;
}

// The sheets
Cells fillCells();
Cells strokeCells();
Cells backgroundCells();
Cells effectCells();
Cells panelCells();

} // namespace Tova2::Looks
