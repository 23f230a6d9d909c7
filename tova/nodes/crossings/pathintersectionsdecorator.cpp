#include "nodes/crossings/pathintersectionsdecorator.h"

namespace Tova2 {

PathIntersectionsDecorator::~PathIntersectionsDecorator() = default;

std::unique_ptr<PathIntersectionsDecorator> makePathIntersectionsDecorator(std::string_view name)
{
    if (name == "hop")
        return std::make_unique<LineHopIntersectionsDecorator>();
    if (name == "pin")
        return std::make_unique<LinePinIntersectionsDecorator>();
    if (name == "grad_pin")
        return std::make_unique<LineGradPinIntersectionsDecorator>();
    if (name == "light_pin")
        return std::make_unique<LineLightPinIntersectionsDecorator>();
    return nullptr;
}

} // namespace Tova2
