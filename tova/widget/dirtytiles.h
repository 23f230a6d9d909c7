#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <cstdint>
#include <vector>

namespace Tova2 {

/// What of a picture is due for painting, in tiles of a fixed size. Marking costs the same however
/// many areas were marked before.
class DirtyTiles {
public:
    static constexpr int kSide = 16; ///< pixels

    /// Everything is due.
    void resize(const QSize& pixels);
    void markAll();
    /// Any rectangle, also one beyond the picture or not finite.
    void mark(const QRectF& pixels);
    void mark(const QRect& pixels);
    /// What is due moves along with the pixels.
    void moveBy(const QPoint& offset);
    void clear();
    bool isEmpty() const { return m_count == 0; }
    bool isAll() const { return m_count == m_tiles.size(); }

    /// Few and disjoint, and all that is due; they end with the picture.
    std::vector<QRect> rects() const;

private:
    void markTiles(int left, int top, int right, int bottom);
    bool isMarked(int column, int row) const;
    int runEnd(int column, int row) const;

    QSize m_pixels{0, 0};
    int m_columns = 0;
    int m_rows = 0;
    std::vector<std::uint8_t> m_tiles; ///< row by row
    std::size_t m_count = 0;
};

} // namespace Tova2
