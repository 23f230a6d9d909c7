#include "widget/busyanimation.h"

#include <QPainter>

#include <utility>

namespace Tova2 {

namespace {

constexpr int kSpokes = 12;
constexpr int kMillisecondsASpoke = 80;
constexpr double kInner = 7, kOuter = 14, kWidth = 3; // view pixels
constexpr double kFaintest = 0.15;
constexpr QRgb kInk = 0x3c4a5a;

} // namespace

BusyAnimation::BusyAnimation(std::function<void()> turned) : m_turned(std::move(turned)) {}

void BusyAnimation::start(const QPointF& scenePoint)
{
    m_turned();
    m_scenePoint = scenePoint;
    if (!isRunning())
        m_timer = startTimer(kMillisecondsASpoke);
    m_turned();
}

void BusyAnimation::stop()
{
    if (!isRunning())
        return;
    killTimer(std::exchange(m_timer, 0));
    m_turned();
}

QRect BusyAnimation::extent(const QPointF& middle)
{
    constexpr double reach = kOuter + kWidth;
    return QRectF(middle - QPointF(reach, reach), middle + QPointF(reach, reach)).toAlignedRect();
}

void BusyAnimation::paint(QPainter& painter, const QPointF& middle) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(middle);
    for (int i = 0; i < kSpokes; ++i) {
        const double age = ((m_turn - i) % kSpokes + kSpokes) % kSpokes;
        QColor ink(kInk);
        ink.setAlphaF(1 - (1 - kFaintest) * age / (kSpokes - 1));
        painter.setPen(QPen(ink, kWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -kInner), QPointF(0, -kOuter));
        painter.rotate(360.0 / kSpokes);
    }
    painter.restore();
}

void BusyAnimation::timerEvent(QTimerEvent*)
{
    m_turn = (m_turn + 1) % kSpokes;
    m_turned();
}

} // namespace Tova2
