// A failure in a dialog's slot, outside any event entry of a tool, is caught by the application
// like one the dispatcher catches: reported, the editor operation left open rolled back, and the
// program goes on.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QPushButton>
#include <stdexcept>
#include <string>
#include <vector>

#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {
namespace {

// A press and release of the left button on the button, as the window system delivers them.
void clickByMouse(QPushButton* button) {
    const QPoint at = button->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, at, button->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(button, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, button->mapToGlobal(at), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(button, &release);
}

struct Host {
    TLRefPtr<TLMap> map{new TLMap()};
    TLMapView view{map};
    TLHostBuddy buddy{&view};
    TLToolDispatcher dispatcher{&buddy};
    TLRefPtr<TLFeatureLayer> layer{
        new TLFeatureLayer("roads", TLLayer::LineLayer, nullptr, nullptr)};
    std::vector<std::string> failures;

    Host() {
        layer->SetEditable(true);
        map->InsertLayer(-1, layer.get(), true);
        map->editor()->set_edit_layer(layer.get());
        dispatcher.SetFailureListener([this](const std::string& what, const std::string& entry) {
            failures.push_back(entry + ": " + what);
        });
        TLGuardedApplication::SetFailureHandler(
            [this](const std::string& what) { dispatcher.ReportFailure("dialog", what); });
    }
    ~Host() { TLGuardedApplication::SetFailureHandler(nullptr); }
};

TEST(GuardedApplication, ASlotThatThrowsIsReportedItsOpenStepRolledBackAndTheDialogGoesOn) {
    ASSERT_NE(dynamic_cast<TLGuardedApplication*>(QApplication::instance()), nullptr);
    Host host;
    QDialog dialog;
    auto* write = new QPushButton("Write", &dialog);
    dialog.resize(200, 100);
    write->setGeometry(10, 10, 100, 30);
    int clicks = 0;
    // The slot opens a step, writes, and fails before it commits, as a tool's broken dialog might.
    QObject::connect(write, &QPushButton::clicked, [&] {
        ++clicks;
        TLEditor* editor = host.map->editor();
        editor->StartOperation("add feature");
        TLFeature feature;
        feature.SetGeometry(TLGeometryWkt::FromWkt("LINESTRING (0 0, 1 1)"));
        host.layer->layer_edit_buffer()->AddFeature(feature, true, true);
        std::vector<int>().at(3);
    });
    dialog.show();

    clickByMouse(write);
    ASSERT_EQ(host.failures.size(), 1u);
    EXPECT_EQ(host.failures[0].rfind("dialog: ", 0), 0u) << host.failures[0];
    EXPECT_FALSE(host.map->editor()->IsOperationOpen());
    EXPECT_EQ(host.layer->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(host.map->editor()->UndoCount(), 0);

    // The dialog still answers.
    clickByMouse(write);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(host.failures.size(), 2u);
}

TEST(GuardedApplication, GuardReportsADirectCallsFailureAndAnswersFalse) {
    Host host;
    EXPECT_TRUE(TLGuardedApplication::Guard([] {}));
    EXPECT_FALSE(TLGuardedApplication::Guard([] { throw std::runtime_error("no such vertex"); }));
    EXPECT_EQ(host.failures, std::vector<std::string>{"dialog: no such vertex"});
}

}  // namespace
}  // namespace TMObjects
