#include "fileerror.h"

namespace TovaView {
namespace {

constexpr int longestLine = 300;

QString compose(const QString& file, int line, const QString& reason)
{
    const QString where = line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : file;
    return oneLine(where) + QStringLiteral(": ") + oneLine(reason);
}

} // namespace

FileError::FileError(const QString& file, int line, const QString& reason)
    : std::runtime_error(compose(file, line, reason).toStdString())
    , m_message(compose(file, line, reason))
{}

QString oneLine(const QString& text)
{
    QString line;
    for (const QChar c : text.left(longestLine + 1))
        line += c.isPrint() || c.isSurrogate() ? c : QLatin1Char(' ');
    line = line.simplified();
    if (line.size() > longestLine)
        line = line.left(longestLine) + QStringLiteral("...");
    return line;
}

} // namespace TovaView
