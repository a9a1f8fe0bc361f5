#include "export/Ui_TERRALOOM_SLD_ConverterClass.h"

#include <QDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>

void Ui_TERRALOOM_SLD_ConverterClass::setupUi(QDialog* dialog) {
    dialog->setObjectName(QLatin1String("TERRALOOM_SLD_ConverterClass"));
    dialog->setWindowTitle(QObject::tr("Dialog"));
    dialog->resize(420, 90);
    auto* grid = new QGridLayout(dialog);
    lineEdit_Outpath = new QLineEdit(dialog);
    lineEdit_Outpath->setObjectName(QLatin1String("lineEdit_Outpath"));
    pushButton_OpenOutpath = new QPushButton(QObject::tr("SavePath"), dialog);
    pushButton_OpenOutpath->setObjectName(QLatin1String("pushButton_OpenOutpath"));
    pushButton_ExecConvert = new QPushButton(QObject::tr("Convert"), dialog);
    pushButton_ExecConvert->setObjectName(QLatin1String("pushButton_ExecConvert"));
    grid->addWidget(lineEdit_Outpath, 0, 0);
    grid->addWidget(pushButton_OpenOutpath, 0, 1);
    grid->addWidget(pushButton_ExecConvert, 1, 1);
}
