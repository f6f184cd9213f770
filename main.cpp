#include "MainWindow.h"
#include "QuitWhenShown.h"
#include "SplashWindow.h"
#include "Translations.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("QX"));
    qx::installTranslations(app);

    // The splash covers the main window's loading.
    qx::SplashWindow splash;
    splash.show();
    splash.drawSplash();
    QApplication::processEvents();

    qx::MainWindow window;
    window.show();
    splash.close();
    // What the start has to tell (settings QX cannot use) comes over the main window, never
    // under the splash.
    window.showStartUpMessages();

    qx::quitWhenShownIfAsked();
    qx::printCaptionsWhenShownIfAsked(window);
    return QApplication::exec();
}
