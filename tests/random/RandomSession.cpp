#include "RandomSession.h"

#include <QString>
#include <cmath>
#include <sstream>
#include <typeinfo>

#include "hostkit/TLToolTable.h"
#include "tlbase/TLCoordinateLimit.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

namespace {

// Texts a user might type, a slip of the hand among them: sub-commands of the commands, numbers
// at the edges (0, negative, huge, no number at all), an empty line, a very long one, text that
// is no ASCII, and points, absurd points included.
const char* const kTyped[] = {
    "OF",
    "CL",
    "CZ",
    "AS",
    "PL",
    "LE",
    "PY",
    "YS",
    "FX",
    "J",
    "D",
    "C",
    "U",
    "E",
    "e",
    "A",
    "R",
    "S",
    "1",
    "2",
    "3",
    "0",
    "-1",
    "-0",
    "1e308",
    "-1e308",
    "1.7976931348623157e308",
    "1e-320",
    "NaN",
    "nan",
    "inf",
    "-inf",
    "",
    " ",
    "12abc",
    "90",
    "360",
    "45.5",
    "0.001",
    "日本語",
    "Ünïcödé",
    ",",
    "1,",
    ",1",
    "1,2,3",
    "500100,5000100",
    "500400,5000300",
    "-1,1.7976931348623157e308",
    "1e400,5",
    "nan,nan",
    "500200,5000200,10",
    "#",
    "\"",
    "\\",
};

// Keys: Escape, Return, Enter, Backspace, Delete, Tab, Space, Shift, Control, letters, digits.
const int kKeys[] = {0x01000000, 0x01000004, 0x01000005, 0x01000003, 0x01000007, 0x01000001,
                     0x20,       0x01000020, 0x01000021, 'A',        'C',        'E',
                     'U',        'Z',        '0',        '5',        '9'};

bool kindFits(TLLayer::LayerType type, TLGeometry* geometry) {
    switch (type) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer:
            return dynamic_cast<TLGeoPoint*>(geometry) || dynamic_cast<TLGeoMultiPoint*>(geometry);
        case TLLayer::LineLayer:
            return dynamic_cast<TLGeoPolyline*>(geometry) != nullptr;
        case TLLayer::PolygonLayer:
            return dynamic_cast<TLGeoPolygon*>(geometry) != nullptr;
        default:
            return true;
    }
}

}  // namespace

RandomSession::RandomSession(unsigned seed, const std::string& data) : mRandom(seed) {
    TLString error;
    mWorkspace = TMWorkspace::Open(TLString(data), true, error);
    mMap = TLRefPtr<TLMap>(new TLMap);
    mView = std::make_unique<TLMapView>(mMap);
    mView->SetDeviceSize(800, 600);
    for (const auto& layer : mWorkspace->GetLayers()) {
        if (!mMap->GetSpatialReference() && layer->GetSpatialReference())
            mMap->SetSpatialReference(layer->GetSpatialReference());
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        mMap->InsertLayer(features ? -1 : 0, layer.get(), true);
        if (features) mLayers.push_back(features);
    }
    mView->ZoomToBound(mMap->GetFullExtent());
    mBuddy = std::make_unique<TLHostBuddy>(mView.get());
    mDispatcher = std::make_unique<TLToolDispatcher>(mBuddy.get());
    mDispatcher->SetFailureListener([this](const std::string& what, const std::string& entry) {
        mCaught.push_back(entry + ": " + what);
    });
}

RandomSession::~RandomSession() {
    mDispatcher->Deactivate();
    mDispatcher.reset();
    mBuddy.reset();
    mView.reset();
    mMap.reset();
}

RandomSession::Layers RandomSession::layers() const {
    Layers all;
    for (TLFeatureLayer* layer : mLayers) {
        auto& features = all[layer->GetLayerName().toStdString()];
        const TLFeatureTable* table = layer->GetDatasource().get();
        for (int id : table->GetIds()) {
            const TLFeature* feature = table->PeekFeature(id);
            std::string text = TLGeometryWkt::ToWkt(feature->GetGeometry().get());
            for (const auto& [name, value] : feature->Values())
                text += "|" + name.toStdString() + "=" + value.ToString().toStdString();
            features[id] = text;
        }
    }
    return all;
}

bool RandomSession::Play(int events, std::string& report) {
    const Layers start = layers();
    std::string broken;
    for (int i = 0; i < events && broken.empty(); ++i) {
        mLog.push_back(step());
        check(broken);
    }
    if (broken.empty()) {
        mDispatcher->Deactivate();
        TLEditor* editor = mMap->editor();
        while (editor->CanUndo() && editor->Undo()) {
        }
        mLog.push_back("undo to the start");
        if (layers() != start) broken = "undo back to the start does not give the layers back";
    }
    if (broken.empty()) return true;
    std::ostringstream text;
    text << broken << "\n  tool in use: " << mTool << "\n  after:";
    for (std::size_t i = mLog.size() > 12 ? mLog.size() - 12 : 0; i < mLog.size(); ++i)
        text << "\n    " << i + 1 << ". " << mLog[i];
    report = text.str();
    return false;
}

bool RandomSession::check(std::string& broken) {
    if (mMap->editor()->IsOperationOpen()) {
        broken = "an editor operation was left open (" +
                 mMap->editor()->OpenOperationLabel().toStdString() + ")";
        return false;
    }
    for (TLFeatureLayer* layer : mLayers) {
        const TLFeatureTable* table = layer->GetDatasource().get();
        for (int id : table->GetIds()) {
            TLGeometry* geometry = table->PeekFeature(id)->GetGeometry().get();
            if (!geometry) continue;
            double* xy = nullptr;
            int count = 0;
            if (geometry->GetRawPoints(&xy, count) && xy)
                for (int k = 0; k < 2 * count; ++k)
                    if (!TLUsableCoordinate(xy[k])) {
                        broken = "feature " + std::to_string(id) + " of " +
                                 layer->GetLayerName().toStdString() + " has a coordinate " +
                                 std::to_string(xy[k]);
                        return false;
                    }
            // Another kind is taken into the layer and refused when saved, with the edits left
            // pending (a ground rule of the host): counted, not a break.
            const std::string at = layer->GetLayerName().toStdString() + "#" + std::to_string(id) +
                                   TLGeometryWkt::ToWkt(geometry);
            if (!kindFits(layer->GetLayerType(), geometry) && mSeenOther.insert(at).second)
                mOtherKinds.insert(mTool + " wrote a " +
                                   TLGeometryWkt::ToWkt(geometry).substr(0, 12) + "... into " +
                                   layer->GetLayerName().toStdString());
        }
    }
    return true;
}

std::string RandomSession::step() {
    const int what = std::uniform_int_distribution<int>(0, 99)(mRandom);
    if (what < 4 || !mDispatcher->ActiveTool()) return pickTool();
    if (what < 55) return mouse();
    if (what < 65) {
        const int key = kKeys[mRandom() % (sizeof kKeys / sizeof *kKeys)];
        mDispatcher->KeyDown(key);
        return "key " + std::to_string(key);
    }
    if (what < 88) return typed();
    TLEditor* editor = mMap->editor();
    if (what < 93) {
        editor->Undo();
        return "undo";
    }
    if (what < 96) {
        editor->Redo();
        return "redo";
    }
    for (TLFeatureLayer* layer : mLayers) layer->SaveEdits();
    return "save";
}

std::string RandomSession::pickTool() {
    std::vector<int> built;
    for (int i = 0; i < TLToolTable::Count(); ++i)
        if (TLToolTable::Entries()[i].status == TLToolTable::Built) built.push_back(i);
    const int row = built[mRandom() % built.size()];
    TLFeatureLayer* layer = mLayers[mRandom() % mLayers.size()];
    mDispatcher->Deactivate();
    mMap->editor()->set_edit_layer(layer);
    TLTool* tool = TLToolTable::PoolTool(row);
    if (tool) mDispatcher->Activate(tool);
    mTool = TLToolTable::Entries()[row].className;
    return std::string("tool ") + TLToolTable::Entries()[row].className + " on " +
           layer->GetLayerName().toStdString();
}

std::string RandomSession::mouse() {
    // Mostly inside the 800 x 600 view, sometimes far outside it.
    auto coordinate = [&](int size) {
        return mRandom() % 10 == 0 ? std::uniform_int_distribution<int>(-100000, 100000)(mRandom)
                                   : std::uniform_int_distribution<int>(0, size)(mRandom);
    };
    const int x = coordinate(800), y = coordinate(600);
    const int kind = mRandom() % 10;
    const auto button = kind < 7 ? TLLeftButton : kind < 9 ? TLRightButton : TLMidButton;
    const std::string at = " " + std::to_string(x) + "," + std::to_string(y);
    switch (mRandom() % 6) {
        case 0:
        case 1:
            mDispatcher->MouseMove(TLNoButton, x, y);
            return "move" + at;
        case 2:
            mDispatcher->DoubleClick(button, x, y);
            return "dblclick " + std::to_string(button) + at;
        default:
            mDispatcher->MouseDown(button, x, y);
            mDispatcher->MouseUp(button, x, y);
            return "click " + std::to_string(button) + at;
    }
}

std::string RandomSession::typed() {
    std::string text = kTyped[mRandom() % (sizeof kTyped / sizeof *kTyped)];
    if (mRandom() % 40 == 0) text = std::string(100000, '9');  // very long
    mDispatcher->TypeLine(TLString(text));
    return "type \"" + (text.size() > 40 ? text.substr(0, 40) + "..." : text) + "\"";
}

}  // namespace TMObjects
