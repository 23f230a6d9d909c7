#include "widgets/gllayout2.h"

#include "strangers.h"
#include "widgetlink.h"

#include "widgets/qt.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>
#include <QPointer>

#include <algorithm>

namespace Widgets {

namespace {

bool canMakeWidgets()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

int length(int value)
{
    return std::clamp(value, 0, GLWidget2::maxSide);
}

bool isCell(int index)
{
    return index >= 0 && index < GLGridLayout2::maxCells;
}

/// Across windows, too, where the toolkit's own test stops.
bool isAround(const QWidget* outer, const QWidget* inner)
{
    while (inner && inner != outer)
        inner = inner->parentWidget();
    return inner;
}

GLWidget2* ownerOf(const QWidget* widget)
{
    if (!widget)
        return nullptr;
    for (QObject* const child : widget->children()) {
        if (const auto* const link = dynamic_cast<WidgetLink*>(child))
            return link->owner();
    }
    return nullptr;
}

QBoxLayout* makeBox(GLBoxLayout2::Direction direction)
{
    if (!canMakeWidgets())
        return nullptr;
    return new QBoxLayout(direction == GLBoxLayout2::Direction::Vertical ? QBoxLayout::TopToBottom
                                                                         : QBoxLayout::LeftToRight);
}

} // namespace

struct GLLayout2::Private {
    /// Holds the layout until it has a widget to serve: the toolkit keeps track of the widgets of a
    /// layout only where that has a place.
    std::unique_ptr<QWidget> home;
    QPointer<QLayout> layout;
};

GLLayout2::GLLayout2(const Vetra::StringID& name, GLObject* parent, QLayout* layout)
    : GLObject(name, parent), m_d(std::make_unique<Private>())
{
    if (!layout)
        return;
    m_d->layout = layout;
    m_d->home = std::make_unique<QWidget>();
    m_d->home->setLayout(layout);
}

GLLayout2::~GLLayout2()
{
    GLLayout2::doEnd();
}

void GLLayout2::doEnd()
{
    if (!canMakeWidgets()) {
        abandon(m_d->home.release());
        return;
    }
    if (m_d->home)
        releaseStrangers(*m_d->home);
    delete m_d->layout;
    m_d->home.reset();
}

QLayout* GLLayout2::layout() const noexcept
{
    return canMakeWidgets() ? m_d->layout.data() : nullptr;
}

int GLLayout2::getSpacing() const
{
    return layout() ? std::max(0, layout()->spacing()) : 0;
}

void GLLayout2::setSpacing(int spacing)
{
    if (layout())
        layout()->setSpacing(length(spacing));
}

Vetra::GLRect<int> GLLayout2::getMargins() const
{
    const QMargins margins = layout() ? layout()->contentsMargins() : QMargins();
    return {margins.left(), margins.top(), margins.right(), margins.bottom()};
}

void GLLayout2::setMargins(const Vetra::GLRect<int>& margins)
{
    if (layout())
        layout()->setContentsMargins(length(margins.x), length(margins.y), length(margins.width),
                                     length(margins.height));
}

std::vector<GLWidget2*> GLLayout2::getWidgets() const
{
    std::vector<GLWidget2*> result;
    for (int i = 0; layout() && i < layout()->count(); ++i) {
        if (GLWidget2* const widget = ownerOf(layout()->itemAt(i)->widget()))
            result.push_back(widget);
    }
    return result;
}

void GLLayout2::removeWidget(GLWidget2* widget)
{
    if (layout() && widget && toQt(*widget))
        layout()->removeWidget(toQt(*widget));
}

bool GLLayout2::accepts(const GLWidget2* widget) const
{
    const QWidget* const added = layout() && widget ? toQt(*widget) : nullptr;
    return added && !isAround(added, layout()->parentWidget());
}

bool GLLayout2::canServe(const GLWidget2& widget) const
{
    const QWidget* const served = toQt(widget);
    const auto holds = [served](const GLWidget2* w) { return isAround(toQt(*w), served); };
    const auto placed = getWidgets();
    const bool isFree = served && (!served->layout() || widget.getLayout());
    return isFree && layout() && std::none_of(placed.begin(), placed.end(), holds);
}

void GLLayout2::serve(GLWidget2& widget)
{
    toQt(widget)->setLayout(layout());
    m_d->home.reset();
}

bool GLLayout2::isa(const char* typeName) const
{
    return sameType(typeName, "Widgets.Layout") ||
           sameType(typeName, getFullyQualifiedKobjTypeName()) || GLObject::isa(typeName);
}

GLBoxLayout2::GLBoxLayout2(Direction direction, const Vetra::StringID& name, GLObject* parent)
    : GLLayout2(name, parent, makeBox(direction))
{}

void GLBoxLayout2::addWidget(GLWidget2* widget, int stretch)
{
    insertWidget(-1, widget, stretch);
}

void GLBoxLayout2::insertWidget(int index, GLWidget2* widget, int stretch)
{
    if (!accepts(widget))
        return;
    removeWidget(widget);
    static_cast<QBoxLayout*>(layout())->insertWidget(index, toQt(*widget), length(stretch));
}

void GLBoxLayout2::setStretch(int index, int stretch)
{
    if (layout() && index >= 0 && index < layout()->count())
        static_cast<QBoxLayout*>(layout())->setStretch(index, length(stretch));
}

GLGridLayout2::GLGridLayout2(const Vetra::StringID& name, GLObject* parent)
    : GLLayout2(name, parent, canMakeWidgets() ? new QGridLayout : nullptr)
{}

void GLGridLayout2::addWidget(GLWidget2* widget, int row, int column, int rowSpan, int columnSpan)
{
    const bool fits = isCell(row) && isCell(column) && rowSpan >= 1 && columnSpan >= 1 &&
                      rowSpan <= maxCells - row && columnSpan <= maxCells - column;
    if (!fits || !accepts(widget))
        return;
    removeWidget(widget);
    static_cast<QGridLayout*>(layout())->addWidget(toQt(*widget), row, column, rowSpan, columnSpan);
}

void GLGridLayout2::setRowStretch(int row, int stretch)
{
    if (layout() && isCell(row))
        static_cast<QGridLayout*>(layout())->setRowStretch(row, length(stretch));
}

void GLGridLayout2::setColumnStretch(int column, int stretch)
{
    if (layout() && isCell(column))
        static_cast<QGridLayout*>(layout())->setColumnStretch(column, length(stretch));
}

} // namespace Widgets
