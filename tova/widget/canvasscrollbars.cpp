#include "widget/canvasscrollbars.h"

#include "vetra/saturate.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

// The toolkit divides by zero beyond 2^31.
constexpr double kLongestRange = 1 << 30;

// What still fits although rounding says otherwise.
constexpr double kSlack = 0.01;

int indexOf(Orientation orientation)
{
    return orientation == Orientation::Horizontal ? 0 : 1;
}

QScrollBar* makeBar(QWidget& view, Qt::Orientation orientation)
{
    auto* const bar = new QScrollBar(orientation, &view);
    bar->setCursor(Qt::ArrowCursor);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->hide();
    return bar;
}

QWidget* makeCorner(QWidget& view)
{
    auto* const corner = new QWidget(&view);
    corner->setAutoFillBackground(true);
    corner->setAttribute(Qt::WA_NoMousePropagation);
    corner->setCursor(Qt::ArrowCursor);
    corner->hide();
    return corner;
}

int toBarUnits(double pixels)
{
    return Vetra::saturatedInt(std::clamp(pixels, -kLongestRange, kLongestRange));
}

} // namespace

CanvasScrollbars::CanvasScrollbars(QWidget& view, Scrolled scrolled)
    : m_scrolled(std::move(scrolled))
    , m_bars{makeBar(view, Qt::Horizontal), makeBar(view, Qt::Vertical)}
    , m_corner(makeCorner(view))
{
    for (const auto orientation : {Orientation::Horizontal, Orientation::Vertical}) {
        QObject::connect(bar(orientation), &QScrollBar::valueChanged, &view,
                         [this, orientation](int value) { moved(orientation, value); });
        QObject::connect(bar(orientation), &QScrollBar::sliderPressed, &view, [this, orientation] {
            moved(orientation, m_shown[indexOf(orientation)]);
        });
    }
}

QScrollBar* CanvasScrollbars::bar(Orientation orientation) const
{
    return m_bars[indexOf(orientation)];
}

unsigned CanvasScrollbars::place(const QRectF& content, const QSizeF& size)
{
    const QScopedValueRollback placing(m_isPlacing, true);
    const bool isWide = m_isWanted && content.width() > size.width() + kSlack;
    const bool isHigh = m_isWanted && content.height() > size.height() + kSlack;
    const int width = static_cast<int>(size.width()), height = static_cast<int>(size.height());
    const int across = bar(Orientation::Horizontal)->sizeHint().height();
    const int along = bar(Orientation::Vertical)->sizeHint().width();
    unsigned changed = 0;
    const auto put = [&](Orientation orientation, bool isNeeded, const QRect& geometry) {
        if (placeBar(orientation, isNeeded, geometry))
            changed |= static_cast<unsigned>(orientation);
    };
    put(Orientation::Horizontal, isWide,
        {0, height - across, isHigh ? width - along : width, across});
    put(Orientation::Vertical, isHigh,
        {width - along, 0, along, isWide ? height - across : height});
    m_corner->setGeometry(width - along, height - across, along, across);
    m_corner->setVisible(isWide && isHigh);
    if (isWide)
        setRange(Orientation::Horizontal, {content.left(), content.right(), size.width()});
    if (isHigh)
        setRange(Orientation::Vertical, {content.top(), content.bottom(), size.height()});
    return changed;
}

bool CanvasScrollbars::placeBar(Orientation orientation, bool isNeeded, const QRect& geometry)
{
    QScrollBar& one = *bar(orientation);
    const QRect before = this->geometry(orientation);
    if (isNeeded)
        one.setGeometry(geometry);
    if (one.isHidden() == isNeeded)
        one.setVisible(isNeeded);
    return this->geometry(orientation) != before;
}

// What is shown begins at 0; the range also takes in what lies outside the content.
void CanvasScrollbars::setRange(Orientation orientation, const Range& range)
{
    QScrollBar& one = *bar(orientation);
    const int index = indexOf(orientation);
    const double start = std::min(range.start, 0.0);
    const double length = std::max(range.end, range.page) - start - range.page;
    const double unit = std::max(1.0, length / kLongestRange);
    one.setRange(0, toBarUnits(length / unit));
    one.setPageStep(toBarUnits(range.page / unit * kPage));
    one.setSingleStep(std::max(1, toBarUnits(range.page / unit * kLine)));
    one.setValue(toBarUnits(-start / unit));
    m_unit[index] = unit;
    m_shown[index] = one.value();
}

void CanvasScrollbars::moved(Orientation orientation, int value)
{
    if (m_isPlacing)
        return;
    const int index = indexOf(orientation);
    const double distance =
        m_unit[index] * (static_cast<double>(value) - std::exchange(m_shown[index], value));
    if (orientation == Orientation::Horizontal)
        m_scrolled(distance, 0);
    else
        m_scrolled(0, distance);
}

bool CanvasScrollbars::isVisible(Orientation orientation) const
{
    return !bar(orientation)->isHidden();
}

QRect CanvasScrollbars::geometry(Orientation orientation) const
{
    return isVisible(orientation) ? bar(orientation)->geometry() : QRect();
}

} // namespace Tova2
