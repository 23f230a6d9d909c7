#pragma once

#include <QObject>
#include <QPointF>
#include <QRect>

#include <functional>

class QPainter;

namespace Tova2 {

/// A wheel of spokes that turns until it is stopped.
class BusyAnimation final : public QObject {
public:
    /// `turned` asks for the wheel's pixels to be painted again.
    explicit BusyAnimation(std::function<void()> turned);

    /// At a scene point.
    void start(const QPointF& scenePoint);
    void stop();
    bool isRunning() const { return m_timer != 0; }
    const QPointF& scenePoint() const { return m_scenePoint; }

    /// What the wheel covers about its middle, in view pixels.
    static QRect extent(const QPointF& middle);
    void paint(QPainter& painter, const QPointF& middle) const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::function<void()> m_turned;
    QPointF m_scenePoint;
    int m_timer = 0;
    int m_turn = 0; ///< spokes since the start
};

} // namespace Tova2
