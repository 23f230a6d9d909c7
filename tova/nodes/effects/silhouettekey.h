#pragma once

#include <QByteArray>

#include <string_view>
#include <type_traits>

class QPainterPath;
class QRectF;

namespace Tova2 {

class DrawStyle;
class Stroke;

/// Bytes that are equal for equal pictures of silhouettes.
class SilhouetteKey {
public:
    /// Longer paths are not worth comparing: their nodes keep pictures of their own.
    static constexpr int kMostElements = 512;

    template <class T>
    SilhouetteKey& operator<<(const T& value)
    {
        static_assert(std::is_arithmetic_v<T> || std::is_pointer_v<T> || std::is_enum_v<T>);
        m_bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    SilhouetteKey& operator<<(std::string_view text);
    SilhouetteKey& operator<<(const QRectF& rect);
    SilhouetteKey& operator<<(const QPainterPath& path);
    /// What of it the silhouette shows.
    SilhouetteKey& operator<<(const DrawStyle& style);
    SilhouetteKey& operator<<(const Stroke& stroke);
    template <class... Values>
    SilhouetteKey& add(const Values&... values)
    {
        return (*this << ... << values);
    }

    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace Tova2
