// How a host starts and ends the library.
#include "pages.h"
#include "sketch.h"

#include <host/debuginteractionlogger.h>
#include <host/editorframework.h>
#include <host/featureregistry.h>
#include <vetra/errorholder.h>

using namespace Tova2;

namespace {

std::string told;

void say(const std::string& text)
{
    told += text + ";";
}

/// A host whose editors need something that is missing.
void lendEditors()
{
    Host::setEditorFramework(
        {[](Vetra::ErrorHolder& errors) { errors.add(Vetra::Error("editors", "NoDictionary")); },
         [] { say("editors end"); }});
}

bool startsAndEnds()
{
    lendEditors();
    const bool isListedBefore = Host::readSwitch("SegvLogging") == 1;

    Vetra::ErrorHolder errors;
    initialize_tova(errors);
    for (const Vetra::Error& error : errors.errors())
        say(error.what()); // the rest has been started all the same

    auto& logger = Host::DebugInteractionLogger::instance();
    logger.log("opened the diagram");
    Host::setSwitch("SegvLogging", 0);
    logger.log("typed a password"); // not kept

    terminate_tova();
    return isListedBefore && logger.interactions().size() == 1 &&
           told == "editors/NoDictionary;editors end;";
}

void drawStation(Sketch& sketch, double x, const std::string& name, const Vetra::Color& color,
                 const std::vector<std::string>& happenings)
{
    sketch.box(name, {x, 20, 90, 30}, color);
    for (std::size_t i = 0; i < happenings.size(); ++i)
        sketch.words(happenings[i], {x + 45, 66 + 12.0 * static_cast<double>(i)}, 7);
}

} // namespace

QImage startUpPage()
{
    Sketch sketch(570, 135);
    drawStation(sketch, 15, "loaded", Sketch::kGreen, {"switches", "testing hooks", "counters"});
    drawStation(sketch, 165, "initialize_tova", Sketch::kBlue,
                {"editor framework", "own registries", "shutdown object", "RichTextToolBar",
                 "formulas, logger"});
    drawStation(sketch, 315, "terminate_tova", Sketch::kBlue,
                {"own registries", "shutdown object", "editor framework", "image cache"});
    drawStation(sketch, 465, "unloaded", Sketch::kGreen, {"switches", "logger's checker"});
    for (const double x : {105.0, 255.0, 405.0})
        sketch.arrow({x, 35}, {x + 60, 35});
    sketch.words("scenes", {285, 27}, 7);
    return startsAndEnds() ? sketch.picture() : QImage();
}
