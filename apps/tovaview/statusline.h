#pragma once

#include "diagramdocument.h"
#include "zoombox.h"

#include <vetra/glpoint.h>

#include <optional>

class QLabel;
class QStatusBar;
class QToolButton;

namespace TovaView {

/// What the status bar tells: where the pointer is, how large the diagram is, and the zoom.
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
    void showSize(const DiagramCounts& counts);
    void showScale(double scale) { m_zoom->showScale(scale); }
    /// Disabled without a diagram.
    void setEnabled(bool enabled);

private:
    QToolButton* addButton(QStatusBar& bar, const char* text, const char* tip,
                           std::function<void()> command);

    QLabel* m_pointer;
    QLabel* m_size;
    QToolButton* m_out;
    ZoomBox* m_zoom;
    QToolButton* m_in;
};

} // namespace TovaView
