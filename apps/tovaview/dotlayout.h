#pragma once

#include "dotprocess.h"
#include "layoutwish.h"

#include <QHash>

namespace TovaView {

/// What `dot` made of a DOT text.
struct DotLayout {
    QByteArray json;   ///< one object a graph, one after the other
    QStringList notes; ///< a line each: what was tried instead, what dot warned of
    QHash<QString, QString>
        families; ///< font names of the diagram, and the installed families dot measured with
};

/// Lays `text` out with right-angled connectors, unless the file or the wish asks for others. When
/// that fails or takes too long it tries the file's own kind of connectors, then straight ones,
/// then a rougher placement of the blocks. Throws FileError, with the line of a syntax error, when
/// nothing works, and LayoutCancelled; `file` names the text in messages.
DotLayout layOut(const QString& file, const QByteArray& text, const LayoutWish& wish = {},
                 const DotLimits& limits = {}, const QString& program = QStringLiteral("dot"));

} // namespace TovaView
