// What is done as the library is loaded, before `main` or by the dynamic loader.

#include "events/testinghooks.h"
#include "main/features.h"
#include "main/hostlinks.h"
#include "nodes/nodecounters.h"
#include "scene/scenecounters.h"

#include "vetra/stringid.h"

/// The linker takes this object out of a static library for this name, which nothing else wants.
extern "C" void tova_loading() {}

namespace Tova2 {

namespace {

class Loading {
public:
    Loading()
    {
        makeSwitches();
        makeCounters();
        for (const char* name : {"MouseX", "MouseY", "GenericEvent:Select"})
            Vetra::StringID{name};
    }
    ~Loading() { HostLinks::cut(); }

private:
    static void makeSwitches()
    {
        Features::metafileVersionOverride();
        Features::segvLogging();
        Features::mathGraphicsInRichAnnotations();
        Features::mathGraphicsTextNode();
        TestingHooks::inactiveWindowForToolTips();
        TestingHooks::useZeroOffsetForNewEditors();
    }

    static void makeCounters()
    {
        NodeCounters::rawNodes();
        NodeCounters::pooledNodes();
        SceneCounters::offscreenRepaints();
        SceneCounters::nodesInScenes();
    }
};

// The first priority that programs may have: the statics of a host linked to the same program find
// everything, and leave before it.
[[gnu::init_priority(101)]] const Loading loading;

} // namespace

} // namespace Tova2
