#pragma once

#include "diagram.h"

#include <QHash>

class QJsonArray;

namespace TovaView {

/// Turns the drawing operations of a laid-out graph into figures and texts.
class XdotReader {
public:
    /// `top` is the y that becomes 0: operations count upwards. `families` replaces font names by
    /// installed ones.
    XdotReader(double top, const QHash<QString, QString>& families);

    /// Adds one list of operations to `drawing`. What is malformed is left out.
    void read(const QJsonArray& operations, Drawing& drawing) const;

private:
    double m_top;
    const QHash<QString, QString>& m_families;
};

} // namespace TovaView
