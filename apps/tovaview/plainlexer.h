#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TovaView {

/// Words of Graphviz plain text. A word is bare, "quoted" or <angled>; the last two may hold blanks
/// and line ends.
class PlainLexer {
public:
    /// Errors name `file`.
    PlainLexer(const QString& file, const QByteArray& utf8);

    /// Skips line ends; false at the end of the text.
    bool nextStatement();
    bool atLineEnd();
    /// The next word of this statement. Throws FileError when there is none, or a quote is left
    /// open.
    QString word();
    /// Whether the last word stood in angle brackets.
    bool wasAngled() const { return m_angled; }
    /// A finite number of a sane size, in points: the text counts in inches.
    double length() { return toLength(word()); }
    double toLength(const QString& word) const;
    int count(int most);
    /// The words up to the end of the line.
    QStringList rest();
    [[noreturn]] void fail(const QString& reason) const;

private:
    void skipBlanks();
    QString quoted();
    QString angled();
    double toNumber(const QString& word) const;

    const QString& m_file;
    QString m_text;
    int m_at = 0;
    int m_line = 1;
    bool m_angled = false;
};

} // namespace TovaView
