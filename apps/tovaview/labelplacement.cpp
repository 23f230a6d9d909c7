#include "labelplacement.h"

#include "connectorend.h"
#include "coursepoint.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace TovaView {
namespace {

constexpr double gap = 3;             ///< between a label and its line, in points
constexpr double farthest = 12;       ///< from its line a label is taken for its own
constexpr double cellSide = 128;      ///< of the index, in points
constexpr std::size_t mostCells = 64; ///< of one thing; what is larger is no block
constexpr double shares[] = {0.5, 0.25, 0.75};
// What it costs to cover one point by one point, and to lie a point away from the middle.
constexpr double coveringCost = 1, distanceCost = 0.05;

/// What labels had better not cover, found by squares of the plane.
class TakenRoom {
public:
    void add(const Rect& rect)
    {
        const Cells cells = cellsOf(rect);
        if (cells.count() > mostCells)
            return;
        forEach(cells, [&](auto key) { m_rects[key].push_back(rect); });
    }

    /// The area that others have of it, what lies in two squares counting twice.
    double takenOf(const Rect& rect) const
    {
        double area = 0;
        forEach(cellsOf(rect), [&](auto key) {
            const auto found = m_rects.find(key);
            if (found == m_rects.end())
                return;
            for (const Rect& other : found->second)
                if (const Rect common = rect.intersected(other); common.isValid())
                    area += common.width * common.height;
        });
        return area;
    }

private:
    using Key = std::pair<int, int>;
    struct Cells {
        int left, top, right, bottom;
        std::size_t count() const
        {
            return static_cast<std::size_t>(right - left + 1) *
                   static_cast<std::size_t>(bottom - top + 1);
        }
    };

    // Coordinates are at most 1e7, as the readers see to.
    static Cells cellsOf(const Rect& rect)
    {
        const auto cell = [](double value) {
            return static_cast<int>(std::floor(value / cellSide));
        };
        return {cell(rect.x), cell(rect.y), cell(rect.right()), cell(rect.bottom())};
    }

    template <class Visit>
    static void forEach(const Cells& cells, const Visit& visit)
    {
        for (int x = cells.left; x <= cells.right; ++x)
            for (int y = cells.top; y <= cells.bottom; ++y)
                visit(Key(x, y));
    }

    std::map<Key, std::vector<Rect>> m_rects;
};

Rect boxOf(const std::vector<TextPiece>& texts)
{
    Rect box;
    for (const TextPiece& text : texts) {
        const double width = text.width > 0 ? text.width : text.size;
        const double left = text.align == Align::Left    ? 0
                            : text.align == Align::Right ? width
                                                         : width / 2;
        const Rect line{text.anchor.x - left, text.anchor.y - 0.8 * text.size, width, text.size};
        box = box.isValid() ? box.united(line) : line;
    }
    return box;
}

double distanceFrom(const Points& course, const Rect& box)
{
    const Point nearest = nearestOn(course, box.center()).point;
    const double dx = std::max({box.x - nearest.x, 0.0, nearest.x - box.right()});
    const double dy = std::max({box.y - nearest.y, 0.0, nearest.y - box.bottom()});
    return std::hypot(dx, dy);
}

/// Beside each upright piece of the course, at some places along it, on either side.
std::vector<Rect> placesBeside(const Points& course, const Rect& box)
{
    std::vector<Rect> places;
    for (std::size_t i = 1; i < course.size(); ++i) {
        const Point from = course[i - 1], along = course[i] - from;
        for (const double share : shares) {
            const Point at = from + along * share;
            const double left = at.x - box.width / 2, top = at.y - box.height / 2;
            if (along.y == 0 && std::abs(along.x) >= box.width / 2) {
                places.push_back({left, at.y - gap - box.height, box.width, box.height});
                places.push_back({left, at.y + gap, box.width, box.height});
            } else if (along.x == 0 && std::abs(along.y) >= box.height / 2) {
                places.push_back({at.x + gap, top, box.width, box.height});
                places.push_back({at.x - gap - box.width, top, box.width, box.height});
            }
        }
    }
    return places;
}

/// The best of the places; the middle of the line, which the label then lies on, where there is
/// none.
Point bestCentre(const Points& course, const Rect& box, const TakenRoom& taken)
{
    const Point middle = pointAlong(course, 0.5);
    Point best = middle;
    double least = std::numeric_limits<double>::max();
    for (const Rect& place : placesBeside(course, box)) {
        const double cost = coveringCost * taken.takenOf(place.grown(1)) +
                            distanceCost * distanceBetween(place.center(), middle);
        if (cost < least) {
            least = cost;
            best = place.center();
        }
    }
    return best;
}

void addLines(TakenRoom& taken, const Points& course)
{
    for (std::size_t i = 1; i < course.size(); ++i)
        if (course[i - 1].x == course[i].x || course[i - 1].y == course[i].y)
            taken.add(Rect::fromCorners(course[i - 1], course[i]).grown(1));
}

} // namespace

void placeFarLabels(Diagram& diagram)
{
    struct Far {
        Drawing* labels;
        Points course;
        Rect box;
    };
    std::vector<Far> far;
    TakenRoom taken;
    for (const Block& block : diagram.blocks)
        taken.add(block.frame);
    for (Connector& connector : diagram.connectors) {
        const Points course = courseOf(connector);
        addLines(taken, course);
        const Rect box = boxOf(connector.labels.texts);
        if (course.size() > 1 && box.isValid() && distanceFrom(course, box) > farthest)
            far.push_back({&connector.labels, course, box});
        else if (box.isValid())
            taken.add(box);
    }
    for (const Far& label : far) {
        const Point by = bestCentre(label.course, label.box, taken) - label.box.center();
        translate(*label.labels, by);
        taken.add(label.box.translated(by));
    }
}

} // namespace TovaView
