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
        return mLastResult;
    } catch (const std::exception& e) {
        mLastFailure = e.what();
    } catch (...) {
        mLastFailure = "unknown failure";
    }
    mLastResult = false;
    rollBackOpenOperation();
    if (mOnFailure) mOnFailure(mLastFailure, entry);
    return false;
}

void TLToolDispatcher::rollBackOpenOperation() {
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return;
    TLEditor* editor = view->GetMap()->editor();
    while (editor->IsOperationOpen()) editor->AbortOperation();
}

}  // namespace TMObjects
