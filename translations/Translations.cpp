#include "Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace qx {

namespace {

// A translator that the application owns, installed only when the language's file is there.
void installIfFound(QCoreApplication &app, const QLocale &locale, const QString &name, const QString &folder)
{
    auto *translator = new QTranslator(&app);
    if (translator->load(locale, name, QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

void installTranslations(QCoreApplication &app)
{
    const QLocale locale = QLocale::system();
    // The sources are the English texts; a translator here could only get in the way (an
    // English file for another language listed in LANGUAGE, for one).
    if (locale.language() == QLocale::English || locale.language() == QLocale::C)
        return;
    installIfFound(app, locale, QStringLiteral("qx"), QStringLiteral(":/i18n"));
    installIfFound(app, locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
}

} // namespace qx
