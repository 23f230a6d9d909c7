#pragma once

#include "tova/nodes/geometry/bounds.h"

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <vector>

namespace Tova2 {

class NodeImpl;
class ScenePrivate;

/// Answers from the topmost node down. A custom hit tester may edit the scene while it is asked; a
/// node that goes meanwhile is not in the answer. The caller holds off destruction for as long as
/// it uses the pointers.
namespace SceneQueries {

std::vector<NodeImpl*> all(ScenePrivate& scene);
NodeImpl* topmostAt(ScenePrivate& scene, const QPointF& point, const QTransform& view);
std::vector<NodeImpl*> at(ScenePrivate& scene, const QPointF& point);
std::vector<NodeImpl*> intersecting(ScenePrivate& scene, const Bounds& area);
std::vector<NodeImpl*> within(ScenePrivate& scene, const QRectF& rect);

} // namespace SceneQueries

} // namespace Tova2
