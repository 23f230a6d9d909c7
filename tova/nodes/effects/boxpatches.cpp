#include "nodes/effects/boxpatches.h"

#include "nodes/effects/coverageplane.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr std::size_t kMostPatches = 64; // each is compared with a box's edge

std::size_t bytesOf(const QImage& image)
{
    return static_cast<std::size_t>(image.sizeInBytes());
}

} // namespace

int BoxEdge::outside(Qt::Orientation across) const
{
    return static_cast<int>(std::ceil(3 * (across == Qt::Horizontal ? deviationX : deviationY))) +
           1;
}

int BoxEdge::inside(Qt::Orientation across) const
{
    return outside(across) + static_cast<int>(std::ceil(radius));
}

const QImage& BoxPatch::corner(Corner which, int phaseX, int phaseY)
{
    QImage& image = m_corners[which][static_cast<std::size_t>(phaseY * kPhases + phaseX)];
    if (image.isNull()) {
        image = which == TopLeft ? madeCorner(phaseX, phaseY)
                                 : corner(TopLeft, phaseX, phaseY)
                                       .mirrored(which == TopRight || which == BottomRight,
                                                 which == BottomLeft || which == BottomRight);
        m_bytes += bytesOf(image);
    }
    return image;
}

QImage BoxPatch::madeCorner(int phaseX, int phaseY) const
{
    const int left = m_edge.outside(Qt::Horizontal), top = m_edge.outside(Qt::Vertical);
    const QSize size(left + m_edge.inside(Qt::Horizontal), top + m_edge.inside(Qt::Vertical));
    // As far again, where nothing is cut off within reach of what is kept.
    QImage sheet(size + QSize(left, top), QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    const QRectF box(left + double(phaseX) / kPhases, top + double(phaseY) / kPhases,
                     2.0 * sheet.width() + 2 * m_edge.radius,
                     2.0 * sheet.height() + 2 * m_edge.radius);
    painter.drawRoundedRect(box, m_edge.radius, m_edge.radius);
    painter.end();
    CoveragePlane plane(sheet.size());
    plane.put(sheet, {});
    plane.blur(m_edge.deviationX, m_edge.deviationY);
    return plane.colored(QColor::fromRgba(m_edge.color), m_edge.gain).copy(QRect({}, size));
}

const QImage& BoxPatch::side(Side which, int phase)
{
    QImage& image = m_sides[which][static_cast<std::size_t>(phase)];
    if (image.isNull()) {
        image = madeSide(which, phase);
        m_bytes += bytesOf(image);
    }
    return image;
}

// The innermost line of a corner, again and again.
QImage BoxPatch::madeSide(Side which, int phase)
{
    const bool isUpright = which == Left || which == Right;
    if (which == Right || which == Bottom)
        return side(which == Right ? Left : Top, phase).mirrored(isUpright, !isUpright);
    const QImage from = isUpright ? corner(TopLeft, phase, 0) : corner(TopLeft, 0, phase);
    QImage image(isUpright ? from.width() : kEdgeLength, isUpright ? kEdgeLength : from.height(),
                 QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto* const line =
            reinterpret_cast<const QRgb*>(from.constScanLine(isUpright ? from.height() - 1 : y));
        if (isUpright)
            std::copy(line, line + image.width(), to);
        else
            std::fill(to, to + image.width(), line[from.width() - 1]);
    }
    return image;
}

BoxPatches& BoxPatches::instance()
{
    static auto* const patches = new BoxPatches;
    return *patches;
}

BoxPatch& BoxPatches::patch(const BoxEdge& edge)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.patch.edge() == edge; });
    if (found == m_entries.end()) {
        m_entries.push_front(Entry{BoxPatch(edge), 0, {}});
        if (m_entries.size() > kMostPatches)
            m_entries.pop_back();
    } else if (found != m_entries.begin()) {
        m_entries.splice(m_entries.begin(), m_entries, found);
        touch(m_entries.front());
    }
    return m_entries.front().patch;
}

void BoxPatches::touch(Entry& entry)
{
    for (const auto& share : entry.shares)
        share->touch();
}

void BoxPatches::account()
{
    const auto entry = m_entries.begin();
    const std::size_t made = entry->patch.bytes() - entry->counted;
    if (made == 0)
        return;
    // Before there is room made, lest it be here.
    touch(*entry);
    entry->counted += made;
    entry->shares.push_back(
        std::make_unique<CacheBudget::Share>(made, [this, entry] { m_entries.erase(entry); }));
}

} // namespace Tova2
