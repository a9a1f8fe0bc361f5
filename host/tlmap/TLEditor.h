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
    // Closes the step; a step without changes still counts, so undo shows every command.
    bool CommitOperation(bool commit);
    // Puts back every change of the open step and drops it.
    bool AbortOperation();
    bool IsOperationOpen() const { return mDepth > 0; }
    TLString OpenOperationLabel() const;

    // Called by the edit buffers for each write: the feature as it was and as it is now.
    void RecordChange(TLFeatureTable* table, int id, std::optional<TLFeature> before,
                      std::optional<TLFeature> after);

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

    TLRefPtr<TLLayer> mEditLayer;
    std::vector<Step> mSteps;
    int mUndoCount = 0;  // steps that can be undone; those above are redoable
    Step mOpen;
    int mDepth = 0;
    TLString mLastCommitted;
    std::vector<TLEditorListener*> mListeners;
};

}  // namespace TMObjects
