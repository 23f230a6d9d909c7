#pragma once

#include "diagramscene.h"

#include <QPixmap>
#include <QWidget>

namespace TovaView {

/// A window that shows a diagram as large as fits.
class DiagramWindow : public QWidget {
public:
    DiagramWindow(const DiagramScene& diagram, const QString& title);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPixmap render() const;

    const DiagramScene& m_diagram;
    QPixmap m_picture; ///< of the last size; painting a large diagram takes a while
};

} // namespace TovaView
