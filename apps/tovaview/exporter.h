#pragma once

#include "diagramscene.h"
#include "pagesize.h"

#include <QImage>
#include <QStringList>

namespace TovaView {

/// The diagram on its ground. Throws FileError naming `target` when it is too large or there is no
/// memory for it.
QImage paintPicture(const DiagramScene& diagram, const SizeWish& wish, const QString& target,
                    QStringList& notes);

/// Writes a PNG file, whole or not at all. Throws FileError.
void writePng(const QImage& picture, const QString& target);
/// Writes a PDF file of one page, whole or not at all. Throws FileError.
void writePdf(const DiagramScene& diagram, const SizeWish& wish, const QString& target,
              QStringList& notes);
/// Whole or not at all. Throws FileError.
void writeBytes(const QByteArray& bytes, const QString& target);

} // namespace TovaView
