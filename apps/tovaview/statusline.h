#pragma once

#include "zoombox.h"

#include <vetra/glpoint.h>

#include <optional>

class QLabel;
class QStatusBar;
class QToolButton;

namespace TovaView {

/// What the status bar tells: where the pointer is, how many crossings there are, and the zoom.
class StatusLine {
public:
    struct Handlers {
        ZoomBox::Handlers zoom;
        std::function<void()> zoomIn, zoomOut;
    };

    /// Its widgets belong to the bar.
    StatusLine(QStatusBar& bar, Handlers handlers);

    /// In points of the scene; nothing when it is not over the diagram.
    void showPointer(const std::optional<Vetra::GLPoint<double>>& position);
    void showCrossings(std::size_t count);
    void showScale(double scale) { m_zoom->showScale(scale); }
    /// Disabled without a diagram.
    void setEnabled(bool enabled);

private:
    QToolButton* addButton(QStatusBar& bar, const char* text, const char* tip,
                           std::function<void()> command);

    QLabel* m_pointer;
    QLabel* m_crossings;
    QToolButton* m_out;
    ZoomBox* m_zoom;
    QToolButton* m_in;
};

} // namespace TovaView
