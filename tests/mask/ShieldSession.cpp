#include "ShieldSession.h"

#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {

void ViewRecorder::OnRefreshOverlay() {
    calls.push_back("overlay");
    if (!mView->RubberBands().empty()) {
        const TLRubberBand* band = mView->RubberBands().back();
        Path points;
        for (const auto& part : band->Parts())
            for (const TLPoint& p : part) points.emplace_back(p.x, p.y);
        sketches.emplace_back(int(band->GetType()), points);
    }
}

void ShieldSession::SetUp() {
    CommandSession::SetUp();
    recorder = std::make_unique<ViewRecorder>(view.get());
    view->SetListener(recorder.get());
}

void ShieldSession::TearDown() {
    view->SetListener(nullptr);
    CommandSession::TearDown();
}

Rings ShieldSession::clipRings() const {
    Rings rings;
    TLGeoPolygon* clip = view->clipPolygon();
    if (!clip) return rings;
    const TLPartList& parts = clip->Parts();
    for (int part = 0; part < parts.PartCount(); ++part) {
        Ring ring;
        for (int i = 0; i < parts.PartSize(part); ++i) {
            const TLPoint p = parts.Point(parts.PartStart(part) + i);
            ring.emplace_back(p.x, p.y);
        }
        rings.push_back(ring);
    }
    return rings;
}

void ShieldSession::expectSketch(int type, const Path& points) const {
    ASSERT_FALSE(recorder->sketches.empty()) << "no band was drawn";
    EXPECT_EQ(recorder->sketches.back().first, type) << "band type";
    expectPath(recorder->sketches.back().second, points);
    EXPECT_TRUE(view->RubberBands().empty()) << "a band stayed on the view";
}

void ShieldSession::expectSilentAndNothingWritten() const {
    EXPECT_TRUE(prompts().empty());
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_TRUE(failures.empty());
}

void ShieldSession::forget() {
    recorder->calls.clear();
    recorder->sketches.clear();
    buddy->ClearEvents();
}

}  // namespace TMObjects
