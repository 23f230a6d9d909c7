#pragma once

#include "tova/events/eventtype.h"
#include "vetra/eventsource.h"
#include "vetra/glmimedata.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>

namespace Tova2 {

class DispatchCore;

/// Something dragged over the canvas. Its data are read once a drag, and given up when it leaves,
/// is dropped, or is refused.
class DragInput {
public:
    explicit DragInput(DispatchCore& core) : m_core(core) {}

    /// The toolkit asks for moves only where it was let in.
    void enter(QDragEnterEvent& event);
    void move(QDragMoveEvent& event);
    void drop(QDropEvent& event);
    /// The drag has gone elsewhere, or its scene has.
    void leave();

private:
    void begin(const QDropEvent& event);
    bool ask(EventType type, QDropEvent& event);
    void readData(const QDropEvent& event, DispatchCore* source);
    void forget();

    DispatchCore& m_core;
    Vetra::GLMimeData m_data;
    Vetra::EventSource* m_source = nullptr; ///< only compared
    bool m_isInside = false;
    bool m_isOwn = false; ///< begun on this canvas, which gives the data up at its end
};

} // namespace Tova2
