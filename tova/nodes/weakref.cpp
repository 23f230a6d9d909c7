#include "tova/nodes/weakref.h"

#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"
#include "nodes/weakrefaccess.h"

#include <boost/functional/hash.hpp>

namespace Tova2 {

namespace {

std::uint64_t deaths = 0;

} // namespace

WeakRef::WeakRef(const Node& node)
{
    if (node.isValid())
        *this =
            WeakRef(static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node.getReferenced())));
}

WeakRef::WeakRef(NodeImpl* impl)
{
    if (!impl)
        return;
    WeakRef& self = impl->madeExtras().self;
    if (!self.m_anchor)
        self.m_anchor = new Anchor(*impl);
    m_anchor = self.m_anchor;
}

Node WeakRef::getNode() const
{
    return Node(getImpl());
}

NodeImpl* WeakRef::getImpl() const noexcept
{
    // An element that nobody holds is on its way out, whether or not its destructor has come to
    // the anchor.
    NodeImpl* const impl = m_anchor ? m_anchor->m_impl : nullptr;
    return impl && impl->referenceCount() > 0 ? impl : nullptr;
}

std::size_t WeakRef::hashValue() const noexcept
{
    std::size_t seed = 0;
    boost::hash_combine(seed, reinterpret_cast<std::size_t>(m_anchor.get()));
    return seed;
}

void WeakRef::expire() noexcept
{
    if (!m_anchor)
        return;
    m_anchor->m_impl = nullptr;
    ++deaths;
}

std::uint64_t WeakRefAccess::deathCount() noexcept
{
    return deaths;
}

} // namespace Tova2
