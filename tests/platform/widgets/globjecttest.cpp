#include "widgets/objectwatch.h"

#include "support/rows.h"

#include "vetra/errorreporter.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace Widgets {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Log = std::vector<std::string>;

/// Writes down when it ends and when it is deleted.
class Logged : public GLObject {
public:
    Logged(const char* name, GLObject* parent, Log& log) : GLObject(name, parent), m_log(log) {}

protected:
    ~Logged() override { m_log.push_back("deleted " + getName().str()); }
    void doEnd() override { m_log.push_back("ended " + getName().str()); }

private:
    Log& m_log;
};

TEST(GLObjectTest, EndsItsChildrenFirstTheYoungestFirst)
{
    Log log;
    auto* const parent = new Logged("parent", nullptr, log);
    new Logged("elder", parent, log);
    new Logged("younger", parent, log);
    parent->destroy();
    EXPECT_THAT(log, ElementsAre("ended younger", "deleted younger", "ended elder", "deleted elder",
                                 "ended parent", "deleted parent"));
}

TEST(GLObjectTest, IsDeletedWhenTheOutermostUseEnds)
{
    Log log;
    auto* const object = new Logged("object", nullptr, log);
    const ObjectWatch<Logged> watch(object);
    {
        const GLObject::Use outer(*object);
        {
            const GLObject::Use inner(*object);
            object->destroy();
            EXPECT_EQ(watch.get(), nullptr);
        }
        object->doDelete();
        EXPECT_THAT(log, ElementsAre("ended object"));
    }
    EXPECT_THAT(log, ElementsAre("ended object", "deleted object"));
}

struct Family {
    ObjectWatch<GLObject> parent, elder, younger;
    Log& log;
};

void end(const ObjectWatch<GLObject>& watch)
{
    if (watch)
        watch->destroy();
}

void addChild(GLObject* parent, Log& log)
{
    auto* const late = new Logged("late", parent, log);
    if (!late->getParent())
        late->destroy();
}

/// What a listener does that hears of the end of `self`.
struct HostileCase : NamedRow {
    void (*act)(const Family&, GLObject* self);
    int reports = 0;
};
class HostileEndTest : public testing::TestWithParam<HostileCase> {};

TEST_P(HostileEndTest, EndsAndDeletesEachOnce)
{
    Log log;
    int reports = 0;
    Vetra::setErrorReporter([&](std::exception_ptr) { ++reports; });
    auto* const parent = new Logged("parent", nullptr, log);
    const Family family{parent, new Logged("elder", parent, log),
                        new Logged("younger", parent, log), log};
    for (const auto& object : {family.parent, family.elder, family.younger})
        object->getDestroyEmitter().connect([&](GLObject* o) { GetParam().act(family, o); });
    end(family.elder);
    end(family.parent);
    Vetra::setErrorReporter({});

    std::erase(log, "ended late");
    std::erase(log, "deleted late");
    EXPECT_THAT(log, UnorderedElementsAre("ended parent", "deleted parent", "ended elder",
                                          "deleted elder", "ended younger", "deleted younger"));
    EXPECT_EQ(reports, GetParam().reports);
}

INSTANTIATE_TEST_SUITE_P(
    GLObject, HostileEndTest,
    testing::Values(
        HostileCase{{"EndsTheParent"}, [](const Family& f, GLObject*) { end(f.parent); }},
        HostileCase{{"EndsTheSibling"}, [](const Family& f, GLObject*) { end(f.younger); }},
        HostileCase{{"EndsItselfAgain"}, [](const Family&, GLObject* self) { self->doDelete(); }},
        HostileCase{{"AddsAChild"}, [](const Family& f, GLObject* o) { addChild(o, f.log); }},
        HostileCase{
            {"Throws"}, [](const Family&, GLObject*) { throw std::runtime_error("no"); }, 3}),
    rowName);

} // namespace
} // namespace Widgets
