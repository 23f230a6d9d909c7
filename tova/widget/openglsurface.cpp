#include "widget/openglsurface.h"

#include "widget/guarded.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPainter>
#include <QSurfaceFormat>

#include <utility>

namespace Tova2 {

namespace {

constexpr int kSamples = 4; // for edges as smooth as those of the raster picture

} // namespace

bool OpenGLSurface::isAvailable()
{
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    return context.create() && surface.isValid() && context.makeCurrent(&surface);
}

OpenGLSurface::OpenGLSurface(QWidget& view, Paint paint)
    : QOpenGLWidget(&view), m_paint(std::move(paint))
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setSamples(kSamples);
    setFormat(format);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(view.rect());
    lower(); // the scroll bars lie over the picture
    show();
}

void OpenGLSurface::paintGL()
{
    guarded("Paint", [this] {
        const Paint paint = m_paint; // which may retire this
        QPainter painter(this);
        if (paint)
            paint(painter);
    });
}

} // namespace Tova2
