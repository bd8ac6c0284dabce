#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Every test binary starts in a home folder of its own, so that no test can read
// or touch the real one even before its fixture sets a fresh home.
int main(int argc, char** argv)
{
    QTemporaryDir processHome;
    if (!processHome.isValid())
        return 1;
    qputenv("HOME", QFile::encodeName(processHome.path()));
    qunsetenv("XDG_CONFIG_HOME");

    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
