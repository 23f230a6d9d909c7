#include "plainreader.h"

#include "colorname.h"
#include "nodeshape.h"
#include "plainlexer.h"
#include "record.h"

#include <QHash>

#include <cmath>

namespace TovaView {
namespace {

constexpr int mostElements = 200'000;
constexpr int mostPoints = 100'000;
constexpr int wordsOfLabel = 3; ///< the label and where it lies
constexpr double headLength = 10, headHalfWidth = 3.5;
constexpr double shortestGap = 4; ///< nearer than this a connector is taken to touch

LineStyle lineStyleOf(const QString& style, const QString& color)
{
    LineStyle line{colorOf(color)};
    for (const QString& part : style.split(QLatin1Char(','))) {
        const QString word = part.trimmed();
        if (word == QLatin1String("dashed"))
            line.dash = Dash::Dashed;
        else if (word == QLatin1String("dotted"))
            line.dash = Dash::Dotted;
        else if (word == QLatin1String("bold"))
            line.width = 2;
        else if (word.startsWith(QLatin1String("setlinewidth(")))
            line.width = qBound(0.0, word.mid(13).chopped(1).toDouble(), 1000.0);
    }
    return line;
}

bool hasStyle(const QString& style, const char* word)
{
    return style.contains(QLatin1String(word));
}

bool isFilled(const QString& style, const QString& shape)
{
    return shape == QLatin1String("point") || hasStyle(style, "filled") ||
           hasStyle(style, "radial") || hasStyle(style, "striped") || hasStyle(style, "wedged");
}

std::vector<LabelLine> linesOf(const QString& label, bool markup)
{
    return markup ? markupLines(label) : labelLines(label);
}

/// How far the point lies outside of the block's shape; negative inside. Exact for boxes, near
/// enough for the rest.
double distanceTo(const Block& block, const Point& point)
{
    const Point center = block.frame.center();
    const double dx = std::abs(point.x - center.x), dy = std::abs(point.y - center.y);
    const double a = block.frame.width / 2, b = block.frame.height / 2;
    const auto& figures = block.drawing.figures;
    if (figures.empty() || figures.front().outline != Outline::Ellipse || !(a > 0 && b > 0))
        return std::max(dx - a, dy - b);
    const double reach = std::hypot(dx / a, dy / b);
    return reach > 0 ? std::hypot(dx, dy) * (1 - 1 / reach) : -std::min(a, b);
}

class PlainReader {
public:
    PlainReader(const QString& file, const QByteArray& utf8) : m_lexer(file, utf8) {}

    Diagram read()
    {
        Diagram diagram;
        if (!m_lexer.nextStatement())
            m_lexer.fail(QStringLiteral("holds no graph"));
        diagram = readGraph();
        while (m_lexer.nextStatement())
            appendBeside(diagram, readGraph());
        return diagram;
    }

private:
    Diagram readGraph()
    {
        m_diagram = {};
        m_blocks.clear();
        if (m_lexer.word() != QLatin1String("graph"))
            m_lexer.fail(QStringLiteral("does not start with \"graph\""));
        const double scale = m_lexer.length();
        if (!(scale > 0))
            m_lexer.fail(QStringLiteral("the scale is not positive"));
        m_diagram.bounds.width = m_lexer.length();
        m_diagram.bounds.height = m_lexer.length();
        endStatement();
        while (readStatement())
            endStatement();
        endStatement();
        return std::move(m_diagram);
    }

    /// False at "stop".
    bool readStatement()
    {
        if (!m_lexer.nextStatement())
            m_lexer.fail(QStringLiteral("ends without \"stop\""));
        if (m_diagram.blocks.size() + m_diagram.connectors.size() > mostElements)
            m_lexer.fail(QStringLiteral("more than 200000 elements"));
        const QString kind = m_lexer.word();
        if (kind == QLatin1String("node"))
            readNode();
        else if (kind == QLatin1String("edge"))
            readEdge();
        else if (kind != QLatin1String("stop"))
            m_lexer.fail(QStringLiteral("\"%1\" is no statement").arg(kind));
        return kind != QLatin1String("stop");
    }

    void endStatement() { expectNoMore(m_lexer.rest()); }

    void expectNoMore(const QStringList& words)
    {
        if (!words.isEmpty())
            m_lexer.fail(QStringLiteral("\"%1\" is too much").arg(words.first()));
    }

    /// A hue comes without quotes, as three numbers.
    QString takeColor(QStringList& words)
    {
        if (words.isEmpty())
            m_lexer.fail(QStringLiteral("the line ends too early"));
        QString color = words.takeFirst();
        bool isNumber = false;
        static_cast<void>(color.toDouble(&isNumber));
        for (int i = 0; i < 2 && isNumber && !words.isEmpty(); ++i)
            color += QLatin1Char(' ') + words.takeFirst();
        return color;
    }

    Point readPoint()
    {
        const double x = m_lexer.length();
        return {x, m_diagram.bounds.height - m_lexer.length()};
    }

    void readNode()
    {
        Block block;
        block.id = m_lexer.word();
        const Point center = readPoint();
        const double width = m_lexer.length(), height = m_lexer.length();
        block.frame = {center.x - width / 2, center.y - height / 2, width, height};
        const QString label = m_lexer.word();
        const bool markup = m_lexer.wasAngled();
        const QString style = m_lexer.word(), shape = m_lexer.word();
        QStringList words = m_lexer.rest();
        const QString color = takeColor(words), fill = takeColor(words);
        expectNoMore(words);
        if (!hasStyle(style, "invis")) {
            drawOutline(block, style, shape, color, fill);
            if (shape != QLatin1String("point"))
                drawLabel(block, label, markup, shape);
        }
        m_blocks.insert(block.id, static_cast<int>(m_diagram.blocks.size()));
        m_diagram.blocks.push_back(std::move(block));
    }

    void drawOutline(Block& block, const QString& style, const QString& shape, const QString& color,
                     const QString& fill)
    {
        const bool point = shape == QLatin1String("point");
        m_line = lineStyleOf(style, color);
        block.drawing.figures = nodeShape(shape, block.frame, hasStyle(style, "rounded"));
        for (Figure& figure : block.drawing.figures)
            figure.line = m_line;
        if (isFilled(style, shape) && !block.drawing.figures.empty())
            block.drawing.figures.front().fill = FillStyle{colorOf(point ? color : fill), {}};
    }

    void drawLabel(Block& block, const QString& label, bool markup, const QString& shape)
    {
        const bool record = shape.endsWith(QLatin1String("record")) && !markup;
        Drawing text;
        if (record)
            text = recordFields(label, block.frame, m_line, {});
        else
            text.texts = placeLines(linesOf(label, markup), block.frame, {});
        for (Figure& figure : text.figures)
            block.drawing.figures.push_back(std::move(figure));
        block.drawing.texts = std::move(text.texts);
    }

    int readEnd()
    {
        const QString name = m_lexer.word();
        auto found = m_blocks.constFind(name);
        if (found == m_blocks.constEnd()) // "name:port"
            found = m_blocks.constFind(name.left(name.lastIndexOf(QLatin1Char(':'))));
        if (found == m_blocks.constEnd())
            m_lexer.fail(QStringLiteral("there is no node \"%1\"").arg(name));
        return *found;
    }

    void readEdge()
    {
        Connector connector;
        connector.tail = readEnd();
        connector.head = readEnd();
        connector.id =
            blockAt(connector.tail).id + QStringLiteral(" -> ") + blockAt(connector.head).id;
        Figure curve{Outline::Bezier, {}, {}, {}};
        for (int left = m_lexer.count(mostPoints); left > 0; --left)
            curve.points.push_back(readPoint());
        if (curve.points.size() % 3 != 1 || curve.points.size() < 4)
            m_lexer.fail(QStringLiteral("%1 points make no curve").arg(curve.points.size()));
        const QString first = m_lexer.word();
        const bool markup = m_lexer.wasAngled();
        QStringList words = m_lexer.rest();
        words.prepend(first);
        if (words.size() >= wordsOfLabel + 2)
            takeLabel(connector, words, markup);
        const QString style = words.takeFirst();
        const QString color = takeColor(words);
        expectNoMore(words);
        if (hasStyle(style, "invis"))
            hide(connector, curve);
        else
            drawLine(connector, std::move(curve), lineStyleOf(style, color));
        m_diagram.connectors.push_back(std::move(connector));
    }

    const Block& blockAt(int index) const
    {
        return m_diagram.blocks[static_cast<std::size_t>(index)];
    }

    void takeLabel(Connector& connector, QStringList& words, bool markup)
    {
        const QString label = words.takeFirst();
        const double x = m_lexer.toLength(words.takeFirst());
        const double y = m_diagram.bounds.height - m_lexer.toLength(words.takeFirst());
        const std::vector<LabelLine> lines = linesOf(label, markup);
        const double height = static_cast<double>(lines.size()) * 20;
        connector.labels.texts = placeLines(lines, {x, y - height / 2, 0, height}, {});
        for (TextPiece& piece : connector.labels.texts) {
            piece.align = Align::Center; // its room is not known
            piece.anchor.x = x;
            piece.width = 0;
        }
    }

    static void hide(Connector& connector, const Figure& curve)
    {
        connector.hidden = true;
        connector.labels = {};
        connector.lines = splitIntoRuns(curve);
    }

    void drawLine(Connector& connector, Figure curve, const LineStyle& line)
    {
        curve.line = line;
        const Points& p = curve.points;
        const std::size_t last = p.size() - 1;
        connector.headEnding =
            endingAt(blockAt(connector.head), p[last],
                     directionOf({p[last], p[last - 1], p[last - 2], p[last - 3]}), line);
        connector.tailEnding =
            endingAt(blockAt(connector.tail), p[0], directionOf({p[0], p[1], p[2], p[3]}), line);
        connector.lines = splitIntoRuns(curve);
    }

    /// Where a curve is heading at its end; its points come end first. The zero vector when they
    /// all coincide.
    static Point directionOf(const Points& fromEnd)
    {
        for (const Point& before : fromEnd) {
            const double dx = fromEnd[0].x - before.x, dy = fromEnd[0].y - before.y;
            const double length = std::hypot(dx, dy);
            if (length > 0.01)
                return {dx / length, dy / length};
        }
        return {};
    }

    static std::optional<Ending> endingAt(const Block& block, const Point& end,
                                          const Point& direction, const LineStyle& line)
    {
        const Point tip{end.x + direction.x * headLength, end.y + direction.y * headLength};
        if (distanceTo(block, end) < shortestGap || distanceTo(block, tip) > shortestGap)
            return {};
        const Point side{-direction.y * headHalfWidth, direction.x * headHalfWidth};
        const Figure head{Outline::Polygon,
                          {tip, {end.x + side.x, end.y + side.y}, {end.x - side.x, end.y - side.y}},
                          FillStyle{line.color, {}},
                          LineStyle{line.color, line.width, Dash::Solid}};
        return Ending{QStringLiteral("normal"), {head}, tip, direction, headLength, true};
    }

    PlainLexer m_lexer;
    Diagram m_diagram;
    QHash<QString, int> m_blocks;
    LineStyle m_line;
};

} // namespace

Diagram readPlain(const QString& file, const QByteArray& utf8)
{
    return PlainReader(file, utf8).read();
}

} // namespace TovaView
