#include "exporter.h"

#include "fileerror.h"

#include <vetra/atomicfile.h>
#include <vetra/error.h>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryFile>

namespace TovaView {
namespace {

constexpr double longestPixels = 32767;
constexpr double mostPixels = (1 << 30) / 4.0;
/// What nobody asked for should not take minutes to write.
constexpr double mostUnaskedPixels = 64e6;
constexpr double longestPoints = 14400;
constexpr double metresAPoint = 0.0254 / 72;

PageSize requirePage(const Rect& area, const SizeWish& wish, double longest, double largest,
                     const QString& target, QStringList& notes)
{
    const auto page = pageFor(area, wish, longest, largest);
    if (!page)
        throw FileError(target, 0,
                        QStringLiteral("a picture of that size is too large; take a smaller one"));
    if (page->shrunk)
        notes << QStringLiteral("is too large at its own size; the picture is made smaller");
    return *page;
}

/// Whether the file's own table of contents is where its last lines say; it is not when bytes are
/// missing.
bool isWholePdf(const QByteArray& bytes)
{
    const int start = bytes.lastIndexOf("startxref");
    if (!bytes.startsWith("%PDF-") || start < 0 || !bytes.trimmed().endsWith("%%EOF"))
        return false;
    const QByteArray offset = bytes.mid(start + 9).trimmed().split('\n').first().trimmed();
    return bytes.mid(offset.toInt(), 4) == "xref";
}

/// The error names its file, as ours will do.
QString reasonOf(const Vetra::Error& error, const QByteArray& path)
{
    if (error.key() == "NotARegularFile")
        return QStringLiteral("cannot write: is not a regular file");
    const QByteArray text = error.what();
    const int at = text.lastIndexOf(path + ": ");
    return QStringLiteral("cannot write: ") +
           QString::fromLocal8Bit(at < 0 ? text : text.mid(at + path.size() + 2));
}

QByteArray printToFile(const DiagramScene& diagram, const PageSize& page, const QString& fileName)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    printer.setCreator(QStringLiteral("tovaview"));
    printer.setPageLayout(QPageLayout(
        QPageSize(QSizeF(page.size), QPageSize::Point, QString(), QPageSize::ExactMatch),
        QPageLayout::Portrait, QMarginsF()));
    printer.setFullPage(true);
    const double dots = printer.resolution() / 72.0;
    diagram.scene->render(printer, {0, 0, page.size.width() * dots, page.size.height() * dots},
                          shownOn(page, diagram.area));
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QImage paintPicture(const DiagramScene& diagram, const SizeWish& wish, const QString& target,
                    QStringList& notes)
{
    const bool asked = wish.scale > 0 || wish.size.isValid();
    const PageSize page = requirePage(diagram.area, wish, longestPixels,
                                      asked ? mostPixels : mostUnaskedPixels, target, notes);
    QImage picture(page.size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        throw FileError(target, 0, QStringLiteral("there is no memory for the picture"));
    picture.fill(Qt::white);
    // A wished scale is one of pixels: lines, marks and details stay those of the actual size. A
    // wished size is a view that the diagram is fitted into.
    if (wish.scale > 0)
        picture.setDevicePixelRatio(wish.scale);
    const int dots = qRound(page.target.width / diagram.area.width / metresAPoint);
    picture.setDotsPerMeterX(dots);
    picture.setDotsPerMeterY(dots);
    diagram.scene->render(picture, {}, shownOn(page, diagram.area));
    return picture;
}

void writePng(const QImage& picture, const QString& target)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "png");
    if (!writer.write(picture.convertToFormat(QImage::Format_RGB32)))
        throw FileError(target, 0, writer.errorString());
    writeBytes(buffer.data(), target);
}

void writePdf(const DiagramScene& diagram, const SizeWish& wish, const QString& target,
              QStringList& notes)
{
    const PageSize page = requirePage(diagram.area, wish, longestPoints,
                                      longestPoints * longestPoints, target, notes);
    // The printer reports no fault of its file. It gets one beside the target, which is looked
    // through afterwards.
    QTemporaryFile file(QFileInfo(target).absolutePath() + QStringLiteral("/.tovaview-XXXXXX"));
    if (!file.open())
        throw FileError(target, 0, QStringLiteral("cannot write: %1").arg(file.errorString()));
    const QByteArray bytes = printToFile(diagram, page, file.fileName());
    if (!isWholePdf(bytes))
        throw FileError(target, 0, QStringLiteral("cannot write: the disk is full or failing"));
    writeBytes(bytes, target);
}

void writeBytes(const QByteArray& bytes, const QString& target)
{
    const QByteArray path = QFile::encodeName(target);
    try {
        Vetra::AtomicFile::writeAll(path.toStdString(),
                                    {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (const Vetra::Error& error) {
        throw FileError(target, 0, reasonOf(error, path));
    }
}

} // namespace TovaView
