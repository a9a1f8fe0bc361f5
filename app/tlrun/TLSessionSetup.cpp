#include "TLSessionSetup.h"

#include "TLDemRaster.h"

#include <cmath>
#include <filesystem>
#include <regex>
#include <sstream>

#include "TLDemoData.h"
#include "TLGeometryMatch.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLSnapTool.h"
#include "tmgis/TLOgrAnnotation.h"
#include "tmgis/TLPgConnection.h"

namespace TMObjects {

namespace {

const int kShift = 0x02000000;
const int kControl = 0x04000000;

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

// "EPSG:n" or "none" (an empty pointer).
bool systemOf(const std::string& word, TLRefPtr<TLCoordinateSystem>& system, std::string& error) {
    system.reset();
    if (word == "none") return true;
    static const std::regex code("EPSG:[0-9]+");
    if (std::regex_match(word, code))
        system = TLSpatialObjectFactory::LoadCoordinateSystem(TLString(word));
    if (!system) error = "\"" + word + "\" names no coordinate system (EPSG:n or none)";
    return bool(system);
}

bool fieldType(const std::string& word, TLField::FieldType& type) {
    static const std::map<std::string, TLField::FieldType> types{
        {"short", TLField::FieldShort},   {"int", TLField::FieldInt},
        {"int64", TLField::FieldInt64},   {"float", TLField::FieldFloat},
        {"double", TLField::FieldDouble}, {"string", TLField::FieldString},
        {"date", TLField::FieldDate}};
    auto it = types.find(word);
    if (it == types.end()) return false;
    type = it->second;
    return true;
}

// "A:int,B:double" into the fields of a new layer.
bool fieldsOf(const std::string& spec, TLScriptLayers::Layer& layer, std::string& error) {
    std::istringstream list(spec);
    for (std::string item; std::getline(list, item, ',');) {
        const std::size_t colon = item.find(':');
        TLField::FieldType type;
        const std::string name = item.substr(0, colon);
        if (colon == std::string::npos || name.empty() ||
            !fieldType(item.substr(colon + 1), type)) {
            error = "\"" + item +
                    "\" is no field (NAME:TYPE, the type short, int, int64, float, double, "
                    "string or date)";
            return false;
        }
        if (!layer.fields.emplace(name, type).second) {
            error = "the field " + name + " is given twice";
            return false;
        }
    }
    return true;
}

bool kindOf(const std::string& word, TLLayer::LayerType& kind) {
    static const std::map<std::string, TLLayer::LayerType> kinds{
        {"point", TLLayer::PointLayer},
        {"line", TLLayer::LineLayer},
        {"polygon", TLLayer::PolygonLayer},
        {"annotation", TLLayer::AnnotationLayer}};
    auto it = kinds.find(word);
    if (it == kinds.end()) return false;
    kind = it->second;
    return true;
}

// A value of a field as the script writes it, checked against the field's type.
bool valueOf(TLField::FieldType type, const std::string& text, TLVariant& value,
             std::string& error) {
    TLSessionCommand word;
    word.words = {text};
    switch (type) {
        case TLField::FieldShort:
        case TLField::FieldInt:
        case TLField::FieldInt64: {
            double number = 0;
            if (!word.Number(0, number, error) || number != std::floor(number)) {
                error = "\"" + text + "\" is no whole number";
                return false;
            }
            value = TLVariant::FromInt(std::int64_t(number));
            return true;
        }
        case TLField::FieldFloat:
        case TLField::FieldDouble: {
            double number = 0;
            if (!word.Number(0, number, error)) return false;
            value = TLVariant(number);
            return true;
        }
        case TLField::FieldDate: {
            static const std::regex day("[0-9]{4}-[0-9]{2}-[0-9]{2}");
            if (!std::regex_match(text, day)) {
                error = "\"" + text + "\" is no date (YYYY-MM-DD)";
                return false;
            }
            value = TLVariant::FromDate(TLString(text));
            return true;
        }
        default:
            value = TLVariant(TLString(text));
            return true;
    }
}

std::map<std::string, TLScriptLayers::Layer> demoLayers() {
    std::map<std::string, TLScriptLayers::Layer> layers;
    for (const auto& [name, kind] : TLDemoData::Layers()) {
        TLScriptLayers::Layer layer;
        layer.kind = kind;
        layer.feature = kind != TLLayer::RasterLayer;
        layers[name] = layer;
    }
    return layers;
}

}  // namespace

bool TLSessionSetup::Knows(const std::string& verb) {
    static const char* const verbs[] = {"demo-data", "open",      "crs",    "view",
                                        "layer",     "add",       "edit",   "readonly",
                                        "editable",  "current",   "hide",   "show",
                                        "snap",      "tolerance", "select", "modifiers",
                                        "partmode",  "domain",    "alias",  "annotation-table", "dem"};
    for (const char* known : verbs)
        if (verb == known) return true;
    return false;
}

bool TLSessionSetup::Run(const TLSessionCommand& c, std::string& error) {
    const std::string& v = c.verb;
    if (v == "demo-data") return demoData(c, error);
    if (v == "open") return open(c, error);
    if (v == "dem") return dem(c, error);
    if (v == "crs") return crs(c, error);
    if (v == "view") return view(c, error);
    if (v == "layer") return layer(c, error);
    if (v == "add") return add(c, error);
    if (v == "edit") return edit(c, error);
    if (v == "readonly" || v == "editable" || v == "current" || v == "hide" || v == "show")
        return layerSwitch(c, error);
    if (v == "snap") return snap(c, error);
    if (v == "tolerance") return tolerance(c, error);
    if (v == "select") return select(c, error);
    if (v == "modifiers") return modifiers(c, error);
    if (v == "partmode") return partMode(c, error);
    if (v == "domain" || v == "alias") return fieldDetail(c, error);
    if (v == "annotation-table") return annotationTable(c, error);
    error = "unknown verb \"" + v + "\"";
    return false;
}

bool TLSessionSetup::demoData(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "demo-data PATH", error)) return false;
    const std::string path = mSession.Resolve(c.words[0]).string();
    if (mSession.Dry()) {
        mSession.Known().WillWrite(path, demoLayers());
        return true;
    }
    if (!TLDemoData::Write(path, error)) return false;
    mSession.Transcript().Event("data", "demo GeoPackage written to " + c.words[0]);
    return true;
}

bool TLSessionSetup::open(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "open PATH", error)) return false;
    // A database is named by its connection ("PG:dbname=... host=..."), not by a path.
    const std::string path = TLPgConnection::Names(TLString(c.words[0]))
                                 ? c.words[0]
                                 : mSession.Resolve(c.words[0]).string();
    if (mSession.Dry()) return knowOpened(path, error);
    TLString why;
    std::unique_ptr<TMWorkspace> workspace = TMWorkspace::Open(TLString(path), true, why);
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

bool TLSessionSetup::dem(const TLSessionCommand& c, std::string& error) {
    TLDemRaster raster;
    if (!c.Expect(5, 1000, "dem PATH SHAPE COLUMNS ROWS CELL [OPTION...]", error) ||
        !raster.Parse(c.words, error))
        return false;
    const std::string path = mSession.Resolve(c.words[0]).string();
    if (mSession.Dry()) {
        TLScriptLayers::Layer layer;
        layer.kind = TLLayer::RasterLayer;
        layer.feature = false;
        mSession.Known().WillWrite(path, {{std::filesystem::path(path).stem().string(), layer}});
        return true;
    }
    if (!raster.Write(path, error)) return false;
    mSession.Transcript().Event("data",
                                "elevation raster " + raster.shape + " written to " + c.words[0]);
    return true;
}

bool TLSessionSetup::knowOpened(const std::string& path, std::string& error) {
    if (const auto* written = mSession.Known().Written(path)) {
        for (const auto& [name, layer] : *written) mSession.Known().Add(name, layer);
        return true;
    }
    // Read, not opened for editing: the dry pass must leave the data as they are.
    TLString why;
    std::unique_ptr<TMWorkspace> workspace = TMWorkspace::Open(TLString(path), false, why);
    if (!workspace) {
        error = why.toStdString();
        return false;
    }
    for (const auto& opened : workspace->GetLayers()) {
        TLScriptLayers::Layer layer;
        layer.kind = opened->GetLayerType();
        layer.feature = dynamic_cast<TLFeatureLayer*>(opened.get()) != nullptr;
        mSession.Known().Add(opened->GetLayerName().toStdString(), layer);
    }
    return true;
}

bool TLSessionSetup::crs(const TLSessionCommand& c, std::string& error) {
    TLRefPtr<TLCoordinateSystem> system;
    if (!c.Expect(1, 1, "crs EPSG:N|none", error) || !systemOf(c.words[0], system, error))
        return false;
    if (!mSession.Dry()) mSession.Map()->SetSpatialReference(system);
    return true;
}

bool TLSessionSetup::view(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(6, 6, "view XMIN YMIN XMAX YMAX W H", error)) return false;
    double xmin, ymin, xmax, ymax;
    int width = 0, height = 0;
    if (!c.Number(0, xmin, error) || !c.Number(1, ymin, error) || !c.Number(2, xmax, error) ||
        !c.Number(3, ymax, error) || !c.Integer(4, width, error) || !c.Integer(5, height, error))
        return false;
    if (width <= 0 || height <= 0 || !(xmin < xmax) || !(ymin < ymax)) {
        error = "the view needs a rectangle with area and a size in pixels";
        return false;
    }
    // One map unit must span as many pixels across as down, or a click would land elsewhere
    // than the script thinks.
    const double across = (xmax - xmin) / width, down = (ymax - ymin) / height;
    if (std::fabs(across - down) > 1e-9 * std::max(across, down)) {
        std::ostringstream why;
        why.precision(12);
        why << "the view shows " << across << " map units a pixel across but " << down
            << " down; make the rectangle and the size agree";
        error = why.str();
        return false;
    }
    if (mSession.Dry()) return true;
    mSession.View()->SetDeviceSize(width, height);
    mSession.View()->SetVisibleBounds(TLRect(xmin, xmax, ymin, ymax));
    mSession.SetViewChosen();
    return true;
}

// The options of an annotation layer: its family of fields, reference scale and geometry.
struct AnnotationOptions {
    int kind = 0;
    double scale = TLAnnotationLayer::kDefaultReferenceScale;
    int geometry = TLAnnotationLayer::AnnoGeoPolygon;
};

bool annotationOption(const TLSessionCommand& c, std::size_t i, AnnotationOptions& options,
                      std::string& error) {
    const std::string& word = c.words[i];
    if (word == "kind") return c.Integer(i + 1, options.kind, error);
    if (word == "refscale") {
        if (!c.Number(i + 1, options.scale, error)) return false;
        if (options.scale > 0) return true;
        error = "a reference scale is above 0, not " + c.words[i + 1];
        return false;
    }
    static const std::map<std::string, int> kinds{{"point", TLAnnotationLayer::AnnoGeoPoint},
                                                  {"line", TLAnnotationLayer::AnnoGeoLine},
                                                  {"polygon", TLAnnotationLayer::AnnoGeoPolygon}};
    auto it = kinds.find(c.words[i + 1]);
    if (it == kinds.end()) {
        error = "an annotation's geometry is point, line or polygon, not " + c.words[i + 1];
        return false;
    }
    options.geometry = it->second;
    return true;
}

// The options after the layer's kind, from the word at `from` on: crs, fields, and for annotation
// kind, refscale and geometry. The annotation's own fields join the known ones.
bool layerOptions(const TLSessionCommand& c, std::size_t from, TLScriptLayers::Layer& known,
                  TLRefPtr<TLCoordinateSystem>& system, AnnotationOptions& annotation,
                  std::string& error) {
    const bool annotated = known.kind == TLLayer::AnnotationLayer;
    for (std::size_t i = from; i < c.words.size(); i += 2) {
        const std::string& option = c.words[i];
        const bool own = option == "kind" || option == "refscale" || option == "geometry";
        if (i + 1 >= c.words.size() || (option != "crs" && option != "fields" && !own) ||
            (own && !annotated)) {
            error = "\"" + option + "\" is no option here";
            return false;
        }
        if (own               ? !annotationOption(c, i, annotation, error)
            : option == "crs" ? !systemOf(c.words[i + 1], system, error)
                              : !fieldsOf(c.words[i + 1], known, error))
            return false;
    }
    if (!annotated) return true;
    TLFields all;
    TLAnnoMgrTool::AddAnnotationFields(annotation.kind, all);
    for (int i = 0; i < all.GetFieldCount(); ++i)
        known.fields.emplace(all.GetField(i)->GetName().toStdString(),
                             all.GetField(i)->GetFieldType());
    return true;
}

TLFields fieldsOfKnown(const TLScriptLayers::Layer& known) {
    TLFields fields;
    for (const auto& [name, type] : known.fields) fields.AddField(TLString(name), type);
    return fields;
}

bool TLSessionSetup::layer(const TLSessionCommand& c, std::string& error) {
    const char* usage =
        "layer NAME point|line|polygon|annotation [crs EPSG:N] [fields A:int,B:double,...] "
        "[kind N] [refscale S] [geometry point|line|polygon]";
    TLScriptLayers::Layer known;
    known.made = true;
    TLRefPtr<TLCoordinateSystem> system;
    AnnotationOptions annotation;
    if (!c.Expect(2, 12, usage, error) || !kindOf(c.words[1], known.kind)) {
        error = std::string("usage: ") + usage;
        return false;
    }
    if (!layerOptions(c, 2, known, system, annotation, error)) return false;
    if (mSession.Dry()) {
        if (mSession.Known().Find(c.words[0])) {
            error = "the script has a layer \"" + c.words[0] + "\" already";
            return false;
        }
        mSession.Known().Add(c.words[0], known);
        return true;
    }
    // The family's fields are added by the layer itself.
    TLFields fields;
    TLFields all = fieldsOfKnown(known);
    TLFields family;
    TLAnnoMgrTool::AddAnnotationFields(annotation.kind, family);
    for (int i = 0; i < all.GetFieldCount(); ++i)
        if (known.kind != TLLayer::AnnotationLayer ||
            family.FindField(all.GetField(i)->GetName()) < 0)
            fields.AddField(TLRefPtr<TLField>(all.GetField(i)));
    TLFeatureLayer* made =
        known.kind == TLLayer::AnnotationLayer
            ? TLAnnotationLayer::CreateMemoryLayer(TLString(c.words[0]), fields, system,
                                                   annotation.kind, annotation.scale,
                                                   annotation.geometry)
            : TLFeatureLayer::CreateMemoryLayer(TLString(c.words[0]), known.kind, fields, system);
    mSession.AddLayer(made);
    mSession.Transcript().Event("layer", describe(made));
    return true;
}

// A new annotation table in a GeoPackage, to be opened afterwards.
bool TLSessionSetup::annotationTable(const TLSessionCommand& c, std::string& error) {
    const char* usage =
        "annotation-table PATH NAME [crs EPSG:N] [fields A:int,...] [kind N] [refscale S] "
        "[geometry point|line|polygon]";
    TLScriptLayers::Layer known;
    known.kind = TLLayer::AnnotationLayer;
    TLRefPtr<TLCoordinateSystem> system;
    AnnotationOptions annotation;
    if (!c.Expect(2, 12, usage, error)) return false;
    if (!layerOptions(c, 2, known, system, annotation, error)) return false;
    const std::string path = mSession.Resolve(c.words[0]).string();
    if (mSession.Dry()) {
        std::map<std::string, TLScriptLayers::Layer> layers;
        if (const auto* before = mSession.Known().Written(path)) layers = *before;
        layers[c.words[1]] = known;
        mSession.Known().WillWrite(path, layers);
        return true;
    }
    TLFields extra;
    TLFields family;
    TLAnnoMgrTool::AddAnnotationFields(annotation.kind, family);
    const TLFields all = fieldsOfKnown(known);
    for (int i = 0; i < all.GetFieldCount(); ++i)
        if (family.FindField(all.GetField(i)->GetName()) < 0)
            extra.AddField(TLRefPtr<TLField>(all.GetField(i)));
    TLString why;
    if (!TLOgrAnnotation::CreateTable(TLString(path), TLString(c.words[1]), annotation.kind,
                                      annotation.scale, annotation.geometry, extra, system.get(),
                                      why)) {
        error = why.toStdString();
        return false;
    }
    mSession.Transcript().Event("data",
                                "annotation table " + c.words[1] + " written to " + c.words[0]);
    return true;
}

bool TLSessionSetup::add(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(2, 1000, "add NAME WKT [FIELD=VALUE ...]", error) ||
        !TLGeometryMatch::Readable(c.words[1], error))
        return false;
    const TLScriptLayers::Layer* known = mSession.Known().Find(c.words[0]);
    if (!known || !known->made) {
        error = "add puts features into layers the script made with layer; \"" + c.words[0] +
                "\" is none";
        return false;
    }
    TLFeature feature;
    feature.SetGeometry(TLGeometryWkt::FromWkt(c.words[1]));
    for (std::size_t i = 2; i < c.words.size(); ++i) {
        const std::size_t equals = c.words[i].find('=');
        const std::string field = c.words[i].substr(0, equals);
        auto type = known->fields.find(field);
        TLVariant value;
        if (equals == std::string::npos || type == known->fields.end()) {
            error = "\"" + c.words[i] + "\" sets no field of " + c.words[0];
            return false;
        }
        if (!valueOf(type->second, c.words[i].substr(equals + 1), value, error)) return false;
        feature.SetValue(TLString(field), value);
    }
    if (mSession.Dry()) return true;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
    if (!layer) return false;
    TLFeatureTable* table = layer->GetDatasource().get();
    feature.SetId(table->NextId());
    table->Load(feature);
    mSession.Transcript().Remember(table, feature.GetId());
    mSession.FitView();
    return true;
}

bool TLSessionSetup::edit(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "edit NAME|none", error)) return false;
    if (c.words[0] == "none") {
        if (!mSession.Dry()) mSession.Map()->editor()->set_edit_layer(nullptr);
        return true;
    }
    if (!mSession.HasLayer(c.words[0], false, error)) return false;
    if (mSession.Dry()) return true;
    TLLayer* layer = mSession.Layer(c.words[0], error);
    mSession.Map()->editor()->set_edit_layer(layer);
    mSession.Map()->SetCurrentLayer(layer);
    return true;
}

bool TLSessionSetup::layerSwitch(const TLSessionCommand& c, std::string& error) {
    const std::string usage = c.verb + " NAME";
    if (!c.Expect(1, 1, usage.c_str(), error) || !mSession.HasLayer(c.words[0], false, error))
        return false;
    if (mSession.Dry()) return true;
    TLLayer* layer = mSession.Layer(c.words[0], error);
    if (c.verb == "readonly" || c.verb == "editable") layer->SetEditable(c.verb == "editable");
    if (c.verb == "current") mSession.Map()->SetCurrentLayer(layer);
    if (c.verb == "hide" || c.verb == "show") {
        layer->SetVisible(c.verb == "show");
        mSession.View()->RefreshMap(false, TLRect());
    }
    return true;
}

bool TLSessionSetup::snap(const TLSessionCommand& c, std::string& error) {
    bool on = false;
    double pixels = 0;
    if (!c.Expect(1, 2, "snap on|off [PIXELS]", error) || !c.Switch(0, on, error)) return false;
    if (c.words.size() == 2 && (!c.Number(1, pixels, error) || pixels < 0)) {
        error = "\"" + c.words[1] + "\" is no tolerance in pixels";
        return false;
    }
    if (mSession.Dry()) return true;
    TLSnapEnvironment::Instance()->setEnabled(on);
    if (c.words.size() == 2) TLSnapEnvironment::Instance()->setTolerance(pixels);
    return true;
}

bool TLSessionSetup::tolerance(const TLSessionCommand& c, std::string& error) {
    int pixels = 0;
    if (!c.Expect(1, 1, "tolerance PIXELS", error) || !c.Integer(0, pixels, error)) return false;
    if (pixels < 0) {
        error = "a tolerance cannot be negative";
        return false;
    }
    if (!mSession.Dry()) TLSelectionEnvironment::Instance()->SetTolerance(unsigned(pixels));
    return true;
}

bool TLSessionSetup::select(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 100000, "select NAME ID... | select none", error)) return false;
    if (c.words[0] == "none" && c.words.size() == 1) {
        if (mSession.Dry()) return true;
        for (const auto& layer : mSession.Map()->GetLayers(true))
            if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
                features->ClearSelect(false);
        mSession.View()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
        return true;
    }
    std::vector<int> ids(c.words.size() - 1);
    for (std::size_t i = 1; i < c.words.size(); ++i)
        if (!c.Integer(i, ids[i - 1], error)) return false;
    if (!mSession.HasLayer(c.words[0], true, error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
    layer->ClearSelect(false);
    for (int id : ids)
        if (!layer->AddSelect(id)) {
            error = c.words[0] + " has no feature " + std::to_string(id) + " to select";
            return false;
        }
    mSession.View()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    return true;
}

bool TLSessionSetup::modifiers(const TLSessionCommand& c, std::string& error) {
    const char* usage = "modifiers none|shift|ctrl|shift+ctrl";
    if (!c.Expect(1, 1, usage, error) ||
        !c.Choice(0, "none|shift|ctrl|shift+ctrl|ctrl+shift", usage, error))
        return false;
    const std::string& held = c.words[0];
    const int flags = (held.find("shift") != std::string::npos ? kShift : 0) |
                      (held.find("ctrl") != std::string::npos ? kControl : 0);
    if (!mSession.Dry()) mSession.Buddy()->SetKeyboardModifiers(flags);
    return true;
}

bool TLSessionSetup::partMode(const TLSessionCommand& c, std::string& error) {
    const char* usage = "partmode line|polygon N";
    int mode = 0;
    if (!c.Expect(2, 2, usage, error) || !c.Choice(0, "line|polygon", usage, error) ||
        !c.Integer(1, mode, error))
        return false;
    if (mSession.Dry()) return true;
    if (c.words[0] == "line")
        mSession.Buddy()->SetLinePartMode(mode);
    else
        mSession.Buddy()->SetPolygonPartMode(mode);
    return true;
}

// A coded value domain or an alias of a field of a layer the script made.
bool TLSessionSetup::fieldDetail(const TLSessionCommand& c, std::string& error) {
    const bool domain = c.verb == "domain";
    const char* usage = domain ? "domain NAME FIELD CODE=NAME,..." : "alias NAME FIELD TEXT";
    if (!c.Expect(3, 3, usage, error)) return false;
    const TLScriptLayers::Layer* known = mSession.Known().Find(c.words[0]);
    if (!known || !known->made || !known->fields.count(c.words[1])) {
        error = c.words[0] + " is no layer the script made with a field " + c.words[1];
        return false;
    }
    if (mSession.Dry()) return true;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
    if (!layer) return false;
    const TLFields& fields = layer->GetDatasource()->GetFields();
    TLField* field = fields.GetField(fields.FindField(TLString(c.words[1])));
    if (!domain) {
        field->SetAliasName(TLString(c.words[2]));
        return true;
    }
    const bool whole = field->GetFieldType() == TLField::FieldShort ||
                       field->GetFieldType() == TLField::FieldInt ||
                       field->GetFieldType() == TLField::FieldInt64;
    TLRefPtr<TLDoMain> codes(new TLDoMain);
    std::istringstream list(c.words[2]);
    for (std::string item; std::getline(list, item, ',');) {
        const std::size_t equals = item.find('=');
        if (equals == std::string::npos) {
            error = "\"" + item + "\" is no CODE=NAME";
            return false;
        }
        const std::string code = item.substr(0, equals);
        codes->Add(whole ? TLVariant::FromInt(std::stoll(code)) : TLVariant(TLString(code)),
                   TLString(item.substr(equals + 1)));
    }
    field->SetDoMain(codes);
    return true;
}

}  // namespace TMObjects
