#include "TLSessionActions.h"

#include <cmath>
#include <functional>
#include <map>

#include "TLDemoData.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLSnapTool.h"
#include "tmgis/TLOgrFeatureStore.h"

namespace TMObjects {

namespace {

const int kShift = 0x2000000;

const std::map<std::string, TLMouseButton>& buttons() {
    static const std::map<std::string, TLMouseButton> names{
        {"left", TLLeftButton}, {"right", TLRightButton}, {"middle", TLMidButton}};
    return names;
}

std::string kindName(TLLayer* layer) {
    switch (int(layer->GetLayerType())) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer:
            return "point layer";
        case TLLayer::LineLayer:
            return "line layer";
        case TLLayer::PolygonLayer:
            return "polygon layer";
        case TLLayer::AnnotationLayer:
            return "annotation layer";
        default:
            return "layer of no kind the tools edit";
    }
}

std::string systemName(TLLayer* layer) {
    TLRefPtr<TLCoordinateSystem> system = layer->GetSpatialReference();
    if (!system) return "no coordinate system";
    const std::string code = system->GetAuthorityCode().toStdString();
    return code.empty() ? system->GetName().toStdString() : code;
}

// "wells: point layer, 3 features, EPSG:32633"; "dem: raster of 80 x 60 cells, 1 band, ..."
std::string describe(TLLayer* layer) {
    std::string text = layer->GetLayerName().toStdString() + ": ";
    if (auto* raster = dynamic_cast<TLRasterLayer*>(layer)) {
        const int bands = raster->GetBandCount();
        text += "raster of " + std::to_string(raster->GetColumnCount()) + " x " +
                std::to_string(raster->GetRowCount()) + " cells, " + std::to_string(bands) +
                (bands == 1 ? " band" : " bands");
    } else if (auto* features = dynamic_cast<TLFeatureLayer*>(layer)) {
        const int count = features->GetDatasource()->GetFeatureCount();
        text += kindName(layer) + ", " + std::to_string(count) +
                (count == 1 ? " feature" : " features");
        if (!layer->IsEditable()) text += ", read-only";
    }
    return text + ", " + systemName(layer);
}

}  // namespace

bool TLSessionActions::Knows(const std::string& verb) {
    static const char* const verbs[] = {
        "demo-data", "open",    "crs",   "view",     "edit", "tool",   "leave", "move",
        "press",     "release", "click", "dblclick", "key",  "type",   "shift", "snap",
        "part-mode", "set",     "undo",  "redo",     "save", "answer", "tol"};
    for (const char* known : verbs)
        if (verb == known) return true;
    return false;
}

bool TLSessionActions::Run(const TLSessionCommand& c, std::string& error) {
    const std::string& v = c.verb;
    if (v == "demo-data") return demoData(c, error);
    if (v == "open") return open(c, error);
    if (v == "crs") return crs(c, error);
    if (v == "view") return view(c, error);
    if (v == "edit") return edit(c, error);
    if (v == "tool") return tool(c, error);
    if (v == "leave") {
        mSession.Dispatcher()->Deactivate();
        return true;
    }
    if (v == "move" || v == "press" || v == "release" || v == "click" || v == "dblclick")
        return pointer(c, error);
    if (v == "key") return key(c, error);
    if (v == "type") return type(c);
    if (v == "shift") return shift(c, error);
    if (v == "snap") return snap(c, error);
    if (v == "part-mode") return partMode(c, error);
    if (v == "set") return set(c, error);
    if (v == "undo" || v == "redo") return undo(v == "redo");
    if (v == "save") return save(c, error);
    if (v == "answer") {
        mSession.Answerer().Queue(c.Rest(0));
        return true;
    }
    if (v == "tol") return tol(c, error);
    error = "unknown command \"" + v + "\"";
    return false;
}

bool TLSessionActions::demoData(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "demo-data FILE", error)) return false;
    const std::filesystem::path path = mSession.Resolve(c.words[0]);
    if (!TLDemoData::Write(path.string(), error)) return false;
    mSession.Transcript().Event("data", "demo GeoPackage written to " + c.words[0]);
    return true;
}

bool TLSessionActions::open(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 2, "open FILE [readonly]", error)) return false;
    const bool readOnly = c.words.size() == 2;
    if (readOnly && c.words[1] != "readonly") {
        error = "usage: open FILE [readonly]";
        return false;
    }
    TLString why;
    std::unique_ptr<TMWorkspace> workspace =
        TMWorkspace::Open(TLString(mSession.Resolve(c.words[0]).string()), !readOnly, why);
    if (!workspace) {
        error = why.toStdString();
        return false;
    }
    for (const auto& layer : workspace->GetLayers()) {
        mSession.Transcript().Event("layer", describe(layer.get()));
        if (mSession.Map()->GetLayerByName(layer->GetLayerName()))
            mSession.Transcript().Event(
                "note", "the map has a layer " + layer->GetLayerName().toStdString() +
                            " already; the script names the first one opened");
    }
    for (const TLString& note : workspace->GetNotes())
        mSession.Transcript().Event("note", note.toStdString());
    mSession.AddWorkspace(std::move(workspace));
    return true;
}

bool TLSessionActions::crs(const TLSessionCommand& c, std::string& error) {
    const std::string text = c.Rest(0);
    TLRefPtr<TLCoordinateSystem> system =
        TLSpatialObjectFactory::LoadCoordinateSystem(TLString(text));
    if (!system) {
        error = "\"" + text + "\" names no coordinate system";
        return false;
    }
    mSession.Map()->SetSpatialReference(system);
    return true;
}

bool TLSessionActions::view(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(6, 6, "view WIDTH HEIGHT XMIN YMIN XMAX YMAX", error)) return false;
    int width = 0, height = 0;
    double xmin, ymin, xmax, ymax;
    if (!c.Integer(0, width, error) || !c.Integer(1, height, error) || !c.Number(2, xmin, error) ||
        !c.Number(3, ymin, error) || !c.Number(4, xmax, error) || !c.Number(5, ymax, error))
        return false;
    if (width <= 0 || height <= 0 || !(xmin < xmax) || !(ymin < ymax)) {
        error = "the view needs a size and a rectangle with area";
        return false;
    }
    mSession.View()->SetDeviceSize(width, height);
    mSession.View()->SetVisibleBounds(TLRect(xmin, xmax, ymin, ymax));
    mSession.SetViewChosen();
    return true;
}

bool TLSessionActions::edit(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(0, 1, "edit [LAYER]", error)) return false;
    if (c.words.empty()) {
        mSession.Map()->editor()->set_edit_layer(nullptr);
        return true;
    }
    TLLayer* layer = mSession.Layer(c.words[0], error);
    if (!layer) return false;
    mSession.Map()->editor()->set_edit_layer(layer);
    mSession.Map()->SetCurrentLayer(layer);
    return true;
}

bool TLSessionActions::tool(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "tool CLASS", error)) return false;
    TLTool* tool = mSession.Tool(c.words[0]);
    if (!tool) {
        error = "the plugin has no tool \"" + c.words[0] + "\"";
        return false;
    }
    mSession.Dispatcher()->Activate(tool);
    return true;
}

bool TLSessionActions::pointer(const TLSessionCommand& c, std::string& error) {
    const char* usage = "move|press|release|click|dblclick [left|right|middle] X Y  (or @X,Y)";
    std::size_t at = 0;
    TLMouseButton button = c.verb == "move" ? TLNoButton : TLLeftButton;
    if (!c.words.empty() && buttons().count(c.words[0])) button = buttons().at(c.words[at++]);
    int x = 0, y = 0;
    if (c.words.size() == at + 1 && c.words[at].size() > 1 && c.words[at][0] == '@') {
        // A map point: the pixel that shows it, as a user would aim at it.
        TLSessionCommand pair = c;
        const std::string text = c.words[at].substr(1);
        const std::size_t comma = text.find(',');
        pair.words = {text.substr(0, comma),
                      comma == std::string::npos ? "" : text.substr(comma + 1)};
        double mx, my;
        if (!pair.Number(0, mx, error) || !pair.Number(1, my, error)) return false;
        const TLPoint device = mSession.View()->GetDisplayTransform()->ToDevice(TLPoint(mx, my));
        x = int(std::lround(device.x));
        y = int(std::lround(device.y));
        mSession.Transcript().Event("pixel", std::to_string(x) + "," + std::to_string(y));
    } else if (c.words.size() == at + 2) {
        if (!c.Integer(at, x, error) || !c.Integer(at + 1, y, error)) return false;
    } else {
        error = std::string("usage: ") + usage;
        return false;
    }
    TLToolDispatcher* d = mSession.Dispatcher();
    if (c.verb == "move") returned(d->MouseMove(button, x, y));
    if (c.verb == "press" || c.verb == "click") returned(d->MouseDown(button, x, y));
    if (c.verb == "click") {
        const bool pressed = mSession.LastResult();
        returned(d->MouseUp(button, x, y));
        mSession.SetLastResult(pressed);
    }
    if (c.verb == "release") returned(d->MouseUp(button, x, y));
    if (c.verb == "dblclick") returned(d->DoubleClick(button, x, y));
    return true;
}

bool TLSessionActions::key(const TLSessionCommand& c, std::string& error) {
    int code = 0;
    if (!c.Expect(1, 1, "key CODE", error) || !c.Integer(0, code, error)) return false;
    returned(mSession.Dispatcher()->KeyDown(code));
    return true;
}

bool TLSessionActions::type(const TLSessionCommand& c) {
    returned(mSession.Dispatcher()->TypeLine(TLString(c.Rest(0))));
    return true;
}

bool TLSessionActions::shift(const TLSessionCommand& c, std::string& error) {
    bool held = false;
    if (!c.Expect(1, 1, "shift on|off", error) || !c.Switch(0, held, error)) return false;
    mSession.Buddy()->SetKeyboardModifiers(held ? kShift : 0);
    return true;
}

bool TLSessionActions::snap(const TLSessionCommand& c, std::string& error) {
    bool on = false;
    if (!c.Expect(1, 2, "snap on|off [PIXELS]", error) || !c.Switch(0, on, error)) return false;
    TLSnapEnvironment::Instance()->setEnabled(on);
    if (c.words.size() == 2) {
        double pixels = 0;
        if (!c.Number(1, pixels, error)) return false;
        TLSnapEnvironment::Instance()->setTolerance(pixels);
    }
    return true;
}

bool TLSessionActions::partMode(const TLSessionCommand& c, std::string& error) {
    int mode = 0;
    if (!c.Expect(2, 2, "part-mode line|polygon N", error) || !c.Integer(1, mode, error))
        return false;
    if (c.words[0] == "line")
        mSession.Buddy()->SetLinePartMode(mode);
    else if (c.words[0] == "polygon")
        mSession.Buddy()->SetPolygonPartMode(mode);
    else {
        error = "usage: part-mode line|polygon N";
        return false;
    }
    return true;
}

bool TLSessionActions::set(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(4, 4, "set LAYER ID FIELD VALUE", error)) return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
    int id = 0;
    if (!layer || !c.Integer(1, id, error)) return false;
    TLEditor* editor = mSession.Map()->editor();
    // The label the attribute editor gives its writes.
    editor->StartOperation(TLString("Change Attribute"));
    const bool changed = layer->layer_edit_buffer()->ChangeAttribute(
        id, TLString(c.words[2]), TLVariant(TLString(c.words[3])), true);
    if (!changed) {
        editor->AbortOperation();
        error = "layer " + c.words[0] + " has no feature " + c.words[1] +
                " with an editable field \"" + c.words[2] + "\"";
        return false;
    }
    editor->CommitOperation(true);
    return true;
}

bool TLSessionActions::undo(bool redo) {
    TLEditor* editor = mSession.Map()->editor();
    if (!(redo ? editor->Redo() : editor->Undo()))
        mSession.Transcript().Event(redo ? "redo" : "undo",
                                    redo ? "nothing to redo" : "nothing to undo");
    return true;
}

bool TLSessionActions::save(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(0, 1, "save [LAYER]", error)) return false;
    if (c.words.size() == 1) {
        TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
        return layer && saveLayer(layer, true);
    }
    for (const auto& layer : mSession.Map()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get())) saveLayer(features, false);
    return true;
}

bool TLSessionActions::saveLayer(TLFeatureLayer* layer, bool named) {
    TLFeatureTable* table = layer->GetDatasource().get();
    const std::size_t pending = table->PendingChanges().size();
    const std::string name = layer->GetLayerName().toStdString();
    if (pending == 0) {
        if (named) mSession.Transcript().Event("saved", name + ": nothing to write");
        return true;
    }
    if (!layer->SaveEdits()) {
        mSession.Transcript().Event("save-failed",
                                    name + ": " + layer->LastSaveError().toStdString());
        return true;
    }
    const std::string where = table->GetStore()
                                  ? " written to " + table->GetStore()->GetPath().toStdString()
                                  : " kept in memory";
    mSession.Transcript().Event("saved", name + ": " + std::to_string(pending) +
                                             (pending == 1 ? " change" : " changes") + where);
    return true;
}

bool TLSessionActions::tol(const TLSessionCommand& c, std::string& error) {
    double tolerance = 0;
    if (!c.Expect(1, 1, "tol VALUE", error) || !c.Number(0, tolerance, error)) return false;
    if (tolerance < 0) {
        error = "a tolerance cannot be negative";
        return false;
    }
    mSession.SetTolerance(tolerance);
    return true;
}

void TLSessionActions::returned(bool result) {
    mSession.SetLastResult(result);
    // A failure that escaped the tool was reported already, with its reason.
    if (!result && mSession.Dispatcher()->LastFailure().empty())
        mSession.Transcript().Event("returned", "false");
}

}  // namespace TMObjects
