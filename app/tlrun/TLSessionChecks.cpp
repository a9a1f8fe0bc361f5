#include "TLSessionChecks.h"

#include "TLGeometryMatch.h"
#include "tmgis/TLOgrFeatureStore.h"

namespace TMObjects {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace

bool TLSessionChecks::Run(const TLSessionCommand& c, std::string& error) {
    if (c.words.empty()) {
        error = "expect what?";
        return false;
    }
    const std::string& what = c.words[0];
    std::string failure;
    bool judged = false;
    if (what == "prompt")
        judged = prompt(c, failure);
    else if (what == "message")
        judged = message(c, failure);
    else if (what == "returned")
        judged = returned(c, failure, error);
    else if (what == "count")
        judged = count(c, failure, error);
    else if (what == "feature")
        judged = feature(c, failure, error);
    else if (what == "value")
        judged = value(c, failure, error);
    else if (what == "undo")
        judged = undo(c, failure, error);
    else if (what == "pending")
        judged = pending(c, failure, error);
    else if (what == "stored")
        judged = stored(c, failure, error);
    else if (what == "stored-feature")
        judged = storedFeature(c, failure, error);
    else if (what == "save-error")
        judged = saveError(c, failure, error);
    else if (what == "dialog")
        judged = dialog(c, failure);
    else
        error = "unknown expectation " + quoted(what);
    if (!judged) return false;
    if (failure.empty())
        mSession.Transcript().Ok();
    else
        mSession.Transcript().Fail(c.line, failure);
    return true;
}

bool TLSessionChecks::prompt(const TLSessionCommand& c, std::string& failure) {
    const std::string want = c.Rest(1);
    const std::string have = mSession.Buddy()->Prompt().toStdString();
    if (have != want) failure = "the prompt is " + quoted(have) + ", expected " + quoted(want);
    return true;
}

bool TLSessionChecks::message(const TLSessionCommand& c, std::string& failure) {
    const std::string want = c.Rest(1);
    const std::string have = mSession.Buddy()->Latest(TLHostEvent::Message).toStdString();
    if (have != want)
        failure = "the last message is " + quoted(have) + ", expected " + quoted(want);
    return true;
}

bool TLSessionChecks::returned(const TLSessionCommand& c, std::string& failure,
                               std::string& error) {
    bool want = false;
    if (!c.Expect(2, 2, "expect returned true|false", error)) return false;
    if (c.words[1] != "true" && c.words[1] != "false") {
        error = "usage: expect returned true|false";
        return false;
    }
    want = c.words[1] == "true";
    if (mSession.LastResult() != want)
        failure = std::string("the tool returned ") + (want ? "false" : "true");
    return true;
}

bool TLSessionChecks::count(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect count LAYER N", error) || !c.Integer(2, want, error)) return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    if (!layer) return false;
    const int have = layer->GetDatasource()->GetFeatureCount();
    if (have != want)
        failure = "count of " + c.words[1] + " is " + std::to_string(have) + ", expected " +
                  std::to_string(want);
    return true;
}

bool TLSessionChecks::featureId(const TLFeatureTable& table, const std::string& word, int& id,
                                std::string& error) {
    if (word == "last") {
        const std::vector<int> ids = table.GetIds();
        if (ids.empty()) {
            error = "the layer has no feature to call last";
            return false;
        }
        id = ids.back();
        return true;
    }
    TLSessionCommand number;
    number.words = {word};
    return number.Integer(0, id, error);
}

bool TLSessionChecks::feature(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(4, 100, "expect feature LAYER ID|last WKT", error) ||
        !TLGeometryMatch::Readable(c.Rest(3), error))
        return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    int id = 0;
    if (!layer || !featureId(*layer->GetDatasource(), c.words[2], id, error)) return false;
    const TLFeature* feature = layer->GetDatasource()->PeekFeature(id);
    if (!feature) {
        failure = c.words[1] + " has no feature " + std::to_string(id);
        return true;
    }
    TLGeometryMatch::Matches(feature->GetGeometry().get(), c.Rest(3), mSession.Tolerance(),
                             failure);
    return true;
}

bool TLSessionChecks::value(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(5, 100, "expect value LAYER ID|last FIELD TEXT", error)) return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    int id = 0;
    if (!layer || !featureId(*layer->GetDatasource(), c.words[2], id, error)) return false;
    const TLFeature* feature = layer->GetDatasource()->PeekFeature(id);
    if (!feature) {
        failure = c.words[1] + " has no feature " + std::to_string(id);
        return true;
    }
    const TLVariant v = feature->GetValue(TLString(c.words[3]));
    const std::string have = v.IsNull() ? "(null)" : v.ToString().toStdString();
    const std::string want = c.Rest(4);
    if (have != want)
        failure = c.words[3] + " of " + c.words[1] + " " + std::to_string(id) + " is " +
                  quoted(have) + ", expected " + quoted(want);
    return true;
}

bool TLSessionChecks::undo(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(2, 100, "expect undo N [LABEL]", error) || !c.Integer(1, want, error))
        return false;
    TLEditor* editor = mSession.Map()->editor();
    if (editor->UndoCount() != want) {
        failure = "there are " + std::to_string(editor->UndoCount()) + " undo steps, expected " +
                  std::to_string(want);
        return true;
    }
    const std::string label = c.Rest(2);
    if (!label.empty() && editor->UndoLabel().toStdString() != label)
        failure = "the step to undo is " + quoted(editor->UndoLabel().toStdString()) +
                  ", expected " + quoted(label);
    return true;
}

bool TLSessionChecks::pending(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect pending LAYER N", error) || !c.Integer(2, want, error))
        return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    if (!layer) return false;
    const int have = int(layer->GetDatasource()->PendingChanges().size());
    if (have != want)
        failure = c.words[1] + " has " + std::to_string(have) + " changes pending, expected " +
                  std::to_string(want);
    return true;
}

std::unique_ptr<TMWorkspace> TLSessionChecks::reread(TLFeatureLayer* layer,
                                                     std::string& error) const {
    auto* store = dynamic_cast<TLOgrFeatureStore*>(layer->GetDatasource()->GetStore());
    if (!store) {
        error = layer->GetLayerName().toStdString() + " has no data store";
        return nullptr;
    }
    TLString why;
    std::unique_ptr<TMWorkspace> workspace = TMWorkspace::Open(store->GetPath(), false, why);
    if (!workspace) error = why.toStdString();
    return workspace;
}

bool TLSessionChecks::stored(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int want = 0;
    if (!c.Expect(3, 3, "expect stored LAYER N", error) || !c.Integer(2, want, error)) return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    if (!layer) return false;
    std::unique_ptr<TMWorkspace> workspace = reread(layer, error);
    if (!workspace) return false;
    auto* again = dynamic_cast<TLFeatureLayer*>(workspace->GetLayer(layer->GetLayerName()).get());
    const int have = again ? again->GetDatasource()->GetFeatureCount() : 0;
    if (have != want)
        failure = "the store holds " + std::to_string(have) + " features of " + c.words[1] +
                  ", expected " + std::to_string(want);
    return true;
}

bool TLSessionChecks::storedFeature(const TLSessionCommand& c, std::string& failure,
                                    std::string& error) {
    if (!c.Expect(4, 100, "expect stored-feature LAYER ID|last WKT", error) ||
        !TLGeometryMatch::Readable(c.Rest(3), error))
        return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    if (!layer) return false;
    std::unique_ptr<TMWorkspace> workspace = reread(layer, error);
    if (!workspace) return false;
    auto* again = dynamic_cast<TLFeatureLayer*>(workspace->GetLayer(layer->GetLayerName()).get());
    int id = 0;
    if (!again || !featureId(*again->GetDatasource(), c.words[2], id, error)) return false;
    const TLFeature* feature = again->GetDatasource()->PeekFeature(id);
    if (!feature) {
        failure = "the store has no feature " + std::to_string(id) + " in " + c.words[1];
        return true;
    }
    TLGeometryMatch::Matches(feature->GetGeometry().get(), c.Rest(3), mSession.Tolerance(),
                             failure);
    return true;
}

bool TLSessionChecks::saveError(const TLSessionCommand& c, std::string& failure,
                                std::string& error) {
    if (!c.Expect(3, 100, "expect save-error LAYER TEXT", error)) return false;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[1], error);
    if (!layer) return false;
    const std::string have = layer->LastSaveError().toStdString();
    const std::string want = c.Rest(2);
    if (have.empty())
        failure = "the last save of " + c.words[1] + " did not fail";
    else if (have.find(want) == std::string::npos)
        failure = "the save failed with " + quoted(have) + ", which does not say " + quoted(want);
    return true;
}

bool TLSessionChecks::dialog(const TLSessionCommand& c, std::string& failure) {
    const std::string want = c.Rest(1);
    const TLModalAnswerer::Record* last = mSession.LastDialog();
    if (!last)
        failure = "no dialog was shown";
    else if (last->text.find(want) == std::string::npos)
        failure = "the last dialog said " + quoted(last->text) + ", not " + quoted(want);
    return true;
}

}  // namespace TMObjects
