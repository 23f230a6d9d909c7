#include "filedialogs.h"

#include "demodiagram.h"
#include "exporter.h"
#include "fileerror.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>

#include <limits>

namespace TovaView {
namespace {

constexpr double pixelsAPoint = 2;
constexpr double mostPixels = 64e6, longestPixels = 32767;

QString folderOf(const QString& file)
{
    return file.isEmpty() || isDemoDiagram(file) ? QDir::homePath()
                                                 : QFileInfo(file).absolutePath();
}

bool endsIn(const QString& name, const char* ending)
{
    return name.endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

} // namespace

QString askForDiagram(QWidget& parent, const QString& present)
{
    return QFileDialog::getOpenFileName(
        &parent, QStringLiteral("Open Diagram"), folderOf(present),
        QStringLiteral("Diagrams (*.dot *.gv *.plain);;All Files (*)"));
}

QString askForTarget(QWidget& parent, const QString& diagram)
{
    const QString png = QStringLiteral("PNG Picture (*.png)");
    const QString pdf = QStringLiteral("PDF Document (*.pdf)");
    const QString proposal =
        QDir(folderOf(diagram))
            .filePath(QFileInfo(diagram).completeBaseName() + QStringLiteral(".png"));
    QString filter = png;
    QString target = QFileDialog::getSaveFileName(&parent, QStringLiteral("Export"), proposal,
                                                  png + QStringLiteral(";;") + pdf, &filter);
    if (!target.isEmpty() && !endsIn(target, ".png") && !endsIn(target, ".pdf"))
        target += filter == pdf ? QStringLiteral(".pdf") : QStringLiteral(".png");
    return target;
}

void exportTo(const DiagramScene& diagram, const QString& target)
{
    QStringList notes;
    if (endsIn(target, ".pdf"))
        return writePdf(diagram, {}, target, notes);
    const double width = diagram.area.width * pixelsAPoint;
    const double height = diagram.area.height * pixelsAPoint;
    const bool isGiant =
        width * height > mostPixels || width > longestPixels || height > longestPixels;
    writePng(paintPicture(diagram, {isGiant ? 0 : pixelsAPoint, {}}, target, notes), target);
}

void askAndPrint(QWidget& parent, const DiagramScene& diagram, const QString& title)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageOrientation(diagram.area.width > diagram.area.height ? QPageLayout::Landscape
                                                                        : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, &parent);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QSize paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    const auto page = pageFor(diagram.area, {0, paper}, std::numeric_limits<int>::max(),
                              std::numeric_limits<double>::max());
    if (!page)
        throw FileError(title, 0, QStringLiteral("does not fit on the paper"));
    diagram.scene->render(printer, {0, 0, double(paper.width()), double(paper.height())},
                          shownOn(*page, diagram.area));
    if (printer.printerState() == QPrinter::Error)
        throw FileError(title, 0, QStringLiteral("cannot be printed"));
}

} // namespace TovaView
