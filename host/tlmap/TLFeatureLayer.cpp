#include "tlmap/TLFeatureLayer.h"

#include <algorithm>
#include <iterator>

#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureRender.h"
#include "tlmap/TLLabelProperty.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLSingleSymbolRender.h"

namespace TMObjects {

namespace {

const char* const kLayerOperationLabel = "edit features";

}  // namespace

// Keeps the selection to features that exist: a deleted feature leaves it at once, so that no
// tool is handed the id of a feature that is gone.
class TLFeatureLayer::SelectionKeeper : public TLFeatureTableListener {
public:
    explicit SelectionKeeper(TLFeatureLayer* layer) : mLayer(layer) {}
    void OnFeatureChanged(TLFeatureTable*, Change change, int id) override {
        if (change == Deleted) mLayer->mSelection.erase(id);
    }

private:
    TLFeatureLayer* mLayer;
};

TLFeatureLayer::TLFeatureLayer(const TLString& name, LayerType type, TLRefPtr<TLFeatureTable> table,
                               TLRefPtr<TLCoordinateSystem> reference)
    : TLLayer(name, type, reference),
      mTable(table ? table : TLRefPtr<TLFeatureTable>(new TLFeatureTable(name, TLFields()))),
      mEditBuffer(std::make_unique<TLLayerEditBuffer>(this)),
      mKeeper(std::make_unique<SelectionKeeper>(this)) {
    mTable->AddListener(mKeeper.get());
    TLRefPtr<TLStyle> style = TLSingleSymbolRender::DefaultStyle(type);
    if (style) SetSymbolRender(TLRefPtr<TLFeatureRender>(new TLSingleSymbolRender(style)));
}

TLFeatureLayer::~TLFeatureLayer() {
    mTable->RemoveListener(mKeeper.get());
}

int TLFeatureLayer::IsValid() const {
    return mTable ? 1 : 0;
}

TLRect TLFeatureLayer::GetExtent() const {
    return mTable->GetExtent();
}

bool TLFeatureLayer::SelectFeatures(const TLQueryFilter& filter, int mode, int) {
    if (!Selectable()) return false;
    const std::vector<int> ids = mTable->Search(filter);
    if (mode != 4) mSelection.clear();
    mSelection.insert(ids.begin(), ids.end());
    return true;
}

TLRefPtr<TLFeatureCursor> TLFeatureLayer::Search(const TLQueryFilter& filter) const {
    return TLRefPtr<TLFeatureCursor>(new TLFeatureCursor(mTable, mTable->Search(filter)));
}

bool TLFeatureLayer::ClearSelect(bool notify) {
    mSelection.clear();
    if (notify) NotifyObservers(HintSelectionChanged);
    return true;
}

bool TLFeatureLayer::AddSelect(TLFeature* feature, bool notify) {
    if (!feature || !AddSelect(feature->GetId())) return false;
    if (notify) NotifyObservers(HintSelectionChanged);
    return true;
}

bool TLFeatureLayer::AddSelect(int id) {
    if (!mTable->HasFeature(id)) return false;
    mSelection.insert(id);
    return true;
}

TLRefPtr<TLFeatureSelectionSet> TLFeatureLayer::GetSelection() {
    TLRefPtr<TLFeatureSelectionSet> set(new TLFeatureSelectionSet());
    for (int id : mSelection) {
        const TLFeature* f = mTable->PeekFeature(id);
        if (!f) continue;
        // A copy: tools project and twinkle what they are given.
        TLRefPtr<TLGeometry> geometry = f->GetGeometry() ? f->GetGeometry()->Clone() : nullptr;
        set->Add(TLRefPtr<TLSelectFeature>(new TLSelectFeature(this, id, geometry)));
    }
    return set;
}

int TLFeatureLayer::Get_SelFeaIDs_Val(int index) const {
    if (index < 0 || index >= int(mSelection.size())) return -1;
    return *std::next(mSelection.begin(), index);
}

bool TLFeatureLayer::IsSameCoordinateSystem(TLCoordinateSystem* reference) const {
    TLCoordinateSystem* mine = GetSpatialReference().get();
    if (!mine || !reference) return mine == reference;
    return mine == reference || mine->IsSame(reference);
}

void TLFeatureLayer::StartOperation(TLEditor* editor) {
    if (mOperationOpen) CommitOperation();
    mOperationEditor = editor ? editor : (GetMap() ? GetMap()->editor() : nullptr);
    mOperationOpen = true;
    if (mOperationEditor) mOperationEditor->StartOperation(kLayerOperationLabel);
}

bool TLFeatureLayer::CommitOperation() {
    if (!mOperationOpen) return false;
    mEditBuffer->FlushOpened();
    TLEditor* editor = mOperationEditor;
    mOperationOpen = false;
    mOperationEditor = nullptr;
    if (editor) editor->CommitOperation(true);
    return true;
}

bool TLFeatureLayer::SaveEdits() {
    mEditBuffer->FlushOpened();
    TLString error;
    const bool saved = mTable->Save(error);
    mSaveError = saved ? TLString() : error;
    if (saved) NotifyObservers(HintSaved);
    return saved;
}

TLFeatureLayer* TLFeatureLayer::CreateMemoryLayer(const TLString& name, TLLayer::LayerType type,
                                                  const TLFields& fields,
                                                  TLRefPtr<TLCoordinateSystem> reference) {
    return new TLMemoryFeatureLayer(name, type, fields, reference);
}

void TLFeatureLayer::SetSymbolRender(TLRefPtr<TLFeatureRender> render) {
    mRender = TLRefPtr<TLRefBase>(render.get());
}

TLRefPtr<TLFeatureRender> TLFeatureLayer::GetSymbolRender() const {
    return mRender.dynamicCast<TLFeatureRender>();
}

TLRefPtr<TLFeatureRender> TLFeatureLayer::GetRender() const {
    return GetSymbolRender();
}

TLRefPtr<TLLabelProperty> TLFeatureLayer::default_property() const {
    return mLabelProperty.dynamicCast<TLLabelProperty>();
}

void TLFeatureLayer::set_default_property(TLRefPtr<TLLabelProperty> property) {
    mLabelProperty = TLRefPtr<TLRefBase>(property.get());
}

void TLFeatureLayer::AddObserver(TLLayerObserver* observer) {
    if (observer && std::find(mObservers.begin(), mObservers.end(), observer) == mObservers.end())
        mObservers.push_back(observer);
}

void TLFeatureLayer::RemoveObserver(TLLayerObserver* observer) {
    mObservers.erase(std::remove(mObservers.begin(), mObservers.end(), observer), mObservers.end());
}

void TLFeatureLayer::NotifyObservers(int hint) {
    // An observer may remove itself (or another) while it is told.
    const std::vector<TLLayerObserver*> observers = mObservers;
    for (TLLayerObserver* observer : observers)
        if (std::find(mObservers.begin(), mObservers.end(), observer) != mObservers.end())
            observer->OnLayerNotify(this, hint);
}

// Scratch layers are written by the tools that make them, so they are open for editing at once.
TLMemoryFeatureLayer::TLMemoryFeatureLayer(const TLString& name, LayerType type,
                                           const TLFields& fields,
                                           TLRefPtr<TLCoordinateSystem> reference)
    : TLFeatureLayer(name, type, TLRefPtr<TLFeatureTable>(new TLFeatureTable(name, fields)),
                     reference) {
    SetEditable(true);
}

}  // namespace TMObjects
