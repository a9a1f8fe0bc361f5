#include "tlmap/TLEditor.h"

#include <algorithm>

#include "tlmap/TLLayer.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

namespace {

const char* const kInPlaceLabel = "edit feature";

std::optional<TLFeature> current(TLFeatureTable* table, int id) {
    const TLFeature* f = table->PeekFeature(id);
    return f ? std::optional<TLFeature>(*f) : std::nullopt;
}

}  // namespace

TLEditor::TLEditor() = default;

TLEditor::~TLEditor() = default;

void TLEditor::set_edit_layer(TLLayer* layer) {
    mEditLayer = layer;
}

TLString TLEditor::OpenOperationLabel() const {
    return mDepth > 0 ? mOpen.label : TLString();
}

int TLEditor::StartOperation(const TLString& label) {
    if (mDepth == 0) {
        flushLooseWatches();
        mOpen = Step{label, {}};
    }
    ++mDepth;
    if (mDepth == 1) tell([&](TLEditorListener* l) { l->OnOperationStarted(label); });
    return mDepth;
}

bool TLEditor::CommitOperation(bool commit) {
    if (mDepth == 0) return false;
    // An inner bracket folds into the outer one, which alone becomes a step.
    if (mDepth > 1) {
        --mDepth;
        return true;
    }
    if (!commit) return AbortOperation();
    settleWatches(mOpen.changes);
    mDepth = 0;
    Step step = std::move(mOpen);
    mOpen = Step();
    const TLString label = step.label;
    if (step.changes.empty())
        mLastCommitted = label;
    else
        pushStep(std::move(step));
    tell([&](TLEditorListener* l) { l->OnOperationCommitted(label); });
    return true;
}

bool TLEditor::AbortOperation() {
    if (mDepth == 0) return false;
    settleWatches(mOpen.changes);
    mDepth = 0;
    Step step = std::move(mOpen);
    mOpen = Step();
    restore(step.changes, false);
    tell([&](TLEditorListener* l) { l->OnOperationAborted(step.label); });
    return true;
}

void TLEditor::RecordChange(TLFeatureTable* table, int id, std::optional<TLFeature> before,
                            std::optional<TLFeature> after, const TLString& label) {
    if (!table) return;
    if (mDepth == 0) flushLooseWatches();
    std::vector<Change> changes;
    // An in-place change of this feature made before the write must be undone after it.
    for (auto it = mWatches.begin(); it != mWatches.end(); ++it) {
        if (it->table.get() != table || it->id != id) continue;
        Change inPlace;
        if (settle(*it, before, inPlace)) changes.push_back(std::move(inPlace));
        if (after)
            it->before = *after;
        else
            mWatches.erase(it);
        break;
    }
    changes.push_back(
        Change{TLRefPtr<TLFeatureTable>(table), id, std::move(before), std::move(after)});
    if (mDepth > 0) {
        for (Change& c : changes) mOpen.changes.push_back(std::move(c));
        return;
    }
    pushStep(Step{label, std::move(changes)});
    tell([&](TLEditorListener* l) { l->OnOperationCommitted(label); });
}

void TLEditor::WatchFeature(TLFeatureTable* table, int id) {
    if (!table) return;
    const TLFeature* f = table->PeekFeature(id);
    if (!f) return;
    for (const Watch& w : mWatches)
        if (w.table.get() == table && w.id == id) return;  // the first state is the one to keep
    mWatches.push_back(Watch{TLRefPtr<TLFeatureTable>(table), id, *f});
}

void TLEditor::ReportRefusal(const TLString& why) {
    tell([&](TLEditorListener* l) { l->OnWriteRefused(why); });
}

bool TLEditor::Undo() {
    if (mDepth > 0) return false;
    flushLooseWatches();
    if (mUndoCount == 0) return false;
    const Step& step = mSteps[std::size_t(--mUndoCount)];
    restore(step.changes, false);
    const TLString label = step.label;
    tell([&](TLEditorListener* l) { l->OnUndo(label); });
    return true;
}

bool TLEditor::Redo() {
    if (mDepth > 0) return false;
    // A pending in-place change is newer than anything undone; taking it in clears the redo side.
    flushLooseWatches();
    if (mUndoCount >= int(mSteps.size())) return false;
    const Step& step = mSteps[std::size_t(mUndoCount++)];
    restore(step.changes, true);
    const TLString label = step.label;
    tell([&](TLEditorListener* l) { l->OnRedo(label); });
    return true;
}

TLString TLEditor::UndoLabel() const {
    return mUndoCount > 0 ? mSteps[std::size_t(mUndoCount - 1)].label : TLString();
}

TLString TLEditor::RedoLabel() const {
    return CanRedo() ? mSteps[std::size_t(mUndoCount)].label : TLString();
}

void TLEditor::ClearHistory() {
    mSteps.clear();
    mUndoCount = 0;
}

void TLEditor::AddListener(TLEditorListener* listener) {
    if (listener && std::find(mListeners.begin(), mListeners.end(), listener) == mListeners.end())
        mListeners.push_back(listener);
}

void TLEditor::RemoveListener(TLEditorListener* listener) {
    mListeners.erase(std::remove(mListeners.begin(), mListeners.end(), listener), mListeners.end());
}

bool TLEditor::settle(Watch& watch, const std::optional<TLFeature>& now, Change& change) {
    if (!now || now->SameContent(watch.before)) return false;
    // The index still holds the bounds from before the change in place.
    watch.table->Touch(watch.id);
    change = Change{watch.table, watch.id, watch.before, now};
    return true;
}

void TLEditor::settleWatches(std::vector<Change>& into) {
    std::vector<Watch> watches = std::move(mWatches);
    mWatches.clear();
    for (Watch& w : watches) {
        Change change;
        if (settle(w, current(w.table.get(), w.id), change)) into.push_back(std::move(change));
    }
}

void TLEditor::flushLooseWatches() {
    std::vector<Change> changes;
    settleWatches(changes);
    for (Change& c : changes) {
        pushStep(Step{kInPlaceLabel, {std::move(c)}});
        tell([&](TLEditorListener* l) { l->OnOperationCommitted(kInPlaceLabel); });
    }
}

void TLEditor::pushStep(Step step) {
    mSteps.erase(mSteps.begin() + mUndoCount, mSteps.end());
    mLastCommitted = step.label;
    mSteps.push_back(std::move(step));
    mUndoCount = int(mSteps.size());
}

void TLEditor::restore(const std::vector<Change>& changes, bool forward) {
    if (forward) {
        for (const Change& c : changes) c.table->Restore(c.id, c.after);
    } else {
        for (auto it = changes.rbegin(); it != changes.rend(); ++it)
            it->table->Restore(it->id, it->before);
    }
}

template <class F>
void TLEditor::tell(F call) {
    // A listener may remove itself while it is told.
    const std::vector<TLEditorListener*> listeners = mListeners;
    for (TLEditorListener* l : listeners)
        if (std::find(mListeners.begin(), mListeners.end(), l) != mListeners.end()) call(l);
}

}  // namespace TMObjects
