#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace qx {

// frmAbout, "About QX": the program's picture, its name, where to order more, and a notice.
class AboutBox : public QDialog {
    Q_OBJECT
public:
    explicit AboutBox(QWidget *parent = nullptr);

    QLabel *Picture1 = nullptr;
    QLabel *Label1 = nullptr;
    QLabel *Label2 = nullptr;
    QLabel *Label3 = nullptr;
    QPushButton *cmdOK = nullptr;
};

} // namespace qx
