#pragma once

#include "diagram.h"

#include <tova/nodes/node.h>
#include <tova/scene/scene.h>
#include <vetra/shape.h>

#include <optional>
#include <unordered_map>
#include <vector>

namespace TovaView {

/// What a node of the scene stands for.
struct SceneItem {
    QString name;      ///< of the cluster, block or connector; empty for their parts
    QString text;      ///< of a text
    Vetra::Shape path; ///< of a path, in the node's coordinates
};

/// What shows a connector, all of it in the scene's coordinates.
struct ConnectorNodes {
    Tova2::Node line; ///< further lines and endings are its children; empty when none shows
    std::vector<Tova2::Node> labels, endLabels;
    std::optional<Vetra::Color> tailGround, headGround; ///< what its ends lie on, if one colour
};

/// A diagram as a scene.
struct DiagramScene {
    Vetra::Holder<Tova2::Scene> scene;
    std::unordered_map<Tova2::Node, SceneItem> items;
    std::vector<Tova2::Node> blockNodes; ///< by index in the diagram; empty when nothing shows
    std::vector<ConnectorNodes> connectorNodes; ///< by index in the diagram
    Rect area;                                  ///< all that is worth showing, in points
    std::size_t connectors = 0;
    std::size_t segments = 0;        ///< straight and curved pieces of the connectors
    std::vector<Tova2::Node> hidden; ///< connectors that take room in the layout and are not shown
    std::size_t crossings = 0;       ///< of the layout: hidden connectors count
};

} // namespace TovaView
