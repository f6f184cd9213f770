#pragma once

#include <QWidget>

namespace qx {

class CardImages;

// What a card slot shows: nothing, the face of a card code, or the current card back (the
// picture of the stock).
struct CardPicture {
    enum Kind { None, Face, Back };
    Kind kind = None;
    int code = -1;

    static CardPicture face(int code) { return {Face, code}; }
    static CardPicture back() { return {Back, -1}; }
    bool isNone() const { return kind == None; }
    bool operator==(const CardPicture &) const = default;
};

// One card slot of the table (picCard(0..4), picDeck): shows its picture stretched to its own
// size, as a picture control with stretching on.
class CardSlot : public QWidget {
    Q_OBJECT
public:
    CardSlot(int index, CardImages &images, QWidget *parent);

    int index() const { return m_index; }
    const CardPicture &picture() const { return m_picture; }
    void setPicture(const CardPicture &picture);
    void clearPicture() { setPicture({}); }
    bool showsCard() const { return !m_picture.isNone(); }

    // The size the table's cards have now. The picture is drawn at that size and stretched to the
    // slot, so that a card narrowing in a flip does not ask for a new set of pictures every frame.
    void setCardSize(QSize size);

    // A hand slot whose card a person may click now: it answers the pointer.
    void setInviting(bool inviting);
    bool inviting() const { return m_inviting; }

signals:
    void clicked(int index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    const int m_index;
    CardImages &m_images;
    CardPicture m_picture;
    QSize m_cardSize;
    bool m_inviting = false;
    bool m_hover = false;
    bool m_pressed = false;
};

} // namespace qx
