#pragma once

class QWidget;

namespace Widgets {

/// Hides it and leaves it without a parent.
void release(QWidget& widget);

/// Takes the widgets of living objects out of `widget`, which is going to be deleted.
void releaseStrangers(const QWidget& widget);

} // namespace Widgets
