#include "nodes/textcontent.h"

#include "tova/nodes/geometry/limits.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr char utf8Ellipsis[] = "\xe2\x80\xa6";
constexpr QChar ellipsis(0x2026);
constexpr char32_t tab = '\t';

bool isAscii(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

std::string repaired(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).toStdString();
}

/// The first `size` bytes, less the begin of a character that does not fit whole.
std::string prefixOf(const std::string& text, std::size_t size)
{
    while (size > 0 && (text[size] & 0xc0) == 0x80)
        --size;
    return text.substr(0, size);
}

std::string cut(const std::string& text)
{
    if (text.size() <= Limits::textBytes)
        return text;
    return prefixOf(text, Limits::textBytes - (sizeof utf8Ellipsis - 1)) + utf8Ellipsis;
}

bool endsLine(QChar c)
{
    switch (c.unicode()) {
    case u'\n':
    case u'\v':
    case u'\f':
    case u'\r':
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
    case 0x85:
        return true;
    default:
        return false;
    }
}

bool isShowable(char32_t c)
{
    const auto category = QChar::category(c);
    return c == tab || (category != QChar::Other_Control && category != QChar::Other_NotAssigned);
}

/// What no font has a glyph for as U+FFFD: to search all fonts for each takes seconds.
QString showable(const QString& line)
{
    auto letters = line.toUcs4();
    bool isChanged = false;
    for (uint& letter : letters) {
        if (!isShowable(letter)) {
            letter = QChar::ReplacementCharacter;
            isChanged = true;
        }
    }
    return isChanged ? QString::fromUcs4(letters.constData(), letters.size()) : line;
}

QString shortened(const QString& line)
{
    if (line.size() <= Limits::textRun)
        return line;
    int size = Limits::textRun - 1;
    if (line[size].isLowSurrogate())
        --size;
    return line.left(size) + ellipsis;
}

} // namespace

std::string acceptedText(const std::string& text)
{
    // A repair can make text three times as long, so it is cut after it; and before, since a repair
    // takes time.
    const std::string bounded = cut(text);
    return isAscii(bounded) ? bounded : cut(repaired(bounded));
}

std::vector<QString> linesOf(const std::string& text)
{
    const QString all = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    std::vector<QString> lines;
    int start = 0;
    for (int i = 0; i <= all.size(); ++i) {
        if (i < all.size() && !endsLine(all[i]))
            continue;
        if (static_cast<int>(lines.size()) == Limits::textLines) {
            lines.back() = ellipsis;
            break;
        }
        lines.push_back(showable(shortened(all.mid(start, i - start))));
        if (i + 1 < all.size() && all[i] == u'\r' && all[i + 1] == u'\n')
            ++i;
        start = i + 1;
    }
    return lines;
}

} // namespace Tova2
