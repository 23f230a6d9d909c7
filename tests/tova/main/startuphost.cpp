// Plays the life of a process, step by step as named on the command line, and tells it on standard
// output.
#include <tova/tova.h>

#include <host/debuginteractionlogger.h>
#include <host/diagnosticscounter.h>
#include <host/editorframework.h>
#include <host/featureregistry.h>
#include <host/mathgraphics.h>
#include <host/shutdownregistry.h>
#include <vetra/errorholder.h>

#include <QApplication>
#include <QImage>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

void say(const std::string& word)
{
    std::printf("%s ", word.c_str());
    std::fflush(stdout);
}

std::int64_t livingThings()
{
    std::int64_t sum = 0;
    for (const Host::CounterReading& reading : Host::readDiagnosticsCounters())
        sum += reading.kind == Host::CounterKind::Live ? reading.value : 0;
    return sum;
}

/// A static of the host, made before `main` and gone after the walk of the shutdown registry.
struct Kept {
    Kept()
    {
        say("switches" + std::to_string(Host::listSwitches().size()));
        node.setFill(Tova2::Fill(Vetra::Color(0, 0, 1, 1)));
        node.setCacheType(Tova2::CacheType::DeviceCoordinateCache);
    }
    ~Kept()
    {
        try {
            use();
        } catch (const Vetra::Error& error) {
            say(error.key());
        }
        scene.reset();
        node = {};
        say("left" + std::to_string(livingThings()));
        say("switches" + std::to_string(Host::listSwitches().size()));
    }

    void use()
    {
        if (!scene)
            scene = Tova2::Scene::createScene();
        scene->setLODStrategyKey("tova2::massivemodel");
        scene->addNode(node);
        QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        scene->render(picture, {0, 0, 20, 20}, {0, 0, 20, 20});
        if (qApp && picture.pixelColor(10, 10) != Qt::blue)
            say("unpainted");
        scene->removeNode(node);
    }

    Tova2::RectNode node{Vetra::GLRect<double>{0, 0, 20, 20}};
    decltype(Tova2::Scene::createScene()) scene;
};

Kept kept;

void initialize()
{
    Vetra::ErrorHolder errors;
    Tova2::initialize_tova(errors);
    for (const Vetra::Error& error : errors.errors())
        say(error.what());
}

[[noreturn]] void fail()
{
    throw std::runtime_error("failed");
}

void lendFailingServices()
{
    Host::setEditorFramework({[](Vetra::ErrorHolder&) { fail(); }, fail});
    MathGraphics::setKernel(fail);
}

/// A framework that calls the library from within its own start and end.
void lendReenteringServices()
{
    Host::setEditorFramework({[](Vetra::ErrorHolder&) {
                                  say("start");
                                  initialize();
                              },
                              [] {
                                  say("end");
                                  Tova2::terminate_tova();
                                  Host::ShutdownRegistry::instance().shutDown();
                              }});
}

void terminateFromWalk()
{
    Host::ShutdownRegistry::instance().registerObject(
        std::make_shared<Host::ShutdownObject>("Other", Tova2::terminate_tova));
}

void askLogger()
{
    for (const int value : {1, 0, 2}) {
        Host::setSwitch("SegvLogging", value);
        say(Host::DebugInteractionLogger::instance().isLogging() ? "logs" : "silent");
    }
    for (const Host::SwitchReading& reading : Host::listSwitches()) {
        if (reading.name == "SegvLogging")
            say("reads" + std::to_string(reading.reads));
    }
}

void play(char step)
{
    switch (step) {
    case 'i':
        return initialize();
    case 't':
        return Tova2::terminate_tova();
    case 'w':
        return Host::ShutdownRegistry::instance().shutDown();
    case 'u':
        return kept.use();
    case 'F':
        return lendFailingServices();
    case 'R':
        return lendReenteringServices();
    case 'W':
        return terminateFromWalk();
    case 'L':
        return askLogger();
    default:
        return say("unknown");
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Host::setEditorFramework({[](Vetra::ErrorHolder&) { say("start"); }, [] { say("end"); }});
    for (const char* step = argc > 1 ? argv[1] : ""; *step; ++step)
        play(*step);
    say("exit");
    return 0;
}
