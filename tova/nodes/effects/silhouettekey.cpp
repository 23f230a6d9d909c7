#include "nodes/effects/silhouettekey.h"

#include "nodes/effects/silhouettestyle.h"

#include <QPainterPath>
#include <QRectF>

namespace Tova2 {

SilhouetteKey& SilhouetteKey::operator<<(std::string_view text)
{
    m_bytes.append(text.data(), static_cast<int>(text.size()));
    return *this << text.size();
}

SilhouetteKey& SilhouetteKey::operator<<(const QRectF& rect)
{
    return add(rect.x(), rect.y(), rect.width(), rect.height());
}

SilhouetteKey& SilhouetteKey::operator<<(const QPainterPath& path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        add(element.x, element.y, element.type);
    }
    return add(path.elementCount(), path.fillRule());
}

SilhouetteKey& SilhouetteKey::operator<<(const DrawStyle& style)
{
    return add(style.stroke(), isFilled(style.fill()), style.isAntiAliased(),
               style.isPixelAligned());
}

SilhouetteKey& SilhouetteKey::operator<<(const Stroke& stroke)
{
    if (!isStroked(stroke))
        return *this << false;
    return add(stroke.logicalWidth(), stroke.style(), stroke.capStyle(), stroke.joinStyle(),
               stroke.scaleFunction());
}

} // namespace Tova2
