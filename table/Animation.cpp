#include "Animation.h"

#include "CardSlot.h"
#include "GameState.h"
#include "Waiter.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>

namespace qx {

namespace {

double secondsSince(const QElapsedTimer &clock) { return static_cast<double>(clock.nsecsElapsed()) / 1e9; }

} // namespace

CardAnimator::CardAnimator(const GameState &state, CardSlot &movingCard, CardSlot &deck, Waiter &waiter)
    : m_state(state), m_moving(movingCard), m_deck(deck), m_waiter(waiter)
{
}

int CardAnimator::flipHalfCount(int frames)
{
    if (frames <= 0)
        return 0;
    const int whole = frames / 2;
    if (frames % 2 == 0)
        return whole;
    // Exactly half way between whole and whole + 1: the even one.
    return whole % 2 == 0 ? whole : whole + 1;
}

void CardAnimator::AnimateCardMove(CardSlot &source, CardSlot &destination)
{
    const QRect from = source.geometry();
    const QRect to = destination.geometry();

    m_moving.hide();
    m_moving.setGeometry(from);
    m_moving.setPicture(source.picture());
    m_moving.show();
    m_moving.raise();

    // The stock and any slot showing the very same back keep their picture, and so does every
    // source once the stock is down to its last card.
    if (m_state.DeckPos < m_state.NumberOfDecks * CardsPerPack && !(source.picture() == m_deck.picture())) {
        source.clearPicture();
        source.update();
    }

    const int frames = m_state.Frames;
    if (frames > 0) {
        const float stepX = static_cast<float>(to.left() - from.left()) / static_cast<float>(frames);
        const float stepY = static_cast<float>(to.top() - from.top()) / static_cast<float>(frames);
        float x = static_cast<float>(from.left());
        float y = static_cast<float>(from.top());
        for (int i = 1; i <= frames; ++i) {
            QElapsedTimer clock;
            clock.start();
            x += stepX;
            y += stepY;
            m_moving.move(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
            m_moving.update();
            m_waiter.frameWait(secondsSince(clock));
        }
    }

    destination.setPicture(m_moving.picture());
    m_moving.hide();
    m_moving.clearPicture();
    destination.update();
}

void CardAnimator::AnimateCardFlip(CardSlot &slot, int code)
{
    const QRect saved = m_moving.geometry();
    const QRect r = slot.geometry();
    const int frames = m_state.Frames;
    float x = static_cast<float>(r.left());
    float w = static_cast<float>(r.width());
    const float d = frames > 0 ? static_cast<float>(r.width()) / static_cast<float>(frames) : 0.0f;

    m_moving.hide();
    m_moving.setPicture(slot.picture());
    m_moving.setGeometry(r);
    m_moving.show();
    m_moving.raise();
    slot.hide();

    // The card narrows about its centre, shows its face and widens again.
    auto frame = [&](float dx, float dw) {
        QElapsedTimer clock;
        clock.start();
        x += dx;
        w += dw;
        m_moving.setGeometry(static_cast<int>(std::lround(x)), r.top(),
                             std::max(0, static_cast<int>(std::lround(w))), r.height());
        m_waiter.frameWait(secondsSince(clock));
    };
    const int half = flipHalfCount(frames);
    for (int i = 1; i <= half; ++i)
        frame(d, -2 * d);
    m_moving.setPicture(CardPicture::face(code));
    for (int i = 1; i <= half; ++i)
        frame(-d, 2 * d);

    slot.setPicture(m_moving.picture());
    slot.show();
    m_moving.hide();
    m_moving.setGeometry(saved);
    slot.update();
}

} // namespace qx
