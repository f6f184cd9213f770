// The running total's badge and the arrows round it that show which way play goes.
#include "TablePainter.h"

#include "GameState.h"
#include "TableColours.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qx {

using namespace colours;

void TablePainter::paintTotal()
{
    const QRectF box(s.layout.total);
    const qreal d = box.width();
    const qreal u = s.layout.unit;
    const int total = s.state.Total;

    QColor ring(70, 140, 90);
    if (total >= 90)
        ring = StrikeRed;
    else if (total >= 70)
        ring = QColor(232, 150, 40);

    QRadialGradient face(box.center() - QPointF(d * 0.15, d * 0.2), d * 0.7);
    face.setColorAt(0, QColor(255, 255, 250));
    face.setColorAt(1, Cream.darker(108));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 70));
    p.drawEllipse(box.translated(d * 0.025, d * 0.04));
    p.setBrush(face);
    p.setPen(QPen(total < 0 ? Gold : ring, std::max(2.0, d * 0.06)));
    p.drawEllipse(box.adjusted(d * 0.03, d * 0.03, -d * 0.03, -d * 0.03));

    if (total < 0) {
        p.setFont(font(d * 0.36, true));
        p.setPen(QColor(28, 90, 52));
        p.drawText(box, Qt::AlignCenter, QStringLiteral("QX"));
        return;
    }

    p.setFont(font(d * 0.11, true));
    p.setPen(QColor(110, 100, 80));
    p.drawText(QRectF(box.left(), box.top() + d * 0.14, d, d * 0.16), Qt::AlignCenter, tr("TOTAL"));
    p.setFont(font(d * 0.42, true));
    p.setPen(total >= 90 ? StrikeRed.darker(120) : QColor(40, 36, 30));
    p.drawText(QRectF(box.left(), box.top() + d * 0.27, d, d * 0.5), Qt::AlignCenter, QString::number(total));
    p.setFont(font(d * 0.1));
    p.setPen(QColor(120, 110, 90));
    p.drawText(QRectF(box.left(), box.top() + d * 0.74, d, d * 0.13), Qt::AlignCenter, tr("of 99"));

    // Which way play goes round the table: clockwise while Direction is +1.
    const qreal ringR = d / 2 + 0.028 * u;
    const QRectF arcBox(box.center() - QPointF(ringR, ringR), QSizeF(2 * ringR, 2 * ringR));
    const bool clockwise = s.state.Direction >= 0;
    const qreal start = 120;            // degrees, counter-clockwise from three o'clock
    const qreal span = clockwise ? -100 : 100;
    const QColor arrow = ink(s.felt, 150);
    p.setPen(QPen(arrow, std::max(1.5, 0.008 * u), Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    for (int half = 0; half < 2; ++half) {
        const qreal from = start + half * 180;
        p.drawArc(arcBox, qRound(from * 16), qRound(span * 16));
        const qreal end = (from + span) * std::numbers::pi / 180;
        const QPointF tip = box.center() + QPointF(std::cos(end) * ringR, -std::sin(end) * ringR);
        // The tangent at the arrow's tip, in the direction of travel.
        const qreal sign = clockwise ? 1 : -1;
        const QPointF along(sign * std::sin(end), sign * std::cos(end));
        const QPointF across(-along.y(), along.x());
        const qreal head = 0.022 * u;
        QPainterPath headPath;
        headPath.moveTo(tip + along * head);
        headPath.lineTo(tip - along * head * 0.3 + across * head * 0.8);
        headPath.lineTo(tip - along * head * 0.3 - across * head * 0.8);
        headPath.closeSubpath();
        p.setBrush(arrow);
        p.setPen(Qt::NoPen);
        p.drawPath(headPath);
        p.setPen(QPen(arrow, std::max(1.5, 0.008 * u), Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
    }
}

} // namespace qx
