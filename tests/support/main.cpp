#include <gmock/gmock.h>

#include <QApplication>
#include <QFontDatabase>

int main(int argc, char** argv)
{
    // A suite must not depend on the screen of whoever runs it; an explicit platform still wins.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // It takes the place of an installed one of the same name.
    if (QFontDatabase::addApplicationFont(QStringLiteral(TOVA_TEST_FONT)) < 0)
        qFatal("There is no test font.");
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
