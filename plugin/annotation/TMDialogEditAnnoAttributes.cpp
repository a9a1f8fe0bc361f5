#include "annotation/TMDialogEditAnnoAttributes.h"

#include <QMessageBox>

#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLFeature.h"

using namespace TMObjects;

TMDialogEditAnnoAttributes::TMDialogEditAnnoAttributes(QWidget* parent)
    : TMDialogAnnoAttributes(parent) {
    setWindowTitle(tr("Edit annotation attributes"));
}

void TMDialogEditAnnoAttributes::editIn(TLTool* tool, TLToolBuddy* buddy,
                                        TLAnnotationLayer* layer) {
    auto* dialog = new TMDialogEditAnnoAttributes;
    dialog->setBuddy(buddy);
    const Qt::WindowFlags flags = dialog->windowFlags();
    dialog->setParent(QWidget::find(WId(buddy->MainWindowId())));
    dialog->setWindowFlags(flags);
    dialog->move(250, 80);
    dialog->setTool(tool);
    if (dialog->setLayer(layer)) dialog->exec();
    delete dialog;
}

bool TMDialogEditAnnoAttributes::loadFromAnnotation() {
    TLRefPtr<TLFeatureSelectionSet> selection = mLayer->GetSelection();
    const int count = selection ? selection->GetCount() : 0;
    if (mMode == kPlainMode && count >= 2) {
        QMessageBox::warning(this, tr("Warning"),
                             tr("Don't modify many annotation at the same time!"));
        return false;
    }
    TLRefPtr<TLSelectFeature> first = count > 0 ? selection->GetFeature(0) : nullptr;
    if (!first) return false;
    mFeatureId = first->GetOID();
    TLRefPtr<TLFeature> row = mLayer->GetFeature(mFeatureId);
    if (!row) return false;
    mGeometry = row->GetGeometry();
    mAnnotation->reset();
    TLAnnoMgrTool::SetZjInfoFromField(mFieldKind, *mAnnotation, *row);
    fillWidgets(*mAnnotation);
    return true;
}

void TMDialogEditAnnoAttributes::applyToLayer() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !mLayer) return;
    TLEditor* editor = view->GetMap()->editor();
    TLLayerEditBuffer* buffer = mLayer->layer_edit_buffer();
    editor->set_edit_layer(mLayer);
    editor->StartOperation(TLString("Edit Annotation"));
    TLAnnoMgrTool::CopyZjInfoToField(mFieldKind, buffer, *mAnnotation, mFeatureId);
    editor->CommitOperation(true);
    mLayer->SetAnnotationDirty(mFeatureId, true);
    view->UpdateView(true);
    mFeatureId = -1;
}
