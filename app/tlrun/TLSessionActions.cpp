#include "TLSessionActions.h"

#include <QMetaEnum>
#include <cmath>
#include <map>

#include "hostkit/TLDialogDriver.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLItemViewDriver.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects {

namespace {

const std::map<std::string, TLMouseButton>& buttons() {
    static const std::map<std::string, TLMouseButton> names{{"none", TLNoButton},
                                                            {"left", TLLeftButton},
                                                            {"right", TLRightButton},
                                                            {"middle", TLMidButton}};
    return names;
}

// A key by its code or by the toolkit's name for it without "Key_".
bool keyCode(const TLSessionCommand& c, int& code, std::string& error) {
    if (c.Integer(0, code, error)) return true;
    const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    bool known = false;
    code = keys.keyToValue(("Key_" + c.words[0]).c_str(), &known);
    if (!known) error = "\"" + c.words[0] + "\" is no key (a code, or a name such as Escape)";
    return known;
}

}  // namespace

bool TLSessionActions::Knows(const std::string& verb) {
    static const char* const verbs[] = {"tool",     "deactivate", "move",   "down", "up",   "click",
                                        "dblclick", "key",        "type",   "undo", "redo", "save",
                                        "set",      "dialog",     "answer", "file", "param"};
    for (const char* known : verbs)
        if (verb == known) return true;
    return false;
}

bool TLSessionActions::Run(const TLSessionCommand& c, std::string& error) {
    const std::string& v = c.verb;
    // A message box counts for `expect box` only when the action about to run shows it.
    if (!mSession.Dry() && v != "answer" && v != "file") mSession.MarkEvent();
    if (v == "tool") return tool(c, error);
    if (v == "deactivate") {
        if (!c.Expect(0, 0, "deactivate", error)) return false;
        if (!mSession.Dry()) mSession.Dispatcher()->Deactivate();
        return true;
    }
    if (v == "move" || v == "down" || v == "up" || v == "click" || v == "dblclick")
        return pointer(c, error);
    if (v == "key") return key(c, error);
    if (v == "type") return type(c);
    if (v == "undo" || v == "redo") return undo(c, error);
    if (v == "save") return save(c, error);
    if (v == "set") return set(c, error);
    if (v == "dialog" && !c.words.empty() &&
        (c.words[0] == "click-item" || c.words[0] == "click-cell"))
        return dialogItem(c, error);
    if (v == "dialog") return dialog(c, error);
    if (v == "answer" || v == "file") return answer(c, error);
    if (v == "param") return param(c, error);
    error = "unknown verb \"" + v + "\"";
    return false;
}

bool TLSessionActions::tool(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "tool NAME", error)) return false;
    TLTool* tool = mSession.Tool(c.words[0]);
    if (!tool) {
        error = "the plugin has no tool \"" + c.words[0] + "\"";
        return false;
    }
    if (!mSession.Dry()) mSession.Dispatcher()->Activate(tool);
    return true;
}

bool TLSessionActions::aim(const TLSessionCommand& c, int& x, int& y, std::string& error) {
    if (c.words.size() == 3) return c.Integer(1, x, error) && c.Integer(2, y, error);
    // A map point: the pixel that shows it, as a user would aim at it.
    const std::string text = c.words[1].substr(1);
    const std::size_t comma = text.find(',');
    TLSessionCommand pair;
    pair.words = {text.substr(0, comma), comma == std::string::npos ? "" : text.substr(comma + 1)};
    double mx, my;
    if (!pair.Number(0, mx, error) || !pair.Number(1, my, error)) return false;
    if (mSession.Dry()) return true;
    const TLPoint device = mSession.View()->GetDisplayTransform()->ToDevice(TLPoint(mx, my));
    if (!(std::fabs(device.x) < 1e9 && std::fabs(device.y) < 1e9)) {
        error = "the map point " + text + " lies far outside the view";
        return false;
    }
    x = int(std::lround(device.x));
    y = int(std::lround(device.y));
    mSession.Transcript().Event("pixel", std::to_string(x) + "," + std::to_string(y));
    return true;
}

bool TLSessionActions::pointer(const TLSessionCommand& c, std::string& error) {
    // A move needs no button (`move X Y`, `move @X,Y`); with one it is a drag.
    const bool bareMove =
        c.verb == "move" &&
        (c.words.size() == 1 || (c.words.size() == 2 && !buttons().count(c.words[0])));
    if (bareMove) {
        TLSessionCommand withButton = c;
        withButton.words.insert(withButton.words.begin(), "none");
        return pointer(withButton, error);
    }
    const std::string usage =
        c.verb + (c.verb == "move" ? " [none|left|right|middle]" : " left|right|middle") +
        " X Y  (or @X,Y for a map point)";
    const bool mapPoint = c.words.size() == 2 && c.words[1].size() > 1 && c.words[1][0] == '@';
    if ((c.words.size() != 3 && !mapPoint) || !buttons().count(c.words[0]) ||
        (c.verb != "move" && c.words[0] == "none")) {
        error = "usage: " + usage;
        return false;
    }
    int x = 0, y = 0;
    if (!aim(c, x, y, error)) return false;
    if (mSession.Dry()) return true;
    const TLMouseButton b = buttons().at(c.words[0]);
    TLToolDispatcher* d = mSession.Dispatcher();
    if (c.verb == "move") returned("OnMouseMove", d->MouseMove(b, x, y));
    if (c.verb == "down") returned("OnMouseDown", d->MouseDown(b, x, y));
    if (c.verb == "up") returned("OnMouseUp", d->MouseUp(b, x, y));
    if (c.verb == "click") {
        returned("OnMouseDown", d->MouseDown(b, x, y));
        returned("OnMouseUp", d->MouseUp(b, x, y), false);
    }
    if (c.verb == "dblclick") {
        returned("OnMouseDown", d->MouseDown(b, x, y), false);
        returned("OnMouseUp", d->MouseUp(b, x, y), false);
        returned("OnDblClick", d->DoubleClick(b, x, y));
        returned("OnMouseUp", d->MouseUp(b, x, y), false);
    }
    return true;
}

bool TLSessionActions::key(const TLSessionCommand& c, std::string& error) {
    int code = 0;
    if (!c.Expect(1, 1, "key CODE|NAME", error) || !keyCode(c, code, error)) return false;
    if (!mSession.Dry()) returned("OnKeyDown", mSession.Dispatcher()->KeyDown(code));
    return true;
}

bool TLSessionActions::type(const TLSessionCommand& c) {
    if (!mSession.Dry())
        returned("processChildCmd", mSession.Dispatcher()->TypeLine(TLString(c.Rest(0))));
    return true;
}

bool TLSessionActions::undo(const TLSessionCommand& c, std::string& error) {
    const bool redo = c.verb == "redo";
    if (!c.Expect(0, 0, redo ? "redo" : "undo", error)) return false;
    if (mSession.Dry()) return true;
    TLEditor* editor = mSession.Map()->editor();
    if (!(redo ? editor->Redo() : editor->Undo()))
        mSession.Transcript().Event(c.verb, redo ? "nothing to redo" : "nothing to undo");
    mSession.View()->RefreshMap(false, TLRect());
    return true;
}

bool TLSessionActions::save(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(0, 1, "save [NAME]", error)) return false;
    if (c.words.size() == 1 && !mSession.HasLayer(c.words[0], true, error)) return false;
    if (mSession.Dry()) return true;
    if (c.words.size() == 1) {
        saveLayer(mSession.FeatureLayer(c.words[0], error), true);
        return true;
    }
    for (const auto& layer : mSession.Map()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get())) saveLayer(features, false);
    return true;
}

void TLSessionActions::saveLayer(TLFeatureLayer* layer, bool named) {
    TLFeatureTable* table = layer->GetDatasource().get();
    const std::size_t pending = table->PendingChanges().size();
    const std::string name = layer->GetLayerName().toStdString();
    if (pending == 0) {
        if (named) mSession.Transcript().Event("saved", name + ": nothing to write");
        return;
    }
    if (!layer->SaveEdits()) {
        mSession.Transcript().Event("save-failed",
                                    name + ": " + layer->LastSaveError().toStdString());
        return;
    }
    const std::string where = table->GetStore()
                                  ? " written to " + table->GetStore()->GetPath().toStdString()
                                  : " kept in memory";
    mSession.Transcript().Event("saved", name + ": " + std::to_string(pending) +
                                             (pending == 1 ? " change" : " changes") + where);
}

bool TLSessionActions::set(const TLSessionCommand& c, std::string& error) {
    int id = 0;
    if (!c.Expect(4, 4, "set NAME ID FIELD VALUE", error) || !c.Integer(1, id, error) ||
        !mSession.HasLayer(c.words[0], true, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureLayer* layer = mSession.FeatureLayer(c.words[0], error);
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

bool TLSessionActions::dialog(const TLSessionCommand& c, std::string& error) {
    if (!c.words.empty() && (c.words[0] == "edit" || c.words[0] == "menu"))
        return itemView(c, error);
    const char* usage = "dialog set OBJECT VALUE | dialog click OBJECT";
    const bool setting = !c.words.empty() && c.words[0] == "set";
    if (!c.Expect(2, 3, usage, error) || !c.Choice(0, "set|click", usage, error) ||
        c.words.size() != (setting ? 3u : 2u)) {
        error = std::string("usage: ") + usage;
        return false;
    }
    if (mSession.Dry()) return true;
    handWidget(c.words[1], setting ? "value" : "click", [&](QWidget* widget, std::string& refused) {
        return setting ? TLDialogDriver::Set(widget, c.words[2], refused)
                       : TLDialogDriver::Click(widget, refused);
    });
    return true;
}

bool TLSessionActions::dialogItem(const TLSessionCommand& c, std::string& error) {
    const bool cell = c.words[0] == "click-cell";
    const char* usage =
        cell ? "dialog click-cell OBJECT ROW COLUMN" : "dialog click-item OBJECT \"ITEM\"";
    int row = 0, column = 0;
    if (!c.Expect(3, cell ? 4 : 1000, usage, error) ||
        (cell &&
         (c.words.size() != 4 || !c.Integer(2, row, error) || !c.Integer(3, column, error)))) {
        if (error.empty()) error = std::string("usage: ") + usage;
        return false;
    }
    if (mSession.Dry()) return true;
    handWidget(c.words[1], "click", [&](QWidget* widget, std::string& refused) {
        return cell ? TLItemViewDriver::ClickCell(widget, row, column, refused)
                    : TLItemViewDriver::ClickItem(widget, c.Rest(2), refused);
    });
    return true;
}

void TLSessionActions::handWidget(const std::string& name, const char* what,
                                  const std::function<bool(QWidget*, std::string&)>& act) {
    // A dialog that is not there is what the script did not expect: the session fails, as at an
    // expectation.
    std::string missing;
    QWidget* widget = TLDialogDriver::Find(name, missing);
    if (!widget) {
        mSession.SetTrouble("expected a widget \"" + name + "\" on screen, got none");
        return;
    }
    std::string refused;
    bool taken = true;
    // The user's hand on the dialog: a failure in the slot it sets off is caught and reported
    // as the toolkit's event loop would have it (TLGuardedApplication), not as a broken command.
    TLGuardedApplication::Guard([&] { taken = act(widget, refused); });
    if (!taken)
        mSession.SetTrouble("expected " + name + " to take the " + what + ", got: " + refused);
}

bool TLSessionActions::answer(const TLSessionCommand& c, std::string& error) {
    if (c.verb == "file") {
        if (!c.Expect(1, 1, "file PATH", error)) return false;
        if (!mSession.Dry()) mSession.Answerer().Queue(mSession.Resolve(c.words[0]).string());
        return true;
    }
    if (!c.words.empty() &&
        (c.words[0] == "set" || c.words[0] == "click" || c.words[0] == "expect"))
        return modalStep(c, error);
    if (!c.words.empty() && (c.words[0] == "choose" || c.words[0] == "value"))
        return answerWith(c, error);
    const char* usage = "answer ok|yes|no|cancel";
    if (!c.Expect(1, 1, usage, error) || !c.Choice(0, "ok|yes|no|cancel", usage, error))
        return false;
    if (!mSession.Dry()) mSession.Answerer().Queue(c.words[0]);
    return true;
}

bool TLSessionActions::modalStep(const TLSessionCommand& c, std::string& error) {
    const bool click = c.words[0] == "click";
    const char* usage =
        "answer set OBJECT VALUE | answer click OBJECT | answer expect OBJECT \"T\"";
    if (c.words.size() != (click ? 2u : 3u)) {
        error = std::string("usage: ") + usage;
        return false;
    }
    if (!mSession.Dry())
        mSession.Answerer().QueueStep(c.words[0], c.words[1], click ? "" : c.words[2]);
    return true;
}

// The verbs that act on the items of a view: a cell edited through the delegate, an item
// clicked, a context menu.
bool TLSessionActions::itemView(const TLSessionCommand& c, std::string& error) {
    const std::string& verb = c.words[0];
    const std::size_t words = verb == "edit" ? 5 : 4;
    int row = 0, column = 0;
    if (c.words.size() != words ||
        (verb == "edit" && (!c.Integer(2, row, error) || !c.Integer(3, column, error)))) {
        error =
            "usage: dialog edit OBJECT ROW COLUMN TEXT | dialog menu OBJECT ITEM ENTRY";
        return false;
    }
    if (mSession.Dry()) return true;
    std::string problem;
    QWidget* widget = TLDialogDriver::Find(c.words[1], problem);
    if (!widget) {
        mSession.SetTrouble("expected a widget \"" + c.words[1] + "\" on screen, got none");
        return true;
    }
    bool done = false;
    if (verb == "edit") done = TLDialogDriver::EditCell(widget, row, column, c.words[4], problem);
    if (verb == "menu") done = TLDialogDriver::ContextMenu(widget, c.words[2], c.words[3], problem);
    if (!done)
        mSession.SetTrouble("expected " + c.words[1] + " to take the " + verb +
                            ", got: " + problem);
    return true;
}

bool TLSessionActions::param(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(2, 2, "param KEY VALUE", error)) return false;
    if (mSession.Dry()) return true;
    TLTool* tool = mSession.Dispatcher()->ActiveTool();
    if (!tool) {
        mSession.SetTrouble("expected a tool in use to take the parameter, got none");
        return true;
    }
    tool->setParam(TLString(c.words[0]), TLString(c.words[1]));
    return true;
}

bool TLSessionActions::answerWith(const TLSessionCommand& c, std::string& error) {
    const bool choosing = c.words[0] == "choose";
    const char* usage = choosing ? "answer choose COMBO ITEM" : "answer value TEXT";
    if (!c.Expect(choosing ? 3 : 2, choosing ? 3 : 2, usage, error)) return false;
    if (mSession.Dry()) return true;
    if (choosing)
        mSession.Answerer().QueueChoice(c.words[1], c.words[2]);
    else
        mSession.Answerer().Queue(c.words[1]);
    return true;
}

bool TLSessionActions::returned(const char* entry, bool result, bool main) {
    if (main) mSession.SetLastResult(result);
    // A failure that escaped the tool was told already, with its reason.
    if (mSession.Dispatcher()->LastFailure().empty())
        mSession.Transcript().Event("result", std::string(entry) + (result ? " true" : " false"));
    return result;
}

}  // namespace TMObjects
