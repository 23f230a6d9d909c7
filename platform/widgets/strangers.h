#pragma once

class QWidget;

namespace Widgets {

/// Hides it and leaves it without a parent.
void release(QWidget& widget);

/// Takes the widgets of living objects out of `widget`, which is going to be deleted.
void releaseStrangers(const QWidget& widget);

/// Of a widget that has outlived the application object: the toolkit cannot delete it any more.
void abandon(QWidget* widget);

} // namespace Widgets
