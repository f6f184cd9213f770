#include "SplashWindow.h"

#include "CardArt.h"
#include "Netpbm.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>

namespace qx {

namespace {

// A text over the splash's dark backdrop, in its pale ink.
QLabel *splashLabel(QWidget *splash, const QString &text, const QString &name)
{
    auto *label = new QLabel(text, splash);
    label->setObjectName(name);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(244, 236, 210));
    label->setPalette(palette);
    return label;
}

} // namespace

SplashWindow::SplashWindow(QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmIntro"));
    setWindowTitle(QStringLiteral("QX"));
    resize(CardArt::splashWindowSize());
    m_pictureRect = CardArt::splashPictureRect();
    // Drawn by the build beside the program (its title text would otherwise cost two fonts to
    // load before anything shows); drawing it now is the fallback.
    m_backdrop = Netpbm::read(QCoreApplication::applicationDirPath() + QStringLiteral("/splashback.ppm"));
    if (m_backdrop.size() != size())
        m_backdrop = CardArt::renderSplashBackdrop();

    // Written over the backdrop rather than drawn into it, so that it follows the language.
    auto *tagline = splashLabel(this, tr("Keep the total under 100."), QStringLiteral("lblTagline"));
    tagline->setWordWrap(true);
    tagline->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont taglineFont = tagline->font();
    taglineFont.setPixelSize(14);
    tagline->setFont(taglineFont);
    tagline->setGeometry(CardArt::splashTaglineRect());

    Label2 = splashLabel(this, tr("Loading . . ."), QStringLiteral("Label2"));
    QFont f = Label2->font();
    f.setPointSize(11);
    Label2->setFont(f);
    Label2->setGeometry(m_pictureRect.right() + 28, height() - 64, 200, 28);

    if (const QScreen *screen = QApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

QImage SplashWindow::composite(const QImage &background, const QImage &mask, const QImage &picture)
{
    QImage surface = background.convertToFormat(QImage::Format_RGB32);
    QPainter p(&surface);
    const QRect area(0, 0, std::min(mask.width(), picture.width()), std::min(mask.height(), picture.height()));
    p.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    p.drawImage(area, mask.convertToFormat(QImage::Format_RGB32), area);
    p.setCompositionMode(QPainter::RasterOp_SourceOrDestination);
    p.drawImage(area, picture.convertToFormat(QImage::Format_RGB32), area);
    return surface;
}

void SplashWindow::drawSplash()
{
    const QSize size = m_pictureRect.size();
    QImage background(size, QImage::Format_RGB32);
    {
        QPainter p(&background);
        QLinearGradient felt(0, 0, 0, size.height());
        felt.setColorAt(0, QColor(40, 128, 74));
        felt.setColorAt(1, QColor(20, 82, 46));
        p.fillRect(background.rect(), felt);
    }
    // The build ships the picture and its mask beside the program, drawn at the size shown here;
    // drawing them now is the fallback.
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    QImage mask = Netpbm::read(folder + QStringLiteral("splashmask.ppm"));
    QImage picture = Netpbm::read(folder + QStringLiteral("splash.ppm"));
    if (mask.size() != size || picture.size() != size) {
        mask = CardArt::renderSplashMask(size);
        picture = CardArt::renderSplashPicture(size);
    }
    m_surface = composite(background, mask, picture);
    update();
    Label2->repaint();
}

void SplashWindow::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.drawImage(0, 0, m_backdrop);
    if (!m_surface.isNull())
        p.drawImage(m_pictureRect, m_surface);
}

} // namespace qx
