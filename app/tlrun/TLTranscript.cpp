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

void TLTranscript::Fail(int line, const std::string& what) {
    ++mFailures;
    mOut << "  FAIL line " << line << ": " << OneLine(what) << "\n";
}

void TLTranscript::Error(int line, const std::string& what) {
    // Line 0 is the session itself, before any command: the plugin did not load.
    mOut << "  ERROR";
    if (line > 0) mOut << " line " << line;
    mOut << ": " << OneLine(what) << "\n";
}

void TLTranscript::Summary(int commands, int expectations) {
    mOut << "= " << commands << " commands, " << expectations << " expectations, " << mFailures
         << " failed\n";
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
    std::string text = record.kind + " \"" + record.title + "\"";
    if (!record.text.empty()) text += ": " + record.text;
    text += " -> " + record.answer;
    if (!record.queued) text += " (nothing queued)";
    if (!record.matched) {
        text += " (the queued answer fits no button)";
        CountFailure();
    }
    Event("dialog", text);
}

void TLTranscript::OnFeatureChanged(TLFeatureTable* table, Change change, int id) {
    std::string text = table->GetName().toStdString() + " " + std::to_string(id);
    const TLFeature* feature = table->PeekFeature(id);
    const std::string wkt = feature && feature->GetGeometry()
                                ? TLGeometryWkt::ToWkt(feature->GetGeometry().get())
                                : std::string("(no geometry)");
    switch (change) {
        case Added:
            text += " added " + wkt;
            break;
        case Deleted:
            text += " deleted";
            break;
        case GeometryChanged:
            text += " reshaped " + wkt;
            break;
        case AttributesChanged:
            text += " attributes changed";
            break;
    }
    Event("feature", text);
}

void TLTranscript::OnOperationCommitted(const TLString& label) {
    Event("operation", label.toStdString());
}

void TLTranscript::OnOperationAborted(const TLString& label) {
    Event("aborted", label.toStdString());
}

void TLTranscript::OnUndo(const TLString& label) {
    Event("undo", label.toStdString());
}

void TLTranscript::OnRedo(const TLString& label) {
    Event("redo", label.toStdString());
}

}  // namespace TMObjects
