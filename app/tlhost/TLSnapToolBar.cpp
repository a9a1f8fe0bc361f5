#include "TLSnapToolBar.h"

#include <QAction>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <cmath>

#include "TLSnapSettings.h"

namespace TMObjects {

TLSnapToolBar::TLSnapToolBar(TLSnapSettings* settings, QWidget* parent)
    : QToolBar(tr("Snapping"), parent),
      mSettings(settings),
      mSnap(addAction(tr("Snap"))),
      mVertex(addAction(tr("Vertex"))),
      mSegment(addAction(tr("Segment"))),
      mTolerance(new QSpinBox(this)) {
    setObjectName("snapToolBar");
    mSnap->setObjectName("snapAction");
    mSnap->setCheckable(true);
    mSnap->setShortcut(QKeySequence(Qt::Key_F3));
    mSnap->setToolTip(tr("Snap the pointer to the vertices and segments of the map (F3)"));
    mVertex->setObjectName("snapVertexAction");
    mVertex->setCheckable(true);
    mVertex->setToolTip(tr("Snap to vertices"));
    mSegment->setObjectName("snapSegmentAction");
    mSegment->setCheckable(true);
    mSegment->setToolTip(tr("Snap to the nearest point of a segment"));
    addWidget(new QLabel(tr(" Tolerance "), this));
    mTolerance->setObjectName("snapToleranceBox");
    mTolerance->setRange(int(TLSnapSettings::kMinimumTolerance),
                         int(TLSnapSettings::kMaximumTolerance));
    mTolerance->setSuffix(tr(" px"));
    mTolerance->setToolTip(tr("How near, in screen pixels, the pointer must come to snap"));
    addWidget(mTolerance);
    reflect();
    connect(mSnap, &QAction::toggled, mSettings, &TLSnapSettings::SetEnabled);
    connect(mVertex, &QAction::toggled, mSettings, &TLSnapSettings::SetVertex);
    connect(mSegment, &QAction::toggled, mSettings, &TLSnapSettings::SetSegment);
    connect(mTolerance, QOverload<int>::of(&QSpinBox::valueChanged), mSettings,
            [this](int pixels) { mSettings->SetTolerance(pixels); });
    connect(mSettings, &TLSnapSettings::changed, this, &TLSnapToolBar::reflect);
}

void TLSnapToolBar::reflect() {
    const QSignalBlocker snap(mSnap), vertex(mVertex), segment(mSegment), box(mTolerance);
    mSnap->setChecked(mSettings->Enabled());
    mVertex->setChecked(mSettings->Vertex());
    mSegment->setChecked(mSettings->Segment());
    mVertex->setEnabled(mSettings->Enabled());
    mSegment->setEnabled(mSettings->Enabled());
    mTolerance->setValue(int(std::lround(mSettings->Tolerance())));
}

}  // namespace TMObjects
