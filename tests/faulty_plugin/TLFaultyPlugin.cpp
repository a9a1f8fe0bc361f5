// The faulty plugin: one tool, "FaultyDialog", that shows a dialog beside the map. Its button
// mPushButtonWrite opens an editor step, adds a point at (10, 10) to the edit layer and then fails
// with an out-of-range error before the step is closed, as a broken dialog of a real tool might.
// Its button mPushButtonClose ends the tool from the dialog.

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <boost/dll/alias.hpp>
#include <vector>

#include "tlbase/TLPlugin.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLCMDPool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {
namespace {

class TLToolFaultyDialog : public TLTool {
public:
    ~TLToolFaultyDialog() override { delete mDialog; }

    void activate() override {
        TLTool::activate();
        if (!mBuddy) return;
        mBuddy->RegisterTool(TLString("FaultyDialog"), this, true);
        if (!mDialog) makeDialog();
        mDialog->show();
    }

    void deactivate() override {
        if (mDialog) mDialog->hide();
        if (mBuddy) {
            mBuddy->SetPrompt(TLString(""));
            mBuddy->UnregisterTool(this, false);
            mBuddy = nullptr;
        }
        TLTool::deactivate();
    }

private:
    void makeDialog() {
        mDialog = new QDialog();
        mDialog->setWindowTitle(QStringLiteral("Faulty"));
        auto* write = new QPushButton(QStringLiteral("Write"), mDialog);
        write->setObjectName(QStringLiteral("mPushButtonWrite"));
        auto* close = new QPushButton(QStringLiteral("Close"), mDialog);
        close->setObjectName(QStringLiteral("mPushButtonClose"));
        auto* layout = new QVBoxLayout(mDialog);
        layout->addWidget(write);
        layout->addWidget(close);
        QObject::connect(write, &QPushButton::clicked, [this] { writeAndFail(); });
        QObject::connect(close, &QPushButton::clicked, [this] { deactivate(); });
    }

    void writeAndFail() {
        TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
        TLEditor* editor = view ? view->GetMap()->editor() : nullptr;
        auto* layer = editor ? dynamic_cast<TLFeatureLayer*>(editor->edit_layer()) : nullptr;
        if (!layer) return;
        editor->StartOperation(TLString("add feature"));
        TLRefPtr<TLGeoPoint> point(new TLGeoPoint());
        point->PutCoords(10, 10);
        TLFeature feature;
        feature.SetGeometry(TLRefPtr<TLGeometry>(point.get()));
        layer->layer_edit_buffer()->AddFeature(feature, true, true);
        std::vector<int> none;
        none.at(1);
    }

    QDialog* mDialog = nullptr;
};

class TLFaultyPlugin : public TLPlugin {
public:
    TLFaultyPlugin() : TLPlugin(1, "tool", "faulty", "0.1", "") {}
    void InitPlugin() override {
        TLRefPtr<TLTool> tool(new TLToolFaultyDialog);
        TLCMDPool::GetInstance()->AddTool(tool.get());
    }
};

TLRefPtr<TLPlugin> CreateFaultyPlugin() {
    return TLRefPtr<TLPlugin>(new TLFaultyPlugin);
}

}  // namespace
}  // namespace TMObjects

BOOST_DLL_ALIAS_SECTIONED(TMObjects::CreateFaultyPlugin, GetTMPlugIn, boostdll)
