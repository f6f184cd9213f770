#include "SplashWindow.h"

#include "CardArt.h"

#include <QApplication>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>

namespace qx {

namespace {
constexpr int Scale = 2; // the 71 x 96 design picture, doubled for today's screens
}

SplashWindow::SplashWindow(QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmIntro"));
    setWindowTitle(QStringLiteral("QX"));
    const QSize picture = CardArt::DesignCell * Scale;
    resize(picture.width() + 260, picture.height() + 48);
    m_pictureRect = QRect(QPoint(24, 24), picture);

    Label2 = new QLabel(QStringLiteral("Loading . . ."), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    QFont f = Label2->font();
    f.setPointSize(11);
    Label2->setFont(f);
    Label2->setStyleSheet(QStringLiteral("color: #f4ecd2;"));
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
    // The build ships the picture and its mask beside the program; drawing them is the fallback.
    const QString folder = QCoreApplication::applicationDirPath();
    QImage mask(folder + QStringLiteral("/splashmask.png"));
    QImage picture(folder + QStringLiteral("/splash.png"));
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
    QLinearGradient back(0, 0, 0, height());
    back.setColorAt(0, QColor(30, 108, 62));
    back.setColorAt(1, QColor(14, 60, 34));
    p.fillRect(rect(), back);
    p.setPen(QPen(QColor(255, 208, 84), 2));
    p.drawRect(rect().adjusted(1, 1, -2, -2));
    if (!m_surface.isNull())
        p.drawImage(m_pictureRect, m_surface);

    QFont title(QStringLiteral("DejaVu Sans"));
    title.setBold(true);
    title.setPixelSize(56);
    p.setFont(title);
    p.setPen(QColor(255, 208, 84));
    const int textLeft = m_pictureRect.right() + 28;
    p.drawText(QRect(textLeft, 24, width() - textLeft - 16, 80), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("QX"));
    QFont line(QStringLiteral("DejaVu Sans"));
    line.setPixelSize(14);
    p.setFont(line);
    p.setPen(QColor(244, 236, 210));
    p.drawText(QRect(textLeft, 104, width() - textLeft - 16, 60), Qt::AlignLeft | Qt::TextWordWrap,
               QStringLiteral("Keep the total under 100."));
}

} // namespace qx
