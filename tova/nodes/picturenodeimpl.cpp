#include "nodes/picturenodeimpl.h"

#include "nodes/paintcontext.h"

#include "vetra/qt.h"

#include <QPainter>

namespace Tova2 {

void PictureNodeImpl::setPicture(const Vetra::Picture& picture)
{
    if (picture == m_picture)
        return;
    m_picture = picture;
    m_rect = Vetra::toQt(picture.boundingRect());
    reportChange(ChangeLevel::Geometry);
}

void PictureNodeImpl::paintNode(PaintContext& context) const
{
    if (m_picture.isEmpty())
        return;
    Vetra::play(context.picturePainter(drawStyle().isAntiAliased()), m_picture);
    context.forgetPainterState();
}

} // namespace Tova2
