#include "nodes/textnodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/paintcontext.h"
#include "nodes/textcontent.h"
#include "nodes/values.h"

#include "vetra/qt.h"

namespace Tova2 {

/// A change of what the layout is made from.
template <class T>
void TextNodeImpl::change(T& member, const T& value)
{
    if (value == member)
        return;
    member = value;
    m_layout.reset();
    reportChange(ChangeLevel::Geometry);
}

void TextNodeImpl::setText(const std::string& text)
{
    change(m_text, acceptedText(text));
}

void TextNodeImpl::setFont(const Vetra::Font& font)
{
    change(m_font, font);
}

void TextNodeImpl::setHorizontalAlignment(HorizontalAlignment alignment)
{
    if (alignment <= HorizontalAlignment::Right)
        change(m_horizontal, alignment);
}

void TextNodeImpl::setVerticalAlignment(VerticalAlignment alignment)
{
    if (alignment > VerticalAlignment::Bottom || alignment == m_vertical)
        return;
    m_vertical = alignment;
    reportChange(ChangeLevel::Geometry);
}

void TextNodeImpl::setColor(const Vetra::Color& color)
{
    if (color == m_color)
        return;
    m_color = color;
    reportChange(ChangeLevel::Appearance);
}

void TextNodeImpl::setBox(const QRectF& box)
{
    if (!isFinite(box) || isSame(box, m_box))
        return;
    m_box = box;
    reportChange(ChangeLevel::Geometry);
}

const TextLayout& TextNodeImpl::layout() const
{
    if (!m_layout)
        m_layout = std::make_unique<TextLayout>(m_text, m_font, m_horizontal);
    return *m_layout;
}

QPointF TextNodeImpl::origin() const
{
    constexpr double shares[] = {0, 0.5, 1};
    const QSizeF free = m_box.size() - layout().size();
    return m_box.topLeft() + QPointF(free.width() * shares[static_cast<int>(m_horizontal)],
                                     free.height() * shares[static_cast<int>(m_vertical)]);
}

QRectF TextNodeImpl::geometryRect() const
{
    return m_text.empty() ? QRectF() : layout().inkRect().translated(origin());
}

Bounds TextNodeImpl::outline() const
{
    return m_text.empty() ? Bounds() : Bounds(QRectF(origin(), layout().size()));
}

/// About as much ink as the letters would take; nothing where that would be a haze.
void TextNodeImpl::paintBands(PaintContext& context, const QPointF& start, double pixels) const
{
    constexpr double kInk = 0.28, kHazePixels = 2;
    if (pixels < kHazePixels)
        return;
    for (const QRectF& band : layout().bands())
        context.fillArea(band.translated(start), faded(m_color, kInk));
}

void TextNodeImpl::paintNode(PaintContext& context) const
{
    if (m_text.empty() || m_color.alpha() == 0)
        return;
    const QPointF start = origin();
    const double pixels = m_font.size() * context.pixelsAUnit() / context.pixelRatio();
    if (pixels < context.options().smallestText && !context.isSilhouette()) {
        paintBands(context, start, pixels);
        return;
    }
    layout().draw(context.localPainter(), context.ink(Vetra::toQt(m_color)),
                  QTransform::fromTranslate(start.x(), start.y()) * context.nodeToDevice());
    context.forgetPainterState();
}

QPainterPath TextNodeImpl::silhouetteOutline(double) const
{
    const QPointF start = origin();
    return m_text.empty() ? QPainterPath() : layout().outline().translated(start);
}

QByteArray TextNodeImpl::silhouetteKey() const
{
    const QPointF start = origin();
    return SilhouetteKey()
        .add(std::string_view(m_text), start.x(), start.y(), m_horizontal)
        .add(std::string_view(m_font.family()), m_font.size(), m_font.weight(), m_font.isItalic(),
             m_font.isUnderline(), m_color.alpha() > 0)
        .bytes();
}

} // namespace Tova2
