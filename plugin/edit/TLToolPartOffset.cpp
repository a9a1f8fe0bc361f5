#include "edit/TLToolPartOffset.h"

#include <algorithm>
#include <vector>

#include "TLToolText.h"
#include "edit/TLClickQuery.h"
#include "edit/TLPartEdit.h"
#include "edit/TLVertexHit.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const char* const kMenuPrompt =
    "1.Point partial offset/ 2.Line partial offset/ 3.Entirety movement:";

enum Mode { Menu = 0, PointOffset = 1, LineOffset = 2, WholeMove = 3 };

// The raw points as a writable copy; empty when the geometry has none.
std::vector<double> rawPoints(TLGeometry* geometry) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry || !geometry->GetRawPoints(&xy, count) || !xy) return {};
    return std::vector<double>(xy, xy + 2 * std::size_t(count));
}

}  // namespace

TLToolPartOffset::TLToolPartOffset() = default;

TLToolPartOffset::TLToolPartOffset(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartOffset::~TLToolPartOffset() {
    delete mBand;
}

void TLToolPartOffset::reset() {
    mStep = 0;
    mMode = Menu;
    mLayer = nullptr;
    mFeatureId = -1;
    mVertexIndex = -1;
    mSecondIndex = -1;
    mGeometry = nullptr;
    delete mBand;
    mBand = nullptr;
}

void TLToolPartOffset::activate() {
    mActive = true;
    reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->RegisterTool(TLString("Part Offset"), this, true);
    mBuddy->SetPrompt(toolText(kMenuPrompt));
}

void TLToolPartOffset::deactivate() {
    reset();
    if (mBuddy) {
        mBuddy->SetPrompt(TLString());
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
}

TLString TLToolPartOffset::statePrompt() const {
    switch (mMode) {
        case PointOffset:
            return toolText(mStep == 0 ? "Please select corresponding point/End(E):"
                                       : "Please select point movement location:");
        case LineOffset:
            if (mStep == 0)
                return toolText("Please first select a line based on two points/End(E):");
            return toolText(mStep == 1 ? "Please select another point:" : "Position to move:");
        case WholeMove:
            return toolText(mStep == 0 ? "Please select feature/End(E):" : "Position to move:");
        default:
            return toolText(kMenuPrompt);
    }
}

bool TLToolPartOffset::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (mMode == Menu) {
        reset();
        if (text == TLString("1") || text == TLString("2") || text == TLString("3")) {
            mMode = text.ToInt();
            mStep = 0;
        }
    } else if (text == TLString("e") || text == TLString("E")) {
        reset();
    }
    mBuddy->SetPrompt(statePrompt());
    return true;
}

bool TLToolPartOffset::OnMouseDown(TLMouseButton button, int x, int y) {
    if (mMode < PointOffset || button != TLLeftButton || !mBuddy) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap() || !view->GetDisplay() || !view->GetDisplayTransform())
        return false;
    const TLPoint click = TLClickQuery::ClickPoint(view, x, y);
    const double tolerance = TLClickQuery::Tolerance(view);

    if (mStep == 0) {
        pickFeature(view, click, tolerance);
        return true;
    }
    if (mMode == LineOffset && mStep == 1) {
        pickSecondVertex(click, tolerance);
        return true;
    }
    TLRect rect = mGeometry->GetBound();
    if (!moveRawPoints(click)) {
        reset();
        processChildCmd(TLString());
        return true;
    }
    commitMove(view, rect);
    return true;
}

void TLToolPartOffset::pickFeature(TLMapView* view, const TLPoint& click, double tolerance) {
    const TLPartEdit::Pick pick =
        TLPartEdit::PickFeature(view, click, tolerance, mMode == LineOffset, mMode == WholeMove);
    if (pick.layer) {
        mLayer = pick.layer;
        mFeatureId = pick.id;
        mVertexIndex = pick.index;
        mGeometry = pick.geometry;
        if (mMode == WholeMove) {
            mStartX = click.x;
            mStartY = click.y;
        }
        ++mStep;
    }
    processChildCmd(TLString());
    view->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
}

void TLToolPartOffset::pickSecondVertex(const TLPoint& click, double tolerance) {
    double vx = 0.0, vy = 0.0;
    const int index = hitVertex(mGeometry.get(), click.x, click.y, tolerance, vx, vy);
    if (index < 0) {
        mBuddy->ShowMessage(toolText("Please select the point on the selected entity!"));
    } else {
        mSecondIndex = index;
        mStep = 2;
    }
    processChildCmd(TLString());
}

TLToolPartOffset::Range TLToolPartOffset::movedRange() {
    Range range{std::min(mVertexIndex, mSecondIndex), std::max(mVertexIndex, mSecondIndex)};
    if (mGeometry->GetType() != TLGeometry::GeoPolygon || range.hi - range.lo <= 1) return range;
    for (const TLPartEdit::Part& part : TLPartEdit::Parts(mGeometry.get())) {
        if (part.first != range.lo || part.last <= range.hi) continue;
        // Only a ring picked from its first index is walked the other way round.
        if (part.last - range.hi < range.hi - range.lo) range = Range{range.hi, part.last};
        break;
    }
    return range;
}

bool TLToolPartOffset::moveRawPoints(const TLPoint& click) {
    std::vector<double> xy = rawPoints(mGeometry.get());
    const int n = int(xy.size() / 2);
    if (n == 0) return false;
    const bool polygon = mGeometry->GetType() == TLGeometry::GeoPolygon;
    if (mMode == WholeMove) {
        for (int i = 0; i < n; ++i) {
            xy[2 * i] += click.x - mStartX;
            xy[2 * i + 1] += click.y - mStartY;
        }
    } else if (mMode == PointOffset) {
        if (mVertexIndex >= n) return false;
        // Exact equality: a ring closed only to within rounding does not follow its first vertex.
        if (polygon && mVertexIndex == 0 && xy[2 * (n - 1)] == xy[0] &&
            xy[2 * (n - 1) + 1] == xy[1]) {
            xy[2 * (n - 1)] = click.x;
            xy[2 * (n - 1) + 1] = click.y;
        }
        xy[2 * mVertexIndex] = click.x;
        xy[2 * mVertexIndex + 1] = click.y;
    } else {
        if (mSecondIndex >= n || mVertexIndex >= n) return false;
        const double dx = click.x - xy[2 * mSecondIndex];
        const double dy = click.y - xy[2 * mSecondIndex + 1];
        const Range range = movedRange();
        for (int i = range.lo; i <= range.hi; ++i) {
            xy[2 * i] += dx;
            xy[2 * i + 1] += dy;
        }
        if (polygon)
            for (const TLPartEdit::Part& part : TLPartEdit::Parts(mGeometry.get())) {
                if (range.lo == part.first) {
                    xy[2 * part.last] = xy[2 * range.lo];
                    xy[2 * part.last + 1] = xy[2 * range.lo + 1];
                } else if (range.hi == part.last) {
                    xy[2 * part.first] = xy[2 * range.hi];
                    xy[2 * part.first + 1] = xy[2 * range.hi + 1];
                }
            }
    }
    return mGeometry->UpdateRawPoints(xy.data());
}

void TLToolPartOffset::commitMove(TLMapView* view, TLRect rect) {
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(mGeometry.get()))
        polygon->EndEntity();
    else if (auto* line = dynamic_cast<TLGeoPolyline*>(mGeometry.get()))
        line->EndEntity();
    rect.Union(mGeometry->GetBound());

    TLFeatureLayer* layer = TLPartEdit::LiveLayer(view, mLayer);
    TLEditor* editor = view->GetMap()->editor();
    if (layer && editor && TLPartEdit::ToLayer(view, layer, mGeometry.get())) {
        editor->set_edit_layer(layer);
        editor->StartOperation(toolText("part offset"));
        layer->layer_edit_buffer()->changeGeometry(mFeatureId, mGeometry, true);
        editor->CommitOperation(true);
    }
    reset();
    processChildCmd(TLString());
    view->RefreshMap(false, rect);
}

bool TLToolPartOffset::OnMouseMove(TLMouseButton, int x, int y) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    const TLPoint cursor = TLClickQuery::ClickPoint(view, x, y);
    makeUpRubberBand(view, cursor.x, cursor.y);
    if (mBand) mBand->Update();
    return mMode >= PointOffset && mStep >= 1 && mLayer && mFeatureId >= 0;
}

void TLToolPartOffset::makeUpRubberBand(TLMapView* view, double x, double y) {
    delete mBand;
    mBand = nullptr;
    if (mMode < PointOffset || mStep < 1 || !mGeometry || (mMode == LineOffset && mStep < 2))
        return;
    const TLPoint cursor(x, y);
    const bool pointLayer = mLayer && mLayer->GetLayerType() == TLLayer::PointLayer;
    if (mMode != LineOffset && pointLayer) {
        mBand = new TLRubberBand(view, TLRubberBand::PointBand);
        mBand->AddPoint(cursor, 0);
    } else {
        const std::vector<double> xy = rawPoints(mGeometry.get());
        mBand = new TLRubberBand(view, TLRubberBand::LineBand);
        if (!xy.empty()) {
            if (mMode == PointOffset)
                bandVertexNeighbours(xy.data(), int(xy.size() / 2), cursor);
            else if (mMode == LineOffset)
                bandStretch(xy.data(), cursor);
            else
                bandWhole(xy.data(), cursor);
        }
    }
    mBand->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(0, 0, 255));
}

// The picked vertex's part shows its two neighbours joined through the cursor.
void TLToolPartOffset::bandVertexNeighbours(const double* xy, int count, const TLPoint& cursor) {
    const int v = mVertexIndex;
    auto vertex = [xy](int i) { return TLPoint(xy[2 * i], xy[2 * i + 1]); };
    for (const TLPartEdit::Part& part : TLPartEdit::Parts(mGeometry.get())) {
        if (v < part.first || v > part.last) continue;
        if (v > part.first) mBand->AddPoint(vertex(v - 1), 0);
        mBand->AddPoint(cursor, 0);
        if (v < part.last && v + 1 < count) mBand->AddPoint(vertex(v + 1), 0);
        return;
    }
}

void TLToolPartOffset::bandStretch(const double* xy, const TLPoint& cursor) {
    const double dx = cursor.x - xy[2 * mSecondIndex];
    const double dy = cursor.y - xy[2 * mSecondIndex + 1];
    const Range range = movedRange();
    int band = 0;
    for (const TLPartEdit::Part& part : TLPartEdit::Parts(mGeometry.get())) {
        const int from = std::max(part.first, range.lo);
        const int to = std::min(part.last, range.hi);
        if (from > to) continue;
        for (int i = from; i <= to; ++i)
            mBand->AddPoint(TLPoint(xy[2 * i] + dx, xy[2 * i + 1] + dy), band);
        ++band;
    }
}

void TLToolPartOffset::bandWhole(const double* xy, const TLPoint& cursor) {
    const double dx = cursor.x - mStartX;
    const double dy = cursor.y - mStartY;
    const std::vector<TLPartEdit::Part> parts = TLPartEdit::Parts(mGeometry.get());
    for (int p = 0; p < int(parts.size()); ++p)
        for (int i = parts[std::size_t(p)].first; i <= parts[std::size_t(p)].last; ++i)
            mBand->AddPoint(TLPoint(xy[2 * i] + dx, xy[2 * i + 1] + dy), p);
}

}  // namespace TMObjects
