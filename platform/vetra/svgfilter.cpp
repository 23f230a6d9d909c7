#include "svgfilter.h"

#include "rasterdecoder.h"
#include "svgnumbers.h"
#include "svgreferences.h"
#include "vetra/image.h"
#include "vetra/imageerrors.h"
#include "vetra/imageloader.h"

#include <QSet>
#include <QXmlStreamReader>

#include <vector>

namespace Vetra {

namespace {

bool isActive(const QString& element)
{
    static const QSet<QString> names{QStringLiteral("script"), QStringLiteral("foreignobject"),
                                     QStringLiteral("font"),   QStringLiteral("handler"),
                                     QStringLiteral("iframe"), QStringLiteral("embed"),
                                     QStringLiteral("object")};
    return names.contains(element);
}

bool isGeometry(const QString& attribute)
{
    static const auto names =
        QStringLiteral("d points x y x1 y1 x2 y2 cx cy fx fy r rx ry dx dy width height viewbox "
                       "transform gradienttransform offset style font-size stroke-width "
                       "stroke-dasharray stroke-dashoffset stroke-miterlimit")
            .split(QLatin1Char(' '));
    static const QSet<QString> set(names.begin(), names.end());
    return set.contains(attribute);
}

/// Everything is judged as the toolkit's renderer will read it: element names without prefix,
/// `href` under any.
class SvgFilter {
public:
    SvgFilter(const QByteArray& bytes, const std::string& name) : m_xml(bytes), m_name(name) {}
    void run();

private:
    void readToken(QXmlStreamReader::TokenType token);
    void startElement();
    void endElement();
    void readAttribute(const QString& element, const QXmlStreamAttribute& attribute, int index);
    void readReference(const QString& element, const QString& target, int index);
    void readEmbedded(const QString& target);
    void readStyle(const QString& css);
    void readText();
    void countReference();
    [[noreturn]] void refuse(ImageError error, const char* reason) const;

    QXmlStreamReader m_xml;
    const std::string& m_name;
    SvgReferences m_references;
    std::vector<int> m_open; // elements from the root to where we are
    QString m_element;       // the innermost one seen last
    int m_referenceCount = 0;
    long long m_embeddedPixels = 0;
    int m_textDepth = 0; // of the text element we are in, 0 outside
    std::size_t m_textLength = 0;
};

void SvgFilter::run()
{
    while (!m_xml.atEnd())
        readToken(m_xml.readNext());
    if (m_xml.hasError())
        refuse(ImageError::Damaged, m_xml.errorString().toUtf8().constData());
    if (!m_references.isBounded())
        refuse(ImageError::TooComplex, "references expand to too much");
}

void SvgFilter::readToken(QXmlStreamReader::TokenType token)
{
    switch (token) {
    case QXmlStreamReader::DTD:
        // Most drawings name the public document type, which nobody reads. Declarations of their
        // own are refused.
        if (m_xml.text().contains(QLatin1Char('[')))
            refuse(ImageError::UnsafeDrawing, "declarations in the document type");
        return;
    case QXmlStreamReader::EntityReference:
        refuse(ImageError::UnsafeDrawing, "entity reference");
    case QXmlStreamReader::ProcessingInstruction:
        // A style sheet named here would be read from the disk by the renderer.
        refuse(ImageError::UnsafeDrawing, "processing instruction");
    case QXmlStreamReader::StartElement:
        return startElement();
    case QXmlStreamReader::EndElement:
        return endElement();
    case QXmlStreamReader::Characters:
        return readText();
    default:
        return;
    }
}

void SvgFilter::startElement()
{
    m_element = m_xml.name().toString().toLower();
    if (m_open.empty() && m_element != QLatin1String("svg"))
        refuse(ImageError::UnknownFormat, "not an SVG drawing");
    if (isActive(m_element))
        refuse(ImageError::UnsafeDrawing, "active element");
    if (m_open.size() >= ImageLimits::MaxDepth ||
        m_references.elementCount() >= ImageLimits::MaxElements)
        refuse(ImageError::TooComplex, "elements");
    const auto attributes = m_xml.attributes();
    const int parent = m_open.empty() ? -1 : m_open.back();
    const int index =
        m_references.addElement(parent, attributes.value(QLatin1String("id")).toString());
    m_open.push_back(index);
    for (const auto& attribute : attributes)
        readAttribute(m_element, attribute, index);
    if (m_textDepth == 0 && m_element.startsWith(QLatin1String("text"))) {
        m_textDepth = static_cast<int>(m_open.size());
        m_textLength = 0;
    }
}

void SvgFilter::endElement()
{
    if (m_textDepth == static_cast<int>(m_open.size()))
        m_textDepth = 0;
    m_open.pop_back();
    m_element.clear();
}

void SvgFilter::readAttribute(const QString& element, const QXmlStreamAttribute& attribute,
                              int index)
{
    const QString full = attribute.qualifiedName().toString().toLower();
    const QString name = full.section(QLatin1Char(':'), -1);
    if (name == QLatin1String("href"))
        readReference(element, attribute.value().toString().trimmed(), index);
    else
        readStyle(attribute.value().toString());
    if (isGeometry(full) && !areNumbersBounded(attribute.value()))
        refuse(ImageError::TooComplex, "number out of range");
}

void SvgFilter::readReference(const QString& element, const QString& target, int index)
{
    countReference();
    // An image's `#id` would be opened as a file of that name.
    if (target.startsWith(QLatin1Char('#')) && element != QLatin1String("image"))
        m_references.addUse(index, target.mid(1));
    else
        readEmbedded(target);
}

void SvgFilter::readEmbedded(const QString& target)
{
    static const auto png = QStringLiteral("data:image/png;base64,");
    static const auto jpeg = QStringLiteral("data:image/jpeg;base64,");
    const bool isPng = target.startsWith(png);
    // A second marker would have the renderer decode other bytes than those looked at here.
    if ((!isPng && !target.startsWith(jpeg)) || target.count(QLatin1String("base64,")) != 1)
        refuse(ImageError::UnsafeDrawing, "outside reference");
    const auto& prefix = isPng ? png : jpeg;
    const auto bytes = QByteArray::fromBase64(target.mid(prefix.size()).toLatin1());
    const char* const format = rasterFormat(bytes);
    if (qstrcmp(format, isPng ? "png" : "jpeg") != 0)
        refuse(ImageError::UnsafeDrawing, "embedded picture of another kind");
    const QSize size = requireAcceptableHeader(bytes, format, m_name);
    m_embeddedPixels += static_cast<long long>(size.width()) * size.height();
    if (m_embeddedPixels > Image::MaxPixels)
        refuse(ImageError::TooLarge, "embedded pictures");
}

void SvgFilter::readStyle(const QString& css)
{
    if (css.contains(QLatin1String("@import"), Qt::CaseInsensitive))
        refuse(ImageError::UnsafeDrawing, "style import");
    static const auto url = QStringLiteral("url(");
    for (int at = css.indexOf(url, 0, Qt::CaseInsensitive); at >= 0;
         at = css.indexOf(url, at + 1, Qt::CaseInsensitive)) {
        countReference();
        int target = at + url.size();
        while (target < css.size() && QStringLiteral(" \t\r\n'\"").contains(css[target]))
            ++target;
        if (target == css.size() || css[target] != QLatin1Char('#'))
            refuse(ImageError::UnsafeDrawing, "outside reference in a style");
    }
}

void SvgFilter::readText()
{
    if (m_element == QLatin1String("style"))
        readStyle(m_xml.text().toString());
    if (m_textDepth == 0)
        return;
    m_textLength += static_cast<std::size_t>(m_xml.text().size());
    if (m_textLength > ImageLimits::MaxTextRun)
        refuse(ImageError::TooComplex, "text");
}

void SvgFilter::countReference()
{
    if (++m_referenceCount > ImageLimits::MaxReferences)
        refuse(ImageError::TooComplex, "references");
}

void SvgFilter::refuse(ImageError error, const char* reason) const
{
    raise(error, m_name + ": " + reason);
}

} // namespace

bool looksLikeSvg(const QByteArray& bytes)
{
    const int start = bytes.startsWith("\xef\xbb\xbf") ? 3 : 0;
    return bytes.mid(start, 256).trimmed().startsWith('<');
}

void requireSafeSvg(const QByteArray& bytes, const std::string& name)
{
    if (static_cast<std::size_t>(bytes.size()) > ImageLimits::MaxDrawingBytes)
        raise(ImageError::TooLarge, name);
    SvgFilter(bytes, name).run();
}

} // namespace Vetra
