#pragma once

#include <vetra/color.h>
#include <vetra/glpoint.h>
#include <vetra/glrect.h>

#include <QString>

#include <optional>
#include <vector>

namespace TovaView {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;
using Points = std::vector<Point>;

// All of a diagram's coordinates are points, y growing downwards, whatever the file counted in.

struct GradientStop {
    double position = 0;
    Vetra::Color color;
};

struct GradientFill {
    bool radial = false;
    Point from, to;                      ///< of a radial one: focus and centre
    double fromRadius = 0, toRadius = 0; ///< radial only
    std::vector<GradientStop> stops;
};

struct FillStyle {
    Vetra::Color color;
    std::optional<GradientFill> gradient; ///< takes the place of the colour
};

enum class Dash { Solid, Dashed, Dotted };

struct LineStyle {
    Vetra::Color color;
    double width = 1;
    Dash dash = Dash::Solid;
};

enum class Outline {
    Polygon,  ///< closed
    Polyline, ///< open
    Bezier,   ///< a start, then three points a piece; open
    Ellipse   ///< two points: opposite corners of its box
};

/// One drawn shape. Without a fill or a line that part is not painted.
struct Figure {
    Outline outline = Outline::Polygon;
    Points points;
    std::optional<FillStyle> fill;
    std::optional<LineStyle> line;
};

enum class Align { Left, Center, Right };

struct TextPiece {
    QString text;
    Point anchor; ///< on the baseline, at the left end, middle or right end of the text
    Align align = Align::Center;
    double width = 0; ///< room that the layout reserved; 0 when it said nothing
    QString family;
    double size = 14;
    bool bold = false, italic = false, underline = false, strikeOut = false;
    Vetra::Color color;
};

/// What one element of a diagram shows: texts lie above figures.
struct Drawing {
    std::vector<Figure> figures;
    std::vector<TextPiece> texts;

    bool empty() const { return figures.empty() && texts.empty(); }
};

struct Cluster {
    QString id;
    int parent = -1; ///< index of the cluster around it; a parent comes before its children
    Rect frame;
    Drawing drawing;
};

struct Block {
    QString id;
    int cluster = -1; ///< index of the innermost cluster around it
    Rect frame;
    Drawing drawing;
};

/// What a connector wears at one of its ends.
struct Ending {
    QString kind;                ///< dot's name; one that is not known is drawn as `figures` say
    std::vector<Figure> figures; ///< as the layout draws it
    Point tip;
    Point direction;   ///< towards the tip, of length 1; (0, 0) for figures that go with no line
    double length = 0; ///< what the layout has left of the line for it
    bool isBeyond = false; ///< the line ends before it, and not at its tip

    bool isOnLine() const { return direction != Point{}; }
};

struct Connector {
    QString id;
    int tail = -1, head = -1;  ///< indices of blocks
    bool hidden = false;       ///< its lines are led as others are, and not drawn
    std::vector<Figure> lines; ///< along its way
    std::optional<Ending> tailEnding, headEnding;
    Drawing labels;    ///< of its middle; connectors may run through them
    Drawing endLabels; ///< beside its ends
};

struct Diagram {
    QString name;
    Rect bounds; ///< the page; drawings may reach beyond it
    Drawing page;
    std::vector<Cluster> clusters;
    std::vector<Block> blocks;
    std::vector<Connector> connectors;
};

/// Whether it has two ends and no inside.
bool isOpenLine(const Figure& figure);
/// The box of all points; the zero rectangle when there are none.
Rect boxOf(const Points& points);
/// A curve whose bezier pieces are all straight, as the polyline of their ends, each exactly where
/// it was; any other figure as it is.
Figure straightened(Figure curve);
/// A curve in parts, each straightened: upright runs, which may cross others, are parted from bent
/// ones.
std::vector<Figure> splitIntoRuns(const Figure& curve);
/// Straightened, and without the corners that say nothing.
Figure simplified(Figure curve);
/// Leads a line on to `tip`, straight from its end; along its last piece where that points there.
void lengthen(Figure& line, Point tip);
void translate(Drawing& drawing, const Point& by);
void translate(Diagram& diagram, const Point& by);
/// Puts `next` to the right of `diagram`, on one page.
void appendBeside(Diagram& diagram, Diagram next);

} // namespace TovaView
