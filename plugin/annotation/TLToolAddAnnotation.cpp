#include "annotation/TLToolAddAnnotation.h"

#include <QDebug>
#include <QMessageBox>
#include <QWidget>

#include "TLToolText.h"
#include "annotation/TMDialogAddAnnotation.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLToolAddAnnotation::TLToolAddAnnotation() = default;

TLToolAddAnnotation::TLToolAddAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolAddAnnotation::~TLToolAddAnnotation() = default;

void TLToolAddAnnotation::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(2);
    if (mBuddy && mBuddy->GetMapView()) {
        mPressed = mMoved = false;
        mSnap.Init(mBuddy);
    }
}

void TLToolAddAnnotation::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    mSnap.Reset();
    mPressed = mMoved = false;
    mBuddy = nullptr;
    TLTool::deactivate();
}

bool TLToolAddAnnotation::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !mBuddy->GetMapView() || !mSnap.CanSnap()) return true;
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    mSnap.Snap(point, nullptr);
    mSnap.GetSnappedPoint(point);
    mSnap.Draw(mBuddy->GetMapView()->GetDisplayTransform(), TLSnapEnvironment::Instance());
    return true;
}

bool TLToolAddAnnotation::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (button != TLLeftButton) return true;
    mPressed = true;
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mSnap.CanSnap()) mSnap.GetSnappedPoint(point);
    mDownX = point.x;
    mDownY = point.y;
    qDebug() << "TLToolAddAnnotation image xy:" << x << "-" << y;
    qDebug() << "TLToolAddAnnotation map xy:" << mDownX << "-" << mDownY;
    return true;
}

bool TLToolAddAnnotation::OnMouseUp(TLMouseButton button, int, int) {
    if (button != TLLeftButton) return true;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    TLRefPtr<TLLayer> current = view->GetMap()->GetCurrentLayer();
    auto* layer = dynamic_cast<TLAnnotationLayer*>(current.get());
    QWidget* window = QWidget::find(WId(mBuddy->MainWindowId()));
    if (!layer) {
        QMessageBox::warning(window, QObject::tr("Warning"),
                             QObject::tr("Current layer is not a annotation layer!"));
        return false;
    }
    if (!view->GetDisplayTransform()) return true;
    if (!layer->IsEditable()) {
        QMessageBox::warning(window, QObject::tr("Warning"),
                             QObject::tr("The selected layer is not editable!"));
        return false;
    }
    mProjectActive = false;
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        if (!mProject) mProject = std::make_unique<TLGeometryProject>();
        mProject->SetPrj(mapReference.get(), layerReference.get(), nullptr);
        mProjectActive = true;
    }
    showAddAnnotationDlg(view, layer);
    mPressed = mMoved = false;
    view->UpdateView(true);
    return true;
}

// The user's choices in the dialog stay with that annotation: the default style is kept.
void TLToolAddAnnotation::showAddAnnotationDlg(TLMapView*, TLLayer* layer) {
    auto* dialog = new TMDialogAddAnnotation;
    dialog->setBuddy(mBuddy);
    const Qt::WindowFlags flags = dialog->windowFlags();
    dialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
    dialog->setWindowFlags(flags);
    dialog->move(250, 80);
    dialog->setTool(this);
    dialog->setInitValue(mTextElement, mArrowType);
    if (dialog->setLayer(layer)) dialog->exec();
    delete dialog;
}

void TLToolAddAnnotation::getDownMapPoint(double& x, double& y) {
    TLPoint point(mDownX, mDownY);
    if (mProjectActive && mProject) mProject->ProjPoint(point);
    x = point.x;
    y = point.y;
}

void TLToolAddAnnotation::setParam(TLString key, TLString value) {
    TLTool::setParam(key, value);
    const QString text = toQString(value);
    TLTextElement& t = mTextElement;
    if (key.CompareNoCase("bold") == 0) {
        t.put_FontWeight(t.get_FontWeight() >= 700 ? 400 : 700);
    } else if (key.CompareNoCase("italic") == 0) {
        const int mode = text.toInt();
        t.put_FontItalic(mode == 1 || mode == 2 ? mode : 0);
    } else if (key.CompareNoCase("underline") == 0) {
        t.put_FontUnderline(!t.get_FontUnderline());
    } else if (key.CompareNoCase("strikethrough") == 0) {
        t.put_FontStrikeThrough(!t.get_FontStrikeThrough());
    } else if (key.CompareNoCase("textalign") == 0) {
        const int align = text.toInt();
        t.put_TextHorizAlign(align == 1 || align == 3 ? align : 2);
    } else if (key.CompareNoCase("color") == 0) {
        t.put_FontColor(text.toUInt(nullptr, 10));
    } else if (key.CompareNoCase("fontname") == 0) {
        t.put_FontName(value);
    } else if (key.CompareNoCase("fontsize") == 0) {
        t.put_FontHeight(text.toDouble(), TLTextElement::Points);
    } else if (key.CompareNoCase("guideline") == 0) {
        const unsigned guide = text.toUInt();
        if (guide < 5) mArrowType = int(guide);
    } else if (key.CompareNoCase("bgoridxlinew") == 0) {
        t.put_BoundWidth(text.toDouble());
    } else if (key.CompareNoCase("bgoridxlineclr") == 0) {
        t.put_BoundColor(text.toUInt(nullptr, 10));
    }
}

}  // namespace TMObjects
