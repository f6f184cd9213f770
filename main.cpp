#include "MainWindow.h"
#include "SplashWindow.h"

#include <QApplication>
#include <QTimer>

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

    // The start-up benchmark measures launch to the shown window, then has the program leave.
    if (qEnvironmentVariableIsSet("QX_QUIT_WHEN_SHOWN"))
        QTimer::singleShot(0, &app, &QCoreApplication::quit);
    return QApplication::exec();
}
