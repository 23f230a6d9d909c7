#include "dotlayout.h"

#include "fileerror.h"

#include <QRegularExpression>

#include <vector>

namespace TovaView {
namespace {

using Ending = DotResult::Ending;

struct Attempt {
    const char* name;
    QStringList options;
    bool quick; ///< places the blocks in another way than the attempts before it
};

std::vector<Attempt> attempts()
{
    const QString straight = QStringLiteral("-Gsplines=line");
    return {
        {"right-angled connectors", {QStringLiteral("-Gsplines=ortho")}, false},
        {"the file's own connectors", {}, false},
        {"straight connectors", {straight}, false},
        {"straight connectors and a rougher placement",
         {straight, QStringLiteral("-Gnslimit=1"), QStringLiteral("-Gnslimit1=1"),
          QStringLiteral("-Gmclimit=0.05")},
         true},
        {"straight connectors and a placement by forces",
         {straight, QStringLiteral("-Ksfdp"), QStringLiteral("-Goverlap=prism")},
         true},
    };
}

/// Whether the file says which connectors it wants; an option of the command line would win over
/// it. "true" is what generators write by habit, and says nothing.
bool asksForConnectors(const QByteArray& text)
{
    static const QRegularExpression wish(
        QStringLiteral("\\bsplines\\s*=\\s*\"?(?!\\s|\"|true\\b)"));
    return wish.match(QString::fromUtf8(text)).hasMatch();
}

QString describe(Ending ending)
{
    switch (ending) {
    case Ending::Crashed:
        return QStringLiteral("crashed");
    case Ending::TimedOut:
        return QStringLiteral("ran out of time");
    case Ending::TooMuch:
        return QStringLiteral("printed too much");
    default:
        return QStringLiteral("failed");
    }
}

/// Whether the blocks had found their places when dot was stopped. It counts the steps of each
/// solver on one line, and ends the last of them with their number and time.
bool placedBlocks(const QByteArray& messages)
{
    const QByteArray last = messages.trimmed().split('\n').last();
    return !last.startsWith("mincross:") &&
           (!last.startsWith("network simplex:") || last.contains(" sec"));
}

bool isAboutPictures(const QString& warning)
{
    for (const char* part :
         {"SERVER_NAME", "is unsafe", "No or improper image", "shapefile not set"}) {
        if (warning.contains(QLatin1String(part)))
            return true;
    }
    return false;
}

/// What is wrong with the text itself; a picture that may not be read is nobody's fault.
QString errorLine(const QByteArray& messages)
{
    QString found;
    for (const QByteArray& line : messages.split('\n')) {
        if (line.startsWith("Error:") && !isAboutPictures(QString::fromUtf8(line)))
            return QString::fromUtf8(line.mid(6)).trimmed();
        if (line.contains("Assertion"))
            found = QString::fromUtf8(line).trimmed();
    }
    return found;
}

/// A text that no other way of drawing will make valid.
void refuseMalformed(const QString& file, const QByteArray& messages)
{
    static const QRegularExpression syntax(QStringLiteral("syntax error in line (\\d+)(.*)"));
    const QString error = errorLine(messages);
    const auto match = syntax.match(error);
    if (match.hasMatch())
        throw FileError(file, match.captured(1).toInt(),
                        QStringLiteral("syntax error") + match.captured(2));
    static const QRegularExpression label(QStringLiteral("\\bin label of [^\\n]*"));
    const auto owner = label.match(QString::fromUtf8(messages));
    if (owner.hasMatch() && !error.isEmpty())
        throw FileError(file, 0, error + QLatin1Char(' ') + owner.captured(0));
}

QHash<QString, QString> resolvedFamilies(const QByteArray& messages)
{
    static const QRegularExpression resolved(
        QStringLiteral("fontname: \"([^\"\\n]*)\" resolved to:[^\"\\n]*\"([^\",\\n]*)"));
    QHash<QString, QString> families;
    auto matches = resolved.globalMatch(QString::fromUtf8(messages));
    while (matches.hasNext()) {
        const auto match = matches.next();
        families.insert(match.captured(1), match.captured(2));
    }
    return families;
}

QStringList warnings(const QByteArray& messages)
{
    QStringList found;
    for (const QByteArray& line : messages.split('\n')) {
        QString text = oneLine(QString::fromUtf8(line));
        if (isAboutPictures(text)) // errors among them
            text = QStringLiteral("Warning: pictures that it names are not read");
        // It is we who asked for right angles; the labels are made readable.
        if (text.startsWith(QStringLiteral("Warning:")) && !found.contains(text) &&
            !text.startsWith(QStringLiteral("Warning: Orthogonal edges")))
            found << text;
    }
    return found;
}

/// dot calls it a failure when a picture is missing, and prints all the rest.
bool isUsable(const DotResult& result)
{
    const bool ended = result.ending == Ending::Finished ||
                       (result.ending == Ending::Failed && errorLine(result.messages).isEmpty() &&
                        isAboutPictures(QString::fromUtf8(result.messages)));
    return ended && !result.output.trimmed().isEmpty();
}

/// The last of the ways is the one that takes no patience.
DotResult attempt(const Attempt& way, bool isLast, const QByteArray& text, const DotLimits& limits,
                  const QString& program, LayoutControl* control)
{
    const auto mayGoOn = [&] {
        return !control || (!control->isCancelled() && (isLast || !control->isHurried()));
    };
    if (control)
        control->setStage(QLatin1String(way.name));
    // Verbose, since only that tells the fonts and how far a layout came. The charset holds for
    // every graph: the text has been converted.
    QStringList arguments{QStringLiteral("-v"), QStringLiteral("-Tjson"),
                          QStringLiteral("-Gcharset=utf-8")};
    return runDot(program, arguments + way.options, text, limits, mayGoOn);
}

} // namespace

DotLayout layOut(const QString& file, const QByteArray& text, const LayoutWish& wish,
                 const DotLimits& limits, const QString& program)
{
    DotLayout layout;
    const std::vector<Attempt> ways = attempts();
    QString reason;
    for (std::size_t i = wish.ownConnectors || asksForConnectors(text) ? 1 : 0; i < ways.size();) {
        const DotResult result =
            attempt(ways[i], i + 1 == ways.size(), text, limits, program, wish.control);
        if (wish.control && wish.control->isCancelled())
            throw LayoutCancelled();
        if (result.ending == Ending::GivenUp) {
            i = ways.size() - 1;
            continue;
        }
        if (result.ending == Ending::NotStarted)
            throw FileError(file, 0,
                            QStringLiteral("cannot run %1 (package graphviz)").arg(program));
        refuseMalformed(file, result.messages);
        if (isUsable(result)) {
            layout.json = result.output;
            layout.families = resolvedFamilies(result.messages);
            layout.notes += warnings(result.messages);
            return layout;
        }
        reason = errorLine(result.messages);
        const bool slowPlacement =
            result.ending == Ending::TimedOut && !placedBlocks(result.messages);
        const QLatin1String tried(ways[i++].name);
        while (slowPlacement && i < ways.size() && !ways[i].quick)
            ++i;
        if (i < ways.size())
            layout.notes << QStringLiteral("dot %1 with %2; trying %3")
                                .arg(describe(result.ending), tried, QLatin1String(ways[i].name));
    }
    throw FileError(file, 0, QStringLiteral("dot cannot lay it out: %1").arg(reason));
}

} // namespace TovaView
