#pragma once

#include "host/host_export.h"

#include <functional>

namespace Host {

/// Whether there is something to show pictures on, or to make them with: a QGuiApplication lives in
/// the process, or one could be made, since a platform is named in QT_QPA_PLATFORM or a display
/// server in DISPLAY or WAYLAND_DISPLAY.
///
/// An off-screen platform counts, for it can export. A display server's platform counts only where
/// the server is named, too. Asked anew at each call, so a program may choose its platform in
/// `main` and ask afterwards. GUI thread.
HOST_EXPORT bool svGraphicsHasDisplay();

/// Replaces the answer of `svGraphicsHasDisplay` while it lives. The youngest one alive decides;
/// they may die in any order. GUI thread.
class HOST_EXPORT ScopedDisplayQuery {
public:
    /// An empty function gives the true answer.
    explicit ScopedDisplayQuery(std::function<bool()> query);
    ScopedDisplayQuery(const ScopedDisplayQuery&) = delete;
    ScopedDisplayQuery& operator=(const ScopedDisplayQuery&) = delete;
    ~ScopedDisplayQuery();

private:
    friend HOST_EXPORT bool svGraphicsHasDisplay();

    std::function<bool()> m_query;
    ScopedDisplayQuery* m_older;
};

} // namespace Host
