#include "TLSessionChecks.h"

#include "tlmap/TLAnnoStyleString.h"
#include "tlmap/TLAnnotationLayer.h"

#include <algorithm>

#include "TLDialogChecks.h"
#include "TLFileChecks.h"
#include "TLGeometryMatch.h"
#include "hostkit/TLDialogDriver.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tmgis/TLOgrFeatureStore.h"
#include "tmgis/TLPgFeatureStore.h"

namespace TMObjects {

namespace {

const double kDefaultTolerance = 1e-6;

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

std::string features(int n) {
    return std::to_string(n) + (n == 1 ? " feature" : " features");
}

std::string idList(const std::vector<int>& ids) {
    if (ids.empty()) return "none";
    std::string text;
    for (int id : ids) text += (text.empty() ? "" : " ") + std::to_string(id);
    return text;
}

}  // namespace

bool TLSessionChecks::Run(const TLSessionCommand& c, std::string& failure, std::string& error) {
    failure.clear();
    const std::string what = c.words.empty() ? std::string() : c.words[0];
    if (what == "prompt" || what == "message" || what == "notice" || what == "box")
        return text(c, failure, error);
    if (what == "count") return count(c, failure, error);
    if (what == "wkt" || what == "last") return wkt(c, failure, error);
    if (what == "attr" || what == "stored-attr") return attr(c, failure, error);
    if (what == "stored-record") return storedRecord(c, failure, error);
    if (what == "selected") return selected(c, failure, error);
    if (what == "result") return result(c, failure, error);
    if (what == "failure") return caught(c, failure, error);
    if (what == "undo") return undo(c, failure, error);
    if (what == "op") return op(c, failure, error);
    if (what == "widget") return widget(c, failure, error);
    if (what == "pending") return pending(c, failure, error);
    if (what == "stored") return stored(c, failure, error);
    if (what == "stored-wkt") return storedWkt(c, failure, error);
    if (what == "save-error") return saveError(c, failure, error);
    if (what == "clip") return clip(c, failure, error);
    if (TLDialogChecks::Knows(what)) return TLDialogChecks(mSession).Run(c, failure, error);
    if (TLFileChecks::Knows(what)) return TLFileChecks(mSession).Run(c, failure, error);
    error = "unknown expectation " + inQuotes(what);
    return false;
}

TLFeatureLayer* TLSessionChecks::layer(const std::string& name, std::string& failure) const {
    std::string why;
    TLFeatureLayer* found = mSession.FeatureLayer(name, why);
    if (!found)
        failure = "expected a feature layer " + inQuotes(name) + ", got " +
                  (mSession.Layer(name, why) ? "a raster" : "none");
    return found;
}

bool TLSessionChecks::text(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const std::string usage = "expect " + c.words[0] + " \"TEXT\"";
    if (!c.Expect(1, 1000, usage.c_str(), error)) return false;
    if (mSession.Dry()) return true;
    const std::string& what = c.words[0];
    const std::string want = c.Rest(1);
    std::string have;
    if (what == "prompt") have = mSession.Buddy()->Prompt().toStdString();
    if (what == "message") have = mSession.Buddy()->Latest(TLHostEvent::Message).toStdString();
    if (what == "notice") have = mSession.Buddy()->Latest(TLHostEvent::Notice).toStdString();
    if (what == "box") {
        const TLModalAnswerer::Record* box = mSession.LastBox();
        if (!box) {
            failure = "expected a message box " + inQuotes(want) + ", got none";
            return true;
        }
        have = box->text;
    }
    if (have != want)
        failure = "expected the " + what + " " + inQuotes(want) + ", got " + inQuotes(have);
    return true;
}

bool TLSessionChecks::count(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect count NAME N", error) || !c.Integer(2, want, error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    const int have = found->GetDatasource()->GetFeatureCount();
    if (have != want)
        failure =
            "expected " + features(want) + " in " + c.words[1] + ", got " + std::to_string(have);
    return true;
}

bool TLSessionChecks::geometryWords(const TLSessionCommand& c, std::size_t at, double& tolerance,
                                    std::string& error) {
    tolerance = kDefaultTolerance;
    if (!TLGeometryMatch::Readable(c.words[at], error)) return false;
    if (c.words.size() == at + 2 && (!c.Number(at + 1, tolerance, error) || tolerance < 0)) {
        error = inQuotes(c.words[at + 1]) + " is no tolerance";
        return false;
    }
    return true;
}

bool TLSessionChecks::wkt(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const bool last = c.words[0] == "last";
    const std::size_t at = last ? 2 : 3;
    int id = 0;
    double tolerance = 0;
    if (!c.Expect(at + 1, at + 2,
                  last ? "expect last NAME \"WKT\" [TOL]" : "expect wkt NAME ID \"WKT\" [TOL]",
                  error) ||
        (!last && !c.Integer(2, id, error)) || !geometryWords(c, at, tolerance, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    const TLFeatureTable& table = *found->GetDatasource();
    if (last && table.GetFeatureCount() > 0) id = table.GetIds().back();
    const TLFeature* feature = table.PeekFeature(id);
    if (!feature) {
        failure = "expected " + c.words[at] + " as " +
                  (last ? "the last feature" : "feature " + std::to_string(id)) + " of " +
                  c.words[1] + ", got no such feature";
        return true;
    }
    TLGeometryMatch::Matches(feature->GetGeometry().get(), c.words[at], tolerance, failure);
    return true;
}

// The field of a feature of the table, as text, against the script's value.
static void attrOf(const TLFeatureTable& table, const TLSessionCommand& c, int id,
                   std::string& failure) {
    const TLFeature* feature = table.PeekFeature(id);
    if (!feature) {
        failure = "expected a feature " + std::to_string(id) + " in " + c.words[1] + ", got none";
        return;
    }
    const TLVariant v = feature->GetValue(TLString(c.words[3]));
    const std::string have = v.IsNull() ? "(null)" : v.ToString().toStdString();
    const std::string want = c.Rest(4);
    if (have != want)
        failure = "expected " + c.words[3] + " of " + c.words[1] + " " + std::to_string(id) +
                  " to be " + inQuotes(want) + ", got " + inQuotes(have);
}

bool TLSessionChecks::attr(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int id = 0;
    const bool stored = c.words[0] == "stored-attr";
    if (!c.Expect(5, 1000,
                  stored ? "expect stored-attr NAME ID FIELD \"VALUE\""
                         : "expect attr NAME ID FIELD \"VALUE\"",
                  error) ||
        !c.Integer(2, id, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    std::unique_ptr<TMWorkspace> workspace;
    TLFeatureLayer* read = stored ? reread(found, workspace, failure) : found;
    if (read) attrOf(*read->GetDatasource(), c, id, failure);
    return true;
}

// The annotation as the data source holds it, read afresh into an annotation layer, is the one
// the map holds: same field kind, reference scale and record.
bool TLSessionChecks::storedRecord(const TLSessionCommand& c, std::string& failure,
                                   std::string& error) {
    int id = 0;
    if (!c.Expect(3, 3, "expect stored-record NAME ID", error) || !c.Integer(2, id, error))
        return false;
    if (mSession.Dry()) return true;
    auto* live = dynamic_cast<TLAnnotationLayer*>(layer(c.words[1], failure));
    if (!live) {
        if (failure.empty())
            failure = "expected an annotation layer " + c.words[1] + ", got another";
        return true;
    }
    std::unique_ptr<TMWorkspace> workspace;
    auto* again = dynamic_cast<TLAnnotationLayer*>(reread(live, workspace, failure));
    if (!failure.empty()) return true;
    TLAnnotation held, stored;
    if (!again)
        failure = "expected " + c.words[1] + " to read back as an annotation layer, got another";
    else if (again->annoFieldKind != live->annoFieldKind ||
             again->GetReferenceScale() != live->GetReferenceScale() ||
             again->GetAnnoGeoType() != live->GetAnnoGeoType())
        failure = "expected the field kind, reference scale and geometry of " + c.words[1] +
                  " to read back as they are";
    else if (!live->ReadTextElement(id, held) || !again->ReadTextElement(id, stored))
        failure = "expected annotation " + std::to_string(id) + " in " + c.words[1] +
                  " and in its data source";
    else if (!stored.SameAs(held))
        failure = "expected annotation " + std::to_string(id) + " of " + c.words[1] +
                  " to read back the same record, got \"" +
                  TLAnnoStyleString::Pack(stored).toStdString() + "\" for \"" +
                  TLAnnoStyleString::Pack(held).toStdString() + "\"";
    return true;
}

bool TLSessionChecks::selected(const TLSessionCommand& c, std::string& failure,
                               std::string& error) {
    if (!c.Expect(2, 100000, "expect selected NAME ID...", error)) return false;
    std::vector<int> want(c.words.size() - 2);
    for (std::size_t i = 2; i < c.words.size(); ++i)
        if (!c.Integer(i, want[i - 2], error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    std::vector<int> have = found->GetSelectedIds();
    std::sort(want.begin(), want.end());
    std::sort(have.begin(), have.end());
    if (have != want)
        failure =
            "expected " + idList(want) + " selected in " + c.words[1] + ", got " + idList(have);
    return true;
}

bool TLSessionChecks::result(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const char* usage = "expect result true|false";
    if (!c.Expect(2, 2, usage, error) || !c.Choice(1, "true|false", usage, error)) return false;
    if (mSession.Dry()) return true;
    const bool want = c.words[1] == "true";
    if (mSession.LastResult() != want)
        failure = std::string("expected the event to return ") + c.words[1] + ", got " +
                  (want ? "false" : "true");
    return true;
}

bool TLSessionChecks::caught(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(2, 1000, "expect failure \"TEXT\"", error)) return false;
    if (mSession.Dry()) return true;
    const std::string want = c.Rest(1);
    const std::string have = mSession.Caught();
    if (have.find(want) == std::string::npos)
        failure = "expected a caught failure saying " + inQuotes(want) + ", got " +
                  (have.empty() ? std::string("none") : inQuotes(have));
    mSession.ClearCaught();
    return true;
}

bool TLSessionChecks::undo(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(2, 2, "expect undo N", error) || !c.Integer(1, want, error)) return false;
    if (mSession.Dry()) return true;
    const int have = mSession.Map()->editor()->UndoCount();
    if (have != want)
        failure =
            "expected " + std::to_string(want) + " steps to undo, got " + std::to_string(have);
    return true;
}

bool TLSessionChecks::op(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(2, 1000, "expect op \"LABEL\"", error)) return false;
    if (mSession.Dry()) return true;
    const std::string want = c.Rest(1);
    const std::string have = mSession.Map()->editor()->LastCommittedLabel().toStdString();
    if (have != want)
        failure = "expected the operation " + inQuotes(want) + ", got " +
                  (have.empty() ? std::string("none") : inQuotes(have));
    return true;
}

bool TLSessionChecks::widget(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (TLDialogChecks(mSession).NumericWidget(c, failure, error)) return error.empty();
    if (!c.Expect(3, 1000, "expect widget OBJECT \"TEXT\"|~VALUE TOL", error)) return false;
    if (mSession.Dry()) return true;
    const std::string want = c.Rest(2);
    std::string why;
    QWidget* found = TLDialogDriver::Find(c.words[1], why);
    if (!found) {
        failure = "expected a widget " + inQuotes(c.words[1]) + " showing " + inQuotes(want) +
                  ", got none on screen";
        return true;
    }
    const std::string have = TLDialogDriver::Text(found);
    if (have != want)
        failure =
            "expected " + c.words[1] + " to show " + inQuotes(want) + ", got " + inQuotes(have);
    return true;
}

bool TLSessionChecks::pending(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect pending NAME N", error) || !c.Integer(2, want, error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    const int have = int(found->GetDatasource()->PendingChanges().size());
    if (have != want)
        failure = "expected " + std::to_string(want) + " changes of " + c.words[1] +
                  " to save, got " + std::to_string(have);
    return true;
}

TLFeatureLayer* TLSessionChecks::reread(TLFeatureLayer* layer,
                                        std::unique_ptr<TMWorkspace>& workspace,
                                        std::string& failure) const {
    const std::string name = layer->GetLayerName().toStdString();
    TLFeatureStore* store = layer->GetDatasource()->GetStore();
    // A database is opened again by its connection; a file by its path.
    auto* database = dynamic_cast<TLPgFeatureStore*>(store);
    if (!database && !dynamic_cast<TLOgrFeatureStore*>(store)) {
        failure = "expected " + name + " in a data source, got a layer in memory";
        return nullptr;
    }
    TLString why;
    workspace = TMWorkspace::Open(database ? TLString(database->GetConnection()) : store->GetPath(),
                                  false, why);
    auto* again =
        workspace ? dynamic_cast<TLFeatureLayer*>(workspace->GetLayer(layer->GetLayerName()).get())
                  : nullptr;
    if (!again)
        failure = "expected " + name + " in " + store->GetPath().toStdString() + ", got " +
                  (workspace ? std::string("no such layer") : why.toStdString());
    return again;
}

bool TLSessionChecks::stored(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect stored NAME N", error) || !c.Integer(2, want, error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    std::unique_ptr<TMWorkspace> workspace;
    TLFeatureLayer* again = found ? reread(found, workspace, failure) : nullptr;
    if (!again) return true;
    const int have = again->GetDatasource()->GetFeatureCount();
    if (have != want)
        failure = "expected " + features(want) + " of " + c.words[1] + " in the data source, got " +
                  std::to_string(have);
    return true;
}

bool TLSessionChecks::storedWkt(const TLSessionCommand& c, std::string& failure,
                                std::string& error) {
    int id = 0;
    double tolerance = 0;
    if (!c.Expect(4, 5, "expect stored-wkt NAME ID|last \"WKT\" [TOL]", error) ||
        (c.words[2] != "last" && !c.Integer(2, id, error)) ||
        !geometryWords(c, 3, tolerance, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    std::unique_ptr<TMWorkspace> workspace;
    TLFeatureLayer* again = found ? reread(found, workspace, failure) : nullptr;
    if (!again) return true;
    const TLFeatureTable& table = *again->GetDatasource();
    if (c.words[2] == "last" && table.GetFeatureCount() > 0) id = table.GetIds().back();
    const TLFeature* feature = table.PeekFeature(id);
    if (!feature) {
        failure = "expected " + c.words[3] + " stored as feature " + c.words[2] + " of " +
                  c.words[1] + ", got no such feature";
        return true;
    }
    // The geometry as the file holds it, of the layer's own kind: a point saved into a layer
    // of multipoints is a multipoint there. A database layer is compared as the host reads it.
    auto* store = dynamic_cast<TLOgrFeatureStore*>(again->GetDatasource()->GetStore());
    if (!store) {
        TLGeometryMatch::Matches(feature->GetGeometry().get(), c.words[3], tolerance, failure);
        return true;
    }
    std::string stored, why;
    if (!store->StoredWkt(id, stored, why)) {
        failure = "expected " + c.words[3] + " stored as feature " + c.words[2] + " of " +
                  c.words[1] + ", got " + why;
        return true;
    }
    TLGeometryMatch::MatchesText(stored, c.words[3], tolerance, failure);
    return true;
}

bool TLSessionChecks::saveError(const TLSessionCommand& c, std::string& failure,
                                std::string& error) {
    if (!c.Expect(3, 1000, "expect save-error NAME \"TEXT\"", error)) return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* found = layer(c.words[1], failure);
    if (!found) return true;
    const std::string have = found->LastSaveError().toStdString();
    const std::string want = c.Rest(2);
    if (have.find(want) == std::string::npos)
        failure = "expected the last save of " + c.words[1] + " to fail saying " + inQuotes(want) +
                  ", got " + (have.empty() ? std::string("no failure") : inQuotes(have));
    return true;
}

bool TLSessionChecks::clip(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(2, 3, "expect clip \"WKT\"|none [TOL]", error)) return false;
    const bool none = c.words[1] == "none";
    double tolerance = kDefaultTolerance;
    if (none && c.words.size() > 2) {
        error = "expect clip none takes no tolerance";
        return false;
    }
    if (!none && !geometryWords(c, 1, tolerance, error)) return false;
    if (mSession.Dry()) return true;
    TLGeoPolygon* have = mSession.View()->clipPolygon();
    if (none) {
        if (have) failure = "expected no clip polygon, got " + TLGeometryWkt::ToWkt(have);
        return true;
    }
    if (!have) {
        failure = "expected the clip polygon " + c.words[1] + ", got none";
        return true;
    }
    TLGeometryMatch::Matches(have, c.words[1], tolerance, failure);
    return true;
}

}  // namespace TMObjects
