#include "svgsource.h"

#include "vetra/image.h"
#include "vetra/imageerrors.h"
#include "vetra/qt.h"

#include <QPainter>
#include <QSvgRenderer>

namespace Vetra {

namespace {

class SvgSource : public ImageSource {
public:
    SvgSource(std::unique_ptr<QSvgRenderer> renderer, const Size<int>& size)
        : m_renderer(std::move(renderer)), m_size(size)
    {}
    Size<int> size() const override { return m_size; }
    bool isVector() const override { return true; }
    QImage raster(const Size<int>& pixels) const override;
    void paint(QPainter& painter, const QRectF& target, const QRectF& source) const override;

private:
    QImage render(const Size<int>& pixels) const;

    std::unique_ptr<QSvgRenderer> m_renderer;
    Size<int> m_size;
    mutable QImage m_natural; // what single pixels are asked of, made on first use
};

QImage SvgSource::raster(const Size<int>& pixels) const
{
    if (pixels != m_size)
        return render(pixels);
    if (m_natural.isNull())
        m_natural = render(pixels);
    return m_natural;
}

QImage SvgSource::render(const Size<int>& pixels) const
{
    QImage image(toQt(pixels), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    m_renderer->render(&painter, QRectF(image.rect()));
    return image;
}

void SvgSource::paint(QPainter& painter, const QRectF& target, const QRectF& source) const
{
    const QRectF whole(0, 0, m_size.width, m_size.height);
    painter.save();
    if (source != whole)
        painter.setClipRect(target, Qt::IntersectClip);
    painter.translate(target.topLeft());
    painter.scale(target.width() / source.width(), target.height() / source.height());
    painter.translate(-source.topLeft());
    m_renderer->render(&painter, whole);
    painter.restore();
}

} // namespace

std::unique_ptr<const ImageSource> makeSvgSource(const QByteArray& bytes, const std::string& name)
{
    auto renderer = std::make_unique<QSvgRenderer>();
    // Only the first moment of an animation is shown; loading must not start a clock for it.
    renderer->setFramesPerSecond(0);
    if (!renderer->load(bytes) || !renderer->isValid())
        raise(ImageError::Damaged, name);
    const auto size = fromQt(renderer->defaultSize());
    if (!size.isValid())
        raise(ImageError::Empty, name);
    if (!Image::isAcceptableSize(size))
        raise(ImageError::TooLarge, name);
    return std::make_unique<SvgSource>(std::move(renderer), size);
}

} // namespace Vetra
