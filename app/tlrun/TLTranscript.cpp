#include "TLTranscript.h"

#include "tlgeo/TLGeometryWkt.h"

namespace TMObjects {

namespace {

std::string hostKind(TLHostEvent::Kind kind) {
    switch (kind) {
        case TLHostEvent::Prompt:
            return "prompt";
        case TLHostEvent::Message:
            return "message";
        case TLHostEvent::Notice:
            return "notice";
        case TLHostEvent::Cursor:
            return "cursor";
        case TLHostEvent::Register:
            return "register";
        case TLHostEvent::Unregister:
            return "unregister";
        case TLHostEvent::Edited:
            return "edited";
        case TLHostEvent::ToolEnabled:
            return "tool-enabled";
    }
    return "event";
}

std::string valueText(const TLVariant& value) {
    return value.IsNull() ? std::string("(null)") : value.ToString().toStdString();
}

}  // namespace

std::string TLTranscript::OneLine(const std::string& text) const {
    std::string line;
    for (char c : text) {
        if (c == '\n')
            line += "\\n";
        else if (c != '\r')
            line += c;
    }
    if (mWorkdir.empty()) return line;
    const std::string prefix = mWorkdir + "/";
    for (std::size_t at = line.find(prefix); at != std::string::npos; at = line.find(prefix, at))
        line.erase(at, prefix.size());
    return line;
}

void TLTranscript::Command(const std::string& text) {
    if (!mMuted) mOut << "> " << text << "\n";
}

void TLTranscript::Comment(const std::string& text) {
    if (!mMuted) mOut << text << "\n";
}

void TLTranscript::Event(const std::string& kind, const std::string& text) {
    if (mMuted) return;
    mOut << "  [" << kind << "]";
    if (!text.empty()) mOut << " " << OneLine(text);
    mOut << "\n";
}

void TLTranscript::Ok() {
    if (!mMuted) mOut << "  ok\n";
}

void TLTranscript::Fail(const std::string& what) {
    mOut << "  FAIL " << OneLine(what) << "\n";
}

void TLTranscript::Error(const std::string& what) {
    mOut << "  ERROR " << OneLine(what) << "\n";
}

void TLTranscript::Summary(int commands, int expectations, const std::string& stop) {
    mOut << "= " << commands << (commands == 1 ? " command, " : " commands, ") << expectations
         << (expectations == 1 ? " expectation" : " expectations");
    if (stop.empty())
        mOut << ", all held\n";
    else
        mOut << "; " << OneLine(stop) << "\n";
    mOut.flush();
}

void TLTranscript::HostEvent(const TLHostEvent& event) {
    switch (event.kind) {
        case TLHostEvent::Cursor:
        case TLHostEvent::ToolEnabled:
            return Event(hostKind(event.kind), std::to_string(event.value));
        default:
            return Event(hostKind(event.kind), event.text.toStdString());
    }
}

void TLTranscript::Dialog(const TLModalAnswerer::Record& record) {
    const bool box = record.kind == "message box";
    std::string text = box ? std::string() : record.kind + " ";
    text += "\"" + record.title + "\"";
    if (!record.text.empty()) text += ": " + record.text;
    text += " -> " + record.answer;
    if (!record.queued) text += " (nothing queued)";
    if (!record.matched) text += " (the queued answer fits no button)";
    Event(box ? "box" : "dialog", text);
}

TLTranscript::Seen TLTranscript::look(const TLFeature& feature) {
    Seen seen;
    seen.wkt = feature.GetGeometry() ? TLGeometryWkt::ToWkt(feature.GetGeometry().get())
                                     : std::string("(no geometry)");
    for (const auto& [name, value] : feature.Values())
        seen.values[name.toStdString()] = valueText(value);
    return seen;
}

std::string TLTranscript::differences(const Seen& before, const Seen& now) {
    std::string text;
    for (const auto& [name, value] : now.values) {
        auto was = before.values.find(name);
        if (was != before.values.end() && was->second == value) continue;
        text += (text.empty() ? "" : " ") + name + "=" + value;
    }
    return text;
}

void TLTranscript::Remember(TLFeatureTable* table) {
    for (int id : table->GetIds()) Remember(table, id);
}

void TLTranscript::Remember(TLFeatureTable* table, int id) {
    if (const TLFeature* feature = table->PeekFeature(id)) mSeen[table][id] = look(*feature);
}

void TLTranscript::Forget(TLFeatureTable* table) {
    mSeen.erase(table);
}

void TLTranscript::OnFeatureChanged(TLFeatureTable* table, Change change, int id) {
    const std::string name = table->GetName().toStdString() + " " + std::to_string(id);
    std::map<int, Seen>& seen = mSeen[table];
    const TLFeature* feature = table->PeekFeature(id);
    if (change == Deleted || !feature) {
        auto was = seen.find(id);
        Event("feature", "deleted " + name + " " +
                             (was == seen.end() ? std::string("(never seen)") : was->second.wkt));
        seen.erase(id);
        return;
    }
    const Seen now = look(*feature);
    auto was = seen.find(id);
    if (change == Added || was == seen.end()) {
        Event("feature", "added " + name + " " + now.wkt);
    } else if (change == GeometryChanged) {
        // Undo puts a feature back whole and tells of both parts; only what differs is news.
        if (now.wkt != was->second.wkt) Event("feature", "reshaped " + name + " " + now.wkt);
    } else {
        const std::string changed = differences(was->second, now);
        if (!changed.empty()) Event("feature", "changed " + name + " " + changed);
    }
    seen[id] = now;
}

void TLTranscript::OnOperationStarted(const TLString& label) {
    Event("operation", "start " + label.toStdString());
}

void TLTranscript::OnOperationCommitted(const TLString& label) {
    Event("operation", "commit " + label.toStdString());
}

void TLTranscript::OnOperationAborted(const TLString& label) {
    Event("operation", "abort " + label.toStdString());
}

void TLTranscript::OnUndo(const TLString& label) {
    Event("undo", label.toStdString());
}

void TLTranscript::OnRedo(const TLString& label) {
    Event("redo", label.toStdString());
}

}  // namespace TMObjects
