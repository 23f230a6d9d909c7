// What the pages of docs/guide/ quote, with their pictures: `guide PICTURE` draws all of them on
// one sheet, `guide PICTURE PAGE` that of one page.
#include "pages.h"

#include <QApplication>
#include <QPainter>

#include <vector>

namespace {

struct Page {
    const char* name;
    QImage (*draw)();
};

constexpr Page kPages[] = {
    {"ownership", ownershipPage},  {"coordinates", coordinatesPage}, {"change", changePage},
    {"crossings", crossingsPage},  {"level-of-detail", detailPage},  {"writing-a-node", nodePage},
    {"input-of-nodes", inputPage}, {"pan-and-zoom", viewPage},       {"start-up", startUpPage},
};

QImage sheetOf(const std::vector<QImage>& pictures)
{
    int width = 0, height = 0;
    for (const QImage& picture : pictures) {
        width = std::max(width, picture.width());
        height += picture.height();
    }
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    int y = 0;
    for (const QImage& picture : pictures) {
        painter.drawImage(0, y, picture);
        y += picture.height();
    }
    return sheet;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QString file = application.arguments().value(1, QStringLiteral("guide.png"));
    const QString wanted = application.arguments().value(2);
    std::vector<QImage> pictures;
    for (const Page& page : kPages) {
        if (!wanted.isEmpty() && wanted != QLatin1String(page.name))
            continue;
        pictures.push_back(page.draw());
        if (pictures.back().isNull()) {
            qCritical("%s: not as the page says", page.name);
            return 1;
        }
    }
    return !pictures.empty() && sheetOf(pictures).save(file) ? 0 : 1;
}
