#include "edit/TMSelectlayerDlg.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <vector>

#include "TLToolText.h"
#include "edit/TLToolPartCopy.h"

namespace {

QString trSelectlayer(const char* source) {
    return QCoreApplication::translate("SelectlayerDlg", source);
}

}  // namespace

TMSelectlayerDlg::TMSelectlayerDlg(QWidget* parent) : QDialog(parent) {
    buildWidgets();
    connect(buttonBox, &QDialogButtonBox::accepted, this, &TMSelectlayerDlg::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &TMSelectlayerDlg::reject);
}

void TMSelectlayerDlg::buildWidgets() {
    setObjectName(QStringLiteral("TMSelectlayerDlg"));
    setWindowTitle(trSelectlayer("Dialog"));
    resize(300, 90);
    label = new QLabel(trSelectlayer("Layer:"), this);
    label->setObjectName(QStringLiteral("label"));
    layerComboBox = new QComboBox(this);
    layerComboBox->setObjectName(QStringLiteral("layerComboBox"));
    layerComboBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttonBox->setObjectName(QStringLiteral("buttonBox"));

    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(layerComboBox);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(buttonBox);
}

void TMSelectlayerDlg::setTool(TMObjects::TLTool* tool) {
    mTool = tool;
    setLayerType(TMObjects::TLLayer::LineLayer);
}

void TMSelectlayerDlg::setLayerType(int type) {
    layerComboBox->clear();
    auto* copy = dynamic_cast<TMObjects::TLToolPartCopy*>(mTool);
    if (!copy) return;
    std::vector<TMObjects::TLString> names;
    std::vector<int> ids;
    copy->getbudyLayernames(TMObjects::TLLayer::LayerType(type), names, ids);
    for (std::size_t i = 0; i < names.size(); ++i)
        layerComboBox->addItem(TMObjects::toQString(names[i]), ids[i]);
}

void TMSelectlayerDlg::accept() {
    if (mTool) {
        const int index = layerComboBox->currentIndex();
        const QString id = index < 0 ? QStringLiteral("-1")
                                     : QString::number(layerComboBox->itemData(index).toInt());
        mTool->setParam(TMObjects::TLString("layerID"), TMObjects::toTLString(id));
    }
    QDialog::accept();
}

void TMSelectlayerDlg::reject() {
    if (mTool) mTool->setParam(TMObjects::TLString("layerID"), TMObjects::TLString("-1"));
    QDialog::reject();
}
