#include "nodes/textlayout.h"

#include "nodes/textcontent.h"

#include "host/diagnosticscounter.h"
#include "vetra/qt.h"

#include <QColor>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace Tova2 {

namespace {

/// Bounds of the em, in pixels, at which text is laid out. The toolkit keeps advances and outlines
/// in 64ths of a pixel, and lengths up to 2^25 of them: enough for a line of `Limits::textRun`.
constexpr double smallestReference = 128;
constexpr double largestReference = 2 * smallestReference;
constexpr int emsBetweenTabs = 4;
/// The toolkit's own bound on a line's width.
constexpr double widestLine = 8'388'607;

/// A font's size times a power of two. Not one for all sizes: the toolkit keeps glyphs for ten
/// scales of a font's size, too few for a diagram with many sizes of text.
int referenceSizeOf(const Vetra::Font& font)
{
    double size = std::max(font.size(), 1e-3);
    while (size < smallestReference)
        size *= 2;
    while (size >= largestReference)
        size /= 2;
    return static_cast<int>(size);
}

QFont referenceFont(const Vetra::Font& font, int size)
{
    QFont result = Vetra::toQt(font);
    result.setPixelSize(size);
    result.setHintingPreference(QFont::PreferNoHinting);
    // Coloured edges would be right on one kind of screen only.
    result.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return result;
}

QTextOption lineOption(int referenceSize)
{
    // Absolute: lines that are written from right to left are aligned by us as well.
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabStopDistance(emsBetweenTabs * referenceSize);
    return option;
}

struct Line {
    QList<QGlyphRun> runs;
    QSizeF size;
    double baseline = 0; ///< below the line's top
};

Line layOut(const QString& text, const QFont& font, const QTextOption& option)
{
    if (text.isEmpty())
        return {{}, {0, QFontMetricsF(font).height()}};
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLeadingIncluded(true);
    line.setLineWidth(widestLine);
    layout.endLayout();
    return {layout.glyphRuns(), {line.naturalTextWidth(), line.height()}, line.ascent()};
}

std::vector<Line> layOutAll(const std::string& text, const QFont& font)
{
    const auto option = lineOption(font.pixelSize());
    std::vector<Line> lines;
    for (const QString& line : linesOf(text))
        lines.push_back(layOut(line, font, option));
    return lines;
}

double startOf(const Line& line, double width, HorizontalAlignment alignment)
{
    switch (alignment) {
    case HorizontalAlignment::Middle:
        return (width - line.size.width()) / 2;
    case HorizontalAlignment::Right:
        return width - line.size.width();
    default:
        return 0;
    }
}

/// Of a run that is underlined.
QRectF underlineOf(const QGlyphRun& run)
{
    const QRawFont font = run.rawFont();
    const QRectF extent = run.boundingRect();
    const double thickness = std::max(font.lineThickness(), 1.0);
    const double baseline = run.positions().first().y();
    return {extent.left(), baseline + font.underlinePosition() - thickness / 2, extent.width(),
            thickness};
}

QGlyphRun movedTo(const QPointF& start, const QGlyphRun& run)
{
    QGlyphRun result = run;
    auto positions = run.positions();
    for (QPointF& position : positions)
        position += start;
    result.setPositions(positions);
    return result;
}

void addOutlines(QPainterPath& path, const QGlyphRun& run)
{
    const QRawFont font = run.rawFont();
    const auto glyphs = run.glyphIndexes();
    const auto positions = run.positions();
    for (int i = 0; i < glyphs.size(); ++i)
        path.addPath(font.pathForGlyph(glyphs[i]).translated(positions[i]));
}

} // namespace

TextLayout::TextLayout(const std::string& text, const Vetra::Font& font,
                       HorizontalAlignment alignment)
{
    static auto& made =
        Host::DiagnosticsCounter::counter("Node:Text layouts made", Host::CounterKind::Total);
    made.increment();
    const int reference = referenceSizeOf(font);
    m_scale = font.size() / reference;
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()) || text.empty())
        return;
    const QFont used = referenceFont(font, reference);
    const double xHeight = QFontMetricsF(used).xHeight();
    const auto lines = layOutAll(text, used);
    QSizeF all;
    for (const Line& line : lines)
        all.setWidth(std::max(all.width(), line.size.width()));
    all.setHeight(0);
    for (const Line& line : lines) {
        const QPointF start(startOf(line, all.width(), alignment), all.height());
        for (const QGlyphRun& run : line.runs)
            addRun(run, start);
        if (!line.runs.isEmpty())
            m_bands.emplace_back((start + QPointF(0, line.baseline - xHeight)) * m_scale,
                                 QSizeF(line.size.width(), xHeight) * m_scale);
        all.setHeight(start.y() + line.size.height());
    }
    measure(all);
}

void TextLayout::addRun(const QGlyphRun& run, const QPointF& start)
{
    if (run.positions().isEmpty())
        return;
    m_runs.push_back(start.isNull() ? run : movedTo(start, run));
    // The toolkit misplaces the underlines of scaled glyphs, so they are drawn apart.
    if (run.underline()) {
        m_underlines.push_back(underlineOf(m_runs.back()));
        m_runs.back().setUnderline(false);
    }
}

void TextLayout::measure(const QSizeF& lines)
{
    QRectF ink(QPointF(), lines);
    for (const QGlyphRun& run : m_runs)
        ink |= run.boundingRect();
    for (const QRectF& underline : m_underlines)
        ink |= underline;
    m_size = lines * m_scale;
    m_inkRect = {ink.topLeft() * m_scale, ink.size() * m_scale};
}

const QPainterPath& TextLayout::outlines() const
{
    if (m_outlines.isEmpty()) {
        m_outlines.setFillRule(Qt::WindingFill);
        for (const QGlyphRun& run : m_runs)
            addOutlines(m_outlines, run);
    }
    return m_outlines;
}

void TextLayout::draw(QPainter& painter, const QColor& color, const QTransform& toDevice) const
{
    painter.setWorldTransform(QTransform::fromScale(m_scale, m_scale) * toDevice);
    painter.setRenderHint(QPainter::Antialiasing);
    // The toolkit puts glyphs on whole rows of pixels: even along a line that lies level, jumping
    // along any other.
    if (toDevice.type() > QTransform::TxScale) {
        painter.fillPath(outlines(), color);
    } else {
        // A brush that spans boxes, left over from what was painted before, has the toolkit
        // misplace glyphs; and only a whole brush makes it look again.
        painter.setBrush(QBrush(Qt::NoBrush));
        painter.setPen(color);
        for (const QGlyphRun& run : m_runs)
            painter.drawGlyphRun({}, run);
    }
    for (const QRectF& underline : m_underlines)
        painter.fillRect(underline, color);
}

QPainterPath TextLayout::outline() const
{
    QPainterPath path = outlines();
    for (const QRectF& underline : m_underlines)
        path.addRect(underline);
    return QTransform::fromScale(m_scale, m_scale).map(path);
}

} // namespace Tova2
