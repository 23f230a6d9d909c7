#pragma once

#include "diagramscene.h"

#include <optional>

namespace TovaView {

/// Makes the scene of a diagram. From the bottom to the top: clusters with the blocks in them,
/// connectors, the blocks outside of clusters, labels of connectors.
class SceneBuilder {
public:
    /// `ground` replaces the page's own.
    explicit SceneBuilder(const Diagram& diagram,
                          const std::optional<Vetra::Color>& ground = std::nullopt);

    DiagramScene build();

private:
    void addPage();
    void setGround(const Vetra::Color& color);
    void addClusters();
    void addConnectors();
    void addConnector(const Connector& connector, ConnectorNodes& nodes);
    void hide(const Connector& connector);
    void addBlocks(bool inClusters);
    void addConnectorLabels();

    /// Adds a node for each figure and text under `parent`, whose origin in the scene is `origin`.
    void fill(const Tova2::Node& parent, const Point& origin, const Drawing& drawing,
              bool isBlock = false);
    Tova2::Node makeFigure(const Figure& figure, const Point& origin);
    Tova2::Node makeText(const TextPiece& text, const Point& origin);
    void place(Tova2::Node& node, const Tova2::Node& parent);
    void addLabelGround(const TextPiece& text);
    std::optional<Vetra::Color> groundAt(const Point& point) const;
    void name(Tova2::Node& node, const QString& name);
    void includeInArea(const Rect& rect);

    const Diagram& m_diagram;
    DiagramScene m_result;
    std::vector<Tova2::Node>* m_placed = nullptr; ///< what is placed is listed there as well
    std::vector<Tova2::Node> m_clusters;          ///< by index in the diagram
    std::optional<Vetra::Color> m_wantedGround;
    Vetra::Color m_ground = Vetra::Color::fromPacked(0xffffffff); ///< as it shows, on white paper
};

} // namespace TovaView
