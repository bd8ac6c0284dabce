#include "core/Bundle.h"
#include "gui/DesktopApplication.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// The GUI tests need a QApplication; they run on the offscreen platform (CTest
// sets it, and so does this main when run by hand or listed at build time) and
// in a home folder of their own, like every other test binary.
int main(int argc, char** argv)
{
    QTemporaryDir processHome;
    if (!processHome.isValid())
        return 1;
    qputenv("HOME", QFile::encodeName(processHome.path()));
    qunsetenv("XDG_CONFIG_HOME");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(DesktopApplication::applicationIcon(Bundle::mainBundle()));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
