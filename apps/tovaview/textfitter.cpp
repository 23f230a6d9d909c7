#include "textfitter.h"

#include <vetra/font.h>

#include <QFont>
#include <QTextLayout>

namespace TovaView {
namespace {

// Large enough for widths to be exact.
constexpr int referenceSize = 100;
// What rounding in the layout's own numbers amounts to.
constexpr double tolerance = 1.02;

QFont referenceFont(const TextPiece& text)
{
    QFont font(text.family);
    font.setPixelSize(referenceSize);
    font.setBold(text.bold);
    font.setItalic(text.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

Vetra::Font fontOf(const TextPiece& text)
{
    Vetra::Font font(text.family.toStdString(), text.size);
    font.setBold(text.bold);
    font.setItalic(text.italic);
    font.setUnderline(text.underline);
    return font;
}

struct Extent {
    double width, ascent, height;
};

/// Letters from other fonts than the first choice may make the line higher than that font says.
Extent measure(const TextPiece& text)
{
    QTextLayout layout(text.text, referenceFont(text));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid())
        return {};
    const double scale = text.size / referenceSize;
    return {line.naturalTextWidth() * scale, line.ascent() * scale, line.height() * scale};
}

double shareLeftOfAnchor(Align align)
{
    return align == Align::Left ? 0 : align == Align::Right ? 1 : 0.5;
}

} // namespace

TextFitter::TextFitter(const TextPiece& text) : m_text(text)
{
    const Extent extent = measure(text);
    if (text.width > 0 && extent.width > text.width * tolerance)
        m_squeeze = text.width / extent.width;
    const double width = extent.width * m_squeeze;
    m_rect = {text.anchor.x - width * shareLeftOfAnchor(text.align), text.anchor.y - extent.ascent,
              width, extent.height};
}

Tova2::TextNode TextFitter::makeNode(const Point& origin) const
{
    Tova2::TextNode node(m_text.text.toStdString());
    node.setFont(fontOf(m_text));
    node.setColor(m_text.color);
    node.setPosition({m_rect.x - origin.x, m_rect.y - origin.y});
    if (m_squeeze != 1)
        node.setTransform(Vetra::Transform::fromScale(m_squeeze, 1));
    return node;
}

Rect inkOf(const TextPiece& text)
{
    Rect rect = TextFitter(text).rect();
    if (text.text == text.text.trimmed())
        return rect;
    TextPiece rest = text;
    rest.text = text.text.trimmed();
    const double width = TextFitter(rest).rect().width;
    rest.text += text.text.mid(text.text.indexOf(rest.text) + rest.text.size());
    rect.x = rect.right() - TextFitter(rest).rect().width;
    rect.width = width;
    return rect;
}

} // namespace TovaView
