#include "widget/canvaswebblock.h"

#include "widget/viewstate.h"

#include <QWidget>

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

constexpr double kLongestSide = 16384; // in pixels; the toolkit's widgets are not made for more
constexpr double kSmallestScale = 0.05, kLargestScale = 32;

WebBlockFactory& factory()
{
    static WebBlockFactory current;
    return current;
}

bool canBeShown(const QRectF& rect, const QSizeF& view)
{
    return rect.intersects({{0, 0}, view}) && rect.width() <= kLongestSide &&
           rect.height() <= kLongestSide;
}

} // namespace

WebBlock::~WebBlock() = default;

void setWebBlockFactory(WebBlockFactory made)
{
    factory() = std::move(made);
}

bool CanvasWebBlock::show(const QRectF& sceneRect, const std::string& html, QWidget& canvas)
{
    const auto make = factory(); // it may replace itself
    auto block = make ? make(canvas) : nullptr;
    if (!block || !block->widget())
        return false;
    block->widget()->hide();
    block->setHtml(html);
    m_block = std::move(block);
    m_sceneRect = sceneRect;
    return true;
}

void CanvasWebBlock::setName(const QString& name)
{
    if (exists())
        m_block->widget()->setObjectName(name);
}

void CanvasWebBlock::place(const ViewState& view)
{
    if (!exists())
        return;
    const QRectF rect = view.toView(m_sceneRect);
    const bool isShown = canBeShown(rect, view.size());
    if (isShown) {
        m_block->setScale(std::clamp(view.scale(), kSmallestScale, kLargestScale));
        m_block->widget()->setGeometry(rect.toAlignedRect());
    }
    m_block->widget()->setVisible(isShown);
}

QPixmap CanvasWebBlock::picture() const
{
    if (!exists() || m_block->widget()->isHidden())
        return {};
    QWidget& page = *m_block->widget();
    const QRect inside = page.geometry().intersected(page.parentWidget()->rect());
    return page.grab(inside.translated(-page.pos()));
}

} // namespace Tova2
