#include "widgets/glwidget2.h"

#include "strangers.h"
#include "widgetlink.h"

#include "vetra/qt.h"
#include "widgets/gllayout2.h"
#include "widgets/objectwatch.h"
#include "widgets/qt.h"

#include <QGuiApplication>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QTextDocument>
#include <QThread>

#include <algorithm>
#include <utility>

namespace Widgets {

using Vetra::fromQt;
using Vetra::toQt;

namespace {

constexpr int farthest = 1 << 24;

QPoint withinReach(const Vetra::GLPoint<int>& p)
{
    return {std::clamp(p.x, -farthest, farthest), std::clamp(p.y, -farthest, farthest)};
}

/// What all screens show together, and no less than `smallScreens`: the toolkit takes memory for
/// each pixel of a window.
QSize largestWindow()
{
    constexpr QSize smallScreens(4096, 4096);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualSize().expandedTo(smallScreens) : smallScreens;
}

QSize withinReach(const QSize& size, const QWidget& widget)
{
    constexpr QSize largest(GLWidget2::maxSide, GLWidget2::maxSide);
    return size.expandedTo({0, 0}).boundedTo(widget.isWindow() ? largestWindow() : largest);
}

/// A tool tip in the toolkit is taken for markup when it looks like it, and that may read files.
QString asPlainText(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

bool isInEventLoop()
{
    return QThread::currentThread()->loopLevel() > 0;
}

} // namespace

struct GLWidget2::Private {
    QPointer<QWidget> widget;
    QPointer<WidgetLink> link;
    ObjectWatch<GLLayout2> layout;
    std::u16string toolTip;
    GLWidgetEmitters emitters;

    /// Null as well when the application object has gone: the toolkit's widgets are dead then.
    QWidget* usable() const { return QCoreApplication::instance() ? widget.data() : nullptr; }
    void end(bool isInEvent);
};

void GLWidget2::Private::end(bool isInEvent)
{
    if (layout)
        layout->destroy();
    const QPointer<QWidget> gone = widget;
    if (!gone)
        return;
    const bool isUsable = usable();
    link->cutOff();
    widget.clear();
    if (!isUsable)
        return abandon(gone);
    releaseStrangers(*gone);
    if (gone)
        release(*gone);
    if (gone && (isInEvent || isInEventLoop()))
        gone->deleteLater();
    else
        delete gone;
}

GLWidget2::GLWidget2(const Vetra::StringID& name, GLObject* parent, QWidget* widget)
    : GLObject(name, parent), m_d(std::make_unique<Private>())
{
    if (!widget)
        return;
    m_d->widget = widget;
    m_d->link = new WidgetLink(*this, *widget);
    widget->setObjectName(QString::fromStdString(name.str()));
    const auto* const around = dynamic_cast<const GLWidget2*>(getParent());
    if (around && toQt(*around))
        widget->setParent(toQt(*around));
}

GLWidget2::~GLWidget2()
{
    m_d->end(isInUse());
}

void GLWidget2::doEnd()
{
    m_d->end(isInUse());
}

Vetra::GLRect<int> GLWidget2::getGeometry() const
{
    return m_d->usable() ? fromQt(m_d->widget->geometry()) : Vetra::GLRect<int>();
}

void GLWidget2::setGeometry(const Vetra::GLRect<int>& geometry)
{
    if (m_d->usable())
        m_d->widget->setGeometry(
            {withinReach(Vetra::GLPoint<int>{geometry.x, geometry.y}),
             withinReach(QSize(geometry.width, geometry.height), *m_d->widget)});
}

Vetra::GLPoint<int> GLWidget2::getPosition() const
{
    const auto geometry = getGeometry();
    return {geometry.x, geometry.y};
}

void GLWidget2::setPosition(const Vetra::GLPoint<int>& position)
{
    const auto size = getSize();
    setGeometry({position.x, position.y, size.width, size.height});
}

Vetra::Size<int> GLWidget2::getSize() const
{
    return m_d->usable() ? fromQt(m_d->widget->size()) : Vetra::Size<int>();
}

void GLWidget2::setSize(const Vetra::Size<int>& size)
{
    const auto position = getPosition();
    setGeometry({position.x, position.y, size.width, size.height});
}

Vetra::GLRect<int> GLWidget2::getGlobalPosition() const
{
    if (!m_d->usable())
        return {};
    return fromQt(QRect(m_d->widget->mapToGlobal({0, 0}), m_d->widget->size()));
}

bool GLWidget2::isVisible() const
{
    return m_d->usable() && m_d->widget->isVisible();
}

void GLWidget2::setVisible(bool visible)
{
    if (m_d->usable())
        m_d->widget->setVisible(visible);
}

bool GLWidget2::isEnabled() const
{
    return m_d->usable() && m_d->widget->isEnabled();
}

void GLWidget2::setEnabled(bool enabled)
{
    if (m_d->usable())
        m_d->widget->setEnabled(enabled);
}

bool GLWidget2::hasFocus() const
{
    return m_d->usable() && m_d->widget->hasFocus();
}

void GLWidget2::setFocus()
{
    if (m_d->usable())
        m_d->widget->setFocus();
}

void GLWidget2::clearFocus()
{
    if (m_d->usable())
        m_d->widget->clearFocus();
}

std::u16string GLWidget2::getToolTip() const
{
    return m_d->usable() ? m_d->toolTip : std::u16string();
}

void GLWidget2::setToolTip(const std::u16string& text)
{
    if (!m_d->usable())
        return;
    m_d->toolTip = text;
    m_d->widget->setToolTip(asPlainText(QString::fromStdU16String(text)));
}

Vetra::Cursor GLWidget2::getCursor() const
{
    return m_d->usable() ? fromQt(m_d->widget->cursor()) : Vetra::Cursor();
}

void GLWidget2::setCursor(const Vetra::Cursor& cursor)
{
    if (m_d->usable())
        m_d->widget->setCursor(toQt(cursor));
}

void GLWidget2::unsetCursor()
{
    if (m_d->usable())
        m_d->widget->unsetCursor();
}

void GLWidget2::update()
{
    if (m_d->usable())
        m_d->widget->update();
}

GLLayout2* GLWidget2::getLayout() const
{
    GLLayout2* const layout = m_d->layout.get();
    const bool isHere = layout && layout->layout() && m_d->usable() &&
                        layout->layout()->parentWidget() == m_d->widget;
    return isHere ? layout : nullptr;
}

void GLWidget2::setLayout(GLLayout2* layout)
{
    if (layout == getLayout() || (layout && !layout->canServe(*this)))
        return;
    const Use use(*this);
    const ObjectWatch<GLLayout2> next(layout);
    if (GLLayout2* const before = getLayout())
        before->destroy();
    // Whoever heard of that end may have ended these as well.
    if (use.hasEnded() || !next || !next->canServe(*this))
        return;
    m_d->layout = next;
    next->serve(*this);
}

GLWidgetEmitters& GLWidget2::getGLWidgetEmitters() noexcept
{
    return m_d->emitters;
}

bool GLWidget2::isa(const char* typeName) const
{
    return sameType(typeName, "Widgets.Widget") || GLObject::isa(typeName);
}

QWidget* toQt(const GLWidget2& widget)
{
    return widget.m_d->usable();
}

} // namespace Widgets
