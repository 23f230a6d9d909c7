#pragma once

#include "tova/events/eventhandler.h"
#include "tova/events/itoolstack.h"
#include "tova/nodes/geometry/bounds.h"
#include "tova/nodes/node.h"
#include "tova/nodes/style/background.h"
#include "tova/nodes/style/drawstyle.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vemit/emitter.h"
#include "vetra/any.h"
#include "vetra/color.h"
#include "vetra/cursor.h"
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

class BaseToolConstructor;
class RolloverFactory;
class SceneChangeTracker;
class ScenePrivate;
class SceneUse;
class ToolFactory;

/// The model that canvases show: the nodes of one diagram with their stacking order, background and
/// settings. Made by `createScene`, kept by reference count. GUI thread only. Coordinates and
/// lengths are in points.
///
/// Queries answer from the topmost node down and return snapshots, so that a caller may edit while
/// it walks a result.
class TOVA_EXPORT Scene : public Vetra::Referenced, public IToolStack, public EventHandler {
public:
    /// Throws tova:scene/NoSceneWhenDisplayOff when the host has no display or no QApplication.
    static Vetra::Holder<Scene> createScene();
    /// A copy is one more owner of the same content.
    Scene(const Scene& other);
    Scene& operator=(const Scene& other);
    /// Clears the tool stack and takes every node out. A handle that is still held stays usable,
    /// and the scene may be filled again.
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

    // Tools. A new scene has the ready tools of which its factory makes one; from the bottom up
    // "UnconsumedEventTool", "CursorChangeTool", "PanZoomTool", "ToolTipTool" and
    // "ScrollWheelTool". The role "TextTool", on top of them, has no tool yet.

    void addTool(Tool* tool, const Vetra::StringID& role) override;
    void addTool(Tool* tool) override;
    void addToolAbove(Tool* tool, const Vetra::StringID& role) override;
    void addToolBelow(Tool* tool, const Vetra::StringID& role) override;
    /// Has the factory make it. Null when it makes none.
    Tool* addToolByRole(Vetra::StringID role);
    /// To the scene's factory, which takes ownership.
    void addToolConstructor(BaseToolConstructor* constructor);
    void moveToolAbove(Tool* tool, const Vetra::StringID& role) override;
    void moveToolBelow(Tool* tool, const Vetra::StringID& role) override;
    bool removeTool(Tool* tool) override;
    bool removeToolByRole(const Vetra::StringID& role) override;
    void clearToolStack() override;
    void cancelAllTools() override;
    void delegateToTool(Tool* tool, Event& event) override;
    Tool* getActiveTool() override;
    bool hasActiveOrAlertTool() const override;
    bool hasTool(Tool* tool) const override;
    Tool* getToolByRole(const Vetra::StringID& role) const override;
    Vetra::StringID getRoleByTool(Tool* tool) override;
    Vetra::StringID getUniqueToolRoleBasedOn(const Vetra::StringID& role) override;
    /// Top first. A tool that leaves turns into an empty holder in the vector handed out.
    const std::vector<Vetra::Holder<Tool>>& listCurrentTools() const;
    void sendMessageToTools(Vetra::StringID id, const Vetra::any& payload) override;
    /// Sends each message after the tools have had it.
    Vemit::Emitter<const Vetra::StringID&, const Vetra::any&>& getToolMessageEmitter();
    ToolFactory& getToolFactory();
    /// Tools that modify get no events while it is on.
    bool getToolstackReadonly();
    /// Cancels the gestures of tools that modify, and moves the change counter on.
    void setToolstackReadonly(bool isReadonly);
    /// That tools want shown instead of the usual one; the arrow when they want none.
    Vetra::Cursor getToolOverrideCursor();
    bool hasToolOverrideCursor() const;
    /// Sends when either of them has changed, for canvases.
    Vemit::Emitter<>& getToolOverrideCursorEmitter();

    // Tool tips: the factory that says when one shows goes by a name, which is a tag of the nodes
    // it is for or the name of their kind. The empty name stands for all others.

    /// Replaces the one of this name; holds a reference.
    void addRolloverFactory(const std::string& name, RolloverFactory* factory);
    bool removeRolloverFactory(const std::string& name);
    /// Null when none is meant for the node.
    RolloverFactory* getRolloverFactoryFor(const Node& node) const;

    // Events. Each is offered to the tools. Moves, with no button held and no tool active, also
    // tell nodes and tools of the topmost node under the pointer: the tools by `handleHover...`.

    void handleMousePressEvent(MouseEvent& event) override;
    void handleMouseReleaseEvent(MouseEvent& event) override;
    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleMouseDoubleClickEvent(MouseEvent& event) override;
    void handleWheelEvent(MouseEvent& event) override;
    void handleKeyPressEvent(KeyEvent& event) override;
    void handleKeyReleaseEvent(KeyEvent& event) override;
    void handleFocusInEvent(FocusEvent& event) override;
    void handleFocusOutEvent(FocusEvent& event) override;
    void handleEnterCanvasEvent(WidgetEvent& event) override;
    void handleLeaveCanvasEvent(WidgetEvent& event) override;
    void handleDragLeaveEvent(WidgetEvent& event) override;
    void handleDragEnterEvent(DragEvent& event) override;
    void handleDragEvent(DragEvent& event) override;
    void handleDropEvent(DragEvent& event) override;
    void handleContextMenuEvent(ContextMenuEvent& event) override;
    void handleInputMethodEvent(InputMethodEvent& event) override;
    void handlePanGestureEvent(PanGestureEvent& event) override;
    void handlePinchGestureEvent(PinchGestureEvent& event) override;
    void handleUserDragInitEvent(MouseEvent& event) override;

    // For tools, to hand an event on to the nodes, which send it to their listeners (NodeEmitters):
    // the topmost node at the position and its ancestors, until one consumes it. The node pressed
    // hears of moves and of the release wherever they are, and has the keyboard from then on.

    void passMousePressEventToNode(MouseEvent& event);
    void passMouseReleaseEventToNode(MouseEvent& event);
    void passMouseMoveEventToNode(MouseEvent& event);
    void passKeyPressEventToNode(KeyEvent& event);
    void passKeyReleaseEventToNode(KeyEvent& event);
    /// The node that keys go to; empty when there is none.
    Node getFocusedNode() const;

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
    /// How many crossings there were in what the worker published last; while edits go on it may be
    /// behind them.
    std::size_t pathIntersectionsCount() const;
    /// Finishes this scene's pass at once instead of between the events of the loop, for pictures
    /// made without one. Does nothing when the loop is running a cooperative task.
    void findPathIntersections();
    /// Writes the worker's tables to standard output: how often each path was taken, and the
    /// pieces that it sweeps over. An aid for those who look for a fault in them.
    void dumpPathIntersections() const;
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
    // Once the application object is gone nothing is painted any more.

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
    friend class SceneUse;
    Scene();
    ~Scene() override;
    static Scene* createScenePtr();

    std::shared_ptr<ScenePrivate> d;

    TOVA_DERIVED_TYPE("Tova2.Scene", IToolStack, EventHandler);
};

} // namespace Tova2
