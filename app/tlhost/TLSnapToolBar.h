#pragma once

#include <QToolBar>

class QAction;
class QSpinBox;

namespace TMObjects {

class TLSnapSettings;

// The snapping controls over the map: snapping on or off (F3, as in drawing programs), what to
// snap to, and the tolerance in pixels. They show the settings as they are, also after a typed
// SNAP command changed them.
class TLSnapToolBar : public QToolBar {
    Q_OBJECT

public:
    TLSnapToolBar(TLSnapSettings* settings, QWidget* parent = nullptr);

    QAction* SnapAction() const { return mSnap; }
    QAction* VertexAction() const { return mVertex; }
    QAction* SegmentAction() const { return mSegment; }
    QSpinBox* ToleranceBox() const { return mTolerance; }

private:
    void reflect();

    TLSnapSettings* mSettings;
    QAction* mSnap;
    QAction* mVertex;
    QAction* mSegment;
    QSpinBox* mTolerance;
};

}  // namespace TMObjects
