#pragma once

#include "nodes/containernodeimpl.h"

namespace Tova2 {

class CompositeNodeImpl final : public GroupNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.CompositeNode";

    CompositeNodeImpl();

    const char* typeName() const override { return kTypeName; }
    Node container() const { return m_container; }

private:
    Node m_container;
};

} // namespace Tova2
