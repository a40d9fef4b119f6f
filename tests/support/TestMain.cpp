#if defined(ORVANE_TEST_APP_WIDGETS)
#include <QApplication>
using TestApplication = QApplication;
#elif defined(ORVANE_TEST_APP_GUI)
#include <QGuiApplication>
using TestApplication = QGuiApplication;
#else
#include <QCoreApplication>
using TestApplication = QCoreApplication;
#endif

#include <gtest/gtest.h>

// Test programs run without a display unless one is asked for.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    TestApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
