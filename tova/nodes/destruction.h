#pragma once

#include <memory>

namespace Tova2 {

class NodeImpl;

/// While one is open, nodes whose count falls to zero and scenes that nobody holds any more wait
/// for the outermost to close. Whoever goes on with a node or a scene after a host may have run
/// opens one: each report of a change, each edit of a scene, each query. It costs two additions.
/// Closing never throws.
class DestructionDelay {
public:
    DestructionDelay() noexcept { ++s_open; }
    ~DestructionDelay()
    {
        if (--s_open == 0 && s_hasWaiting)
            drain();
    }
    DestructionDelay(const DestructionDelay&) = delete;
    DestructionDelay& operator=(const DestructionDelay&) = delete;

private:
    friend void dispose(NodeImpl* node);
    friend void dispose(std::shared_ptr<void> content);

    static void drain();

    static inline int s_open = 0;
    static inline bool s_hasWaiting = false;
};

/// Deletes the node, or queues it while a delay is open or another node is being deleted, so that a
/// deep tree is taken down by a loop.
void dispose(NodeImpl* node);
/// Gives up a share in something that may be in the middle of a call, alike.
void dispose(std::shared_ptr<void> content);

} // namespace Tova2
