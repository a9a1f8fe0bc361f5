#pragma once

#include <functional>
#include <string>

#include "tlbase/TLArray.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLEditor;
class TLHostBuddy;

// Delivers the host's events to the active tool, one at a time: Init and activate when a tool is
// picked, mouse, key and typed input, deactivate when it is left. A failure that escapes a tool
// is caught here: it is reported, an editor operation the tool left open is rolled back so that
// no half-made step stays, and the host goes on.
class TLToolDispatcher {
public:
    explicit TLToolDispatcher(TLHostBuddy* buddy) : mBuddy(buddy) {}
    ~TLToolDispatcher();

    // Deactivates the current tool, then runs Init(buddy) and activate() on `tool`.
    void Activate(TLTool* tool);
    // Leaves the tool in use; one that has ended itself already is not deactivated again.
    void Deactivate();
    // The tool in use; null when none was picked, or when the tool ended itself (a dialog's
    // close ran its deactivate): the host then knows that no tool is active.
    TLTool* ActiveTool() const { return mTool && mTool->isActive() ? mTool.get() : nullptr; }

    bool MouseDown(TLMouseButton button, int x, int y);
    bool MouseUp(TLMouseButton button, int x, int y);
    bool MouseMove(TLMouseButton button, int x, int y);
    bool DoubleClick(TLMouseButton button, int x, int y);
    bool KeyDown(int key);
    // A line typed on the command window goes to the tool that registered last, not necessarily
    // the active one; without one nobody hears it and the answer is false.
    bool TypeLine(const TLString& text);
    bool SetInformation(const TLString& text);
    bool SetMultipleInformation(const TLArray<TLString>& texts);

    // What the last event entry returned; false also after a caught failure, but not after a
    // step left open, since the tool did answer.
    bool LastResult() const { return mLastResult; }
    // The text of the last caught failure or of the step left open; empty when the last event
    // ran to its end and closed what it opened.
    const std::string& LastFailure() const { return mLastFailure; }

    // A failure caught outside the event entries (a dialog's slot, through the guarded
    // application): reported as one caught here, and an editor operation left open is rolled
    // back. `entry` says where ("dialog").
    void ReportFailure(const char* entry, const std::string& what);

    // Told of every caught failure and every step left open (after the rollback).
    using FailureListener = std::function<void(const std::string& what, const std::string& entry)>;
    void SetFailureListener(FailureListener listener) { mOnFailure = std::move(listener); }

private:
    bool run(const char* entry, const std::function<bool()>& call);
    void fail(const char* entry, const std::string& what);
    TLEditor* editor() const;
    void rollBackOpenOperation();

    TLHostBuddy* mBuddy;
    TLRefPtr<TLTool> mTool;
    bool mLastResult = false;
    std::string mLastFailure;
    FailureListener mOnFailure;
};

}  // namespace TMObjects
