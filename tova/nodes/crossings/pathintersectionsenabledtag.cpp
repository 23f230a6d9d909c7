#include "tova/nodes/crossings/pathintersectionsenabledtag.h"

namespace Tova2 {

Vetra::StringID pathIntersectionsEnabledTag()
{
    static const Vetra::StringID tag("PathIntersectionsEnabledTag");
    return tag;
}

} // namespace Tova2
