// What a canvas drags, and takes of what is dragged.

#include "widget/glcanvasprivate.h"

#include "tova/widget/dragpreview.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"
#include "vetra/qtevents.h"
#include "vetra/saturate.h"

#include <QDrag>
#include <QMimeData>

#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

QMimeData* mimeDataOf(const Vetra::GLMimeData& data)
{
    auto* const result = new QMimeData;
    for (const std::string& format : data.formats()) {
        const auto bytes = data.data(format);
        result->setData(QString::fromStdString(format),
                        QByteArray(bytes.data(), int(bytes.size())));
    }
    return result;
}

void show(const DragPreview& preview, QDrag& drag)
{
    QPixmap pixmap = Vetra::toQt(preview.pixmap);
    if (pixmap.isNull())
        return;
    const double ratio = preview.pixelsPerViewPixel;
    pixmap.setDevicePixelRatio(ratio > 0 && std::isfinite(ratio) ? ratio : 1);
    drag.setPixmap(pixmap);
    drag.setHotSpot(Vetra::toQt(Vetra::saturatedInts(preview.hotSpot)));
}

/// With an event loop of its own, in which the widget may end.
Vetra::DropAction run(QWidget& widget, const Vetra::GLMimeData& data, Vetra::DropActions possible,
                      const DragPreview& preview)
{
    auto* const drag = new QDrag(&widget); // the toolkit deletes it
    drag->setMimeData(mimeDataOf(data));
    show(preview, *drag);
    return Vetra::fromQt(drag->exec(Qt::DropActions(int(possible.bits()))));
}

} // namespace

Vetra::DropAction GLCanvas::startDrag(Vetra::DropActions possible, const DragPreview& preview)
{
    if (hasEnded() || !d->widget() || d->mimeData.isEmpty() || d->isDragging)
        return Vetra::DropAction::Ignore;
    const Use use(*this);
    d->isDragging = true;
    // The toolkit keeps the release to itself.
    d->input().dispatcher().cancelGesture();
    auto action = Vetra::DropAction::Ignore;
    if (!use.hasEnded() && d->widget())
        action = run(*d->widget(), d->mimeData, possible, preview);
    d->isDragging = false;
    d->mimeData = {};
    return action;
}

Vetra::GLMimeData GLCanvas::getMimeData() const
{
    return d->mimeData;
}

void GLCanvas::setMimeData(Vetra::GLMimeData data)
{
    d->mimeData = std::move(data);
}

void GLCanvas::clearMimeData()
{
    d->mimeData = {};
}

std::vector<std::string> GLCanvas::getDropFormats() const
{
    return d->dropFormats;
}

void GLCanvas::setDropFormats(std::vector<std::string> formats)
{
    d->dropFormats = std::move(formats);
}

} // namespace Tova2
