#include "record.h"

#include <algorithm>

namespace TovaView {
namespace {

/// A record: a text, or fields side by side (in a field of fields one under the other, and so on).
struct Field {
    QString text;
    std::vector<Field> fields;
};

constexpr int deepestRecord = 64;
constexpr double textMargin = 8;

class RecordParser {
public:
    explicit RecordParser(const QString& text) : m_text(text.left(longestLabel)) {}

    /// False when braces do not match.
    bool parse(Field& root) { return parseList(root, 0) && m_at == m_text.size(); }

private:
    bool parseList(Field& parent, int depth)
    {
        if (depth > deepestRecord)
            return false;
        do {
            Field field;
            if (!parseField(field, depth))
                return false;
            parent.fields.push_back(std::move(field));
        } while (take(QLatin1Char('|')));
        return true;
    }

    bool parseField(Field& field, int depth)
    {
        for (; m_at < m_text.size(); ++m_at) {
            const QChar c = m_text[m_at];
            if (c == QLatin1Char('|') || c == QLatin1Char('}'))
                break;
            if (take(QLatin1Char('{'))) {
                if (!parseList(field, depth + 1) || m_at >= m_text.size())
                    return false;
            } else if (c == QLatin1Char('<')) { // the name of a port is not shown
                m_at = m_text.indexOf(QLatin1Char('>'), m_at);
                if (m_at < 0)
                    return false;
            } else if (c == QLatin1Char('\\') && m_at + 1 < m_text.size()) {
                field.text += m_text.mid(m_at++, 2);
            } else {
                field.text += c;
            }
        }
        field.text = field.text.trimmed();
        return true;
    }

    bool take(QChar c)
    {
        const bool found = m_at < m_text.size() && m_text[m_at] == c;
        m_at += found;
        return found;
    }

    QString m_text;
    int m_at = 0;
};

double widthGuess(const std::vector<LabelLine>& lines, double size)
{
    int longest = 0;
    for (const LabelLine& line : lines)
        longest = std::max(longest, line.text.size());
    return longest * size * 0.5 + 2 * textMargin;
}

struct Extent {
    double width = 0, height = 0;
};

Extent measure(const Field& field, bool across, const TextStyle& style)
{
    if (field.fields.empty()) {
        const auto lines = labelLines(field.text);
        const double rows = std::max<double>(1, static_cast<double>(lines.size()));
        return {widthGuess(lines, style.size), rows * style.size * lineHeight + textMargin};
    }
    Extent sum;
    for (const Field& part : field.fields) {
        const Extent extent = measure(part, !across, style);
        sum.width = across ? sum.width + extent.width : std::max(sum.width, extent.width);
        sum.height = across ? std::max(sum.height, extent.height) : sum.height + extent.height;
    }
    return sum;
}

void place(const Field& field, const Rect& box, bool across, const LineStyle& line,
           const TextStyle& style, Drawing& drawing)
{
    if (field.fields.empty()) {
        for (TextPiece& piece : placeLines(labelLines(field.text), box, style))
            drawing.texts.push_back(std::move(piece));
        return;
    }
    const Extent whole = measure(field, across, style);
    Rect rest = box;
    for (const Field& part : field.fields) {
        const Extent extent = measure(part, !across, style);
        Rect cell = rest;
        if (across)
            cell.width = box.width * extent.width / whole.width;
        else
            cell.height = box.height * extent.height / whole.height;
        place(part, cell, !across, line, style, drawing);
        if (&part != &field.fields.front())
            drawing.figures.push_back({Outline::Polyline,
                                       {cell.topLeft(), across ? Point{cell.x, cell.bottom()}
                                                               : Point{cell.right(), cell.y}},
                                       {},
                                       line});
        across ? rest.x = cell.right() : rest.y = cell.bottom();
    }
}

/// Plain text does not say whether the outermost fields lie side by side; the shape of the box
/// does.
bool liesAcross(const Field& root, const Rect& box, const TextStyle& style)
{
    const auto misfit = [&](const Extent& extent) {
        const double a = extent.width * box.height, b = extent.height * box.width;
        return std::max(a, b) / std::max(std::min(a, b), 1e-9);
    };
    return misfit(measure(root, true, style)) <= misfit(measure(root, false, style));
}

} // namespace

Drawing recordFields(const QString& label, const Rect& box, const LineStyle& line,
                     const TextStyle& style)
{
    Field root;
    if (!RecordParser(label).parse(root))
        root = {QString(), {Field{label, {}}}};
    Drawing drawing;
    place(root, box, liesAcross(root, box, style), line, style, drawing);
    return drawing;
}

} // namespace TovaView
