#include "nodeshape.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr double cornerRadius = 12;
constexpr double ornamentGap = 4;

/// Corners in a box whose sides are 1.
const QHash<QString, Points>& polygons()
{
    static const QHash<QString, Points> shapes{
        {QStringLiteral("diamond"), {{0.5, 0}, {1, 0.5}, {0.5, 1}, {0, 0.5}}},
        {QStringLiteral("Mdiamond"), {{0.5, 0}, {1, 0.5}, {0.5, 1}, {0, 0.5}}},
        {QStringLiteral("triangle"), {{0.5, 0}, {1, 1}, {0, 1}}},
        {QStringLiteral("invtriangle"), {{0, 0}, {1, 0}, {0.5, 1}}},
        {QStringLiteral("parallelogram"), {{0.2, 0}, {1, 0}, {0.8, 1}, {0, 1}}},
        {QStringLiteral("trapezium"), {{0.2, 0}, {0.8, 0}, {1, 1}, {0, 1}}},
        {QStringLiteral("invtrapezium"), {{0, 0}, {1, 0}, {0.8, 1}, {0.2, 1}}},
        {QStringLiteral("house"), {{0.5, 0}, {1, 0.4}, {1, 1}, {0, 1}, {0, 0.4}}},
        {QStringLiteral("invhouse"), {{0, 0}, {1, 0}, {1, 0.6}, {0.5, 1}, {0, 0.6}}},
        {QStringLiteral("pentagon"), {{0.5, 0}, {1, 0.4}, {0.8, 1}, {0.2, 1}, {0, 0.4}}},
        {QStringLiteral("hexagon"),
         {{0.25, 0}, {0.75, 0}, {1, 0.5}, {0.75, 1}, {0.25, 1}, {0, 0.5}}},
        {QStringLiteral("septagon"),
         {{0.5, 0}, {0.9, 0.2}, {1, 0.65}, {0.72, 1}, {0.28, 1}, {0, 0.65}, {0.1, 0.2}}},
        {QStringLiteral("octagon"),
         {{0.3, 0}, {0.7, 0}, {1, 0.3}, {1, 0.7}, {0.7, 1}, {0.3, 1}, {0, 0.7}, {0, 0.3}}},
        {QStringLiteral("star"),
         {{0.5, 0},
          {0.62, 0.38},
          {1, 0.38},
          {0.69, 0.62},
          {0.81, 1},
          {0.5, 0.76},
          {0.19, 1},
          {0.31, 0.62},
          {0, 0.38},
          {0.38, 0.38}}},
        {QStringLiteral("rarrow"),
         {{0, 0.2}, {0.75, 0.2}, {0.75, 0}, {1, 0.5}, {0.75, 1}, {0.75, 0.8}, {0, 0.8}}},
        {QStringLiteral("larrow"),
         {{1, 0.2}, {0.25, 0.2}, {0.25, 0}, {0, 0.5}, {0.25, 1}, {0.25, 0.8}, {1, 0.8}}},
    };
    return shapes;
}

Figure ellipseIn(const Rect& box)
{
    return {Outline::Ellipse, {box.topLeft(), {box.right(), box.bottom()}}, {}, {}};
}

Figure polygonIn(const Rect& box, const Points& unit)
{
    Figure figure;
    for (const Point& corner : unit)
        figure.points.push_back({box.x + corner.x * box.width, box.y + corner.y * box.height});
    return figure;
}

Figure roundedIn(const Rect& box)
{
    const double r = std::min({cornerRadius, box.width / 3, box.height / 3});
    const double c = r * 0.45; // where a bezier's controls come near a quarter circle
    const double x0 = box.x, y0 = box.y, x1 = box.right(), y1 = box.bottom();
    const auto line = [](Points& points, const Point& to) {
        points.insert(points.end(), {points.back(), to, to});
    };
    Points p{{x0 + r, y0}};
    line(p, {x1 - r, y0});
    p.insert(p.end(), {{x1 - c, y0}, {x1, y0 + c}, {x1, y0 + r}});
    line(p, {x1, y1 - r});
    p.insert(p.end(), {{x1, y1 - c}, {x1 - c, y1}, {x1 - r, y1}});
    line(p, {x0 + r, y1});
    p.insert(p.end(), {{x0 + c, y1}, {x0, y1 - c}, {x0, y1 - r}});
    line(p, {x0, y0 + r});
    p.insert(p.end(), {{x0, y0 + c}, {x0 + c, y0}, {x0 + r, y0}});
    return {Outline::Bezier, std::move(p), {}, {}};
}

bool isRound(const QString& name)
{
    for (const char* round :
         {"ellipse", "oval", "circle", "doublecircle", "point", "Mcircle", "egg"}) {
        if (name == QLatin1String(round))
            return true;
    }
    return false;
}

bool isBare(const QString& name)
{
    return name == QLatin1String("plaintext") || name == QLatin1String("none") ||
           name == QLatin1String("plain");
}

void addOrnaments(const QString& name, const Rect& box, std::vector<Figure>& figures)
{
    const Rect inner = box.grown(-ornamentGap);
    const double cut = std::min({cornerRadius, box.width / 2, box.height / 2});
    const double left = box.x, top = box.y, right = box.right(), bottom = box.bottom();
    if (name == QLatin1String("doublecircle") && inner.isValid())
        figures.push_back(ellipseIn(inner));
    else if (name == QLatin1String("doubleoctagon") && inner.isValid())
        figures.push_back(polygonIn(inner, polygons()[QStringLiteral("octagon")]));
    else if (name == QLatin1String("Msquare"))
        for (const auto& [from, to] :
             {std::pair<Point, Point>{{left + cut, top}, {left, top + cut}},
              {{right - cut, top}, {right, top + cut}},
              {{left + cut, bottom}, {left, bottom - cut}},
              {{right - cut, bottom}, {right, bottom - cut}}})
            figures.push_back({Outline::Polyline, {from, to}, {}, {}});
}

} // namespace

std::vector<Figure> nodeShape(const QString& name, const Rect& box, bool rounded)
{
    std::vector<Figure> figures;
    if (isBare(name))
        return figures;
    const QString base = name == QLatin1String("doubleoctagon") ? QStringLiteral("octagon") : name;
    const auto polygon = polygons().constFind(base);
    if (name == QLatin1String("underline"))
        figures.push_back(
            {Outline::Polyline, {{box.x, box.bottom()}, {box.right(), box.bottom()}}, {}, {}});
    else if (isRound(name))
        figures.push_back(ellipseIn(box));
    else if (polygon != polygons().constEnd())
        figures.push_back(polygonIn(box, *polygon));
    else if (rounded || name == QLatin1String("Mrecord"))
        figures.push_back(roundedIn(box));
    else
        figures.push_back(polygonIn(box, {{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    addOrnaments(name, box, figures);
    return figures;
}

} // namespace TovaView
