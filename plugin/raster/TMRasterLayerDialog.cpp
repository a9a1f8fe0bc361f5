#include "raster/TMRasterLayerDialog.h"

#include <QCloseEvent>
#include <QComboBox>

#include "raster/TLRasterToolKit.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLTool.h"

using namespace TMObjects;

TMRasterLayerDialog::TMRasterLayerDialog(QWidget* parent) : QDialog(parent) {
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setAttribute(Qt::WA_DeleteOnClose);
}

void TMRasterLayerDialog::retire() {
    mTool = nullptr;
    hide();
    deleteLater();
}

void TMRasterLayerDialog::endTool() {
    TLTool* tool = mTool;
    mTool = nullptr;
    if (tool) tool->deactivate();
}

void TMRasterLayerDialog::closeEvent(QCloseEvent* event) {
    if (mEndsToolOnClose) endTool();
    QDialog::closeEvent(event);
}

void TMRasterLayerDialog::setLayerCombo(QComboBox* combo, std::function<void(int)> onChange) {
    mCombo = combo;
    mOnChange = std::move(onChange);
    connectCombo();
}

void TMRasterLayerDialog::connectCombo() {
    mConnection = QObject::connect(mCombo, QOverload<int>::of(&QComboBox::currentIndexChanged),
                                   this, [this](int index) {
                                       if (mOnChange) mOnChange(index);
                                   });
}

bool TMRasterLayerDialog::refillLayers(TLToolBuddy* buddy, TLRefPtr<TLLayer>& layer) {
    mBuddy = buddy;
    TLMap* map = TLRasterToolKit::map(buddy);
    if (!map) return false;
    const std::vector<TLRefPtr<TLLayer>> layers = map->GetLayers(true);
    if (layers.empty()) return false;
    QObject::disconnect(mConnection);
    if (mCombo->count() > 0) {
        const int kept = TLRasterToolKit::currentLayerId(mCombo);
        mCombo->clear();
        TLRasterToolKit::addRasterLayers(mCombo, layers);
        const int index = TLRasterToolKit::indexOfLayerId(mCombo, kept);
        mCombo->setCurrentIndex(index >= 0 ? index : 0);
    } else if (TLRasterToolKit::addRasterLayers(mCombo, layers)) {
        mCombo->setCurrentIndex(0);
    }
    const int id = TLRasterToolKit::currentLayerId(mCombo);
    const bool chosen = id > 0;
    if (chosen) layer = map->GetLayerByID(id);
    connectCombo();
    return chosen;
}
