#include "fontfamily.h"

#include <QRegularExpression>

namespace TovaView {
namespace {

bool mentions(const QString& style, const char* word)
{
    return style.contains(QLatin1String(word), Qt::CaseInsensitive);
}

bool isStyle(const QString& suffix)
{
    for (const char* word :
         {"bold", "italic", "oblique", "roman", "regular", "book", "demi", "light"}) {
        if (mentions(suffix, word))
            return true;
    }
    return false;
}

} // namespace

FontFace faceOf(const QString& name)
{
    // Only the first of "Arial,Helvetica" is sure to be what the diagram's author saw.
    QString family = name.section(QLatin1Char(','), 0, 0).trimmed();
    QString style;
    static const QRegularExpression separator(QStringLiteral("[- ]"));
    for (int at = family.lastIndexOf(separator); at > 0 && isStyle(family.mid(at + 1));
         at = family.lastIndexOf(separator)) {
        style += family.mid(at + 1);
        family = family.left(at);
    }
    return {family.isEmpty() ? QStringLiteral("Times") : family,
            mentions(style, "bold") || mentions(style, "demi"),
            mentions(style, "italic") || mentions(style, "oblique")};
}

} // namespace TovaView
