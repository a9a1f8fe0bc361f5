#pragma once

#include <optional>
#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLLayer;
class TLFeatureTable;

// Told of the editor's operations, for the undo menu and session records.
class TLEditorListener {
public:
    virtual ~TLEditorListener() = default;
    virtual void OnOperationStarted(const TLString& label) {}
    virtual void OnOperationCommitted(const TLString& label) {}
    virtual void OnOperationAborted(const TLString& label) {}
    virtual void OnUndo(const TLString& label) {}
    virtual void OnRedo(const TLString& label) {}
    // A write was refused and nothing was changed; `why` is a sentence for the user, which the
    // host shows on the command window.
    virtual void OnWriteRefused(const TLString& why) {}
};

// The map's single editor: the edit layer and an undo stack in which each
// StartOperation ... CommitOperation bracket is one step carrying its label.
class TLEditor {
public:
    TLEditor();
    ~TLEditor();

    TLLayer* edit_layer() const { return mEditLayer.get(); }
    void set_edit_layer(TLLayer* layer);

    // Opens one undoable step. A start while a step is open nests into it: the outer label wins.
    int StartOperation(const TLString& label);
    // Closes the step. A step that changed nothing is not kept for undo (an undo that does
    // nothing would only puzzle the user), but the listeners hear of it all the same and it
    // becomes the last committed label.
    bool CommitOperation(bool commit);
    // Puts back every change of the open step and drops it.
    bool AbortOperation();
    bool IsOperationOpen() const { return mDepth > 0; }
    TLString OpenOperationLabel() const;

    // Called by the edit buffers for each write: the feature as it was and as it is now. A write
    // outside any step becomes a step of its own, named by `label`.
    void RecordChange(TLFeatureTable* table, int id, std::optional<TLFeature> before,
                      std::optional<TLFeature> after, const TLString& label = TLString());
    // A feature handed out with its geometry shared, to be changed in place: its present state is
    // kept, and whatever differs when the step ends (or before the next write to it) is recorded.
    void WatchFeature(TLFeatureTable* table, int id);
    // Tells the listeners that a write was refused (a shape with a coordinate that is no
    // number): the writer goes on, and the user reads why nothing appeared.
    void ReportRefusal(const TLString& why);

    bool CanUndo() const { return mUndoCount > 0; }
    bool CanRedo() const { return mUndoCount < int(mSteps.size()); }
    bool Undo();
    bool Redo();
    int UndoCount() const { return mUndoCount; }
    int RedoCount() const { return int(mSteps.size()) - mUndoCount; }
    TLString UndoLabel() const;  // of the step Undo would take back
    TLString RedoLabel() const;
    TLString LastCommittedLabel() const { return mLastCommitted; }
    void ClearHistory();

    void AddListener(TLEditorListener* listener);
    void RemoveListener(TLEditorListener* listener);

private:
    struct Change {
        TLRefPtr<TLFeatureTable> table;
        int id;
        std::optional<TLFeature> before;
        std::optional<TLFeature> after;
    };
    struct Step {
        TLString label;
        std::vector<Change> changes;
    };

    struct Watch {
        TLRefPtr<TLFeatureTable> table;
        int id;
        TLFeature before;
    };

    // What an in-place change made of a watched feature, as a change to record; false when the
    // feature is as it was.
    static bool settle(Watch& watch, const std::optional<TLFeature>& now, Change& change);
    void settleWatches(std::vector<Change>& into);
    void flushLooseWatches();
    void pushStep(Step step);
    void restore(const std::vector<Change>& changes, bool forward);
    template <class F>
    void tell(F call);

    TLRefPtr<TLLayer> mEditLayer;
    std::vector<Step> mSteps;
    int mUndoCount = 0;  // steps that can be undone; those above are redoable
    Step mOpen;
    int mDepth = 0;
    TLString mLastCommitted;
    std::vector<TLEditorListener*> mListeners;
    std::vector<Watch> mWatches;
};

}  // namespace TMObjects
