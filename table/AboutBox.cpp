#include "AboutBox.h"

#include "CardArt.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

namespace qx {

AboutBox::AboutBox(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About QX"));

    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(QPixmap::fromImage(CardArt::renderAppIcon(CardArt::WindowIconSize)));

    Label1 = new QLabel(QStringLiteral("QX"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont title(QStringLiteral("Arial"));
    title.setBold(true);
    title.setPointSize(24);
    Label1->setFont(title);

    Label3 = new QLabel(tr("See ORDER.TXT to order more from the Brackenfall Series or other games."), this);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setWordWrap(true);

    Label2 = new QLabel(tr("Version 1.1. Cards, pictures and sounds drawn by the program itself."), this);
    Label2->setObjectName(QStringLiteral("Label2"));

    cmdOK = new QPushButton(tr("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    // The box is only hidden: it stays ready for the next time.
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::hide);

    auto *grid = new QGridLayout(this);
    grid->addWidget(Picture1, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(Label1, 0, 1);
    grid->addWidget(Label3, 1, 1);
    grid->addWidget(Label2, 2, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setHorizontalSpacing(16);
    setMinimumWidth(420);
}

} // namespace qx
