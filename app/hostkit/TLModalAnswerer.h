#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace TMObjects {

// Answers the modal dialogs that tools open with the toolkit's static calls
// (QMessageBox::warning, QFileDialog::getOpenFileName, QInputDialog::getText, a form's exec), so
// that a scripted or headless session never waits for a user. A zero-interval timer looks for the
// active modal widget whenever the nested event loop of such a dialog is idle, and gives it the
// next queued answer. Every dialog met is recorded, answered or not.
// Needs a QApplication; Start() when it exists.
class TLModalAnswerer {
public:
    struct Record {
        std::string kind;     // "message box", "file dialog", "input dialog", "dialog"
        std::string title;    // the window title
        std::string text;     // the message; the directory of a file dialog; an input's label
        std::string answer;   // what was done: a button's text, a file, a value, "rejected"
        bool queued = true;   // false when nothing was queued and the dialog was dismissed
        bool matched = true;  // false when the queued answer fitted no button of the dialog
    };

    TLModalAnswerer();
    ~TLModalAnswerer();
    TLModalAnswerer(const TLModalAnswerer&) = delete;
    TLModalAnswerer& operator=(const TLModalAnswerer&) = delete;

    // The next answer, in the order dialogs come: a button's text ("Yes"; "&Save" is matched by
    // "Save"), "accept" or "reject" for any dialog, a file path for a file dialog, the value for
    // an input dialog. A dialog met with nothing queued is dismissed as Escape would.
    void Queue(const std::string& answer);
    // The next answer chooses `item` (its exact text) in the combo box named `combo` of a
    // dialog, then accepts the dialog.
    void QueueChoice(const std::string& combo, const std::string& item);
    int Pending() const;
    void ClearQueue();

    void Start();
    void Stop();

    const std::vector<Record>& Records() const;
    using Listener = std::function<void(const Record&)>;
    void SetListener(Listener listener);

    // A step done on the next modal dialog before it is answered, in the order queued with the
    // answers: "set" gives a widget of the dialog a value (as TLDialogDriver::Set), "click"
    // clicks a button of it, "expect" compares what a widget shows (TLDialogDriver::Text) with
    // the value. The dialog stays up for the next entry, unless the click closed it.
    void QueueStep(const std::string& verb, const std::string& object, const std::string& value);
    // Told of a step that could not be done, or of an expectation that did not hold.
    using StepListener = std::function<void(const std::string& problem)>;
    void SetStepListener(StepListener listener);

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};

}  // namespace TMObjects
