#include "StrikesWindow.h"

#include "GameState.h"
#include "TableColours.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace qx {

namespace {
constexpr int TwipsPerPixel = 15;
// The sixteen-colour palette's light red, and a darker red for light backgrounds.
const QColor QBLightRed(255, 0, 0);
const QColor DeepRed(160, 0, 0);

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
    setWindowTitle(tr("Strikes"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(132, 339);
    m_main->installEventFilter(this);
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

bool StrikesWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_main)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
        m_unansweredSnaps = 0;
        keepPos();
        break;
    case QEvent::Paint:
        // The window manager's frame round the main window arrives after it is shown, and moves
        // its edge without a move event; the window is painted then, and a look costs nothing.
        keepPos();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void StrikesWindow::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    keepPos();
}

void StrikesWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_unansweredSnaps = 0;
    keepPos();
}

void StrikesWindow::keepPos()
{
    // A hidden window is left where it is until it is shown again.
    if (!isVisible())
        return;
    const QRect main = m_main->frameGeometry();
    const QPoint wanted(main.left() + main.width(), main.top());
    if (pos() == wanted) {
        m_unansweredSnaps = 0;
        return;
    }
    if (++m_unansweredSnaps > 3)
        return;
    move(wanted);
    // Never over a message or dialog that waits for the player.
    if (!QApplication::activeModalWidget())
        raise();
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
    const QColor back = m_back.isValid() ? m_back : palette().color(QPalette::Window);
    p.fillRect(rect(), back);
    // Every background colour may be chosen: the marks take black or white, whichever reads on
    // it, and the quieter texts (seat numbers, seats that are out) are that ink softened.
    const QColor ink = colours::inkOn(back);
    const QColor quiet = colours::blend(ink, back, 0.45);
    const QColor faded = colours::blend(ink, back, 0.3);
    QColor red = ink;
    for (const QColor &candidate : {QBLightRed, DeepRed}) {
        if (colours::contrast(candidate, back) >= 3.0) {
            red = candidate;
            break;
        }
    }
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
        p.setPen(quiet);
        p.drawText(rect().adjusted(0, qRound(t / 4), 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                   tr("Strikes"));
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
        p.setPen(quiet);
        p.drawText(QPointF(space / 2 + numberW - space - numberMetrics.horizontalAdvance(QString::number(i)),
                           baseline),
                   QString::number(i));
        p.setFont(f);
        const qreal x = space / 2 + numberW;
        if (i == m_state.CurrentPlayer) {
            // The seat to move stands apart: set in by a blank, on a light-red band the width of
            // the longest marks, its marks red (or the ink, where no red reads) over a shadow.
            const qreal bandW = fm.horizontalAdvance(QStringLiteral("X X X")) + 2 * space;
            QColor band = QBLightRed;
            band.setAlpha(40);
            p.fillRect(QRectF(x, top - t / 8, bandW, t * 1.25), band);
            p.fillRect(QRectF(x, top - t / 8, std::max(2.0, space / 3), t * 1.25), QBLightRed);
            const qreal shift = std::max(1.0, t / 18);
            p.setPen(colours::blend(quiet, back, 0.4));
            p.drawText(QPointF(x + space + shift, baseline + shift), marks);
            p.setPen(red);
            p.drawText(QPointF(x + space, baseline), marks);
        } else {
            p.setPen(out ? faded : ink);
            p.drawText(QPointF(x, baseline), marks);
        }
    }
}

} // namespace qx
