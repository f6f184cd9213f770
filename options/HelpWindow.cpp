#include "HelpWindow.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLocale>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace qx {

namespace {

// Answers a page that is not there with a page that says so; everything else loads as usual.
class HelpBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl &name) override
    {
        if (type == QTextDocument::HtmlResource && name.isLocalFile() && !QFileInfo::exists(name.toLocalFile())) {
            const QString file = name.toLocalFile().toHtmlEscaped();
            return QCoreApplication::translate("qx::HelpWindow", "<html><body><h2>Help page not found</h2>"
                                  "<p>The help page <b>%1</b> is missing, so this topic cannot be shown.</p>"
                                  "<p>The help pages belong in the <i>help</i> folder beside the program; "
                                  "building QX again puts them back.</p></body></html>")
                .arg(file);
        }
        return QTextBrowser::loadResource(type, name);
    }
};

QToolButton *button(const QString &text, QWidget *parent)
{
    auto *b = new QToolButton(parent);
    b->setText(text);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return b;
}

} // namespace

HelpWindow::HelpWindow(QWidget *parent, const QString &folder)
    : QWidget(parent, Qt::Window), m_folder(folder.isEmpty() ? defaultFolder() : folder)
{
    setWindowTitle(tr("QX Help"));
    resize(560, 520);

    m_back = button(tr("&Back"), this);
    m_forward = button(tr("&Forward"), this);
    m_home = button(tr("&Contents"), this);
    m_browser = new HelpBrowser(this);
    m_browser->setOpenExternalLinks(true);
    m_back->setEnabled(false);
    m_forward->setEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_back);
    buttons->addWidget(m_forward);
    buttons->addWidget(m_home);
    buttons->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_browser);

    connect(m_back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_home, &QToolButton::clicked, this, [this] { showTopic(Contents); });
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QToolButton::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QToolButton::setEnabled);
}

QString HelpWindow::defaultFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/help");
}

QString HelpWindow::pageOf(int topic)
{
    switch (topic) {
    case Rules:
        return QStringLiteral("rules.html");
    case Strategy:
        return QStringLiteral("strategy.html");
    default:
        return QStringLiteral("contents.html");
    }
}

QString HelpWindow::pathOf(int topic) const
{
    // The translated pages live in a folder named by the language ("de", "fr"); a language the
    // help has not been translated into reads the English pages.
    const QString page = pageOf(topic);
    const QString language = QLocale().name().section(QLatin1Char('_'), 0, 0);
    QString translated = m_folder + QLatin1Char('/') + language + QLatin1Char('/') + page;
    if (!language.isEmpty() && QFileInfo::exists(translated))
        return translated;
    return m_folder + QLatin1Char('/') + page;
}

void HelpWindow::showTopic(int topic)
{
    m_browser->setSource(QUrl::fromLocalFile(pathOf(topic)));
    show();
    raise();
    activateWindow();
}

} // namespace qx
