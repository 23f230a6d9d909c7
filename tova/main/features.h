#pragma once

#include "host/frfeature.h"

/// Each is made at its first mention, so that no order of static initialisation matters.
namespace Tova2::Features {

const Host::FrFeature& metafileVersionOverride();
/// 1: what the user does is kept for the dialog that a crash shows.
const Host::FrFeature& segvLogging();
const Host::FrFeature& mathGraphicsInRichAnnotations();
const Host::FrFeature& mathGraphicsTextNode();

} // namespace Tova2::Features
