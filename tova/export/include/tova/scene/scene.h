#pragma once

#include "tova/nodes/geometry/bounds.h"
#include "tova/nodes/node.h"
#include "tova/nodes/style/background.h"
#include "tova/nodes/style/drawstyle.h"
#include "tova/tova_export.h"
#include "vetra/color.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/image.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"
#include "vetra/transform.h"

#include <memory>
#include <string>
#include <vector>

class QImage;
class QPainter;
class QPicture;
class QPrinter;

namespace Tova2 {

class SceneChangeTracker;
class ScenePrivate;

/// The model that canvases show: the nodes of one diagram with their stacking order, background and
/// settings. Made by `createScene`, kept by reference count. GUI thread only. Coordinates and
/// lengths are in points.
///
/// Queries answer from the topmost node down and return snapshots, so that a caller may edit while
/// it walks a result.
class TOVA_EXPORT Scene : public Vetra::Referenced {
public:
    /// Throws tova:scene/NoSceneWhenDisplayOff when the host has no display.
    static Vetra::Holder<Scene> createScene();
    /// A copy is one more owner of the same content.
    Scene(const Scene& other);
    Scene& operator=(const Scene& other);
    /// Takes every node out. A handle that is still held stays usable, and the scene may be filled
    /// again.
    void destroy() override;

    // Nodes

    /// Adds the node with its children as a top-level node on top of all others, taking it out of
    /// the scene it was in. A node that enters its first scene takes the creation style, if one is
    /// pushed. Nothing when it already is here.
    Node addNode(Node node);
    /// Takes the node with its children out, and from its parent. Nothing when it is not here.
    Node removeNode(Node node);
    std::vector<Node> getAllNodes();
    unsigned getAllNodesCount() const;
    std::vector<Node> getTopLevelNodes();
    void getAllTextNodes(std::vector<Node>& nodes) const;
    std::vector<Node> getNodesWithTag(const Vetra::StringID& tag);

    // Spatial queries; hidden and fully transparent nodes are never found.

    /// `deviceTransform` maps the scene to the device, for nodes that ignore transformations. Empty
    /// when none is hit.
    Node getNodeAt(const Vetra::GLPoint<double>& point,
                   const Vetra::Transform& deviceTransform = {});
    std::vector<Node> getNodesAtScenePos(const Vetra::GLPoint<double>& point);
    std::vector<Node> getNodesIntersectingRect(const Vetra::GLRect<double>& rect);
    /// By bounding rectangle, not by shape.
    std::vector<Node> getNodesWithinRect(const Vetra::GLRect<double>& rect);
    /// By a polygon of 32 corners on the circle.
    std::vector<Node> getNodesIntersectingCircle(const Vetra::GLPoint<double>& centre,
                                                 double radius);
    /// The union of the visible nodes' bounding rectangles, without empty rectangles and texts;
    /// cached.
    Vetra::GLRect<double> getBounds();
    /// Starts at 1 and grows with each change of membership; whoever caches by it refreshes when it
    /// moves on.
    unsigned getSceneNodeChangeCounter() const;
    void incrementSceneNodeChangeCounter();

    // Change tracking: the tracker is not owned, and must be ended before it dies.

    void beginChangeTracking(SceneChangeTracker* tracker);
    void endChangeTracking();

    // Creation styles: the style on top is given to nodes that enter their first scene.

    void pushCreationDrawStyle(const DrawStyle& style);
    /// Throws tova:scene/NoCreationDrawStyleToPop when nothing is pushed.
    DrawStyle popCreationDrawStyle();
    /// A default style when nothing is pushed.
    DrawStyle getCreationDrawStyle();

    // Settings

    Background getBackground() const;
    void setBackground(const Background& background);
    Vetra::StringID getLODStrategyKey() const;
    void setLODStrategyKey(const Vetra::StringID& key);
    /// In pixels.
    int getMinRenderFontSize() const;
    void setMinRenderFontSize(int size);
    /// Whether crossings of linear paths are looked for and marked; on in a new scene.
    bool pathIntersectionsEnabled() const;
    void setPathIntersectionsEnabled(bool enabled);
    /// Empty when crossings are found and not drawn.
    const std::string& pathIntersectionsDecoratorName() const;
    /// "hop", "pin", "grad_pin" or "light_pin"; any other name turns decoration off.
    void usePathIntersectionsDecorator(const std::string& name);
    /// Whether the worker has finished a whole pass and published it, and nothing has changed
    /// since.
    bool pathIntersectionsAllFound() const;
    /// In what was published last.
    std::size_t pathIntersectionsCount() const;
    /// Finishes the pass at once instead of between the events of the loop, for pictures made
    /// without one.
    void findPathIntersections();
    bool usingDebugRepaintRegion() const;
    void setDebugRepaintRegion(bool on);
    Vetra::Color debugRepaintRegionColor() const;
    void setDebugRepaintRegionColor(const Vetra::Color& color);
    bool getDebugTextEditArea() const;
    void setDebugTextEditArea(bool on);
    bool getTrackingPerformance() const;
    void setTrackingPerformance(bool on);
    /// 72: a scene unit is a point, whatever the screen.
    int getDpiX() const { return 72; }
    int getDpiY() const { return 72; }

    // Rendering off screen. Whatever a node's own painter throws reaches the caller.

    /// The area at `scale` pixels a point with `margin` pixels on each side, on a white ground; an
    /// empty area stands for the scene's bounds. A null image when it would exceed the library's
    /// limits or `scale` is not positive.
    Vetra::Holder<Vetra::Image> render(int margin, const Vetra::GLRect<double>& area, double scale);
    Vetra::Holder<Vetra::Image> render(int margin, const Vetra::GLRect<double>& area)
    {
        return render(margin, area, 1.0);
    }
    Vetra::Holder<Vetra::Image> render(int margin) { return render(margin, {}); }
    Vetra::Holder<Vetra::Image> render() { return render(20); }
    /// Paints the source, stretched to the target, over what the device holds. An empty target is
    /// the whole device, an empty source the scene's bounds.
    void render(QImage& image, const Vetra::GLRect<double>& target,
                const Vetra::GLRect<double>& source);
    void render(QPainter& painter, const Vetra::GLRect<double>& target,
                const Vetra::GLRect<double>& source);
    void render(QPicture& picture, const Vetra::GLRect<double>& target,
                const Vetra::GLRect<double>& source);
    /// In the printer's pixels; starts no page of its own beyond the first.
    void render(QPrinter& printer, const Vetra::GLRect<double>& target,
                const Vetra::GLRect<double>& source);

    /// The first living owner of `d`; null when there is none.
    static Scene* of(ScenePrivate* d);
    ScenePrivate* d_func() const noexcept { return d.get(); }

private:
    Scene();
    ~Scene() override;
    static Scene* createScenePtr();

    std::shared_ptr<ScenePrivate> d;
};

} // namespace Tova2
