#include "diagramwindow.h"

#include "pagesize.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace TovaView {
namespace {

constexpr double largestShare = 0.8; ///< of the screen, at first
constexpr QSize smallestWindow(320, 200);

QSize firstSize(const Rect& area)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize() * largestShare;
    const QSizeF wanted = QSizeF(area.width, area.height).scaled(screen, Qt::KeepAspectRatio);
    return wanted.toSize().expandedTo(smallestWindow);
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
        m_diagram.scene->render(painter, page->target, m_diagram.area);
    }
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void DiagramWindow::paintEvent(QPaintEvent*)
{
    if (m_picture.size() != size() * devicePixelRatioF())
        m_picture = render();
    QPainter(this).drawPixmap(0, 0, m_picture);
}

void DiagramWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Quit))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace TovaView
