#include "OptionsTarget.h"

#include <QDialog>
#include <QMessageBox>
#include <QString>

namespace qx {

void OptionsTarget::showWarning(const QString &text)
{
    QMessageBox::warning(optionsWindow(), QStringLiteral("QX"), text);
}

bool OptionsTarget::askYesNo(const QString &text)
{
    return QMessageBox::question(optionsWindow(), QStringLiteral("QX"), text,
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void OptionsTarget::runDialog(QDialog &dialog)
{
    dialog.exec();
}

} // namespace qx
