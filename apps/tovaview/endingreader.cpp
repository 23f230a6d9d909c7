#include "endingreader.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr double shortestEnding = 0.01;
constexpr double largestCoordinate = 1e7;

/// The points that are marked with a letter in front, as in "e,110,18 54,18 ... 100,18".
Points marked(const QString& positions, QLatin1Char mark, double top)
{
    Points points;
    for (const QString& word : positions.split(QRegularExpression(QStringLiteral("[ ;]")))) {
        const QStringList parts = word.split(QLatin1Char(','));
        if (parts.size() != 3 || parts[0] != mark)
            continue;
        const Point point{parts[1].toDouble(), top - parts[2].toDouble()};
        if (std::abs(point.x) + std::abs(point.y) < largestCoordinate) // and is a number
            points.push_back(point);
    }
    return points;
}

/// Lets the line end in the tip. Not every line has an end, nor every ending a line of its own.
void join(Ending& ending, const Points& tips, std::vector<Figure>& lines)
{
    if (tips.size() != 1 || lines.size() != 1 || !isOpenLine(lines.front()))
        return;
    const Point end = lines.front().points.back();
    const double length = std::hypot(tips.front().x - end.x, tips.front().y - end.y);
    if (length < shortestEnding)
        return;
    lengthen(lines.front(), tips.front());
    ending.tip = lines.front().points.back();
    ending.direction = (ending.tip - end) * (1 / length);
    ending.length = length;
}

std::optional<Ending> endingOf(const QString& kind, std::vector<Figure> figures, const Points& tips,
                               std::vector<Figure>& lines)
{
    if (figures.empty())
        return {};
    Ending ending;
    ending.kind = kind.isEmpty() ? QStringLiteral("normal") : kind;
    ending.figures = std::move(figures);
    join(ending, tips, lines);
    return ending;
}

void reverse(std::vector<Figure>& lines)
{
    for (Figure& line : lines)
        std::reverse(line.points.begin(), line.points.end());
}

} // namespace

void readEndings(const QJsonObject& edge, double top, std::vector<Figure> tail,
                 std::vector<Figure> head, Connector& connector)
{
    const QString positions = edge[QLatin1String("pos")].toString();
    const auto kindAt = [&](const char* key) { return edge[QLatin1String(key)].toString(); };
    auto& lines = connector.lines;
    connector.headEnding = endingOf(kindAt("arrowhead"), std::move(head),
                                    marked(positions, QLatin1Char('e'), top), lines);
    reverse(lines);
    connector.tailEnding = endingOf(kindAt("arrowtail"), std::move(tail),
                                    marked(positions, QLatin1Char('s'), top), lines);
    reverse(lines);
}

} // namespace TovaView
