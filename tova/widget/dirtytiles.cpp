#include "widget/dirtytiles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

int tilesFor(int pixels)
{
    return (pixels + DirtyTiles::kSide - 1) / DirtyTiles::kSide;
}

/// The pixel at or before a coordinate, within the picture; NaN is its start.
int pixelAt(double coordinate, int end)
{
    if (!(coordinate > 0))
        return 0;
    return coordinate >= end ? end : static_cast<int>(coordinate);
}

} // namespace

void DirtyTiles::resize(const QSize& pixels)
{
    m_pixels = pixels;
    m_columns = tilesFor(pixels.width());
    m_rows = tilesFor(pixels.height());
    m_tiles.assign(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), 1);
    m_count = m_tiles.size();
}

void DirtyTiles::markAll()
{
    std::fill(m_tiles.begin(), m_tiles.end(), std::uint8_t{1});
    m_count = m_tiles.size();
}

void DirtyTiles::clear()
{
    std::fill(m_tiles.begin(), m_tiles.end(), std::uint8_t{0});
    m_count = 0;
}

void DirtyTiles::mark(const QRectF& pixels)
{
    if (isAll())
        return;
    const int left = pixelAt(pixels.left(), m_pixels.width());
    const int top = pixelAt(pixels.top(), m_pixels.height());
    const int right = pixelAt(std::ceil(pixels.right()), m_pixels.width());
    const int bottom = pixelAt(std::ceil(pixels.bottom()), m_pixels.height());
    mark(QRect(left, top, right - left, bottom - top));
}

void DirtyTiles::mark(const QRect& pixels)
{
    const QRect inside = pixels & QRect(QPoint(), m_pixels);
    if (!inside.isEmpty())
        markTiles(inside.left() / kSide, inside.top() / kSide, inside.right() / kSide,
                  inside.bottom() / kSide);
}

void DirtyTiles::markTiles(int left, int top, int right, int bottom)
{
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            auto& tile = m_tiles[static_cast<std::size_t>(row * m_columns + column)];
            m_count += tile == 0;
            tile = 1;
        }
    }
}

void DirtyTiles::moveBy(const QPoint& offset)
{
    if (isEmpty() || isAll())
        return;
    const auto before = rects();
    clear();
    for (const QRect& rect : before)
        mark(rect.translated(offset));
}

bool DirtyTiles::isMarked(int column, int row) const
{
    return m_tiles[static_cast<std::size_t>(row * m_columns + column)] != 0;
}

int DirtyTiles::runEnd(int column, int row) const
{
    while (column < m_columns && isMarked(column, row))
        ++column;
    return column;
}

// A run of tiles continues the rectangle above it when both have the same ends.
std::vector<QRect> DirtyTiles::rects() const
{
    std::vector<QRect> tiles;
    std::vector<std::size_t> open, next; // whose last row is the one before
    for (int row = 0; row < m_rows; ++row) {
        next.clear();
        for (int column = 0; column < m_columns; ++column) {
            const int end = runEnd(column, row);
            if (end == column)
                continue;
            const auto above = std::find_if(open.begin(), open.end(), [&](std::size_t i) {
                return tiles[i].left() == column && tiles[i].right() == end - 1;
            });
            if (above != open.end()) {
                tiles[*above].setBottom(row);
                next.push_back(*above);
            } else {
                next.push_back(tiles.size());
                tiles.emplace_back(QPoint(column, row), QPoint(end - 1, row));
            }
            column = end;
        }
        std::swap(open, next);
    }
    for (QRect& rect : tiles)
        rect = QRect(rect.topLeft() * kSide, rect.size() * kSide) & QRect(QPoint(), m_pixels);
    return tiles;
}

} // namespace Tova2
