#include "CardSlot.h"

#include "CardArt.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace qx {

CardSlot::CardSlot(int index, CardImages &images, QWidget *parent)
    : QWidget(parent), m_index(index), m_images(images)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_NoSystemBackground);
}

void CardSlot::setPicture(const CardPicture &picture)
{
    if (m_picture == picture)
        return;
    m_picture = picture;
    update();
}

void CardSlot::setCardSize(QSize size)
{
    if (m_cardSize == size)
        return;
    m_cardSize = size;
    update();
}

void CardSlot::setInviting(bool inviting)
{
    if (m_inviting == inviting)
        return;
    m_inviting = inviting;
    setCursor(inviting ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void CardSlot::paintEvent(QPaintEvent *)
{
    if (m_picture.isNone() || width() < 1 || height() < 1)
        return;
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    const qreal dpr = devicePixelRatioF();
    const QSize picture = m_cardSize.isEmpty() ? size() : m_cardSize;
    const QPixmap pixmap = m_picture.kind == CardPicture::Face ? m_images.face(m_picture.code, picture, dpr)
                                                               : m_images.back(picture, dpr);
    p.drawPixmap(rect(), pixmap);
    if (m_inviting && m_hover) {
        p.setRenderHint(QPainter::Antialiasing);
        const qreal pen = std::max(2.0, width() / 30.0);
        const qreal radius = width() / 12.0;
        p.setPen(QPen(QColor(255, 214, 90), pen));
        p.setBrush(QColor(255, 230, 150, m_pressed ? 70 : 35));
        p.drawRoundedRect(QRectF(rect()).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2), radius, radius);
    }
}

void CardSlot::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = true;
        update();
    }
}

void CardSlot::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    update();
    // A click is a press and a release over the same card.
    if (rect().contains(event->position().toPoint()))
        emit clicked(m_index);
}

void CardSlot::enterEvent(QEnterEvent *)
{
    m_hover = true;
    if (m_inviting)
        update();
}

void CardSlot::leaveEvent(QEvent *)
{
    m_hover = false;
    m_pressed = false;
    if (m_inviting)
        update();
}

} // namespace qx
