#pragma once

#include "tova/tova_export.h"
#include "vetra/stringid.h"

namespace Tova2 {

/// A linear path that carries this tag with the value false takes no part in crossings; all others
/// do.
TOVA_EXPORT Vetra::StringID pathIntersectionsEnabledTag();

} // namespace Tova2
