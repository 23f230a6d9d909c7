#include "nodes/inspection.h"

#include "nodes/nodeimpl.h"

#include "tova/nodes/style/stroke.h"

#include <iomanip>
#include <locale>

namespace Tova2 {

Inspection::Inspection()
{
    constexpr int kDigits = 10;
    m_text.imbue(std::locale::classic());
    m_text << std::setprecision(kDigits);
}

Inspection& Inspection::line(std::string_view label)
{
    if (!m_isEmpty)
        m_text << '\n';
    m_isEmpty = false;
    return *this << label << ": ";
}

Inspection& Inspection::operator<<(std::string_view text)
{
    m_text << text;
    return *this;
}

Inspection& Inspection::operator<<(double number)
{
    m_text << number;
    return *this;
}

Inspection& Inspection::operator<<(const QPointF& point)
{
    return *this << "(" << point.x() << ", " << point.y() << ")";
}

Inspection& Inspection::operator<<(const QRectF& rect)
{
    return *this << rect.topLeft() << " " << rect.width() << " x " << rect.height();
}

Inspection& Inspection::operator<<(const Vetra::Color& color)
{
    m_text << '#' << std::hex << std::setw(8) << std::setfill('0') << color.packed() << std::dec;
    return *this;
}

Inspection& Inspection::operator<<(const Stroke& stroke)
{
    static constexpr const char* kStyles[] = {"none",   "solid",    "dashed",
                                              "dotted", "dash-dot", "dash-dot-dot"};
    const auto style = static_cast<std::size_t>(stroke.style());
    *this << (style < std::size(kStyles) ? kStyles[style] : "unknown");
    return stroke.isNoStroke()
               ? *this
               : *this << " " << stroke.color() << ", width " << stroke.logicalWidth();
}

Inspection& Inspection::operator<<(const NodeImpl* node)
{
    if (!node)
        return *this << "none";
    m_text << node->typeName() << ' ' << static_cast<const void*>(node);
    return *this;
}

Inspection& Inspection::quote(std::string_view text)
{
    constexpr std::size_t kMost = 200;
    std::size_t shown = std::min(text.size(), kMost);
    // Not in the middle of a character.
    while (shown < text.size() && shown > 0 && (text[shown] & 0xc0) == 0x80)
        --shown;
    m_text << '"';
    for (const char c : text.substr(0, shown)) {
        if (c == '"' || c == '\\')
            m_text << '\\';
        m_text << (static_cast<unsigned char>(c) < 0x20 || c == 0x7f ? '?' : c);
    }
    return *this << "\"" << (shown < text.size() ? "..." : "");
}

} // namespace Tova2
