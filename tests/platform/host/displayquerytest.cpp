#include <gmock/gmock.h>

#include "host/displayquery.h"

#include <QGuiApplication>

#include <memory>
#include <ostream>
#include <string>

namespace Host {
namespace {

/// Sets an environment variable, or unsets it with a null value, and puts it back.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value)
        : m_name(name), m_wasSet(qEnvironmentVariableIsSet(name)), m_old(qgetenv(name))
    {
        value ? qputenv(name, value) : qunsetenv(name);
    }
    ~ScopedVariable() { m_wasSet ? qputenv(m_name, m_old) : qunsetenv(m_name); }

private:
    const char* m_name;
    bool m_wasSet;
    QByteArray m_old;
};

struct Surroundings {
    const char* name;
    const char* platform;
    const char* x11;
    const char* wayland;
    bool hasDisplay;
};
void PrintTo(const Surroundings& surroundings, std::ostream* out)
{
    *out << surroundings.name;
}
class DisplayQueryTest : public testing::TestWithParam<Surroundings> {};

TEST_P(DisplayQueryTest, ReadsTheEnvironment)
{
    const ScopedVariable platform("QT_QPA_PLATFORM", GetParam().platform);
    const ScopedVariable x11("DISPLAY", GetParam().x11);
    const ScopedVariable wayland("WAYLAND_DISPLAY", GetParam().wayland);
    EXPECT_EQ(svGraphicsHasDisplay(), GetParam().hasDisplay);
}

std::string caseName(const testing::TestParamInfo<Surroundings>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Host, DisplayQueryTest,
    testing::Values(
        Surroundings{"Bare", nullptr, nullptr, nullptr, false},
        Surroundings{"EmptyNamesCountAsNone", "", "", "", false},
        Surroundings{"X11", nullptr, ":0", nullptr, true},
        Surroundings{"Wayland", nullptr, nullptr, "wayland-1", true},
        Surroundings{"Offscreen", "offscreen", nullptr, nullptr, true},
        Surroundings{"MinimalWithOptions", "minimal:enable_fonts", nullptr, nullptr, true},
        Surroundings{"X11PlatformWithoutServer", "xcb", nullptr, "wayland-1", false},
        Surroundings{"WaylandPlatformWithoutServer", "wayland-egl", ":0", nullptr, false},
        Surroundings{"SecondChoice", "wayland;xcb", ":0", nullptr, true},
        Surroundings{"OnlySeparators", ";:", ":0", nullptr, false}),
    caseName);

TEST(DisplayQueryApplicationTest, AnApplicationDecidesAlone)
{
    int argc = 3;
    char program[] = "test", option[] = "-platform", value[] = "offscreen";
    char* argv[] = {program, option, value, nullptr};
    const ScopedVariable platform("QT_QPA_PLATFORM", nullptr);
    const ScopedVariable wayland("WAYLAND_DISPLAY", nullptr);
    {
        const ScopedVariable x11("DISPLAY", nullptr);
        const QGuiApplication graphical(argc, argv);
        EXPECT_TRUE(svGraphicsHasDisplay());
    }
    const ScopedVariable x11("DISPLAY", ":0");
    const QCoreApplication plain(argc, argv);
    EXPECT_FALSE(svGraphicsHasDisplay());
}

TEST(ScopedDisplayQueryTest, YoungestAliveDecides)
{
    const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
    auto first = std::make_unique<ScopedDisplayQuery>([] { return false; });
    auto second = std::make_unique<ScopedDisplayQuery>([] { return true; });
    auto third = std::make_unique<ScopedDisplayQuery>([] { return false; });
    EXPECT_FALSE(svGraphicsHasDisplay());
    second.reset();
    EXPECT_FALSE(svGraphicsHasDisplay());
    second = std::make_unique<ScopedDisplayQuery>(std::function<bool()>());
    EXPECT_TRUE(svGraphicsHasDisplay());
    second.reset();
    first.reset();
    EXPECT_FALSE(svGraphicsHasDisplay());
    third.reset();
    EXPECT_TRUE(svGraphicsHasDisplay());
}

} // namespace
} // namespace Host
