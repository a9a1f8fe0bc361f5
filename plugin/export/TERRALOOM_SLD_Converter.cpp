#include "export/TERRALOOM_SLD_Converter.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "export/TLSldDocumentWriter.h"

using TMObjects::TLLayer;
using TMObjects::TLRefPtr;

TERRALOOM_SLD_Converter::TERRALOOM_SLD_Converter(const std::vector<TLRefPtr<TLLayer>>& layers,
                                                 QWidget* parent)
    : QDialog(parent), mLayers(layers) {
    setupUi(this);
    pushButton_ExecConvert->setCheckable(false);
    connect(pushButton_OpenOutpath, &QPushButton::clicked, this,
            &TERRALOOM_SLD_Converter::onSaveFile);
    connect(pushButton_ExecConvert, &QPushButton::clicked, this,
            &TERRALOOM_SLD_Converter::onConvert);
}

TERRALOOM_SLD_Converter::~TERRALOOM_SLD_Converter() = default;

void TERRALOOM_SLD_Converter::onSaveFile() {
    // The prompt has always been Chinese: "please choose the path to save the SLD file in".
    const QString name = QFileDialog::getSaveFileName(
        this, QString::fromUtf8("请选择SLD文件保存路径"), "./", "*.sld");
    // A name whose folder part is empty is not taken; note that a bare name, without any "/",
    // is all folder part here and is taken.
    if (name.left(name.lastIndexOf("/")).isEmpty()) return;
    mSavePath = name;
    lineEdit_Outpath->setText(name);
    pushButton_ExecConvert->setCheckable(true);
}

void TERRALOOM_SLD_Converter::onConvert() {
    const TMObjects::TLSldDocumentWriter writer;
    // Each layer replaces the file the one before it wrote: the file holds the last layer.
    for (const TLRefPtr<TLLayer>& layer : mLayers) writer.writeLayer(layer.get(), mSavePath);
    QMessageBox::information(this, tr("Info"), tr("Convert Successed!"));
    close();
}
