#pragma once

#include "tova/widget/webblock.h"

#include <QPixmap>
#include <QRectF>

#include <memory>
#include <string>

namespace Tova2 {

class ViewState;

/// The page of HTML that lies over a part of the scene, if there is one, and moves along with it.
class CanvasWebBlock {
public:
    /// Replaces what was shown; whether there is an engine to show it.
    bool show(const QRectF& sceneRect, const std::string& html, QWidget& canvas);
    void remove() { m_block.reset(); }
    bool exists() const { return m_block && m_block->widget(); }
    /// For test drivers that look for the toolkit's widget.
    void setName(const QString& name);
    /// After any change of the view.
    void place(const ViewState& view);
    /// What of it lies inside the canvas.
    QPixmap picture() const;

private:
    std::unique_ptr<WebBlock> m_block;
    QRectF m_sceneRect;
};

} // namespace Tova2
