#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv)
{
    // A suite must not depend on the screen of whoever runs it; an explicit platform still wins.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
