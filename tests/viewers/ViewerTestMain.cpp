#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

/// What the platform without a screen cannot do is said hundreds of times, and would hide what
/// tests say.
void Print(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

} // namespace

int main(int argc, char** argv)
{
    // No test may open a window on somebody's screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(Print);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
