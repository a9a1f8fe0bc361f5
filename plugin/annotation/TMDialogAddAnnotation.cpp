#include "annotation/TMDialogAddAnnotation.h"

#include <QDebug>
#include <QRegularExpression>
#include <cmath>
#include <memory>

#include "TLToolText.h"
#include "annotation/TLToolAddAnnotation.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgraphics/TLFont.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLMathHelper.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"
#include "tlsymbol/TLDisplayTransform.h"

using namespace TMObjects;

namespace {

// The box's corners in map coordinates of the transform at the reference scale.
struct Box {
    double left, top, right, bottom;
};

// The centre of the box in device pixels: the anchor names the side of the clicked point on
// which the text lies. The halves are whole pixels here, and exact when the corners are taken.
void anchorCentre(int anchor, int w, int h, double& x, double& y) {
    const int a = w / 2;
    const int b = h / 2;
    switch (anchor) {
        case 0:
            x -= a, y -= b;
            break;
        case 1:
            x += a, y -= b;
            break;
        case 2:
            x += a, y += b;
            break;
        case 3:
            x -= a, y += b;
            break;
        case 4:
            y -= b;
            break;
        case 5:
            x += a;
            break;
        case 6:
            y += b;
            break;
        case 7:
            x -= a;
            break;
        default:
            break;
    }
}

Box corners(const TLDisplayTransform& t, double cx, double cy, int w, int h) {
    const double upp = t.mResolution;
    const double mapLeft = t.mVisibleBounds.XMinimum();
    const double mapTop = t.mVisibleBounds.YMaximum();
    const double deviceLeft = t.mDeviceFrame.XMinimum();
    const double deviceTop = t.mDeviceFrame.YMinimum();
    return {(cx - w * 0.5 - deviceLeft) * upp + mapLeft, mapTop - (cy - h * 0.5 - deviceTop) * upp,
            (cx + w * 0.5 - deviceLeft) * upp + mapLeft, mapTop - (cy + h * 0.5 - deviceTop) * upp};
}

// The geometry of the kind the layer keeps, turned about the clicked point (x, y).
TLRefPtr<TLGeometry> boxGeometry(int kind, const Box& b, double x, double y, double radians) {
    auto turn = [&](double px, double py) {
        if (radians > 2.220446049250313e-16)
            TLMathHelper::RotatePoint(px, py, x, y, radians, false);
        return TLPoint(px, py);
    };
    if (kind == TLAnnotationLayer::AnnoGeoPoint) {
        auto* point = new TLGeoPoint;
        point->PutCoords(x, y);
        return TLRefPtr<TLGeometry>(point);
    }
    if (kind == TLAnnotationLayer::AnnoGeoLine) {
        auto* line = new TLGeoPolyline;
        line->BeginPath();
        line->BeginSegment();
        for (const TLPoint& p : {turn(b.left, b.top), turn(b.right, b.bottom)})
            line->AddXY(p.x, p.y);
        line->EndEntity();
        return TLRefPtr<TLGeometry>(line);
    }
    auto* polygon = new TLGeoPolygon;
    polygon->BeginPath();
    polygon->BeginSegment(1);
    for (const TLPoint& p : {turn(b.left, b.top), turn(b.right, b.top), turn(b.right, b.bottom),
                             turn(b.left, b.bottom), turn(b.left, b.top)})
        polygon->AddXY(p.x, p.y);
    polygon->EndEntity();
    return TLRefPtr<TLGeometry>(polygon);
}

}  // namespace

TMDialogAddAnnotation::TMDialogAddAnnotation(QWidget* parent) : TMDialogAnnoAttributes(parent) {
    setWindowTitle(tr("Add annotation"));
}

int TMDialogAddAnnotation::subclassOfFilter() const {
    const QString clause = toQString(mLayer->query_filter().GetWhereClause());
    if (clause.isEmpty() || !clause.contains(QLatin1String("SUBCLASSID"), Qt::CaseInsensitive))
        return 0;
    const int equals = clause.indexOf('=');
    if (equals < 0) return 0;
    static const QRegularExpression leading(QStringLiteral("^\\s*(-?\\d+)"));
    const QRegularExpressionMatch match = leading.match(clause.mid(equals + 1));
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

void TMDialogAddAnnotation::applyToLayer() {
    auto* tool = dynamic_cast<TLToolAddAnnotation*>(mTool);
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!tool || !view || !mLayer) return;
    const TLAnnotation& a = *mAnnotation;
    std::unique_ptr<TLFont> font(TLGraphicsEngineManager::instance("")->NewFont());
    if (font) {
        font->SetWidth(int(a.get_FontWidth(TLTextElement::Pixels)));
        font->SetHeight(int(a.get_FontHeight(TLTextElement::Pixels)));
        font->SetFamily(a.get_FontName());
        font->SetLetterSpacing(a.get_WordSpace(), a.get_WordSpace());
    }
    TLEditor* editor = view->GetMap()->editor();
    TLLayerEditBuffer* buffer = mLayer->layer_edit_buffer();
    editor->set_edit_layer(mLayer);
    editor->StartOperation(TLString("Add Feature"));

    double x = 0, y = 0;
    tool->getDownMapPoint(x, y);
    qDebug() << "addannotation x:" << x << "-" << y;
    // The box is as large in map units as it is at the layer's reference scale, whatever the zoom.
    const TLDisplayTransform* shown = view->GetDisplayTransform();
    TLDisplayTransform atReference = *shown;
    TLRect bounds = shown->GetVisibleBounds();
    bounds.Scale(mLayer->GetReferenceScale() / shown->GetScaleRatio(), nullptr);
    atReference.SetVisibleBounds(bounds);

    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = mLayer->GetSpatialReference();
    const bool project =
        mapReference && layerReference && !mapReference->IsSame(layerReference.get());
    TLGeometryProject toMap, toLayer;
    if (project) {
        toMap.SetPrj(layerReference.get(), mapReference.get(), nullptr);
        toLayer.SetPrj(mapReference.get(), layerReference.get(), nullptr);
    }
    TLPoint onMap(x, y);
    if (project) toMap.ProjPoint(onMap);
    const TLPoint device = atReference.ToDevice(onMap);
    const TLSize size = TLAnnoMgrTool::CalcAnnotationSize(a, font.get());
    const int w = int(size.GetWidth());
    const int h = int(size.GetHeight());
    qDebug() << "add annotation-size:" << w << "-" << h;
    double cx = device.x, cy = device.y;
    anchorCentre(a.get_AnchorPoint(), w, h, cx, cy);
    Box box = corners(atReference, cx, cy, w, h);
    qDebug() << "add annotation-coord:" << box.left << "-" << box.top << ":" << box.right << "-"
             << box.bottom;
    double degrees = a.get_FontAngle();
    if (degrees < 0) degrees = 360 - std::fabs(degrees);
    const double radians = degrees * 3.141592653589793 / 180;
    if (project) {
        TLPoint topLeft(box.left, box.top), bottomRight(box.right, box.bottom);
        toLayer.ProjPoint(topLeft);
        toLayer.ProjPoint(bottomRight);
        box = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
    }
    TLFeature feature;
    feature.SetId(-1);
    feature.SetGeometry(boxGeometry(mLayer->GetAnnoGeoType(), box, x, y, radians));
    buffer->AddFeature(feature, true, true);
    const int id = feature.GetId();
    qDebug() << "TMDialogAddAnnotation-add new feature id:" << id;
    if (TLFeatureEditBuffer* added = buffer->GetActiveEditFeatureByFeatureId(id)) {
        TLAnnoMgrTool::CopyZjInfoToField(mFieldKind, buffer, a, added);
        const int subclass = subclassOfFilter();
        if (mLayer->GetDatasource()->GetFields().FindField(TLString("SUBCLASSID")) > -1)
            added->SetValue(TLString("SUBCLASSID"), TLVariant::FromInt(subclass));
    }
    editor->CommitOperation(true);
    font.reset();
    if (TLAnnotation* record = mLayer->GetAnnoTextElement(id)) record->mDirty = true;
}
