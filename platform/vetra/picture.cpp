#include "vetra/picture.h"

#include "vetra/qt.h"

#include <QPainter>
#include <QPicture>

#include <cstring>

namespace Vetra {

GLRect<double> Picture::boundingRect() const
{
    if (isEmpty())
        return {};
    const QRect r = m_recording->boundingRect();
    return fromQt(QRectF(r));
}

bool Picture::operator==(const Picture& other) const noexcept
{
    if (isEmpty() || other.isEmpty())
        return isEmpty() && other.isEmpty();
    const auto &a = *m_recording, &b = *other.m_recording;
    return m_recording == other.m_recording ||
           (a.size() == b.size() && a.boundingRect() == b.boundingRect() &&
            std::memcmp(a.data(), b.data(), a.size()) == 0);
}

QPicture toQt(const Picture& picture)
{
    return picture.isEmpty() ? QPicture() : *picture.m_recording;
}

Picture fromQt(const QPicture& picture)
{
    Picture result;
    if (!picture.isNull())
        result.m_recording = std::make_shared<const QPicture>(picture);
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
    // Replaying moves a read position in the picture, hence the copy; the painter's state comes
    // back as it was.
    QPicture recording = toQt(picture);
    painter.save();
    recording.play(&painter);
    painter.restore();
}

} // namespace Vetra
