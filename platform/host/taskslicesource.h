#pragma once

#include "host/cooperativetaskmanager.h"

namespace Host {

/// Slices from the toolkit's event loop: a zero timer, which the loop serves after what is pending.
class TaskSliceSource final : public CooperativeTaskManager::SliceSource {
public:
    TaskSliceSource();
    ~TaskSliceSource() override;

    void request(std::function<void()> callback) override;
    void cancel() override;

private:
    class Ticker;
    std::unique_ptr<Ticker> m_ticker;
};

} // namespace Host
