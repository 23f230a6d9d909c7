#pragma once

#include "webview/webview_export.h"

namespace Tova2 {

/// Lets canvases show web blocks from now on (`setWebBlockFactory`).
///
/// A page is what its text says and nothing else: it runs no script and no plug-in, stores nothing,
/// plays no media, and reads no address, be it of the network, of a file or of a resource of the
/// program. Links and forms lead nowhere. All the same the engine is old and has faults that are
/// known and stay: give it pages of a source that you trust.
WEBVIEW_EXPORT void enableWebBlocks();

} // namespace Tova2
