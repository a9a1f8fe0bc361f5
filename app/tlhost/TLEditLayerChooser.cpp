#include "TLEditLayerChooser.h"

#include <QObject>
#include <map>

#include "TLLayerPanel.h"
#include "TLShellText.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

TLLayer::LayerType TLEditLayerChooser::KindOf(const QString& className) {
    // The drawing commands that refuse an edit layer of another kind. Editing, measuring and
    // survey tools work on what they pick or on a layer of their own, and are not listed.
    static const std::map<QString, TLLayer::LayerType> kinds = {
        {"TLCmdDigitizePoint", TLLayer::PointLayer},
        {"TLCmdDigitizeLine", TLLayer::LineLayer},
        {"TLCmdDigitizeArc", TLLayer::LineLayer},
        {"TLCmdDigitizePolygon", TLLayer::PolygonLayer},
        {"TLCmdDigitizeSquare", TLLayer::PolygonLayer},
        {"TLCmdDigitizeRectangle", TLLayer::PolygonLayer},
        {"TLCmdDigitizeFreehandRectangle", TLLayer::PolygonLayer},
        {"TLCmdDigitizeRegularPolygon", TLLayer::PolygonLayer},
        {"TLCmdDigitizeCircle", TLLayer::PolygonLayer},
        {"TLCmdDigitizeEllipse", TLLayer::PolygonLayer},
        {"TLCmdDigitizeRing", TLLayer::PolygonLayer},
        {"TLCmdDigitizeArrow", TLLayer::PolygonLayer},
        {"TLCmdDigitizeFlag", TLLayer::PolygonLayer},
    };
    const auto found = kinds.find(className);
    return found == kinds.end() ? TLLayer::UnknownLayer : found->second;
}

bool TLEditLayerChooser::Matches(const TLLayer* layer, TLLayer::LayerType kind) {
    if (!layer || !dynamic_cast<const TLFeatureLayer*>(layer)) return false;
    const TLLayer::LayerType type = const_cast<TLLayer*>(layer)->GetLayerType();
    if (kind == TLLayer::PointLayer)
        return type == TLLayer::PointLayer || type == TLLayer::MultiPointLayer;
    return type == kind;
}

QString TLEditLayerChooser::Prepare(TLMap* map, const QString& className,
                                    const QString& toolLabel) {
    const TLLayer::LayerType kind = KindOf(className);
    if (kind == TLLayer::UnknownLayer) return QString();
    TLEditor* editor = map->editor();
    if (Matches(editor->edit_layer(), kind)) return QString();
    const auto usable = [kind](TLLayer* layer) {
        return Matches(layer, kind) && layer->IsEditable() && layer->IsValid();
    };
    TLLayer* chosen = usable(map->GetCurrentLayer().get()) ? map->GetCurrentLayer().get() : nullptr;
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true)) {
        if (chosen) break;
        if (usable(layer.get())) chosen = layer.get();
    }
    const QString kindText = TLLayerPanel::KindText(kind);
    if (!chosen)
        return QObject::tr(
                   "%1 draws on a %2 layer, and no %2 layer is open for editing: tick "
                   "Editable on one, or open one from the File menu.")
            .arg(toolLabel, kindText);
    editor->set_edit_layer(chosen);
    map->SetCurrentLayer(chosen);
    return QObject::tr("%1 draws on a %2 layer: now editing %3.")
        .arg(toolLabel, kindText, ToQString(chosen->GetLayerName()));
}

}  // namespace TMObjects
