#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;
class QToolButton;

namespace qx {

// The program's help: the HTML pages shipped in the help/ folder beside the program (translated
// pages in help/<language>/), in a small browser window with Back, Forward and Contents buttons.
// Links between the pages work; a page that is missing shows a text saying so instead of an
// empty window.
class HelpWindow : public QWidget {
    Q_OBJECT
public:
    enum Topic { Contents = 1, Rules = 2, Strategy = 3 };

    // `folder` defaults to help/ in the program's folder.
    explicit HelpWindow(QWidget *parent = nullptr, const QString &folder = {});

    static QString defaultFolder();
    // "contents.html", "rules.html", "strategy.html"; an unknown topic opens the contents.
    static QString pageOf(int topic);

    // The topic's page in the player's language (the default locale's) when the help folder has
    // it, the English page otherwise.
    QString pathOf(int topic) const;
    // Shows the window (raised, in front) at the topic's page.
    void showTopic(int topic);

    QString folder() const { return m_folder; }
    QTextBrowser *browser() const { return m_browser; }

private:
    QString m_folder;
    QTextBrowser *m_browser = nullptr;
    QToolButton *m_back = nullptr;
    QToolButton *m_forward = nullptr;
    QToolButton *m_home = nullptr;
};

} // namespace qx
