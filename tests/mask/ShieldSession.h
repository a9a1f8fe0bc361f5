#pragma once

#include <string>
#include <vector>

#include "CommandSession.h"

namespace TMObjects {

// What the view was asked to do, in order, as the program showing it hears it.
class ViewRecorder : public TLMapViewListener {
public:
    explicit ViewRecorder(TLMapView* view) : mView(view) {}
    void OnUpdateView() override { calls.push_back("update view"); }
    void OnClipPolygonChanged() override { calls.push_back("clip"); }
    void OnRefresh(TLLayer*, int cacheType, const TLRect&) override {
        calls.push_back("refresh " + std::to_string(cacheType));
    }
    void OnRefreshMap(const TLRect&) override { calls.push_back("refresh map"); }
    // A band is seen while its tool draws it: the shield tools drop theirs within the event.
    void OnRefreshOverlay() override;

    std::vector<std::string> calls;
    // Each band picture drawn: its type and its points.
    std::vector<std::pair<int, Path>> sketches;

private:
    TLMapView* mView;
};

// A shield tool at work on the fixture's view, with every request to the view recorded.
class ShieldSession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;
    // The rings of the view's clip polygon, in map coordinates; none without a mask.
    Rings clipRings() const;
    // The last band picture, and that no band stays on the view.
    void expectSketch(int type, const Path& points) const;
    // The shield tools speak no prompt, write no history and open no editor operation.
    void expectSilentAndNothingWritten() const;
    // Forgets what the view and the buddy recorded so far.
    void forget();

    std::unique_ptr<ViewRecorder> recorder;
};

}  // namespace TMObjects
