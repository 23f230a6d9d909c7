#include "xdotreader.h"

#include "fontfamily.h"

#include <QColor>
#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace TovaView {
namespace {

// Beyond this a coordinate is a fault of the layout; painting needs room for sums and products
// below infinity.
constexpr double largestCoordinate = 1e7;
constexpr double largestFont = 1000;
constexpr double raisedSize = 0.62, raisedBy = 0.35, loweredBy = 0.15;

enum FontFlag {
    Bold = 1,
    Italic = 2,
    Underline = 4,
    Superscript = 8,
    Subscript = 16,
    StrikeOut = 32
};

bool readNumber(const QJsonValue& value, double& number)
{
    number = value.toDouble(std::nan(""));
    return std::abs(number) <= largestCoordinate;
}

/// "#rrggbb" or "#rrggbbaa"; black when it is neither.
Vetra::Color readColor(const QString& text)
{
    bool isNumber = false;
    const quint32 value = text.mid(1).toUInt(&isNumber, 16);
    if (!isNumber || !text.startsWith(QLatin1Char('#')))
        return {};
    if (text.size() == 9)
        return Vetra::Color::fromPacked(value >> 8 | value << 24);
    return Vetra::Color::fromPacked(0xff000000 | value);
}

/// The state that a list of operations changes as it goes, and what it has drawn.
class Replay {
public:
    Replay(double top, const QHash<QString, QString>& families, Drawing& drawing)
        : m_top(top), m_families(families), m_drawing(drawing)
    {}

    void run(const QJsonObject& operation)
    {
        const QString name = operation[QLatin1String("op")].toString();
        if (name.size() != 1)
            return;
        switch (name.front().unicode()) {
        case 'c':
            m_line.color = readColor(operation[QLatin1String("color")].toString());
            break;
        case 'C':
            m_fill = readFill(operation);
            break;
        case 'S':
            setStyle(operation[QLatin1String("style")].toString());
            break;
        case 'F':
            setFont(operation);
            break;
        case 't':
            m_flags = operation[QLatin1String("fontchar")].toInt();
            break;
        case 'T':
            addText(operation);
            break;
        case 'e':
        case 'E':
            addEllipse(operation, name == QLatin1String("E"));
            break;
        case 'p':
        case 'P':
            addFigure(operation, Outline::Polygon, name == QLatin1String("P"));
            break;
        case 'b':
        case 'B':
            addFigure(operation, Outline::Bezier, name == QLatin1String("B"));
            break;
        case 'L':
            addFigure(operation, Outline::Polyline, false);
            break;
        default: // pictures: dot was told to read none
            break;
        }
    }

private:
    bool readPoint(const QJsonValue& value, Point& point) const
    {
        const QJsonArray pair = value.toArray();
        if (!readNumber(pair.at(0), point.x) || !readNumber(pair.at(1), point.y))
            return false;
        point.y = m_top - point.y;
        return true;
    }

    FillStyle readFill(const QJsonObject& operation) const
    {
        FillStyle fill{readColor(operation[QLatin1String("color")].toString()), {}};
        const QString kind = operation[QLatin1String("grad")].toString();
        const QJsonArray p0 = operation[QLatin1String("p0")].toArray();
        const QJsonArray p1 = operation[QLatin1String("p1")].toArray();
        GradientFill gradient;
        gradient.radial = kind == QLatin1String("radial");
        if ((!gradient.radial && kind != QLatin1String("linear")) ||
            !readPoint(p0, gradient.from) || !readPoint(p1, gradient.to))
            return fill;
        gradient.fromRadius = p0.at(2).toDouble();
        gradient.toRadius = p1.at(2).toDouble();
        for (const QJsonValue stop : operation[QLatin1String("stops")].toArray())
            gradient.stops.push_back({qBound(0.0, stop[QLatin1String("frac")].toDouble(), 1.0),
                                      readColor(stop[QLatin1String("color")].toString())});
        if (!gradient.stops.empty()) {
            fill.color = gradient.stops.front().color;
            fill.gradient = std::move(gradient);
        }
        return fill;
    }

    void setStyle(const QString& style)
    {
        if (style == QLatin1String("dashed"))
            m_line.dash = Dash::Dashed;
        else if (style == QLatin1String("dotted"))
            m_line.dash = Dash::Dotted;
        else if (style == QLatin1String("solid"))
            m_line.dash = Dash::Solid;
        else if (style == QLatin1String("bold"))
            m_line.width = 2;
        else if (style.startsWith(QLatin1String("setlinewidth(")))
            m_line.width = qBound(0.0, style.mid(13).chopped(1).toDouble(), largestFont);
    }

    void setFont(const QJsonObject& operation)
    {
        const QString face = operation[QLatin1String("face")].toString();
        m_face = faceOf(face);
        const auto found = m_families.constFind(face);
        if (found != m_families.constEnd())
            m_face.family = *found;
        m_size = qBound(0.0, operation[QLatin1String("size")].toDouble(), largestFont);
    }

    void addText(const QJsonObject& operation)
    {
        TextPiece text;
        text.text = operation[QLatin1String("text")].toString();
        if (!readPoint(operation[QLatin1String("pt")], text.anchor) ||
            text.text.trimmed().isEmpty() || !(m_size > 0))
            return;
        const QString align = operation[QLatin1String("align")].toString();
        text.align = align == QLatin1String("l")   ? Align::Left
                     : align == QLatin1String("r") ? Align::Right
                                                   : Align::Center;
        text.width = qMax(0.0, operation[QLatin1String("width")].toDouble());
        text.family = m_face.family;
        text.size = m_size;
        text.color = m_line.color;
        applyFlags(text);
        m_drawing.texts.push_back(std::move(text));
    }

    void applyFlags(TextPiece& text) const
    {
        text.bold = m_face.bold || (m_flags & Bold);
        text.italic = m_face.italic || (m_flags & Italic);
        text.underline = m_flags & Underline;
        text.strikeOut = m_flags & StrikeOut;
        if (m_flags & Superscript)
            text.anchor.y -= raisedBy * m_size;
        else if (m_flags & Subscript)
            text.anchor.y += loweredBy * m_size;
        if (m_flags & (Superscript | Subscript))
            text.size *= raisedSize;
    }

    void addEllipse(const QJsonObject& operation, bool filled)
    {
        const QJsonArray rect = operation[QLatin1String("rect")].toArray();
        Point center;
        double rx = 0, ry = 0;
        if (!readPoint(rect, center) || !readNumber(rect.at(2), rx) || !readNumber(rect.at(3), ry))
            return;
        add(Outline::Ellipse, {{center.x - rx, center.y - ry}, {center.x + rx, center.y + ry}},
            filled);
    }

    void addFigure(const QJsonObject& operation, Outline outline, bool filled)
    {
        Points points;
        for (const QJsonValue value : operation[QLatin1String("points")].toArray()) {
            Point point;
            if (!readPoint(value, point))
                return;
            points.push_back(point);
        }
        if (points.size() < 2 || (outline == Outline::Bezier && points.size() % 3 != 1))
            return;
        add(outline, std::move(points), filled);
    }

    void add(Outline outline, Points points, bool filled)
    {
        Figure figure{outline, std::move(points), {}, {}};
        if (filled && (m_fill.gradient || m_fill.color.alpha() > 0))
            figure.fill = m_fill;
        if (m_line.color.alpha() > 0 && m_line.width > 0)
            figure.line = m_line;
        if (figure.fill || figure.line)
            m_drawing.figures.push_back(std::move(figure));
    }

    double m_top;
    const QHash<QString, QString>& m_families;
    Drawing& m_drawing;
    LineStyle m_line;
    FillStyle m_fill;
    FontFace m_face = faceOf({});
    double m_size = 14;
    int m_flags = 0;
};

} // namespace

XdotReader::XdotReader(double top, const QHash<QString, QString>& families)
    : m_top(top), m_families(families)
{}

void XdotReader::read(const QJsonArray& operations, Drawing& drawing) const
{
    Replay replay(m_top, m_families, drawing);
    for (const QJsonValue operation : operations)
        replay.run(operation.toObject());
}

} // namespace TovaView
