#pragma once

#include <map>
#include <string>

#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects::testing {

inline TLRefPtr<TLGeometry> Wkt(const std::string& text) {
    return TLGeometryWkt::FromWkt(text);
}

inline std::string WktOf(const TLRefPtr<TLGeometry>& geometry) {
    return geometry ? TLGeometryWkt::ToWkt(geometry.get()) : std::string("null");
}

// NAME text, CODE integer, AREA double, DAY date.
inline TLFields SampleFields() {
    TLFields fields;
    fields.AddField("FID", TLField::FieldOID);
    fields.AddField("NAME", TLField::FieldString, 40);
    fields.AddField("CODE", TLField::FieldInt);
    fields.AddField("AREA", TLField::FieldDouble);
    fields.AddField("DAY", TLField::FieldDate);
    return fields;
}

inline TLFeature MakeFeature(const std::string& wkt, const std::string& name, int code,
                             int id = -1) {
    TLFeature f;
    f.SetId(id);
    f.SetGeometry(Wkt(wkt));
    f.SetValue("NAME", TLVariant(TLString(name)));
    TLVariant c;
    c = code;
    f.SetValue("CODE", c);
    return f;
}

// Everything a feature holds, as text, by id: two layers with equal contents give equal maps.
inline std::map<int, std::string> Contents(const TLFeatureTable& table) {
    std::map<int, std::string> out;
    for (int id : table.GetIds()) {
        const TLFeature* f = table.PeekFeature(id);
        std::string text = WktOf(f->GetGeometry());
        for (const auto& [name, value] : f->Values())
            text += " | " + name.toStdString() + "=" + std::to_string(int(value.GetKind())) + ":" +
                    value.ToString().toStdString();
        out[id] = text;
    }
    return out;
}

// A map with one editable line layer of the sample fields, in the map and current in its editor.
struct EditFixture {
    TLRefPtr<TLMap> map{new TLMap()};
    TLRefPtr<TLFeatureLayer> layer{new TLFeatureLayer(
        "roads", TLLayer::LineLayer,
        TLRefPtr<TLFeatureTable>(new TLFeatureTable("roads", SampleFields())), nullptr)};

    EditFixture() {
        layer->SetEditable(true);
        map->InsertLayer(-1, layer.get(), true);
        map->editor()->set_edit_layer(layer.get());
    }
    TLEditor* editor() { return map->editor(); }
    TLLayerEditBuffer* buffer() { return layer->layer_edit_buffer(); }
    TLFeatureTable& table() { return *layer->GetDatasource(); }
};

}  // namespace TMObjects::testing
