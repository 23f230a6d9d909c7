#pragma once

#include <QPaintEngine>
#include <QPainterPath>

#include <vector>

class QPicture;

namespace Vetra {

/// What a picture is replayed into: knows the clips of the recording, all of which hold, in the
/// picture's coordinates.
class ReplayEngine : public QPaintEngine {
public:
    ReplayEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    /// In coordinates, and at a resolution, as the picture was recorded in.
    void run(QPicture& picture);

protected:
    /// Whether the clips, or whether they are in use, are different now.
    bool noteClips(const QPaintEngineState& now);
    const std::vector<QPainterPath>& clips() const { return m_clips; }

private:
    void noteClip(const QPainterPath& path, const QPaintEngineState& now);

    std::vector<QPainterPath> m_clips;
};

} // namespace Vetra
