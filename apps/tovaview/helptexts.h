#pragma once

class QWidget;

namespace TovaView {

/// Windows beside the program's own that the user can leave open.
void showKeys(QWidget& parent);
void showAbout(QWidget& parent);

} // namespace TovaView
