#include "connectornode.h"

#include "figurestyle.h"

#include <tova/nodes/containernode.h>
#include <tova/nodes/lineendings.h>
#include <tova/nodes/opencurvedpathnode.h>
#include <tova/nodes/openlinearpathnode.h>
#include <tova/nodes/shapenode.h>

#include <QHash>

#include <algorithm>

namespace TovaView {
namespace {

using Tova2::LineEndDecoration;
using ColorOrNone = std::optional<Vetra::Color>;
using MakeReady = LineEndDecoration (*)(const Tova2::Stroke&, double, const ColorOrNone&);

/// Of right-angled connectors.
constexpr double cornerRadius = 3;
/// How far a head that begins where its line ends reaches back, so that no gap shows.
constexpr double overlap = 1;
/// Of the line to the length of what it wears, so that a thick line has a head that shows.
constexpr double fewestWidths = 3;

/// By dot's names. What is put together from several, or cut in half, is drawn as dot draws it.
MakeReady readyEnding(const QString& kind)
{
    namespace Ready = Tova2::LineEndings;
    static const QHash<QString, MakeReady> known{
        {QStringLiteral("normal"), Ready::createTriangle},
        {QStringLiteral("inv"), Ready::createInvertedTriangle},
        {QStringLiteral("diamond"), Ready::createDiamond},
        {QStringLiteral("dot"), Ready::createDot},
        {QStringLiteral("box"), Ready::createBox},
        {QStringLiteral("vee"),
         [](const Tova2::Stroke& line, double length, const ColorOrNone&) {
             return Ready::createFilledArrow(line, length);
         }},
        {QStringLiteral("tee"), [](const Tova2::Stroke& line, double length,
                                   const ColorOrNone&) { return Ready::createBar(line, length); }},
        {QStringLiteral("crow"), [](const Tova2::Stroke& line, double length, const ColorOrNone&) {
             return Ready::createCrowsFoot(line, length);
         }}};
    static const QHash<QString, QString> otherNames{
        {QStringLiteral("onormal"), QStringLiteral("normal")},
        {QStringLiteral("empty"), QStringLiteral("normal")},
        {QStringLiteral("oinv"), QStringLiteral("inv")},
        {QStringLiteral("invempty"), QStringLiteral("inv")},
        {QStringLiteral("odiamond"), QStringLiteral("diamond")},
        {QStringLiteral("ediamond"), QStringLiteral("diamond")},
        {QStringLiteral("odot"), QStringLiteral("dot")},
        {QStringLiteral("obox"), QStringLiteral("box")},
        {QStringLiteral("open"), QStringLiteral("vee")}};
    return known.value(otherNames.value(kind, kind));
}

/// How much of the line a figure takes, from the tip backwards; a bar lies across it.
double sizeOf(const Figure& figure, const Ending& ending)
{
    if (figure.outline == Outline::Ellipse)
        return boxOf(figure.points).width;
    const Point& along = ending.direction;
    double length = 0, side = 0;
    for (const Point& point : figure.points) {
        const Point back = ending.tip - point;
        length = std::max(length, back.x * along.x + back.y * along.y);
        side = std::max(side, std::abs(back.x * along.y - back.y * along.x));
    }
    return ending.kind == QLatin1String("tee") ? 2 * side : length;
}

ColorOrNone fillOf(const Figure& figure, const Vetra::Color& ground)
{
    if (!figure.fill)
        return ground;
    return figure.fill->color == figure.line->color ? ColorOrNone() : figure.fill->color;
}

LineEndDecoration drawnDecoration(const Ending& ending)
{
    const Tova2::ContainerNode group;
    for (const Figure& figure : ending.figures) {
        Tova2::ShapeNode part(shapeOf(figure, ending.tip));
        part.setDrawStyle(styleOf(figure, ending.tip));
        part.setParent(group);
    }
    LineEndDecoration decoration(group);
    decoration.setReferenceDirection(ending.direction);
    decoration.setLineBackoff(ending.length);
    return decoration;
}

std::vector<Tova2::Vertex> verticesOf(const Points& p)
{
    std::vector<Tova2::Vertex> vertices;
    for (std::size_t i = 0; i < p.size(); i += 3)
        vertices.push_back({p[i], i + 1 < p.size() ? p[i + 1] - p[i] : Point{},
                            i > 0 ? p[i - 1] - p[i] : Point{}});
    return vertices;
}

bool isRightAngled(const Points& line)
{
    return std::adjacent_find(line.begin(), line.end(), [](const Point& a, const Point& b) {
               return a.x != b.x && a.y != b.y;
           }) == line.end();
}

template <class Path>
Path decorated(Path path, const LineEndDecoration& start, const LineEndDecoration& end)
{
    if (start.isValid())
        path.setStartDecoration(start);
    if (end.isValid())
        path.setEndDecoration(end);
    return path;
}

LineEndDecoration readyDecoration(const Ending& ending, const ColorOrNone& ground)
{
    const Figure& first = ending.figures.front();
    const MakeReady make = readyEnding(ending.kind);
    if (!make || !first.line)
        return drawnDecoration(ending);
    const double length = std::max(sizeOf(first, ending) + (ending.isBeyond ? overlap : 0),
                                   first.line->width * fewestWidths);
    LineEndDecoration decoration = make(styleOf(first, {}).stroke(), length,
                                        fillOf(first, ground.value_or(Vetra::Color(0, 0, 0, 0))));
    if (ending.isBeyond) {
        decoration.setRelativePosition(ending.length);
        decoration.setLineBackoff(0);
    }
    return decoration;
}

} // namespace

LineEndDecoration decorationOf(const std::optional<Ending>& ending, const ColorOrNone& ground)
{
    if (!ending || !ending->isOnLine())
        return {};
    return readyDecoration(*ending, ground);
}

Tova2::Node makeConnectorNode(const Figure& line, const LineEndDecoration& start,
                              const LineEndDecoration& end)
{
    if (!isOpenLine(line))
        return Tova2::ShapeNode(shapeOf(line, {}));
    if (line.outline == Outline::Bezier)
        return decorated(Tova2::OpenCurvedPathNode(verticesOf(line.points)), start, end);
    Tova2::OpenLinearPathNode path(line.points);
    if (isRightAngled(line.points)) {
        path.setCornerStyle(Tova2::CornerStyle::Rounded);
        path.setRoundedCornerRadius(cornerRadius);
    }
    return decorated(path, start, end);
}

} // namespace TovaView
