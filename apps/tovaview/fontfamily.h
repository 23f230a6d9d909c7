#pragma once

#include <QString>

namespace TovaView {

struct FontFace {
    QString family;
    bool bold = false, italic = false;
};

/// Takes a PostScript-like name apart: "Helvetica-BoldOblique" is the family "Helvetica", bold and
/// italic. Without a name it is the serif family that Graphviz measures with.
FontFace faceOf(const QString& name);

} // namespace TovaView
