#include "tova/nodes/node.h"

#include "nodes/nodefactories.h"
#include "nodes/nodeimpl.h"
#include "nodes/scenelink.h"

#include "tova/nodes/nodeerrors.h"

#include <utility>

namespace Tova2 {

namespace {

bool isPointer(std::uint64_t word)
{
    return word > kMaxNodeImplFactories;
}

NodeImpl* pointerIn(std::uint64_t word)
{
    return reinterpret_cast<NodeImpl*>(word);
}

std::uint64_t wordOf(NodeImpl* impl)
{
    return reinterpret_cast<std::uint64_t>(impl);
}

void acquire(std::uint64_t word)
{
    if (isPointer(word))
        pointerIn(word)->increment();
}

void drop(std::uint64_t word)
{
    if (isPointer(word))
        pointerIn(word)->unreference();
}

} // namespace

Node::Node(NodeImpl* impl) noexcept : m_word(wordOf(impl))
{
    acquire(m_word);
}

Node::Node(const Node& other)
{
    if (other.isValid())
        m_word = wordOf(other.getValidImpl());
    acquire(m_word);
}

Node::~Node()
{
    drop(m_word);
}

// Both take the new reference before the old one goes: the old element may hold the last one on the
// new.
Node& Node::operator=(const Node& other)
{
    return *this = Node(other);
}

Node& Node::operator=(Node&& other) noexcept
{
    const std::uint64_t taken = std::exchange(other.m_word, 0);
    drop(std::exchange(m_word, taken));
    return *this;
}

bool Node::operator==(const Node& other) const
{
    if (!isValid() || !other.isValid())
        return isValid() == other.isValid();
    return this == &other || getValidImpl() == other.getValidImpl();
}

void Node::guaranteeValid(const Node& node, bool required)
{
    if (required && !node.isValid())
        raise(NodeError::InvalidNode);
}

void Node::release()
{
    drop(std::exchange(m_word, 0));
}

void Node::remove()
{
    NodeImpl* const impl = getValidImpl();
    if (SceneLink* const scene = impl->sceneLink())
        scene->removeNode(*impl);
}

void Node::removeAndRelease()
{
    if (m_word < kMaxNodeImplFactories)
        return;
    // The handle may itself go away, or the tracker throw, while the element is taken out.
    Node gone(std::move(*this));
    gone.remove();
}

std::size_t Node::hashValue() const
{
    return std::hash<const void*>()(getValidImpl());
}

const Vetra::Referenced* Node::getReferenced() const
{
    return getValidImpl();
}

bool Node::isa(const char* typeName) const
{
    return getValidImpl()->isa(typeName);
}

const char* Node::getFullyQualifiedKobjTypeName() const
{
    return getValidImpl()->typeName();
}

const char* Node::staticGetFullyQualifiedKobjTypeName()
{
    return "Tova2.Node";
}

NodeImpl* Node::getImpl() const noexcept
{
    return m_word >= kMaxNodeImplFactories ? pointerIn(m_word) : nullptr;
}

void Node::adopt(NodeImpl* impl) const noexcept
{
    const std::uint64_t old = std::exchange(m_word, wordOf(impl));
    acquire(m_word);
    drop(old);
}

NodeImpl* Node::getImplCreateOnDemand() const
{
    if (m_word >= kMaxNodeImplFactories)
        return pointerIn(m_word);
    NodeImpl* const made = NodeFactories::make(m_word);
    if (made)
        adopt(made);
    return made;
}

NodeImpl* Node::getValidImpl() const
{
    NodeImpl* const impl = getImplCreateOnDemand();
    if (!impl)
        raise(NodeError::InvalidNode);
    return impl;
}

} // namespace Tova2
