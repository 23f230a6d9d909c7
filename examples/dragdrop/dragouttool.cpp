#include "dragouttool.h"

#include "blocks.h"

using namespace Tova2;

void DragOutTool::handleUserDragInitEvent(MouseEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas)
        return;
    for (const Node& node : scene()->getNodesAtScenePos(event.scenePos())) {
        if (!node.hasTag(blockTag()))
            continue;
        event.consume();
        Vetra::GLMimeData data;
        data.setData(kBlockFormat, node.getTags().back().str());
        canvas->setMimeData(data);
        // Comes back when the user has let go: the canvas may have gone by then.
        canvas->startDrag(Vetra::DropAction::Copy,
                          DragPreview::of(*canvas, {node}, event.scenePos()));
        return;
    }
}
