#include "widgets/glwindow2.h"

#include "strangers.h"

#include "widgets/gllayout2.h"
#include "widgets/objectwatch.h"
#include "widgets/qt.h"

#include <QApplication>

namespace Widgets {

namespace {

QWidget* makeWindow()
{
    const bool isPossible = qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
    return isPossible ? new QWidget(nullptr, Qt::Window) : nullptr;
}

GLBoxLayout2* makeFilling(GLWidget2& content)
{
    auto* const filling = new GLBoxLayout2(GLBoxLayout2::Direction::Vertical, "Content", nullptr);
    filling->setMargins({});
    filling->addWidget(&content);
    return filling;
}

} // namespace

GLWindow2::GLWindow2(const Vetra::StringID& name, GLObject* parent)
    : GLWidget2(name, parent, makeWindow())
{
    // A parent has made it a part of itself.
    if (QWidget* const window = toQt(*this))
        window->setWindowFlags(Qt::Window);
}

GLWindow2::~GLWindow2() = default;

std::u16string GLWindow2::getTitle() const
{
    const QWidget* const window = toQt(*this);
    return window ? window->windowTitle().toStdU16String() : std::u16string();
}

void GLWindow2::setTitle(const std::u16string& title)
{
    if (QWidget* const window = toQt(*this))
        window->setWindowTitle(QString::fromStdU16String(title));
}

GLWidget2* GLWindow2::getContent() const
{
    const auto placed = getLayout() ? getLayout()->getWidgets() : std::vector<GLWidget2*>();
    return placed.empty() ? nullptr : placed.front();
}

void GLWindow2::setContent(GLWidget2* content)
{
    GLWidget2* const before = getContent();
    if (content == before)
        return;
    const Use use(*this);
    if (before)
        release(*toQt(*before));
    if (use.hasEnded())
        return;
    if (!content)
        return setLayout(nullptr);
    const ObjectWatch<GLLayout2> filling(makeFilling(*content));
    setLayout(filling.get());
    if (content == getContent())
        content->show();
    else if (filling)
        filling->destroy(); // refused
}

void GLWindow2::close()
{
    if (QWidget* const window = toQt(*this))
        window->close();
}

bool GLWindow2::isa(const char* typeName) const
{
    return sameType(typeName, "Widgets.Window") || GLWidget2::isa(typeName);
}

} // namespace Widgets
