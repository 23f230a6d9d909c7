#include "strangers.h"

#include "widgetlink.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <vector>

namespace Widgets {

namespace {

QVector<QPointer<QWidget>> strangersIn(const QWidget& widget)
{
    QVector<QPointer<QWidget>> result;
    for (QObject* const child : widget.findChildren<QObject*>()) {
        const auto* const link = dynamic_cast<WidgetLink*>(child);
        if (link && link->owner() && link->parent() != &widget)
            result.append(static_cast<QWidget*>(link->parent()));
    }
    return result;
}

} // namespace

void release(QWidget& widget)
{
    const QPointer<QWidget> self(&widget);
    widget.hide();
    if (self)
        widget.setParent(nullptr);
}

void abandon(QWidget* widget)
{
    // Kept where leak checkers find it.
    static auto& abandoned = *new std::vector<QWidget*>;
    abandoned.push_back(widget);
}

void releaseStrangers(const QWidget& widget)
{
    // Hiding one tells listeners, who may delete any of them.
    for (const auto& stranger : strangersIn(widget)) {
        if (stranger)
            release(*stranger);
    }
}

} // namespace Widgets
