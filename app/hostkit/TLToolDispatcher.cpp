#include "hostkit/TLToolDispatcher.h"

#include <exception>

#include "hostkit/TLHostBuddy.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

TLToolDispatcher::~TLToolDispatcher() {
    Deactivate();
}

void TLToolDispatcher::Activate(TLTool* tool) {
    Deactivate();
    if (!tool) return;
    mTool = tool;
    run("activate", [&] {
        tool->Init(mBuddy);
        tool->activate();
        return true;
    });
}

void TLToolDispatcher::Deactivate() {
    if (!mTool) return;
    TLRefPtr<TLTool> tool = mTool;
    mTool.reset();
    // A tool that ended itself has let go of everything; a second deactivate could free its
    // dialog twice.
    if (!tool->isActive()) return;
    run("deactivate", [&] {
        tool->deactivate();
        return true;
    });
}

bool TLToolDispatcher::MouseDown(TLMouseButton button, int x, int y) {
    return run("OnMouseDown", [&] { return mTool && mTool->OnMouseDown(button, x, y); });
}

bool TLToolDispatcher::MouseUp(TLMouseButton button, int x, int y) {
    return run("OnMouseUp", [&] { return mTool && mTool->OnMouseUp(button, x, y); });
}

bool TLToolDispatcher::MouseMove(TLMouseButton button, int x, int y) {
    return run("OnMouseMove", [&] { return mTool && mTool->OnMouseMove(button, x, y); });
}

bool TLToolDispatcher::DoubleClick(TLMouseButton button, int x, int y) {
    return run("OnDblClick", [&] { return mTool && mTool->OnDblClick(button, x, y); });
}

bool TLToolDispatcher::KeyDown(int key) {
    return run("OnKeyDown", [&] { return mTool && mTool->OnKeyDown(key); });
}

bool TLToolDispatcher::TypeLine(const TLString& text) {
    return run("processChildCmd", [&] {
        TLTool* receiver = mBuddy->RegisteredTool();
        return receiver && receiver->processChildCmd(text);
    });
}

bool TLToolDispatcher::SetInformation(const TLString& text) {
    return run("setInformation", [&] { return mTool && mTool->setInformation(text); });
}

bool TLToolDispatcher::SetMultipleInformation(const TLArray<TLString>& texts) {
    return run("setMultipleInformation",
               [&] { return mTool && mTool->setMultipleInformation(texts); });
}

bool TLToolDispatcher::run(const char* entry, const std::function<bool()>& call) {
    mLastFailure.clear();
    try {
        mLastResult = call();
        // A step the tool returned without closing would swallow every later edit and leave
        // undo dead for the rest of the session: it is rolled back like a failure's.
        TLEditor* open = editor();
        if (open && open->IsOperationOpen())
            fail(entry, "the editor operation \"" + open->OpenOperationLabel().toStdString() +
                            "\" was left open");
        return mLastResult;
    } catch (const std::exception& e) {
        fail(entry, e.what());
    } catch (...) {
        fail(entry, "unknown failure");
    }
    mLastResult = false;
    return false;
}

void TLToolDispatcher::ReportFailure(const char* entry, const std::string& what) {
    fail(entry, what);
}

void TLToolDispatcher::fail(const char* entry, const std::string& what) {
    mLastFailure = what;
    rollBackOpenOperation();
    if (mOnFailure) mOnFailure(mLastFailure, entry);
}

TLEditor* TLToolDispatcher::editor() const {
    TLMapView* view = mBuddy->GetMapView();
    return view && view->GetMap() ? view->GetMap()->editor() : nullptr;
}

void TLToolDispatcher::rollBackOpenOperation() {
    TLEditor* open = editor();
    while (open && open->IsOperationOpen()) open->AbortOperation();
}

}  // namespace TMObjects
