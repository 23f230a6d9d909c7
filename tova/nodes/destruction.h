#pragma once

#include <memory>

namespace Tova2 {

class NodeImpl;

/// While one is open, nodes whose count falls to zero wait for the outermost to close: whoever
/// walks over bare node pointers, or calls out to a host in the middle of such a walk, opens one.
/// Closing never throws.
class DestructionDelay {
public:
    DestructionDelay() noexcept;
    ~DestructionDelay();
    DestructionDelay(const DestructionDelay&) = delete;
    DestructionDelay& operator=(const DestructionDelay&) = delete;
};

/// Deletes the node, or queues it while a delay is open or another node is being deleted, so that a
/// deep tree is taken down by a loop.
void dispose(NodeImpl* node);
/// Gives up a share in something that may be in the middle of a call, alike.
void dispose(std::shared_ptr<void> content);

} // namespace Tova2
