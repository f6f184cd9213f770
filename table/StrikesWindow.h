#pragma once

#include <QColor>
#include <QWidget>

class QTimer;

namespace qx {

struct GameState;

// frmStrikes: the strike marks of every seat, in a narrow window that rides along the main
// window's right edge, tops aligned.
class StrikesWindow : public QWidget {
    Q_OBJECT
public:
    // `mainWindow` is the window to follow; `table` the play area whose size sets the font.
    StrikesWindow(const GameState &state, QWidget *mainWindow, const QWidget *table);

    // Redraws the marks at the font size the play area's size calls for.
    void RefreshStrikeMarks();
    void setBackColor(const QColor &color);

    // The font size, in points, for a play area of this many pixels: the smaller of its width
    // in twips div 400 and its height in twips div 300, each at least 1.
    static int fontSizeFor(QSize clientPixels);
    int fontSize() const { return m_pointSize; }

    QTimer *tmrKeepPos = nullptr;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void tmrKeepPos_Timer();
    QFont marksFont() const;
    void fitToContent();

    const GameState &m_state;
    QWidget *m_main;
    const QWidget *m_table;
    int m_pointSize = 8;
    QColor m_back;
};

} // namespace qx
