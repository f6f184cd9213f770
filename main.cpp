#include "MainWindow.h"
#include "QuitWhenShown.h"
#include "SplashWindow.h"

#include <QApplication>

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

    qx::quitWhenShownIfAsked();
    return QApplication::exec();
}
