#pragma once

#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>

namespace Vetra {
class Color;
}

namespace Tova2 {

class NodeImpl;
class Stroke;

/// The lines of `inspectorText` as they are being written.
class Inspection {
public:
    Inspection();

    Inspection& line(std::string_view label);
    /// The label with the number of items, and those on a line each: the first ones by
    /// `write(item)`.
    template <class Items, class Write>
    void list(std::string_view label, const Items& items, Write write)
    {
        constexpr std::size_t kMost = 100;
        line(label) << static_cast<double>(items.size());
        std::size_t count = 0;
        for (const auto& item : items) {
            m_text << "\n    ";
            if (count++ == kMost) {
                m_text << "...";
                return;
            }
            write(item);
        }
    }

    Inspection& operator<<(std::string_view text);
    Inspection& operator<<(const char* text) { return *this << std::string_view(text); }
    Inspection& operator<<(double number);
    Inspection& operator<<(const QPointF& point);
    Inspection& operator<<(const QRectF& rect);
    Inspection& operator<<(const Vetra::Color& color);
    Inspection& operator<<(const Stroke& stroke);
    /// Kind and address; null is "none".
    Inspection& operator<<(const NodeImpl* node);
    /// A host's text in quotes, on one line.
    Inspection& quote(std::string_view text);

    std::string text() const { return m_text.str() + '\n'; }

private:
    std::ostringstream m_text;
    bool m_isEmpty = true;
};

inline const char* yesOrNo(bool value)
{
    return value ? "yes" : "no";
}

} // namespace Tova2
