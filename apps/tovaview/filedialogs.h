#pragma once

#include "diagramscene.h"

#include <QString>

class QWidget;

namespace TovaView {

// Each asks the user with a dialog of `parent`. An empty name: the user has thought better of it.

/// For a diagram to open; `present` is the one that is open.
QString askForDiagram(QWidget& parent, const QString& present);
/// For where to export a diagram's picture to; the name ends in .png or .pdf.
QString askForTarget(QWidget& parent, const QString& diagram);
/// A PNG file has two pixels a point, as long as that is no giant. Throws FileError.
void exportTo(const DiagramScene& diagram, const QString& target);
/// For a printer, and prints on one page, as large as fits. Throws FileError.
void askAndPrint(QWidget& parent, const DiagramScene& diagram, const QString& title);

} // namespace TovaView
