#include "diagramloader.h"

#include "diagramfile.h"
#include "fileerror.h"

#include <algorithm>

namespace TovaView {

/// Shared by the loader and the thread: `outcome` is the thread's until it has ended.
struct DiagramLoader::Work {
    LayoutControl control;
    Outcome outcome;
    std::atomic<bool> hasEnded = false;
    std::thread thread;
};

namespace {

/// What went wrong becomes a line of the outcome.
void read(DiagramLoader::Outcome& outcome, const LayoutWish& wish)
{
    try {
        outcome.diagram =
            std::make_unique<const Diagram>(readDiagram(outcome.file, outcome.notes, wish));
    } catch (const LayoutCancelled&) {
        return;
    } catch (const FileError& error) {
        outcome.error = error.message();
    } catch (const std::bad_alloc&) {
        outcome.error = QStringLiteral("There is not enough memory for that.");
    } catch (const std::exception& error) {
        outcome.error = oneLine(QString::fromLocal8Bit(error.what()));
    }
}

} // namespace

DiagramLoader::DiagramLoader(std::function<void(Outcome)> loaded) : m_loaded(std::move(loaded)) {}

DiagramLoader::~DiagramLoader()
{
    cancel();
    joinEnded(true);
}

void DiagramLoader::load(const QString& file, bool ownConnectors)
{
    cancel();
    const auto work = std::make_shared<Work>();
    work->outcome.file = file;
    m_work = work;
    work->thread = std::thread([this, work, ownConnectors] {
        read(work->outcome, {ownConnectors, &work->control});
        // The loader joins the thread before it ends itself, so it is there.
        QMetaObject::invokeMethod(
            this, [this, work] { finish(work); }, Qt::QueuedConnection);
        work->hasEnded = true;
    });
}

void DiagramLoader::cancel()
{
    if (m_work) {
        m_work->control.cancel();
        m_leaving.push_back(std::move(m_work));
    }
    m_work = nullptr;
    joinEnded(false);
}

void DiagramLoader::hurry()
{
    if (m_work)
        m_work->control.hurry();
}

QString DiagramLoader::stage() const
{
    return m_work ? m_work->control.stage() : QString();
}

void DiagramLoader::finish(const std::shared_ptr<Work>& work)
{
    if (work != m_work)
        return;
    m_work = nullptr;
    work->thread.join();
    m_loaded(std::move(work->outcome));
}

void DiagramLoader::joinEnded(bool all)
{
    m_leaving.erase(std::remove_if(m_leaving.begin(), m_leaving.end(),
                                   [all](const std::shared_ptr<Work>& work) {
                                       if (!all && !work->hasEnded)
                                           return false;
                                       work->thread.join();
                                       return true;
                                   }),
                    m_leaving.end());
}

} // namespace TovaView
