// Writes the files the game loads from its own folder: the card backs deck1.bmp .. deckN.bmp, the
// win sound CHEER.WAV, the icon qx.png, and the pictures start-up reads (the splash and the
// window icon, as plain netpbm files). Given a third folder, it also draws the desktop's icon at
// every size of the hicolor theme there (<size>x<size>/apps/qx.png). Run by the build:
//     qx_make_assets <output folder> <number of backs> [<icon theme folder>]
// The number of backs is the build's own count; a mismatch with the drawings stops the build.

#include "CardArt.h"
#include "CheerSound.h"
#include "Netpbm.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>

#include <cstdio>
#include <utility>

namespace {

// The size the card-back chooser shows and the table scales from: twice the design size, so
// the backs stay crisp on the large cards.
const QSize BackFileSize(142, 192);
const int IconSize = 256;

bool fail(const QString &message)
{
    std::fprintf(stderr, "qx_make_assets: %s\n", qPrintable(message));
    return false;
}

bool writeBacks(const QDir &folder, int count)
{
    // deck1.bmp comes first in the chooser's plain string order (deck1, deck10, deck2, ...): it is
    // back number 0, the one a new player sees, so design 1 is the best of the designs.

    for (int design = 1; design <= count; ++design) {
        // BMP has no transparency: the corners outside the rounded card are white.
        QImage file(BackFileSize, QImage::Format_RGB32);
        file.fill(Qt::white);
        QPainter painter(&file);
        painter.drawImage(0, 0, qx::CardArt::renderBackDesign(design, BackFileSize));
        painter.end();
        const QString path = folder.filePath(QStringLiteral("deck%1.bmp").arg(design));
        if (!file.save(path, "BMP"))
            return fail(QStringLiteral("cannot write %1").arg(path));
    }
    return true;
}

bool writeCheer(const QDir &folder)
{
    const QString path = folder.filePath(QStringLiteral("CHEER.WAV"));
    QFile file(path);
    const QByteArray wave = qx::CheerSound::waveFile(qx::CheerSound::synthesise(), qx::CheerSound::SampleRate);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(wave) != wave.size())
        return fail(QStringLiteral("cannot write %1").arg(path));
    return true;
}

bool writeIcon(const QDir &folder)
{
    const QString path = folder.filePath(QStringLiteral("qx.png"));
    if (!qx::CardArt::renderAppIcon(IconSize).save(path, "PNG"))
        return fail(QStringLiteral("cannot write %1").arg(path));
    return true;
}

// Drawn at each size rather than scaled from the largest, so the small icons stay sharp.
bool writeThemeIcons(const QDir &theme)
{
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QString folder = QStringLiteral("%1x%1/apps").arg(size);
        const QString path = theme.filePath(folder + QStringLiteral("/qx.png"));
        if (!theme.mkpath(folder) || !qx::CardArt::renderAppIcon(size).save(path, "PNG"))
            return fail(QStringLiteral("cannot write %1").arg(path));
    }
    return true;
}

// The splash's backdrop, picture and mask at the sizes the splash shows them, and the window
// icon, so that start-up reads a few plain files instead of drawing a fan of cards and loading
// the fonts of its title.
bool writeStartupPictures(const QDir &folder)
{
    const QSize size = qx::CardArt::splashPictureRect().size();
    const std::pair<QString, QImage> pictures[] = {
        {QStringLiteral("splashback.ppm"), qx::CardArt::renderSplashBackdrop()},
        {QStringLiteral("splash.ppm"), qx::CardArt::renderSplashPicture(size)},
        {QStringLiteral("splashmask.ppm"), qx::CardArt::renderSplashMask(size)},
        {QStringLiteral("qxicon.pam"), qx::CardArt::renderAppIcon(qx::CardArt::WindowIconSize)},
    };
    for (const auto &[name, image] : pictures) {
        const QString path = folder.filePath(name);
        if (!qx::Netpbm::write(image, path))
            return fail(QStringLiteral("cannot write %1").arg(path));
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    // Drawing text needs a GUI application, but never a screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    const QStringList args = QCoreApplication::arguments();
    bool countOk = false;
    const int backs = args.size() == 3 || args.size() == 4 ? args.at(2).toInt(&countOk) : 0;
    if (!countOk) {
        fail(QStringLiteral("usage: qx_make_assets <output folder> <number of backs> [<icon theme folder>]"));
        return 2;
    }
    if (backs != qx::CardArt::backDesignCount()) {
        fail(QStringLiteral("the build expects %1 backs but %2 are drawn").arg(backs).arg(qx::CardArt::backDesignCount()));
        return 2;
    }
    const QDir folder(args.at(1));
    if (!folder.mkpath(QStringLiteral("."))) {
        fail(QStringLiteral("cannot create %1").arg(folder.path()));
        return 1;
    }
    if (args.size() == 4 && !writeThemeIcons(QDir(args.at(3))))
        return 1;
    return writeBacks(folder, backs) && writeCheer(folder) && writeIcon(folder) && writeStartupPictures(folder) ? 0 : 1;
}
