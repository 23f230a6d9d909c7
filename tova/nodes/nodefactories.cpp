#include "nodes/nodefactories.h"

#include "tova/nodes/node.h"

#include <array>

namespace Tova2::NodeFactories {

namespace {

struct Table {
    std::array<Factory, kMaxNodeImplFactories> slots{};
    std::uint64_t used = 1;
};

Table& table()
{
    static auto* const instance = new Table;
    return *instance;
}

} // namespace

std::uint64_t add(Factory factory)
{
    auto& all = table();
    if (all.used >= kMaxNodeImplFactories)
        return 0;
    all.slots[all.used] = factory;
    return all.used++;
}

NodeImpl* make(std::uint64_t index)
{
    if (index >= kMaxNodeImplFactories)
        return nullptr;
    const Factory factory = table().slots[index];
    return factory ? factory() : nullptr;
}

} // namespace Tova2::NodeFactories
