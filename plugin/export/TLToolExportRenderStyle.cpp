#include "export/TLToolExportRenderStyle.h"

#include <QDebug>
#include <QFileDialog>
#include <QMessageBox>

#include "TLToolText.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlmap/TLSpecifiedSymbolRender.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsymbol/TLStyleSystem.h"

namespace TMObjects {

// The export commands are the only tools that carry a name of their own: their class name.
TLToolExportRenderStyle::TLToolExportRenderStyle() {
    mName = TLString("TLToolExportRenderStyle");
}

TLToolExportRenderStyle::TLToolExportRenderStyle(TLToolBuddy* buddy) : TLTool(buddy) {
    mName = TLString("TLToolExportRenderStyle");
}

TLToolExportRenderStyle::~TLToolExportRenderStyle() = default;

bool TLToolExportRenderStyle::IsCmd() {
    return true;
}

void TLToolExportRenderStyle::activate() {
    mActive = true;
    if (!mBuddy || !mBuddy->HasActiveMap()) return;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return;
    const std::vector<TLRefPtr<TLLayer>> layers = view->GetMap()->GetLayers(true);

    // 16 as the command has always passed it; the overwrite question is switched off as well,
    // since an existing library is appended to, never replaced.
    QString path =
        QFileDialog::getSaveFileName(nullptr, QObject::tr("Please select path of symbol library"),
                                     QString(), QObject::tr("Symbol library(*.style)"), nullptr,
                                     QFileDialog::Options(16) | QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty()) return;
    if (!path.endsWith(".style", Qt::CaseInsensitive)) path += ".style";

    TLStyleSystem* system = TLStyleSystem::instance();
    TLStyleDB* library = system->AddNewStyleDB(toTLString(path));
    if (!library) {
        mBuddy->ShowMessage(toolText("Add symbol db failed!"));
        return;
    }
    for (const TLRefPtr<TLLayer>& layer : layers)
        if (const auto* features = dynamic_cast<const TLFeatureLayer*>(layer.get()))
            addLayerStyles(*library, *features);
    const bool saved = system->SaveStyleDB(toTLString(path));
    QMessageBox::information(
        nullptr, QObject::tr("Information"),
        saved ? QObject::tr("Export style successed!") : QObject::tr("Export style failed!"));
}

void TLToolExportRenderStyle::addLayerStyles(TLStyleDB& library, const TLFeatureLayer& layer) {
    const TLRefPtr<TLFeatureRender> render = layer.GetRender();
    const TLFeatureRender* kind = render.get();
    // Rule based renders and renders of no kind contribute nothing.
    if (!dynamic_cast<const TLSingleSymbolRender*>(kind) &&
        !dynamic_cast<const TLCategorizedSymbolRender*>(kind) &&
        !dynamic_cast<const TLSpecifiedSymbolRender*>(kind))
        return;
    const std::vector<TLRefPtr<TLStyle>> styles = render->GetStyles();
    for (size_t i = 0; i < styles.size(); ++i) {
        const TLRefPtr<TLStyle>& style = styles[i];
        // The name stays on the layer's style.
        if (style->GetName().IsEmpty())
            style->SetName(
                TLString().Format(L"%ls_default_%d", layer.GetLayerName().wstr(), int(i + 1)));
        if (!library.AddStyleTakeOwnership(style))
            qDebug("style %s add failed!", style->GetName().toStdString().c_str());
    }
}

}  // namespace TMObjects
