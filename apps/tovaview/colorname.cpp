#include "colorname.h"

#include <QColor>
#include <QRegularExpression>

namespace TovaView {
namespace {

struct Named {
    const char* name;
    quint32 packed;
};

/// Where Graphviz differs from the names of SVG, which Qt knows.
constexpr Named differing[] = {
    {"green", 0xff00ff00},    {"gray", 0xffc0c0c0},           {"grey", 0xffc0c0c0},
    {"maroon", 0xffb03060},   {"purple", 0xffa020f0},         {"transparent", 0x00ffffff},
    {"crimson", 0xffdc143c},  {"lightgoldenrod", 0xffeedd82}, {"lightslateblue", 0xff8470ff},
    {"navyblue", 0xff000080}, {"violetred", 0xffd02090},      {"mediumforestgreen", 0xff6b8e23},
};

Vetra::Color fromQt(const QColor& color)
{
    return Vetra::Color::fromPacked(color.rgba());
}

/// "red1" to "red4" are the full colour and three darker ones; "gray50" is a percentage.
QColor numbered(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("^([a-z]+)(\\d{1,3})$"));
    const auto match = pattern.match(name);
    if (!match.hasMatch())
        return {};
    const int number = match.captured(2).toInt();
    const QString base = match.captured(1);
    if ((base == QLatin1String("gray") || base == QLatin1String("grey")) && number <= 100) {
        const int level = qRound(number * 2.55);
        return {level, level, level};
    }
    constexpr double strengths[] = {1, 0.932, 0.804, 0.545};
    if (number < 1 || number > 4)
        return {};
    const Vetra::Color full = colorOf(base);
    const double strength = strengths[number - 1];
    return {qRound(full.red() * strength), qRound(full.green() * strength),
            qRound(full.blue() * strength)};
}

QColor fromHsv(const QString& text)
{
    static const QRegularExpression separator(QStringLiteral("[\\s,]+"));
    const QStringList parts = text.split(separator, Qt::SkipEmptyParts);
    double n[3] = {};
    for (int i = 0; i < 3; ++i) {
        bool valid = false;
        n[i] = parts.size() == 3 ? parts[i].toDouble(&valid) : 0;
        if (!valid || !(n[i] >= 0 && n[i] <= 1))
            return {};
    }
    return QColor::fromHsvF(n[0], n[1], n[2]);
}

QColor fromHex(const QString& text)
{
    bool valid = false;
    const quint32 value = text.mid(1).toUInt(&valid, 16);
    if (!valid || (text.size() != 7 && text.size() != 9))
        return {};
    return QColor::fromRgba(text.size() == 9 ? value >> 8 | value << 24 : 0xff000000 | value);
}

} // namespace

std::optional<Vetra::Color> findColor(const QString& text)
{
    const QString first = text.section(QLatin1Char(':'), 0, 0).section(QLatin1Char(';'), 0, 0);
    // "/scheme/name" and "//name": without the scheme's table the name alone is the best guess.
    const QString name = first.section(QLatin1Char('/'), -1).trimmed().toLower();
    for (const Named& entry : differing) {
        if (name == QLatin1String(entry.name))
            return Vetra::Color::fromPacked(entry.packed);
    }
    QColor color = name.startsWith(QLatin1Char('#')) ? fromHex(name) : numbered(name);
    if (!color.isValid())
        color = fromHsv(name);
    if (!color.isValid() && !name.startsWith(QLatin1Char('#')))
        color.setNamedColor(name);
    return color.isValid() ? std::optional(fromQt(color)) : std::nullopt;
}

Vetra::Color colorOf(const QString& text)
{
    return findColor(text).value_or(Vetra::Color());
}

} // namespace TovaView
