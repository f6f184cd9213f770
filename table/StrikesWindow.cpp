#include "StrikesWindow.h"

#include "GameState.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace qx {

namespace {
constexpr int TwipsPerPixel = 15;
// The sixteen-colour palette's entries the marks are drawn in.
const QColor QBBlack(0, 0, 0);
const QColor QBDarkGrey(128, 128, 128);
const QColor QBLightRed(255, 0, 0);

QString marksText(int strikes)
{
    switch (std::clamp(strikes, 0, 3)) {
    case 1: return QStringLiteral("X");
    case 2: return QStringLiteral("X X");
    case 3: return QStringLiteral("X X X");
    default: return {};
    }
}
} // namespace

StrikesWindow::StrikesWindow(const GameState &state, QWidget *mainWindow, const QWidget *table)
    : QWidget(mainWindow, Qt::Tool), m_state(state), m_main(mainWindow), m_table(table)
{
    setObjectName(QStringLiteral("frmStrikes"));
    setWindowTitle(QStringLiteral("Strikes"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(132, 339);

    tmrKeepPos = new QTimer(this);
    tmrKeepPos->setObjectName(QStringLiteral("tmrKeepPos"));
    tmrKeepPos->setInterval(100);
    connect(tmrKeepPos, &QTimer::timeout, this, &StrikesWindow::tmrKeepPos_Timer);
    tmrKeepPos->start();
}

int StrikesWindow::fontSizeFor(QSize clientPixels)
{
    const int byWidth = clientPixels.width() * TwipsPerPixel / 400;
    const int byHeight = clientPixels.height() * TwipsPerPixel / 300;
    return std::min(std::max(byWidth, 1), std::max(byHeight, 1));
}

void StrikesWindow::setBackColor(const QColor &color)
{
    m_back = color;
    update();
}

void StrikesWindow::tmrKeepPos_Timer()
{
    if (!isVisible())
        return;
    const QRect main = m_main->frameGeometry();
    const QPoint wanted(main.left() + main.width(), main.top());
    if (pos() != wanted) {
        move(wanted);
        raise();
    }
}

QFont StrikesWindow::marksFont() const
{
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPointSize(m_pointSize);
    return f;
}

void StrikesWindow::RefreshStrikeMarks()
{
    m_pointSize = fontSizeFor(m_table->size());
    fitToContent();
    update();
}

void StrikesWindow::fitToContent()
{
    const QFontMetricsF fm(marksFont());
    const qreal t = fm.height();
    QFont numberFont = marksFont();
    numberFont.setPointSize(std::max(1, m_pointSize * 3 / 5));
    const qreal numberW = QFontMetricsF(numberFont).horizontalAdvance(QStringLiteral("10"));
    const int width = qRound(numberW + fm.horizontalAdvance(QStringLiteral("X X X")) + 4 * fm.horizontalAdvance(QLatin1Char(' ')));
    const int lines = std::max<int>(m_state.NumPlayers, 1);
    const int height = std::max(m_main->height(), qRound((lines - 1) * 1.5 * t + t * 1.5));
    if (size() != QSize(width, height))
        resize(width, height);
}

void StrikesWindow::resizeEvent(QResizeEvent *) { update(); }

void StrikesWindow::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), m_back.isValid() ? m_back : palette().color(QPalette::Window));
    p.setRenderHint(QPainter::TextAntialiasing);
    const QFont f = marksFont();
    const QFontMetricsF fm(f);
    const qreal t = fm.height(); // the height of "0"
    const qreal space = fm.horizontalAdvance(QLatin1Char(' '));

    if (m_state.CurrentPlayer <= 0 && m_state.Total < 0) {
        // No game: a quiet reminder of what the window is for.
        QFont small = f;
        small.setPointSize(std::max(1, m_pointSize * 2 / 3));
        p.setFont(small);
        p.setPen(QBDarkGrey);
        p.drawText(rect().adjusted(0, qRound(t / 4), 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                   QStringLiteral("Strikes"));
        return;
    }

    // Each line: the seat number, small and grey, then its marks.
    QFont numberFont = f;
    numberFont.setBold(false);
    numberFont.setPointSize(std::max(1, m_pointSize * 3 / 5));
    const QFontMetricsF numberMetrics(numberFont);
    const qreal numberW = numberMetrics.horizontalAdvance(QStringLiteral("10")) + space;
    const int seats = std::min<int>(m_state.NumPlayers, MaxSeats);
    for (int i = 1; i <= seats; ++i) {
        const qreal top = (i - 1) * 1.5 * t + t / 4;
        const qreal baseline = top + fm.ascent();
        const QString marks = marksText(m_state.Strikes(i));
        const bool out = m_state.Strikes(i) >= StrikesOut;
        p.setFont(numberFont);
        p.setPen(QBDarkGrey);
        p.drawText(QPointF(space / 2 + numberW - space - numberMetrics.horizontalAdvance(QString::number(i)),
                           baseline),
                   QString::number(i));
        p.setFont(f);
        const qreal x = space / 2 + numberW;
        if (i == m_state.CurrentPlayer) {
            // The seat to move stands apart: set in by a blank, on a light-red band the width of
            // the longest marks, its marks shadowed in dark grey under light red.
            const qreal bandW = fm.horizontalAdvance(QStringLiteral("X X X")) + 2 * space;
            QColor band = QBLightRed;
            band.setAlpha(40);
            p.fillRect(QRectF(x, top - t / 8, bandW, t * 1.25), band);
            p.fillRect(QRectF(x, top - t / 8, std::max(2.0, space / 3), t * 1.25), QBLightRed);
            const qreal shift = std::max(1.0, t / 18);
            p.setPen(QBDarkGrey);
            p.drawText(QPointF(x + space + shift, baseline + shift), marks);
            p.setPen(QBLightRed);
            p.drawText(QPointF(x + space, baseline), marks);
        } else {
            p.setPen(out ? QBDarkGrey : QBBlack);
            p.drawText(QPointF(x, baseline), marks);
        }
    }
}

} // namespace qx
