#pragma once

#include <memory>
#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The expectations of a script. Each says what a user would see; the first that does not hold
// stops the session.
//
//   expect prompt|message|notice|box "T"   the prompt shown, the last history line, the last
//                                          notice, the text of the last message box shown by
//                                          the action just before
//   expect count NAME N                    features in the layer
//   expect wkt NAME ID "WKT" [TOL]         a feature's geometry in the layer's coordinates:
//                                          kind and parts as written, vertex by vertex within
//                                          TOL (default 1e-6)
//   expect last NAME "WKT" [TOL]           the same for the feature of the highest id
//   expect attr NAME ID FIELD "VALUE"      a field's value as text; (null) for none
//   expect selected NAME ID...             the layer's selection, exactly; no ids for none
//   expect result true|false               what the last event's main entry returned
//   expect undo N                          steps that undo can take back
//   expect op "LABEL"                      the label of the last operation committed
//   expect widget OBJECT "T"               what a widget of a dialog on screen shows
//   expect widget OBJECT ~VALUE TOL        a number it shows, within TOL (TLDialogChecks.h, with
//                                          the other expectations of dialogs on screen)
//   expect failure "T"                     the last event failed and the host caught it; T is
//                                          part of what was caught. Without this line straight
//                                          after it, a caught failure stops the session
//   expect pending NAME N                  changes of the layer not yet saved
//   expect stored NAME N                   features of the layer in its data source, read afresh
//   expect stored-wkt NAME ID|last "WKT" [TOL]   a feature's geometry there, of the kind
//                                          the file holds (MULTIPOINT in a multipoint layer)
//   expect stored-attr NAME ID FIELD "VALUE"     a field's value there, as text
//   expect stored-record NAME ID           the annotation read back from there is the one held:
//                                          the layer's field kind, reference scale and geometry
//                                          kind, and the whole record
//   expect save-error NAME "T"             the last save of the layer failed, saying T
//   expect clip "WKT"|none [TOL]           the polygon the view is masked to, in the map's
//                                          coordinates, vertex by vertex within TOL (default
//                                          1e-6); none for a view without a mask
class TLSessionChecks {
public:
    explicit TLSessionChecks(TLSession& session) : mSession(session) {}

    // False with the reason when the expectation makes no sense (a bad number, an unreadable
    // geometry). Otherwise true, and `failure` says "expected ..., got ..." when it did not hold.
    bool Run(const TLSessionCommand& command, std::string& failure, std::string& error);

private:
    bool text(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool count(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool wkt(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool attr(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool storedRecord(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool selected(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool result(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool caught(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool undo(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool op(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool widget(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool pending(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool stored(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool storedWkt(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool saveError(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool clip(const TLSessionCommand& c, std::string& failure, std::string& error);

    // The layer named, or null with the failure: a layer the script expects may be one a tool
    // was to make.
    TLFeatureLayer* layer(const std::string& name, std::string& failure) const;
    // The geometry expectation's WKT and tolerance, from the word at `at` on.
    static bool geometryWords(const TLSessionCommand& c, std::size_t at, double& tolerance,
                              std::string& error);
    // The layer as its data source has it now, read anew.
    TLFeatureLayer* reread(TLFeatureLayer* layer, std::unique_ptr<TMWorkspace>& workspace,
                           std::string& failure) const;

    TLSession& mSession;
};

}  // namespace TMObjects
