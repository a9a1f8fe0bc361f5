#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// What a tool told the host through its buddy, in order.
struct TLHostEvent {
    enum Kind { Prompt, Message, Notice, Cursor, Register, Unregister, Edited, ToolEnabled };
    Kind kind;
    TLString text;
    int value = 0;
};

// The host's concrete buddy for one map view. It records what the tool says and answers the
// tool's questions (modifiers, part modes, scratch layers) from settable values; a program that
// shows a window listens to it and reflects each event on screen. A write the map's editor
// refused (a shape that is no number) is told on the command window as a history line, since the
// tool that made it does not know.
class TLHostBuddy : public TLToolBuddy {
public:
    explicit TLHostBuddy(TLMapView* view = nullptr);
    ~TLHostBuddy() override;

    TLMapView* GetMapView() override { return mView; }
    bool HasActiveMap() override { return mView && mView->GetMap(); }
    void NotifyEdited() override;
    void SetToolEnabled(int enabled) override;
    void SetCursor(int shape) override;
    void UnregisterTool(TLTool* tool, bool flag) override;
    void SetPrompt(TLString text) override;
    void AppendMessage(TLString text) override;
    void RegisterTool(TLString name, TLTool* tool, bool flag) override;
    int KeyboardModifiers() override;
    void ShowMessage(TLString text) override;
    std::uintptr_t MainWindowId() override { return mMainWindow; }
    void RefreshLayerList() override;
    void SetScratchPolygonLayerId(int id) override { mScratchPolygon = id; }
    int ScratchPolygonLayerId() override { return mScratchPolygon; }
    void SetScratchPointLayerId(int id) override { mScratchPoint = id; }
    int ScratchPointLayerId() override { return mScratchPoint; }
    void SetPolygonPartMode(int mode) override { mPolygonPartMode = mode; }
    int PolygonPartMode() override { return mPolygonPartMode; }
    void SetLinePartMode(int mode) override { mLinePartMode = mode; }
    int LinePartMode() override { return mLinePartMode; }

    void SetMapView(TLMapView* view);
    void SetMainWindowId(std::uintptr_t id) { mMainWindow = id; }
    // A fixed answer, or a function asked each time (a desktop asks the toolkit).
    void SetKeyboardModifiers(int modifiers) { mModifiers = modifiers; }
    void SetModifiersSource(std::function<int()> source) { mModifiersSource = std::move(source); }

    TLTool* RegisteredTool() const { return mRegistered; }
    const TLString& RegisteredName() const { return mRegisteredName; }
    const TLString& Prompt() const { return mPrompt; }
    int Cursor() const { return mCursor; }
    const std::vector<TLHostEvent>& Events() const { return mEvents; }
    // The latest text of a kind; empty when there was none.
    TLString Latest(TLHostEvent::Kind kind) const;
    std::vector<TLString> Texts(TLHostEvent::Kind kind) const;
    void ClearEvents() { mEvents.clear(); }

    using Listener = std::function<void(const TLHostEvent&)>;
    void AddListener(Listener listener) { mListeners.push_back(std::move(listener)); }

private:
    class RefusalListener;
    void record(TLHostEvent::Kind kind, const TLString& text, int value = 0);
    void listenToEditor();
    void stopListening();

    TLMapView* mView;
    std::uintptr_t mMainWindow = 0;
    int mModifiers = 0;
    std::function<int()> mModifiersSource;
    int mScratchPolygon = -1;
    int mScratchPoint = -1;
    int mPolygonPartMode = 0;
    int mLinePartMode = 0;
    int mCursor = 0;
    TLTool* mRegistered = nullptr;
    TLString mRegisteredName;
    TLString mPrompt;
    std::vector<TLHostEvent> mEvents;
    std::vector<Listener> mListeners;
    TLRefPtr<TLMap> mListenedMap;
    std::unique_ptr<RefusalListener> mRefusals;
};

}  // namespace TMObjects
