#pragma once

#include <QOpenGLWidget>

#include <functional>

namespace Tova2 {

/// Covers a view and is painted by the graphics processor, whole each time. Input passes through to
/// the view.
class OpenGLSurface final : public QOpenGLWidget {
public:
    /// Whether the platform has what it takes.
    static bool isAvailable();

    using Paint = std::function<void(QPainter&)>;
    OpenGLSurface(QWidget& view, Paint paint);
    /// Whoever paints has ended.
    void retire() { m_paint = nullptr; }

protected:
    void paintGL() override;

private:
    Paint m_paint;
};

} // namespace Tova2
