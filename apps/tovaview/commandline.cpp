#include "commandline.h"

#include "colorname.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace TovaView {
namespace {

constexpr double largestScale = 1000;
constexpr int largestSide = 32767;

bool readScale(const QString& text, Options& options)
{
    bool valid = false;
    options.scale = text.toDouble(&valid);
    return valid && options.scale > 0 && options.scale <= largestScale;
}

bool readSize(const QString& text, Options& options)
{
    const QStringList sides = text.toLower().split(QLatin1Char('x'));
    if (sides.size() != 2)
        return false;
    bool widthValid = false, heightValid = false;
    options.size = {sides[0].toInt(&widthValid), sides[1].toInt(&heightValid)};
    return widthValid && heightValid && options.size.width() > 0 && options.size.height() > 0 &&
           options.size.width() <= largestSide && options.size.height() <= largestSide;
}

bool readTarget(const QString& text, Options& options)
{
    options.exportTo = text;
    return text.endsWith(QLatin1String(".png"), Qt::CaseInsensitive) ||
           text.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
}

bool readDump(const QString& text, Options& options)
{
    options.dumpTo = text;
    return !text.isEmpty();
}

bool isOneOf(const QString& text, std::initializer_list<const char*> names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const char* name) { return text == QLatin1String(name); });
}

bool readDecorator(const QString& text, Options& options)
{
    options.decorator = text;
    return isOneOf(text, {"hop", "pin", "grad_pin", "light_pin", "none"});
}

bool readConnectors(const QString& text, Options& options)
{
    options.ownConnectors = text == QLatin1String("file");
    return isOneOf(text, {"upright", "file"});
}

bool readDetail(const QString& text, Options& options)
{
    options.detail = text;
    return isOneOf(text, {"default", "fullquality", "massivemodel"});
}

bool readBackground(const QString& text, Options& options)
{
    options.background = findColor(text);
    return options.background.has_value();
}

bool readInspect(const QString& text, Options& options)
{
    options.inspect = text.toInt();
    return options.inspect > 0;
}

/// Only who knows the switches can tell what is wrong with one.
bool readSetting(const QString& text, Options& options)
{
    options.settings << text;
    return true;
}

/// Links resolved, as far as the file exists.
QString wholePath(const QString& path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? QDir::cleanPath(QFileInfo(path).absoluteFilePath()) : real;
}

bool isSame(const QString& a, const QString& b)
{
    return !a.isEmpty() && !b.isEmpty() && wholePath(a) == wholePath(b);
}

struct ValueOption {
    const char* name;
    const char* wanted;
    bool (*read)(const QString&, Options&);
};

constexpr ValueOption valueOptions[] = {
    {"--export", "a name that ends in .png or .pdf", readTarget},
    {"--scale", "a number above 0, at most 1000", readScale},
    {"--size", "WIDTHxHEIGHT in pixels, each 1 to 32767", readSize},
    {"--dump", "the name of a file", readDump},
    {"--inspect", "the id of a node in the dump", readInspect},
    {"--decorator", "one of hop, pin, grad_pin, light_pin, none", readDecorator},
    {"--connectors", "one of upright, file", readConnectors},
    {"--background", "the name of a colour, #rrggbb or #rrggbbaa", readBackground},
    {"--lod", "one of default, fullquality, massivemodel", readDetail},
    {"--set", "the name of a switch, = and a whole number", readSetting},
};

struct Flag {
    const char* name;
    bool Options::*target;
};

constexpr Flag flags[] = {
    {"--features", &Options::features},
    {"--counters", &Options::counters},
    {"--stats", &Options::stats},
    {"--version", &Options::version},
    {"-v", &Options::version},
    {"--help", &Options::help},
    {"-h", &Options::help},
};

/// One pass over the arguments; stops at the first fault.
class Parser {
public:
    explicit Parser(const QStringList& arguments) : m_arguments(arguments) {}

    Options parse()
    {
        for (; m_options.error.isEmpty() && m_at < m_arguments.size(); ++m_at) {
            const QString& argument = m_arguments[m_at];
            if (argument == QLatin1String("--") && !m_onlyFiles)
                m_onlyFiles = true;
            else if (m_onlyFiles || !argument.startsWith(QLatin1Char('-')))
                takeFile(argument);
            else if (!takeFlag(argument) && !takeValue(argument))
                m_options.error = QStringLiteral("unknown option %1").arg(argument);
        }
        checkWhole();
        return m_options;
    }

private:
    void takeFile(const QString& argument)
    {
        if (argument.isEmpty())
            m_options.error = QStringLiteral("the name of the file is empty");
        else if (!m_options.file.isEmpty())
            m_options.error = QStringLiteral("more than one file: %1").arg(argument);
        m_options.file = argument;
    }

    bool takeFlag(const QString& argument)
    {
        for (const Flag& flag : flags) {
            if (argument == QLatin1String(flag.name))
                return m_options.*flag.target = true;
        }
        return false;
    }

    /// Both "--scale 2" and "--scale=2".
    bool takeValue(const QString& argument)
    {
        const int equals = argument.indexOf(QLatin1Char('='));
        const QString name = argument.left(equals);
        for (const ValueOption& option : valueOptions) {
            if (name != QLatin1String(option.name))
                continue;
            const bool given = equals >= 0 || m_at + 1 < m_arguments.size();
            const QString value = equals >= 0 ? argument.mid(equals + 1)
                                  : given     ? m_arguments[++m_at]
                                              : QString();
            if (!given || !option.read(value, m_options))
                m_options.error =
                    QStringLiteral("%1 needs %2").arg(name, QLatin1String(option.wanted));
            return true;
        }
        return false;
    }

    void checkWhole()
    {
        if (!m_options.error.isEmpty() || m_options.help || m_options.version)
            return;
        if (m_options.file.isEmpty() && m_options.isBatch())
            m_options.error = QStringLiteral("no file given");
        else if (m_options.scale > 0 && m_options.size.isValid())
            m_options.error = QStringLiteral("--scale and --size exclude each other");
        else if (isSame(m_options.dumpTo, m_options.file) ||
                 isSame(m_options.exportTo, m_options.file))
            m_options.error = QStringLiteral("the output would replace the diagram");
        else if (isSame(m_options.dumpTo, m_options.exportTo))
            m_options.error = QStringLiteral("--dump and --export name the same file");
    }

    const QStringList& m_arguments;
    int m_at = 0;
    bool m_onlyFiles = false;
    Options m_options;
};

} // namespace

bool Options::isBatch() const
{
    return !exportTo.isEmpty() || !dumpTo.isEmpty() || inspect || stats;
}

bool Options::isListing() const
{
    return features && file.isEmpty() && !isBatch();
}

Options parseArguments(const QStringList& arguments)
{
    return Parser(arguments).parse();
}

QString usage()
{
    return QStringLiteral(
        "Usage: tovaview [FILE] [--export OUT.png|OUT.pdf] [--scale S | --size WxH]\n"
        "                [--connectors NAME] [--decorator NAME] [--lod NAME]\n"
        "                [--background COLOR]\n"
        "                [--dump OUT.json] [--inspect ID] [--stats] [--set NAME=VALUE ...]\n"
        "                [--features] [--counters] [--version] [--help]\n"
        "\n"
        "Shows a Graphviz diagram: DOT (.dot, .gv; laid out by dot) or plain output (.plain).\n"
        "Its blocks can be moved, and the connectors follow; F1 lists the keys. Without a FILE it\n"
        "shows a diagram of its own. Without a display it writes the picture to FILE.png.\n"
        "\n"
        "  --export OUT      write the picture instead of showing it\n"
        "  --scale S         pixels a point in the picture (1); all looks as at actual size\n"
        "  --size WxH        fit the picture into W by H pixels, as a window would\n"
        "  --connectors NAME lead them upright, at right angles, or as the file asks (upright)\n"
        "  --decorator NAME  mark crossings by hop, pin, grad_pin, light_pin or none (grad_pin)\n"
        "  --background COLOR\n"
        "                    a name, #rrggbb or #rrggbbaa, instead of the diagram's ground\n"
        "  --lod NAME        draw small zooms by default, fullquality or massivemodel (default)\n"
        "  --dump OUT        write one JSON object a node\n"
        "  --inspect ID      print what is known of the node that has this id in the dump\n"
        "  --stats           print counts, bounds and times as one line of JSON\n"
        "  --set NAME=VALUE  give a switch of the library a whole number; may be repeated\n"
        "  --features        list the switches, their values and how often each was read; with a\n"
        "                    FILE when all is done\n"
        "  --counters        in the end list what is left of what the library counts, which is 0,\n"
        "                    and how much it has done\n");
}

} // namespace TovaView
