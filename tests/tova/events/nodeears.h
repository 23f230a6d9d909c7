#pragma once

#include "tova/events/focusevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/nodes/node.h"
#include "tova/nodes/nodeemitters.h"

#include <functional>
#include <string>
#include <vector>

namespace Tova2 {

/// Listens to all that nodes send, and writes down "name what".
class NodeEars : public Vemit::Listener {
public:
    std::vector<std::string> log;
    /// Called after the entry has been written.
    std::function<void(const std::string& entry, Event& event)> then;

    void listenTo(Node node, const std::string& name)
    {
        hear(node, name + " press", &NodeEmitters::mousePress);
        hear(node, name + " release", &NodeEmitters::mouseRelease);
        hear(node, name + " move", &NodeEmitters::mouseMove);
        hear(node, name + " enter", &NodeEmitters::hoverEnter);
        hear(node, name + " over", &NodeEmitters::hoverMove);
        hear(node, name + " exit", &NodeEmitters::hoverExit);
        hear(node, name + " key", &NodeEmitters::keyPress);
        hear(node, name + " key up", &NodeEmitters::keyRelease);
        hear(node, name + " focus", &NodeEmitters::focusIn);
        hear(node, name + " unfocus", &NodeEmitters::focusOut);
    }
    std::vector<std::string> taken() { return std::exchange(log, {}); }

private:
    template <class Emitter>
    void hear(Node& node, const std::string& entry, Emitter NodeEmitters::*emitter)
    {
        node.connectTo(emitter, this, [this, entry](Event& event, const NodeEmitters::Tags& tags) {
            log.push_back(tags.empty() ? entry : tags.front().str() + ": " + entry);
            if (then)
                then(entry, event);
        });
    }
};

inline MouseEvent mouseAt(double x, double y, EventType type = EventType::MouseMoveEvent,
                          Vetra::MouseButtons held = {})
{
    return {type, nullptr, {x, y}, {x, y}, {x, y}, 0, Vetra::MouseButton::LeftButton,
            held, {},      false,  true};
}

} // namespace Tova2
