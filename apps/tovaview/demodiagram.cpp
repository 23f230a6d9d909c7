#include "demodiagram.h"

#include <QtGlobal>

// Has to stand outside of namespaces.
static void useResources()
{
    Q_INIT_RESOURCE(tovaview);
}

namespace TovaView {

QString demoDiagram()
{
    useResources();
    return QStringLiteral(":/tovaview/statemachine.dot");
}

bool isDemoDiagram(const QString& file)
{
    return file == demoDiagram();
}

} // namespace TovaView
