#include "scene/lodmanagerprivate.h"

#include "nodes/deferrederror.h"

#include "tova/scene/fullqualitylodstrategy.h"
#include "tova/scene/lodmanager.h"
#include "tova/scene/massivemodellodstrategy.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <utility>

namespace Tova2 {

LODManagerPrivate::LODManagerPrivate()
    : m_standard{boost::make_shared<LODStrategy>(), boost::make_shared<FullQualityLODStrategy>(),
                 boost::make_shared<MassiveModelLODStrategy>()}
    , m_default(m_standard.front())
{
    addStandard();
}

LODManagerPrivate& LODManagerPrivate::instance()
{
    return *LODManager::instance().d;
}

void LODManagerPrivate::addStandard()
{
    for (const StrategyPtr& strategy : m_standard)
        m_registered.try_emplace(strategy->getID(), strategy);
}

void LODManagerPrivate::removeStandard()
{
    for (const StrategyPtr& strategy : m_standard)
        remove(strategy);
}

void LODManagerPrivate::add(const StrategyPtr& strategy)
{
    if (strategy && !strategy->getID().empty())
        m_registered[strategy->getID()] = strategy;
}

bool LODManagerPrivate::remove(const StrategyPtr& strategy)
{
    return strategy && registered(strategy->getID()) == strategy && remove(strategy->getID());
}

LODManagerPrivate::StrategyPtr LODManagerPrivate::registered(const Vetra::StringID& id) const
{
    const auto found = m_registered.find(id);
    return found == m_registered.end() ? nullptr : found->second;
}

bool LODManagerPrivate::activate(const Vetra::StringID& id)
{
    const auto strategy = registered(id);
    if (!strategy)
        return false;
    if (strategy == m_active || strategy->isActive())
        return true;
    switchTo(strategy);
    joinPaint();
    return true;
}

void LODManagerPrivate::deactivate(const Vetra::StringID& id)
{
    if (m_active && m_active->getID() == id)
        switchTo(nullptr);
}

void LODManagerPrivate::switchTo(StrategyPtr strategy)
{
    const auto former = std::exchange(m_active, strategy);
    if (former && m_asking > 0)
        m_replaced.push_back(former);
    if (former)
        former->deactivate();
    // Either call may have switched again.
    if (!strategy || m_active != strategy)
        return;
    try {
        strategy->activate();
    } catch (...) {
        if (m_active == strategy)
            m_active = nullptr;
        throw;
    }
    if (m_active != strategy && strategy->isActive())
        strategy->deactivate();
}

/// A strategy that comes in the middle of a paint hears of it.
void LODManagerPrivate::joinPaint()
{
    if (m_paints.empty() || !m_active)
        return;
    m_paints.back().strategy = m_active;
    const auto strategy = m_active;
    strategy->beginScene(m_paints.back().scene);
}

void LODManagerPrivate::choose(const Vetra::StringID& key)
{
    const auto wanted = key.empty() ? m_default : registered(key);
    if (wanted && wanted != m_active && !wanted->isActive())
        switchTo(wanted);
    if (!m_active)
        switchTo(m_default);
}

void LODManagerPrivate::beginScene(Scene* scene, const Vetra::StringID& key)
{
    choose(key);
    const auto strategy = m_active;
    m_paints.push_back({scene, strategy});
    if (!strategy)
        return;
    try {
        strategy->beginScene(scene);
    } catch (...) {
        DeferredError dropped; // what `beginScene` threw says more
        dropped.run([&] { endScene(scene); });
        throw;
    }
}

void LODManagerPrivate::endScene(Scene* scene)
{
    const auto isItsOwn = [scene](const Paint& paint) { return paint.scene == scene; };
    const auto found = std::find_if(m_paints.rbegin(), m_paints.rend(), isItsOwn);
    if (found != m_paints.rend())
        endPaintsBeyond(static_cast<std::size_t>(m_paints.rend() - found) - 1);
}

void LODManagerPrivate::endPaintsBeyond(std::size_t count)
{
    DeferredError error;
    while (m_paints.size() > count)
        error.run([this] { leavePaint(); });
    error.rethrow();
}

void LODManagerPrivate::leavePaint()
{
    const Paint ended = std::move(m_paints.back());
    m_paints.pop_back();
    DeferredError error;
    if (const auto strategy = m_active)
        error.run([&] { strategy->endScene(ended.scene); });
    if (!m_paints.empty()) {
        const auto outer = m_paints.back().strategy;
        if (outer && outer != m_active)
            error.run([&] { switchTo(outer); });
        error.run([this] { joinPaint(); });
    }
    error.rethrow();
}

void LODManagerPrivate::forget(const Scene* scene)
{
    for (std::size_t i = 0; i < m_paints.size(); ++i) {
        if (m_paints[i].scene != scene)
            continue;
        m_paints[i].scene = nullptr;
        if (m_active && m_active->getCurrentScene() == scene)
            m_active->m_scene = nullptr;
    }
}

unsigned char LODManagerPrivate::qualityAt(double scale)
{
    if (!m_active) {
        switchTo(m_default);
        joinPaint();
    }
    struct Asking {
        LODManagerPrivate& manager;
        explicit Asking(LODManagerPrivate& m) : manager(m) { ++m.m_asking; }
        ~Asking()
        {
            if (--manager.m_asking == 0 && !manager.m_replaced.empty())
                std::exchange(manager.m_replaced, {});
        }
    } const asking(*this);
    return (m_active ? m_active.get() : m_default.get())->getQuality(scale);
}

} // namespace Tova2
