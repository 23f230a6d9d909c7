#include "support/goldenpicture.h"

#include "support/pictures.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFileInfo>

namespace TestSupport {

bool PictureDifference::isNothing(const QImage& image) const
{
    constexpr int kOneIn = 2000;
    return plain == 0 && slight <= image.width() * image.height() / kOneIn;
}

PictureDifference differencesOf(const QImage& a, const QImage& b)
{
    constexpr int kPlain = 24, kRounding = 2;
    PictureDifference result;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const int apart = difference(a.pixel(x, y), b.pixel(x, y));
            result.plain += apart > kPlain;
            result.slight += apart > kRounding;
        }
    }
    return result;
}

void expectGolden(const QImage& image, const QString& file)
{
    if (qEnvironmentVariableIsSet("TOVA_WRITE_GOLDEN")) {
        QImage written = image.convertToFormat(QImage::Format_RGB32);
        written.setDotsPerMeterX(0); // nothing but pixels
        ASSERT_TRUE(written.save(file, "PNG", 0)) << file.toStdString();
        GTEST_SKIP() << "written";
    }
    const QImage golden(file);
    ASSERT_EQ(golden.size(), image.size()) << file.toStdString();
    const auto apart = differencesOf(golden, image);
    if (apart.isNothing(golden))
        return;
    const QString drawn = QDir::temp().filePath(QFileInfo(file).fileName());
    image.save(drawn);
    ADD_FAILURE() << file.toStdString() << ": " << apart.plain << " pixels are plainly others, "
                  << apart.slight << " at all; drawn now: " << drawn.toStdString();
}

} // namespace TestSupport
