#include "tova/nodes/customhittestfunctor.h"

#include "tova/nodes/node.h"

namespace Tova2 {

CustomHitTestFunctor::~CustomHitTestFunctor() = default;

Node::EmptyHitTester* Node::EmptyHitTester::instance()
{
    static const Vetra::Holder<EmptyHitTester> shared = [] {
        Vetra::Holder<EmptyHitTester> tester(new EmptyHitTester);
        tester->increment(); // outlives every node, whenever statics end
        return tester;
    }();
    return shared.get();
}

bool Node::EmptyHitTester::contains(const Node&, double, const Vetra::GLPoint<double>&) const
{
    return false;
}

bool Node::EmptyHitTester::intersects(const Node&, double, const Vetra::GLRect<double>&) const
{
    return false;
}

bool Node::EmptyHitTester::intersects(const Node&, double, const Bounds&) const
{
    return false;
}

Bounds Node::EmptyHitTester::hitTestBounds(const Node&, double) const
{
    return {};
}

} // namespace Tova2
