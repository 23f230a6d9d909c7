#include "nodes/geometry/boundsimpl.h"

namespace Tova2 {

BoundsImpl::~BoundsImpl() = default;

void intrusive_ptr_add_ref(const BoundsImpl* impl) noexcept
{
    impl->m_count.fetch_add(1, std::memory_order_relaxed);
}

void intrusive_ptr_release(const BoundsImpl* impl) noexcept
{
    if (impl->m_count.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete impl;
}

} // namespace Tova2
