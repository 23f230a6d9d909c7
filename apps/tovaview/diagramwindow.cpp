#include "diagramwindow.h"

#include "pagesize.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <exception>

namespace TovaView {
namespace {

constexpr double largestShare = 0.8; ///< of the screen, at first
constexpr double largestZoom = 2;    ///< at first
constexpr QSize smallestWindow(320, 200);

QSize firstSize(const Rect& area)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize() * largestShare;
    const QSizeF natural(area.width, area.height);
    const QSizeF fitted = natural.scaled(screen, Qt::KeepAspectRatio);
    return fitted.boundedTo(natural * largestZoom).toSize().expandedTo(smallestWindow);
}

} // namespace

DiagramWindow::DiagramWindow(const DiagramScene& diagram, const QString& title) : m_diagram(diagram)
{
    setWindowTitle(title);
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(firstSize(diagram.area));
}

QPixmap DiagramWindow::render() const
{
    const double ratio = devicePixelRatioF();
    const QSize pixels = size() * ratio;
    QPixmap picture(pixels);
    picture.fill(Qt::white);
    const auto page = pageFor(m_diagram.area, {0, pixels}, 32767, 1 << 28);
    if (page) {
        QPainter painter(&picture);
        m_diagram.scene->render(painter, {}, shownOn(*page, m_diagram.area));
    }
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void DiagramWindow::paintEvent(QPaintEvent*)
{
    // No exception may pass through the toolkit's event loop; a blank window is what is left to
    // show.
    try {
        if (m_picture.size() != size() * devicePixelRatioF())
            m_picture = render();
    } catch (const std::exception&) {
        m_picture = QPixmap();
    }
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawPixmap(0, 0, m_picture);
}

void DiagramWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Quit))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace TovaView
