#pragma once

#include "widgets/qt.h"

#include <QCoreApplication>
#include <QEvent>

namespace Widgets {

/// The simplest widget there is: a bare one of the toolkit.
class Plain : public GLWidget2 {
public:
    explicit Plain(const char* name, GLObject* parent = nullptr)
        : GLWidget2(name, parent, new QWidget)
    {}
};

/// Lets the toolkit delete what it has put off.
inline void finishDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace Widgets
