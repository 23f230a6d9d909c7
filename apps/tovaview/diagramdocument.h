#pragma once

#include "diagramscene.h"
#include "ledconnector.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <unordered_map>

namespace TovaView {

struct DiagramCounts {
    std::size_t blocks = 0, connectors = 0; ///< those that show
};

/// An open diagram whose blocks can be moved; its connectors follow them.
class DiagramDocument {
public:
    /// Where some blocks lie, and how the connectors run that follow them or make way for them.
    struct Placement {
        struct BlockPlace {
            int block = -1;
            Point offset; ///< from where the layout put it
            bool operator==(const BlockPlace&) const = default;
        };
        std::vector<BlockPlace> blocks;
        using Ways = std::map<std::size_t, LedConnector::Way>; ///< by index of the connector
        Ways followers;
        Ways aside; ///< of others, which the blocks came to lie on

        bool operator==(const Placement&) const = default;
        /// Takes over what only the other one knows of connectors that made way.
        void completeWith(const Placement& other);
    };

    explicit DiagramDocument(std::unique_ptr<const Diagram> diagram,
                             const std::optional<Vetra::Color>& ground = std::nullopt);
    DiagramDocument(const DiagramDocument&) = delete;
    DiagramDocument& operator=(const DiagramDocument&) = delete;

    /// Makes the scene anew, with another ground or, for nothing, with the diagram's own. Blocks
    /// and connectors stay where they are.
    void setGround(const std::optional<Vetra::Color>& color);

    Tova2::Scene& scene() const { return *m_scene.scene; }
    /// The scene as it is now, for pictures and prints: its area follows the blocks.
    const DiagramScene& shown();

    /// That the node is a part of; -1 for none.
    int blockOf(const Tova2::Node& node) const;
    const std::vector<int>& blocks() const { return m_movable; }
    DiagramCounts counts() const;
    Rect frameOf(int block) const;
    QString nameOf(int block) const;

    Placement placementOf(const std::vector<int>& blocks) const;
    void restore(const Placement& placement);
    /// The same blocks and connectors as they are now.
    Placement nowOf(const Placement& placement) const;
    /// Moves the blocks to where they are in `from`, and by that distance on. Connectors that would
    /// run through them make way, and return when they can; `from` keeps how they ran.
    void moveFrom(Placement& from, const Point& distance);
    /// Brings its blocks to where those of the same names are in another layout of the same file.
    void takeMovesOf(const DiagramDocument& other);

private:
    void buildScene(const std::optional<Vetra::Color>& ground);
    const Block& block(int index) const;
    std::vector<std::size_t> connectorsOf(const std::vector<int>& blocks) const;
    void put(int block, const Point& offset);
    Point offsetOf(int block) const;
    void follow(LedConnector& connector, std::vector<Points>& courses);
    void makeWay(Placement& from, std::vector<Points>& courses);
    Surroundings surroundingsOf(const LedConnector& connector, const std::vector<Rect>& first,
                                const std::vector<Points>& courses) const;

    std::unique_ptr<const Diagram> m_diagram;
    DiagramScene m_scene;
    Rect m_layoutArea;
    std::vector<Point> m_offsets;   ///< of the blocks from where the layout put them
    std::vector<Point> m_positions; ///< of their nodes in the layout
    std::vector<int> m_movable;     ///< those that show
    std::vector<LedConnector> m_connectors;
    std::unordered_map<Tova2::Node, int> m_blockOf;
    std::vector<std::vector<std::size_t>> m_connectorsOf; ///< by block
};

} // namespace TovaView
