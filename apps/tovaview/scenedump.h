#pragma once

#include "diagramscene.h"

#include <QByteArray>

#include <string>

namespace TovaView {

/// A JSON array with one object a node, each on a line, from the bottom of the scene to its top:
/// id, kind, name, parent (an id or null), z, rect (x, y, width, height in the scene), text, and
/// for paths their points in the scene with a letter each: M start of a subpath, L end of a line, C
/// first and D further points of a cubic curve.
QByteArray dumpScene(const DiagramScene& diagram);

/// What the library knows of the node that has the id in the dump; empty when there is none.
std::string inspectNode(const DiagramScene& diagram, int id);

struct Timings {
    double load = 0, build = 0, crossings = 0, paint = 0; ///< milliseconds
};

/// One line of JSON, with its line end.
QByteArray statsLine(const DiagramScene& diagram, const Timings& timings);

} // namespace TovaView
