#include "diagramfile.h"

#include "connectortrim.h"
#include "dotlayout.h"
#include "fileerror.h"
#include "inputfile.h"
#include "jsonreader.h"
#include "labelplacement.h"
#include "plainreader.h"

#include <QFileInfo>

namespace TovaView {

Diagram readDiagram(const QString& path, QStringList& notes, const LayoutWish& wish)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool plain = suffix == QLatin1String("plain");
    const QByteArray text = readText(path);
    if (plain)
        return readPlain(path, text);
    if (suffix != QLatin1String("dot") && suffix != QLatin1String("gv"))
        throw FileError(path, 0, QStringLiteral("is neither .dot, .gv nor .plain"));
    const DotLayout layout = layOut(path, text, wish);
    notes += layout.notes;
    int graphs = 0;
    Diagram diagram = readJson(path, layout.json, layout.families, &graphs);
    trimConnectors(diagram);
    placeFarLabels(diagram);
    if (graphs > 1)
        notes << QStringLiteral("holds %1 graphs; they are shown side by side").arg(graphs);
    if (diagram.blocks.empty() && diagram.clusters.empty())
        notes << QStringLiteral("the graph is empty");
    return diagram;
}

} // namespace TovaView
