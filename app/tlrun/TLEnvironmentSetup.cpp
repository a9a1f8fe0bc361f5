#include "TLEnvironmentSetup.h"

#include <QSettings>

#include "TLGeometryMatch.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlsde/TLWhereClause.h"

namespace TMObjects {

bool TLEnvironmentSetup::Knows(const std::string& verb) {
    return verb == "selection-mode" || verb == "filter" || verb == "setting" ||
           verb == "display-field";
}

bool TLEnvironmentSetup::Run(const TLSessionCommand& c, std::string& error) {
    if (c.verb == "selection-mode") return selectionMode(c, error);
    if (c.verb == "filter") return filter(c, error);
    if (c.verb == "display-field") return displayField(c, error);
    return setting(c, error);
}

bool TLEnvironmentSetup::selectionMode(const TLSessionCommand& c, std::string& error) {
    const char* usage = "selection-mode new|add|subtract|intersect";
    if (!c.Expect(1, 1, usage, error) || !c.Choice(0, "new|add|subtract|intersect", usage, error))
        return false;
    if (mSession.Dry()) return true;
    const std::string& mode = c.words[0];
    TLSelectionEnvironment::Instance()->SetMode(mode == "new"   ? TLSelectionEnvironment::SelectNew
                                                : mode == "add" ? TLSelectionEnvironment::SelectAdd
                                                : mode == "subtract"
                                                    ? TLSelectionEnvironment::SelectSubtract
                                                    : TLSelectionEnvironment::SelectIntersect);
    return true;
}

bool TLEnvironmentSetup::filter(const TLSessionCommand& c, std::string& error) {
    const char* usage =
        "filter NAME none | filter NAME where \"CLAUSE\" | filter NAME area \"WKT\"";
    const bool none = c.words.size() == 2 && c.words[1] == "none";
    if (!c.Expect(2, 3, usage, error) ||
        (!none && (c.words.size() != 3 || !c.Choice(1, "where|area", usage, error)))) {
        if (error.empty()) error = std::string("usage: ") + usage;
        return false;
    }
    TLQueryFilter standing;
    if (!none && c.words[1] == "where") {
        if (!TLWhereClause(TLString(c.words[2])).IsValid()) {
            error = "\"" + c.words[2] + "\" is no where clause the host reads";
            return false;
        }
        standing.SetWhereClause(TLString(c.words[2]));
    } else if (!none) {
        if (!TLGeometryMatch::Readable(c.words[2], error)) return false;
        standing.SetFilterGeometry(TLGeometryWkt::FromWkt(c.words[2]));
        standing.SetSpatialRel(TLSpatialRelIntersects);
    }
    if (!mSession.HasLayer(c.words[0], true, error)) return false;
    if (mSession.Dry()) return true;
    mSession.FeatureLayer(c.words[0], error)->set_query_filter(standing);
    return true;
}

bool TLEnvironmentSetup::displayField(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(2, 2, "display-field NAME FIELD", error) ||
        !mSession.HasLayer(c.words[0], true, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
    if (layer->GetDatasource()->GetFields().FindField(TLString(c.words[1])) < 0) {
        error = c.words[0] + " has no field \"" + c.words[1] + "\"";
        return false;
    }
    layer->set_display_field(TLString(c.words[1]));
    return true;
}

bool TLEnvironmentSetup::setting(const TLSessionCommand& c, std::string& error) {
    const char* usage = "setting angleunits|decimalplaces VALUE";
    if (!c.Expect(2, 1000, usage, error) || !c.Choice(0, "angleunits|decimalplaces", usage, error))
        return false;
    if (mSession.Dry()) return true;
    QSettings settings;
    settings.setValue(QString::fromStdString("/terraloom/measure/" + c.words[0]),
                      QString::fromStdString(c.Rest(1)));
    return true;
}

}  // namespace TMObjects
