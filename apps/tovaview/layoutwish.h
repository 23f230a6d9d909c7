#pragma once

#include <QString>

#include <atomic>
#include <mutex>

namespace TovaView {

/// What somebody who waits for a layout says meanwhile, and hears of it. Its calls may come from
/// any thread.
class LayoutControl {
public:
    void cancel() { m_isCancelled = true; }
    bool isCancelled() const { return m_isCancelled; }

    /// Gives up the ways that place blocks in ranks, for a quick placement by forces.
    void hurry() { m_isHurried = true; }
    bool isHurried() const { return m_isHurried; }

    /// The way that is being tried, in words; empty before the first one.
    QString stage() const
    {
        const std::lock_guard lock(m_mutex);
        return m_stage;
    }
    void setStage(const QString& stage)
    {
        const std::lock_guard lock(m_mutex);
        m_stage = stage;
    }

private:
    std::atomic<bool> m_isCancelled = false, m_isHurried = false;
    mutable std::mutex m_mutex;
    QString m_stage;
};

struct LayoutWish {
    bool ownConnectors = false;       ///< as the file has them, instead of right-angled ones
    LayoutControl* control = nullptr; ///< null when nobody waits; not owned
};

/// Thrown where a layout is cancelled.
struct LayoutCancelled {};

} // namespace TovaView
