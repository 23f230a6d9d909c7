#pragma once

#include "tova/events/autoscroller.h"
#include "vetra/glmimedata.h"

#include <string>
#include <vector>

namespace Tova2 {

/// What input asks of the canvas that it arrives on, besides what events ask of it.
class DispatchHost : public AutoscrollView {
public:
    /// False for a disabled canvas.
    virtual bool takesInput() const = 0;
    /// Of what is dragged here from outside, no other formats are read.
    virtual std::vector<std::string> dropFormats() const = 0;
    /// Of the drag that is over the canvas, or was begun on it.
    virtual Vetra::GLMimeData dragData() const = 0;
    virtual void setDragData(const Vetra::GLMimeData& data) = 0;
};

} // namespace Tova2
