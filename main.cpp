#include "MainWindow.h"
#include "SplashWindow.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("QX"));

    // The splash covers the main window's loading.
    qx::SplashWindow splash;
    splash.show();
    splash.drawSplash();
    QApplication::processEvents();

    qx::MainWindow window;
    window.show();
    splash.close();

    // The start-up benchmark measures launch to the shown window: the program says when (on the
    // steady clock the benchmark also reads) and leaves.
    if (qEnvironmentVariableIsSet("QX_QUIT_WHEN_SHOWN"))
        QTimer::singleShot(0, &app, [] {
            const auto now = std::chrono::steady_clock::now().time_since_epoch();
            std::printf("shown %lld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
            QCoreApplication::quit();
        });
    return QApplication::exec();
}
