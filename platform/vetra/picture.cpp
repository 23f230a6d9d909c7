#include "vetra/picture.h"

#include "picturereplay.h"
#include "vetra/qt.h"

#include <QPainter>
#include <QPicture>

#include <cmath>
#include <cstring>

namespace Vetra {

struct Picture::Recording {
    QPicture picture;
    GLRect<double> bounds;
};

namespace {

GLRect<double> boundsOf(const QPicture& picture)
{
    QPicture recording = picture;
    const QRectF all = extentOf(recording);
    const QPointF start(std::floor(all.left()), std::floor(all.top()));
    return fromQt(QRectF(start, QPointF(std::ceil(all.right()), std::ceil(all.bottom()))));
}

} // namespace

GLRect<double> Picture::boundingRect() const
{
    if (isEmpty())
        return {};
    return m_recording->bounds;
}

bool Picture::operator==(const Picture& other) const noexcept
{
    if (isEmpty() || other.isEmpty())
        return isEmpty() && other.isEmpty();
    const auto &a = m_recording->picture, &b = other.m_recording->picture;
    return m_recording == other.m_recording ||
           (a.size() == b.size() && a.boundingRect() == b.boundingRect() &&
            std::memcmp(a.data(), b.data(), a.size()) == 0);
}

QPicture toQt(const Picture& picture)
{
    return picture.isEmpty() ? QPicture() : picture.m_recording->picture;
}

Picture fromQt(const QPicture& picture)
{
    Picture result;
    if (!picture.isNull())
        result.m_recording = std::make_shared<const Picture::Recording>(
            Picture::Recording{picture, boundsOf(picture)});
    return result;
}

Picture recordPicture(const std::function<void(QPainter&)>& draw)
{
    if (!draw)
        return {};
    QPicture recording;
    {
        QPainter painter(&recording);
        draw(painter);
    }
    return fromQt(recording);
}

void play(QPainter& painter, const Picture& picture)
{
    if (picture.isEmpty() || !painter.isActive())
        return;
    // Replaying moves a read position in the picture, hence the copy.
    QPicture recording = toQt(picture);
    replay(painter, recording);
}

} // namespace Vetra
