#include "host/displayquery.h"

#include <QByteArray>
#include <QGuiApplication>

#include <utility>

namespace Host {

namespace {

ScopedDisplayQuery* youngestQuery = nullptr;

bool isNamed(const char* variable)
{
    return !qEnvironmentVariableIsEmpty(variable);
}

/// `platform` is one item of QT_QPA_PLATFORM: a name, then perhaps a colon and options.
bool canMakePlatform(const QByteArray& platform)
{
    const QByteArray name = platform.split(':').constFirst().trimmed();
    if (name == "xcb")
        return isNamed("DISPLAY");
    if (name.startsWith("wayland"))
        return isNamed("WAYLAND_DISPLAY") || isNamed("WAYLAND_SOCKET");
    return !name.isEmpty();
}

bool hasDisplay()
{
    // With another kind of application in the process no graphical one can follow.
    if (QCoreApplication::instance())
        return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
    if (isNamed("QT_QPA_PLATFORM")) {
        for (const QByteArray& platform : qgetenv("QT_QPA_PLATFORM").split(';')) {
            if (canMakePlatform(platform))
                return true;
        }
        return false;
    }
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return true;
#else
    return isNamed("DISPLAY") || isNamed("WAYLAND_DISPLAY");
#endif
}

} // namespace

bool svGraphicsHasDisplay()
{
    if (youngestQuery && youngestQuery->m_query)
        return youngestQuery->m_query();
    return hasDisplay();
}

ScopedDisplayQuery::ScopedDisplayQuery(std::function<bool()> query)
    : m_query(std::move(query)), m_older(std::exchange(youngestQuery, this))
{}

ScopedDisplayQuery::~ScopedDisplayQuery()
{
    ScopedDisplayQuery** place = &youngestQuery;
    while (*place != this)
        place = &(*place)->m_older;
    *place = m_older;
}

} // namespace Host
