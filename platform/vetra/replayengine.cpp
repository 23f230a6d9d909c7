#include "replayengine.h"

#include <QPaintDevice>
#include <QPainter>
#include <QPicture>

namespace Vetra {

namespace {

class ReplayDevice : public QPaintDevice {
public:
    explicit ReplayDevice(QPaintEngine& engine) : m_engine(engine) {}
    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmWidth || metric == PdmHeight ? 32767 : m_recording.metric(metric);
    }

private:
    struct Recording : QPicture {
        using QPicture::metric;
    };
    QPaintEngine& m_engine;
    Recording m_recording;
};

} // namespace

void ReplayEngine::run(QPicture& picture)
{
    ReplayDevice device(*this);
    QPainter painter(&device);
    picture.play(&painter);
}

bool ReplayEngine::noteClips(const QPaintEngineState& now)
{
    const auto what = now.state();
    if (what & DirtyClipRegion) {
        QPainterPath path;
        path.addRegion(now.clipRegion());
        noteClip(path, now);
    }
    if (what & DirtyClipPath)
        noteClip(now.clipPath(), now);
    return what & (DirtyClipRegion | DirtyClipPath | DirtyClipEnabled);
}

void ReplayEngine::noteClip(const QPainterPath& path, const QPaintEngineState& now)
{
    if (now.clipOperation() != Qt::IntersectClip)
        m_clips.clear();
    if (now.clipOperation() != Qt::NoClip)
        m_clips.push_back(now.transform().map(path));
}

} // namespace Vetra
