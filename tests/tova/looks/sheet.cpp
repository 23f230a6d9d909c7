#include "looks/sheet.h"

#include <QPainter>
#include <QPainterPath>

namespace Tova2::Looks {

namespace {

constexpr double kCaptionHeight = 12, kGap = 4;
constexpr double kColumn = kCellWidth + kGap, kRow = kCellHeight + kCaptionHeight + kGap;

// As outlines: glyphs drawn as text would be hinted by the machine's own settings.
void drawCaption(QPainter& painter, const std::string& caption, const QPointF& corner)
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(100);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath path;
    path.addText(0, 0, font, QString::fromStdString(caption));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(corner + QPointF(1, kCaptionHeight - 4));
    painter.scale(0.075, 0.075);
    painter.fillPath(path, Qt::black);
    painter.restore();
}

} // namespace

QImage drawSheet(const Cells& cells, int columns, double pixelRatio)
{
    const int rows = (static_cast<int>(cells.size()) + columns - 1) / columns;
    QImage sheet((QSizeF(columns * kColumn + kGap, rows * kRow + kGap) * pixelRatio).toSize(),
                 QImage::Format_RGB32);
    sheet.setDevicePixelRatio(pixelRatio);
    sheet.fill(Qt::white);
    for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
        const Cell& cell = cells[i];
        const QPointF corner(i % columns * kColumn + kGap, i / columns * kRow + kGap);
        cell.scene->render(sheet, {corner.x(), corner.y(), kCellWidth, kCellHeight},
                           {0, 0, kCellWidth / cell.zoom, kCellHeight / cell.zoom});
        QPainter painter(&sheet);
        drawCaption(painter, cell.caption, corner + QPointF(0, kCellHeight));
    }
    return sheet;
}

Cell cellOf(const std::string& caption, const std::vector<Node>& nodes, double zoom)
{
    auto scene = Scene::createScene();
    scene->setLODStrategyKey(FullQualityLODStrategy::getStaticID());
    for (const Node& node : nodes)
        scene->addNode(node);
    return {caption, scene, zoom};
}

DrawStyle smooth(const Stroke& stroke, const Fill& fill)
{
    DrawStyle style(stroke, fill);
    style.setIsAntiAliased(true);
    return style;
}

} // namespace Tova2::Looks
