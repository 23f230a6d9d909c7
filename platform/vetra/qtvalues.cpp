#include "vetra/qt.h"

#include <QCursor>
#include <QFont>

#include <array>
#include <cstdlib>

namespace Vetra {

namespace {

constexpr std::array weights = {QFont::Thin,   QFont::ExtraLight, QFont::Light,
                                QFont::Normal, QFont::Medium,     QFont::DemiBold,
                                QFont::Bold,   QFont::ExtraBold,  QFont::Black};

int nearestHundreds(int toolkitWeight)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i < weights.size(); ++i) {
        if (std::abs(weights[i] - toolkitWeight) < std::abs(weights[best] - toolkitWeight))
            best = i;
    }
    return static_cast<int>(best + 1) * 100;
}

static_assert(int(CursorShape::Blank) == Qt::BlankCursor);
static_assert(int(CursorShape::DragLink) == Qt::DragLinkCursor);

} // namespace

QFont toQt(const Font& font)
{
    QFont result;
    if (!font.family().empty())
        result.setFamily(QString::fromStdString(font.family()));
    result.setPointSizeF(font.size());
    result.setWeight(weights[(font.weight() + 50) / 100 - 1]);
    result.setItalic(font.isItalic());
    result.setUnderline(font.isUnderline());
    return result;
}

Font fromQt(const QFont& font)
{
    const double size = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
    Font result(font.family().toStdString(), size, nearestHundreds(font.weight()), font.italic());
    result.setUnderline(font.underline());
    return result;
}

QCursor toQt(const Cursor& cursor)
{
    return static_cast<Qt::CursorShape>(cursor.shape());
}

Cursor fromQt(const QCursor& cursor)
{
    return static_cast<CursorShape>(cursor.shape());
}

} // namespace Vetra
