#include "edit/TMEditPointDlg.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

TMEditPointDlg::TMEditPointDlg(QWidget* parent) : QDialog(parent) {
    buildWidgets();
    connect(buttonBox, &QDialogButtonBox::accepted, this, &TMEditPointDlg::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TMEditPointDlg::buildWidgets() {
    setObjectName(QStringLiteral("TMEditPointDlg"));
    setWindowTitle(QObject::tr("Edit point"));
    resize(324, 126);

    auto* xLabel = new QLabel(QObject::tr("X coordinate:"), this);
    xLabel->setObjectName(QStringLiteral("xLabel"));
    xEdit = new QLineEdit(this);
    xEdit->setObjectName(QStringLiteral("xEdit"));
    auto* yLabel = new QLabel(QObject::tr("Y coordinate:"), this);
    yLabel->setObjectName(QStringLiteral("yLabel"));
    yEdit = new QLineEdit(this);
    yEdit->setObjectName(QStringLiteral("yEdit"));
    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttonBox->setObjectName(QStringLiteral("buttonBox"));

    auto* layout = new QGridLayout(this);
    layout->addWidget(xLabel, 0, 0);
    layout->addWidget(xEdit, 0, 1);
    layout->addWidget(yLabel, 1, 0);
    layout->addWidget(yEdit, 1, 1);
    layout->addWidget(buttonBox, 2, 0, 1, 2);
}

void TMEditPointDlg::setCoordinates(double x, double y) {
    xEdit->setText(QString::number(x, 'f', 6));
    yEdit->setText(QString::number(y, 'f', 6));
}

void TMEditPointDlg::setTool(TMObjects::TLTool* tool) {
    mTool = tool;
}

void TMEditPointDlg::accept() {
    QDialog::accept();
}
