#pragma once

#include "nodes/curvedpathnodeimpl.h"
#include "nodes/lineends.h"

namespace Tova2 {

class OpenCurvedPathNodeImpl final : public CurvedPathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.OpenCurvedPathNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    bool isa(const char* name) const override;
    const LineEnds& ends() const { return m_ends; }
    void setDecoration(LineEnds::Which which, const LineEndDecoration& decoration);
    void applyDecorations();

protected:
    bool isClosed() const override { return false; }
    Range drawnRange() const override;
    Cubic drawnCurve(std::size_t segment) const override;
    void verticesChanged() override { placeDecorations(); }
    void dropCaches(ChangeLevel level) override;

private:
    /// Where the drawn line begins or ends: on which curve, and at which parameter of it.
    struct Cut {
        std::size_t segment;
        double t;
    };

    void finishDecorations(bool isDrawnElsewhere);
    void placeDecorations();
    LineTip tip(LineEnds::Which which) const;
    Cut cut(LineEnds::Which which) const;

    LineEnds m_ends;
    mutable std::optional<Cut> m_start, m_end; ///< as far as they have been asked for
};

} // namespace Tova2
