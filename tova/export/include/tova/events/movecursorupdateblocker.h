#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// While one lives, moving the pointer leaves the cursor as it is.
class TOVA_EXPORT MoveCursorUpdateBlocker {
public:
    MoveCursorUpdateBlocker() noexcept { ++blockCount; }
    ~MoveCursorUpdateBlocker() { --blockCount; }
    MoveCursorUpdateBlocker(const MoveCursorUpdateBlocker&) = delete;
    MoveCursorUpdateBlocker& operator=(const MoveCursorUpdateBlocker&) = delete;

    static bool isBlocked() noexcept { return blockCount > 0; }

private:
    static int blockCount;

    TOVA_PLAIN_TYPE("Tova2.MoveCursorUpdateBlocker");
};

} // namespace Tova2
