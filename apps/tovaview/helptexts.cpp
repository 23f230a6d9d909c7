#include "helptexts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

namespace TovaView {
namespace {

struct Row {
    const char* input;
    const char* meaning;
};

constexpr Row rows[] = {
    {"Wheel, pinch", "zoom about the pointer; the wheel with Ctrl or Shift scrolls"},
    {"Middle button, Space and drag, two fingers", "pan; let go in motion and it glides on"},
    {"Click, drag over the ground", "select a block, or all that the frame touches; Shift adds"},
    {"Drag a block", "move what is selected; Shift keeps to one direction, Esc cancels"},
    {"Arrow keys", "move what is selected by 5 points, with Shift by 1; else scroll"},
    {"N, Shift+N", "select the next block, the previous one"},
    {"Page Up, Page Down", "scroll by pages"},
    {"+, −, 0, F, Shift+F", "zoom in, zoom out, actual size, fit, zoom to what is selected"},
    {"Esc", "cancel, then select nothing"},
};

/// Not a message box, which is never wider than the screen less 480 pixels and cuts off the rest.
void show(QWidget& parent, const QString& title, const QString& text)
{
    auto* const box = new QDialog(&parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(title);
    auto* const layout = new QVBoxLayout(box);
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::RichText);
    layout->addWidget(label);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, box, &QDialog::reject);
    box->show();
}

} // namespace

void showKeys(QWidget& parent)
{
    QString text = QStringLiteral("<table cellspacing=6>");
    for (const Row& row : rows)
        text += QStringLiteral("<tr><td style='white-space:nowrap'><b>%1</b>&nbsp;&nbsp;</td>"
                               "<td style='white-space:nowrap'>%2</td></tr>")
                    .arg(QString::fromUtf8(row.input), QString::fromUtf8(row.meaning));
    show(parent, QStringLiteral("Keys and Mouse"), text + QStringLiteral("</table>"));
}

void showAbout(QWidget& parent)
{
    show(parent, QStringLiteral("About tovaview"),
         QStringLiteral("<h3>tovaview %1</h3><p>Shows Graphviz diagrams, and lets their blocks "
                        "be moved.</p><p>It is drawn by the scene graph of the Tova library.</p>")
             .arg(QStringLiteral(TOVAVIEW_VERSION)));
}

} // namespace TovaView
