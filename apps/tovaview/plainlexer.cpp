#include "plainlexer.h"

#include "fileerror.h"

#include <cmath>

namespace TovaView {
namespace {

constexpr double pointsPerInch = 72;
constexpr double largestNumber = 1e6;

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\r');
}

} // namespace

PlainLexer::PlainLexer(const QString& file, const QByteArray& utf8)
    : m_file(file), m_text(QString::fromUtf8(utf8))
{}

bool PlainLexer::nextStatement()
{
    for (skipBlanks(); m_at < m_text.size() && m_text[m_at] == QLatin1Char('\n'); skipBlanks()) {
        ++m_at;
        ++m_line;
    }
    return m_at < m_text.size();
}

bool PlainLexer::atLineEnd()
{
    skipBlanks();
    return m_at >= m_text.size() || m_text[m_at] == QLatin1Char('\n');
}

void PlainLexer::skipBlanks()
{
    while (m_at < m_text.size() && isBlank(m_text[m_at]))
        ++m_at;
}

QString PlainLexer::word()
{
    if (atLineEnd())
        fail(QStringLiteral("the line ends too early"));
    m_angled = m_text[m_at] == QLatin1Char('<');
    if (m_angled)
        return angled();
    if (m_text[m_at] == QLatin1Char('"'))
        return quoted();
    const int from = m_at;
    while (m_at < m_text.size() && !isBlank(m_text[m_at]) && m_text[m_at] != QLatin1Char('\n'))
        ++m_at;
    return m_text.mid(from, m_at - from);
}

QString PlainLexer::quoted()
{
    const int startLine = m_line;
    QString word;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        const QChar c = m_text[m_at];
        const QChar next = m_at + 1 < m_text.size() ? m_text[m_at + 1] : QChar();
        m_line += c == QLatin1Char('\n');
        if (c == QLatin1Char('"')) {
            ++m_at;
            return word;
        }
        if (c == QLatin1Char('\\') && (next == QLatin1Char('"') || next == QLatin1Char('\n'))) {
            // Other escapes belong to the label; a line end here only wraps the text.
            ++m_at;
            m_line += next == QLatin1Char('\n');
            word += next == QLatin1Char('"') ? QString(next) : QString();
        } else {
            word += c;
        }
    }
    m_line = startLine;
    fail(QStringLiteral("a quote is left open"));
}

QString PlainLexer::angled()
{
    const int from = m_at, startLine = m_line;
    int depth = 0;
    for (; m_at < m_text.size(); ++m_at) {
        const QChar c = m_text[m_at];
        m_line += c == QLatin1Char('\n');
        depth += (c == QLatin1Char('<')) - (c == QLatin1Char('>'));
        if (depth == 0) {
            ++m_at;
            return m_text.mid(from + 1, m_at - from - 2);
        }
    }
    m_line = startLine;
    fail(QStringLiteral("an angle bracket is left open"));
}

double PlainLexer::toNumber(const QString& word) const
{
    bool valid = false;
    const double value = word.toDouble(&valid);
    if (!valid || !(std::abs(value) <= largestNumber))
        fail(QStringLiteral("\"%1\" is not a usable number").arg(word));
    return value;
}

double PlainLexer::toLength(const QString& word) const
{
    return toNumber(word) * pointsPerInch;
}

int PlainLexer::count(int most)
{
    const double value = toNumber(word());
    if (value < 0 || value > most || value != std::floor(value))
        fail(QStringLiteral("%1 is not a usable count").arg(value));
    return static_cast<int>(value);
}

QStringList PlainLexer::rest()
{
    QStringList words;
    while (!atLineEnd())
        words << word();
    return words;
}

void PlainLexer::fail(const QString& reason) const
{
    throw FileError(m_file, m_line, reason);
}

} // namespace TovaView
