#include "hostkit/TLHostBuddy.h"

#include "tlmap/TLEditor.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

class TLHostBuddy::RefusalListener : public TLEditorListener {
public:
    explicit RefusalListener(TLHostBuddy* buddy) : mBuddy(buddy) {}
    void OnWriteRefused(const TLString& why) override { mBuddy->AppendMessage(why); }

private:
    TLHostBuddy* mBuddy;
};

TLHostBuddy::TLHostBuddy(TLMapView* view)
    : mView(view), mRefusals(std::make_unique<RefusalListener>(this)) {
    listenToEditor();
}

TLHostBuddy::~TLHostBuddy() {
    stopListening();
}

void TLHostBuddy::SetMapView(TLMapView* view) {
    stopListening();
    mView = view;
    listenToEditor();
}

void TLHostBuddy::listenToEditor() {
    mListenedMap = TLRefPtr<TLMap>(mView ? mView->GetMap() : nullptr);
    if (mListenedMap) mListenedMap->editor()->AddListener(mRefusals.get());
}

void TLHostBuddy::stopListening() {
    if (mListenedMap) mListenedMap->editor()->RemoveListener(mRefusals.get());
    mListenedMap.reset();
}

void TLHostBuddy::record(TLHostEvent::Kind kind, const TLString& text, int value) {
    mEvents.push_back({kind, text, value});
    for (const auto& listener : mListeners) listener(mEvents.back());
}

void TLHostBuddy::NotifyEdited() {
    record(TLHostEvent::Edited, TLString());
}

void TLHostBuddy::SetToolEnabled(int enabled) {
    record(TLHostEvent::ToolEnabled, TLString(), enabled);
}

void TLHostBuddy::SetCursor(int shape) {
    mCursor = shape;
    record(TLHostEvent::Cursor, TLString(), shape);
}

void TLHostBuddy::UnregisterTool(TLTool* tool, bool) {
    // Only the registered tool can give up the command line.
    if (tool != mRegistered) return;
    record(TLHostEvent::Unregister, mRegisteredName);
    mRegistered = nullptr;
    mRegisteredName = TLString();
}

void TLHostBuddy::SetPrompt(TLString text) {
    mPrompt = text;
    record(TLHostEvent::Prompt, text);
}

void TLHostBuddy::AppendMessage(TLString text) {
    record(TLHostEvent::Message, text);
}

void TLHostBuddy::RegisterTool(TLString name, TLTool* tool, bool) {
    mRegistered = tool;
    mRegisteredName = name;
    record(TLHostEvent::Register, name);
}

int TLHostBuddy::KeyboardModifiers() {
    return mModifiersSource ? mModifiersSource() : mModifiers;
}

void TLHostBuddy::ShowMessage(TLString text) {
    record(TLHostEvent::Notice, text);
}

void TLHostBuddy::RefreshLayerList() {}

TLString TLHostBuddy::Latest(TLHostEvent::Kind kind) const {
    for (auto it = mEvents.rbegin(); it != mEvents.rend(); ++it)
        if (it->kind == kind) return it->text;
    return TLString();
}

std::vector<TLString> TLHostBuddy::Texts(TLHostEvent::Kind kind) const {
    std::vector<TLString> texts;
    for (const auto& e : mEvents)
        if (e.kind == kind) texts.push_back(e.text);
    return texts;
}

}  // namespace TMObjects
