#pragma once

#include "tova/tova.h"

#include <QGraphicsScene>

#include <memory>

// The same picture twice: in a scene of ours, and in a bare toolkit scene of the toolkit's own
// items, without index. Fixed layouts, so that runs compare.

constexpr double kCell = 12;
constexpr double kBlock = 10;

/// Columns of the grid that `count` blocks fill: half as many rows as columns, about.
int gridColumns(int count);

Tova2::RectNode makeBlock(int index, int columns);
Vetra::Holder<Tova2::Scene> makeGrid(int count);

QGraphicsItem* makeBareBlock(int index, int columns);
std::unique_ptr<QGraphicsScene> makeBareGrid(int count);

/// Blocks and as many connectors of five points between them.
Vetra::Holder<Tova2::Scene> makeDiagram(int blocks);
std::unique_ptr<QGraphicsScene> makeBareDiagram(int blocks);

/// main() with an application object, which the toolkit's scenes need.
int runBenchmarks(int argc, char** argv);
