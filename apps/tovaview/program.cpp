#include "program.h"

#include "commandline.h"
#include "crossings.h"
#include "demodiagram.h"
#include "diagramfile.h"
#include "exporter.h"
#include "fileerror.h"
#include "hostservices.h"
#include "mainwindow.h"
#include "scenebuilder.h"
#include "scenedump.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include <langinfo.h>

namespace TovaView {
namespace {

constexpr int faultyFile = 1, faultyUsage = 2;

void sayError(const QString& line)
{
    std::fprintf(stderr, "tovaview: %s\n", line.toLocal8Bit().constData());
}

void sayNotes(const QString& file, QStringList& notes)
{
    for (const QString& note : notes)
        sayError(oneLine(file) + QStringLiteral(": ") + oneLine(note));
    notes.clear();
}

bool print(const QByteArray& text)
{
    return std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout) ==
               static_cast<std::size_t>(text.size()) &&
           std::fflush(stdout) == 0;
}

/// Warnings of the toolkit are about itself; whoever runs the program gets lines about files only.
void hearToolkit(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        sayError(oneLine(message));
}

/// Without a locale that can spell file names, Qt could not open those that are not ASCII.
void ensureUnicodeLocale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(::nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0)
        ::setenv("LC_ALL", "C.UTF-8", 1);
}

/// A picture that goes to a file needs no display. Else one is tried before going on without.
void choosePlatform(const Options& options)
{
    const bool display =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (options.isBatch() || (!display && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
                                       ? "wayland;xcb;offscreen"
                                       : "xcb;offscreen");
}

bool hasScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

/// Milliseconds since the last lap.
double lap(QElapsedTimer& timer)
{
    const auto nanoseconds = static_cast<double>(timer.nsecsElapsed());
    timer.restart();
    return nanoseconds / 1e6;
}

/// One diagram's way through the program.
class Run {
public:
    explicit Run(const Options& options) : m_options(options) {}

    int run()
    {
        load();
        if (m_options.isBatch())
            writeWhatWasAskedFor();
        else
            writeBeside();
        sayNotes(m_options.file, m_notes);
        return 0;
    }

private:
    void load()
    {
        QElapsedTimer timer;
        timer.start();
        const Diagram diagram =
            readDiagram(m_options.file, m_notes, {m_options.ownConnectors, nullptr});
        sayNotes(m_options.file, m_notes);
        m_timings.load = lap(timer);
        m_scene = SceneBuilder(diagram, m_options.background).build();
        m_timings.build = lap(timer);
        m_scene.scene->usePathIntersectionsDecorator(m_options.decorator.toStdString());
        m_scene.scene->setLODStrategyKey("tova2::" + m_options.detail.toStdString());
        m_timings.crossings = findCrossings(m_scene);
    }

    void writeBeside()
    {
        const QString target = m_options.file + QStringLiteral(".png");
        writePicture(target);
        sayError(QStringLiteral("no display; the picture is in %1").arg(target));
    }

    void writeWhatWasAskedFor()
    {
        if (!m_options.exportTo.isEmpty())
            writePicture(m_options.exportTo);
        else if (m_options.stats)
            paint(m_options.file);
        if (!m_options.dumpTo.isEmpty())
            writeBytes(dumpScene(m_scene), m_options.dumpTo);
        if (m_options.inspect)
            printOrThrow(inspected());
        if (m_options.stats)
            printOrThrow(statsLine(m_scene, m_timings));
    }

    QByteArray inspected() const
    {
        const std::string text = inspectNode(m_scene, m_options.inspect);
        if (text.empty())
            throw FileError(m_options.file, 0,
                            QStringLiteral("has no node with id %1").arg(m_options.inspect));
        return QByteArray::fromStdString(text);
    }

    static void printOrThrow(const QByteArray& text)
    {
        if (!print(text))
            throw FileError(QStringLiteral("standard output"), 0, QStringLiteral("cannot write"));
    }

    void writePicture(const QString& target)
    {
        if (!target.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            writePng(paint(target), target);
            return;
        }
        QElapsedTimer timer;
        timer.start();
        writePdf(m_scene, {m_options.scale, m_options.size}, target, m_notes);
        m_timings.paint = lap(timer);
    }

    QImage paint(const QString& target)
    {
        QElapsedTimer timer;
        timer.start();
        QImage picture = paintPicture(m_scene, {m_options.scale, m_options.size}, target, m_notes);
        m_timings.paint = lap(timer);
        return picture;
    }

    Options m_options;
    QStringList m_notes;
    DiagramScene m_scene;
    Timings m_timings;
};

int sayUsageError(const QString& error)
{
    sayError(oneLine(error));
    std::fputs("Try tovaview --help\n", stderr);
    return faultyUsage;
}

/// Without a file the window shows the diagram that is built in.
int showWindow(const Options& options)
{
    QCoreApplication::setOrganizationName(QStringLiteral("tovaview"));
    QCoreApplication::setApplicationName(QStringLiteral("tovaview"));
    MainWindow window(options);
    window.open(options.file.isEmpty() ? demoDiagram() : options.file);
    window.show();
    return QApplication::exec();
}

/// Whatever goes wrong with a file becomes one line.
int runGuarded(const Options& options)
{
    try {
        return Run(options).run();
    } catch (const FileError& error) {
        sayError(error.message());
    } catch (const std::bad_alloc&) {
        sayError(oneLine(options.file) + QStringLiteral(": there is not enough memory"));
    } catch (const std::exception& error) {
        sayError(oneLine(options.file) + QStringLiteral(": ") +
                 oneLine(QString::fromUtf8(error.what())));
    }
    return faultyFile;
}

int runApplication(const Options& options, char** argv)
{
    choosePlatform(options);
    // Only our own arguments count: Qt's, such as -platform, have been refused by the parser.
    int noArguments = 1;
    const QApplication application(noArguments, argv);
    if (!options.isBatch() && hasScreen())
        return showWindow(options);
    if (options.file.isEmpty())
        return sayUsageError(QStringLiteral("no file given, and no display to show one"));
    return runGuarded(options);
}

int runWithLibrary(const Options& options, char** argv)
{
    const LibraryRun library;
    for (const QString& failure : library.failures())
        sayError(oneLine(failure));
    const QString error = setSwitches(options.settings);
    if (!error.isEmpty()) {
        sayError(oneLine(error));
        return faultyUsage;
    }
    const int code = options.isListing() ? 0 : runApplication(options, argv);
    return !options.features || print(switchTable()) ? code : std::max(code, faultyFile);
}

QStringList decode(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    return arguments;
}

} // namespace

int runProgram(int argc, char** argv)
{
    ensureUnicodeLocale();
    qInstallMessageHandler(hearToolkit);
    const Options options = parseArguments(decode(argc, argv));
    if (!options.error.isEmpty())
        return sayUsageError(options.error);
    if (options.help)
        return print(usage().toUtf8()) ? 0 : faultyFile;
    if (options.version)
        return print("tovaview " TOVAVIEW_VERSION "\n") ? 0 : faultyFile;
    const int code = runWithLibrary(options, argv);
    if (!options.counters)
        return code;
    return print(counterTable()) && livingThings() == 0 ? code : std::max(code, faultyFile);
}

} // namespace TovaView
