// The page of HTML over a canvas, and the pictures of both.

#include "nodes/values.h"
#include "widget/glcanvasprivate.h"

#include "tova/nodes/geometry/limits.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"

#include <QImage>
#include <QPixmap>

namespace Tova2 {

bool GLCanvas::setWebBlock(const Vetra::GLRect<double>& sceneRect, const std::string& html)
{
    const QRectF rect = Vetra::toQt(sceneRect);
    const bool isAcceptable =
        isFinite(rect) && sceneRect.isValid() && html.size() <= Limits::textBytes;
    if (!isAcceptable || !d->widget())
        return false;
    const Use use(*this);
    const bool isMade = d->webBlock.show(rect, html, *d->widget());
    d->webBlock.place(d->view());
    return isMade;
}

void GLCanvas::removeWebBlock()
{
    d->webBlock.remove();
}

bool GLCanvas::hasBrowser() const
{
    return d->webBlock.exists();
}

void GLCanvas::associateBrowserForTesting(unsigned key)
{
    if (key == 0)
        return removeWebBlock();
    if (!hasBrowser())
        setWebBlock(getSceneRectInView(), {});
    d->webBlock.setName(QStringLiteral("webblock%1").arg(key));
}

Vetra::Pixmap GLCanvas::getPixmapOfBrowserInView()
{
    const Use use(*this);
    return Vetra::fromQt(d->webBlock.picture());
}

Vetra::Pixmap GLCanvas::getCanvasSnapshotWithWebBlock()
{
    const Use use(*this);
    d->followFocus(); // the turn of the event loop that moves its outline may be still to come
    return d->widget() ? Vetra::fromQt(d->widget()->grab()) : Vetra::Pixmap();
}

Vetra::Holder<Vetra::Image>
GLCanvas::getSceneImageWithWebblocksForTesting(Vetra::GLRect<int> viewRect)
{
    const Use use(*this);
    const QSize size = d->widget() ? d->widget()->size() : QSize();
    const QRectF wanted(viewRect.x, viewRect.y, viewRect.width, viewRect.height);
    const QRect inside = wanted.intersected(QRectF({0, 0}, size)).toRect();
    return Vetra::fromQt(inside.isEmpty() ? QImage() : d->widget()->grab(inside).toImage());
}

} // namespace Tova2
