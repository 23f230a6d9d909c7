#include "label.h"

#include <QRegularExpression>

#include <algorithm>

namespace TovaView {
namespace {

constexpr double baseline = 0.92; ///< from the top of a line, of the font's size
constexpr double sideMargin = 8;

struct Entity {
    const char* name;
    char16_t code;
};

constexpr Entity entities[] = {
    {"amp", u'&'},         {"lt", u'<'},          {"gt", u'>'},          {"quot", u'"'},
    {"apos", u'\''},       {"nbsp", u'\u00a0'},   {"copy", u'\u00a9'},   {"deg", u'\u00b0'},
    {"micro", u'\u00b5'},  {"auml", u'\u00e4'},   {"ouml", u'\u00f6'},   {"uuml", u'\u00fc'},
    {"szlig", u'\u00df'},  {"eacute", u'\u00e9'}, {"egrave", u'\u00e8'}, {"agrave", u'\u00e0'},
    {"ccedil", u'\u00e7'}, {"ntilde", u'\u00f1'}, {"alpha", u'\u03b1'},  {"beta", u'\u03b2'},
    {"gamma", u'\u03b3'},  {"delta", u'\u03b4'},  {"lambda", u'\u03bb'}, {"mu", u'\u03bc'},
    {"pi", u'\u03c0'},     {"sigma", u'\u03c3'},  {"omega", u'\u03c9'},  {"rarr", u'\u2192'},
    {"larr", u'\u2190'},   {"ndash", u'\u2013'},  {"mdash", u'\u2014'},  {"bull", u'\u2022'},
    {"hellip", u'\u2026'},
};

/// Empty when it is no entity that we know.
QString resolve(const QString& name)
{
    if (name.startsWith(QLatin1Char('#'))) {
        const bool hex = name.mid(1, 1).toLower() == QLatin1String("x");
        bool valid = false;
        const uint code = name.mid(hex ? 2 : 1).toUInt(&valid, hex ? 16 : 10);
        const bool usable = valid && code >= 0x20 && code <= 0x10ffff && (code & ~0x7ffu) != 0xd800;
        return usable ? QString::fromUcs4(&code, 1) : QString();
    }
    for (const Entity& entity : entities) {
        if (name == QLatin1String(entity.name))
            return QString(QChar(entity.code));
    }
    return {};
}

QString withEntities(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("&(#?\\w{1,8});"));
    QString result;
    int from = 0;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString resolved = resolve(match.captured(1));
        result += text.mid(from, match.capturedStart() - from);
        result += resolved.isEmpty() ? match.captured() : resolved;
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

} // namespace

std::vector<LabelLine> labelLines(const QString& label)
{
    std::vector<LabelLine> lines;
    QString line;
    const auto finish = [&](Align align) {
        lines.push_back({withEntities(line), align});
        line.clear();
    };
    const QString text = label.left(longestLabel);
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\n')) {
            finish(Align::Center);
        } else if (c == QLatin1Char('\\') && i + 1 < text.size()) {
            const QChar next = text[++i];
            if (next == QLatin1Char('n') || next == QLatin1Char('l') || next == QLatin1Char('r'))
                finish(next == QLatin1Char('l')   ? Align::Left
                       : next == QLatin1Char('r') ? Align::Right
                                                  : Align::Center);
            else
                line += next;
        } else {
            line += c;
        }
    }
    if (!line.isEmpty())
        finish(Align::Center);
    return lines;
}

std::vector<LabelLine> markupLines(const QString& label)
{
    static const QRegularExpression breaks(QStringLiteral("<\\s*(br|/tr|/table|hr)\\b[^>]*>"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression cells(QStringLiteral("</\\s*td\\s*>"),
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    QString text = label.left(longestLabel);
    // White space of the text itself means a blank; only then may breaks become line ends.
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    text.replace(breaks, QStringLiteral("\n")).replace(cells, QStringLiteral("  ")).remove(tags);
    std::vector<LabelLine> lines;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            lines.push_back({withEntities(line.simplified()), Align::Center});
    }
    return lines;
}

std::vector<TextPiece> placeLines(const std::vector<LabelLine>& lines, const Rect& box,
                                  const TextStyle& style)
{
    std::vector<TextPiece> pieces;
    if (lines.empty())
        return pieces;
    const double count = static_cast<double>(lines.size());
    const double size = std::min(style.size, std::max(box.height, 1.0) / (count * lineHeight));
    const double margin = std::min(sideMargin, box.width / 8);
    double top = box.center().y - count * size * lineHeight / 2;
    for (const LabelLine& line : lines) {
        TextPiece piece;
        piece.text = line.text;
        piece.align = line.align;
        piece.anchor = {line.align == Align::Left    ? box.x + margin
                        : line.align == Align::Right ? box.right() - margin
                                                     : box.center().x,
                        top + size * baseline};
        piece.width = std::max(1.0, box.width - 2 * margin);
        piece.family = style.family;
        piece.size = size;
        piece.color = style.color;
        if (!line.text.trimmed().isEmpty())
            pieces.push_back(std::move(piece));
        top += size * lineHeight;
    }
    return pieces;
}

} // namespace TovaView
