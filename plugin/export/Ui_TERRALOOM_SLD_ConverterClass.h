#pragma once

class QDialog;
class QLineEdit;
class QPushButton;

// The form of the SLD converter: the output path over the two buttons that choose it and run
// the conversion.
class Ui_TERRALOOM_SLD_ConverterClass {
public:
    void setupUi(QDialog* dialog);

    QLineEdit* lineEdit_Outpath;
    QPushButton* pushButton_OpenOutpath;
    QPushButton* pushButton_ExecConvert;
};
