#include "hostkit/TLModalAnswerer.h"

#include "hostkit/TLDialogDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <functional>

namespace TMObjects {

namespace {

// A dialog that stays up after this many answers is closed outright, so that a dialog which
// refuses every answer cannot hold a script for ever.
const int kMostAttempts = 3;

QString plain(const QString& buttonText) {
    return QString(buttonText).remove('&').trimmed();
}

bool sameWord(const QString& a, const std::string& b) {
    return a.compare(plain(QString::fromStdString(b)), Qt::CaseInsensitive) == 0;
}

QAbstractButton* buttonNamed(const QList<QAbstractButton*>& buttons, const std::string& name) {
    for (QAbstractButton* button : buttons)
        if (sameWord(plain(button->text()), name)) return button;
    return nullptr;
}

// The button that accepting means: the default one, else the first of an accepting role.
QAbstractButton* acceptingButton(QMessageBox* box) {
    if (box->defaultButton()) return box->defaultButton();
    for (QAbstractButton* button : box->buttons()) {
        const QMessageBox::ButtonRole role = box->buttonRole(button);
        if (role == QMessageBox::AcceptRole || role == QMessageBox::YesRole) return button;
    }
    return nullptr;
}

// Each answer fills in the record and gives back what is to be done, which is done only after
// the record was made: doing it may open the next dialog, whose record must come after.
using Action = std::function<void()>;

// The button Escape clicks, found as the box finds it: the one set, else Cancel, else the only
// button, else the only one of a rejecting role, else the only one of no role.
QAbstractButton* escapeButton(QMessageBox* box) {
    if (box->escapeButton()) return box->escapeButton();
    if (QAbstractButton* cancel = box->button(QMessageBox::Cancel)) return cancel;
    const QList<QAbstractButton*> buttons = box->buttons();
    if (buttons.size() == 1) return buttons.front();
    for (QMessageBox::ButtonRole role : {QMessageBox::RejectRole, QMessageBox::NoRole}) {
        QAbstractButton* only = nullptr;
        int count = 0;
        for (QAbstractButton* button : buttons)
            if (box->buttonRole(button) == role) {
                only = button;
                ++count;
            }
        if (count == 1) return only;
    }
    return nullptr;
}

Action dismiss(QMessageBox* box, TLModalAnswerer::Record& record) {
    if (QAbstractButton* escape = escapeButton(box)) {
        record.answer = plain(escape->text()).toStdString();
        return [escape] { escape->click(); };
    }
    record.answer = "rejected";
    return [box] { box->reject(); };
}

Action answerMessageBox(QMessageBox* box, const std::string* answer,
                        TLModalAnswerer::Record& record) {
    record.kind = "message box";
    record.text = box->text().toStdString();
    if (!answer) return dismiss(box, record);
    QAbstractButton* button = buttonNamed(box->buttons(), *answer);
    if (!button && sameWord("accept", *answer)) button = acceptingButton(box);
    if (!button && sameWord("reject", *answer)) return dismiss(box, record);
    if (!button) {
        record.matched = false;
        return dismiss(box, record);
    }
    record.answer = plain(button->text()).toStdString();
    return [button] { button->click(); };
}

Action answerFileDialog(QFileDialog* dialog, const std::string* answer,
                        TLModalAnswerer::Record& record) {
    record.kind = "file dialog";
    record.text = dialog->directory().path().toStdString();
    if (!answer || sameWord("reject", *answer) || sameWord("cancel", *answer)) {
        record.answer = "rejected";
        return [dialog] { dialog->reject(); };
    }
    record.answer = *answer;
    return [dialog, file = QString::fromStdString(*answer)] {
        // The dialog does not overwrite its file name field while that field has the focus.
        if (QWidget* focused = dialog->focusWidget()) focused->clearFocus();
        dialog->selectFile(file);
        // The dialog checks the choice itself: a missing file to open keeps it up, with a
        // warning of its own that is answered next. (Its accept is reached through its base.)
        static_cast<QDialog*>(dialog)->accept();
    };
}

Action answerInputDialog(QInputDialog* dialog, const std::string* answer,
                         TLModalAnswerer::Record& record) {
    record.kind = "input dialog";
    record.text = dialog->labelText().toStdString();
    if (!answer || sameWord("reject", *answer) || sameWord("cancel", *answer)) {
        record.answer = "rejected";
        return [dialog] { dialog->reject(); };
    }
    record.answer = *answer;
    return [dialog, value = QString::fromStdString(*answer)] {
        switch (dialog->inputMode()) {
            case QInputDialog::IntInput:
                dialog->setIntValue(value.toInt());
                break;
            case QInputDialog::DoubleInput:
                dialog->setDoubleValue(value.toDouble());
                break;
            default:
                dialog->setTextValue(value);
        }
        dialog->accept();
    };
}

Action answerDialog(QDialog* dialog, const std::string* answer, TLModalAnswerer::Record& record) {
    record.kind = "dialog";
    if (answer && (sameWord("accept", *answer) || sameWord("ok", *answer))) {
        record.answer = "accepted";
        return [dialog] { dialog->accept(); };
    }
    if (answer && !sameWord("reject", *answer) && !sameWord("cancel", *answer)) {
        const QList<QAbstractButton*> buttons = dialog->findChildren<QAbstractButton*>();
        if (QAbstractButton* button = buttonNamed(buttons, *answer)) {
            record.answer = plain(button->text()).toStdString();
            return [button] { button->click(); };
        }
        record.matched = false;
    }
    record.answer = "rejected";
    return [dialog] { dialog->reject(); };
}

// A queued choice: the entry of the named combo box is chosen, then the dialog is accepted as its
// Ok would. An entry or a combo box that is not there rejects the dialog, marked as unmatched.
Action answerChoice(QDialog* dialog, const std::string& combo, const std::string& item,
                    TLModalAnswerer::Record& record) {
    record.kind = "dialog";
    auto* box = dialog->findChild<QComboBox*>(QString::fromStdString(combo));
    const int index = box ? box->findText(QString::fromStdString(item), Qt::MatchExactly) : -1;
    if (index < 0) {
        record.matched = false;
        record.answer = "rejected";
        return [dialog] { dialog->reject(); };
    }
    record.answer = "chose \"" + item + "\" in " + combo + ", accepted";
    return [dialog, box, index] {
        box->setCurrentIndex(index);
        dialog->accept();
    };
}

}  // namespace

struct TLModalAnswerer::Impl {
    QTimer timer;
    // A queued answer; with a combo box named, `answer` is the entry to choose in it.
    struct Queued {
        std::string answer;
        std::string combo;
    };
    std::deque<Queued> queue;
    std::vector<Record> records;
    Listener listener;
    StepListener stepListener;
    QPointer<QWidget> last;
    int attempts = 0;
    bool answering = false;

    void poll();
    void answerNow(QPointer<QWidget> widget);
    Action answer(QWidget* widget, Record& record);
    bool stepNext(QWidget* dialog);
};

namespace {

// Steps travel in the queue of answers, marked so that no answer can be taken for one.
const char kStepMark = '\x1f';

std::vector<std::string> stepWords(const std::string& entry) {
    std::vector<std::string> words;
    std::size_t from = 1;
    for (std::size_t at; (at = entry.find(kStepMark, from)) != std::string::npos; from = at + 1)
        words.push_back(entry.substr(from, at - from));
    words.push_back(entry.substr(from));
    return words;
}

std::string doStep(QWidget* dialog, const std::vector<std::string>& words) {
    std::string problem;
    QWidget* widget = TLDialogDriver::FindIn(dialog, words[1], problem);
    if (!widget) return problem;
    if (words[0] == "set") {
        if (!TLDialogDriver::Set(widget, words[2], problem))
            return "expected " + words[1] + " to take the value, got: " + problem;
    } else if (words[0] == "click") {
        if (!TLDialogDriver::Click(widget, problem))
            return "expected " + words[1] + " to take the click, got: " + problem;
    } else if (words[0] == "expect") {
        const std::string shown = TLDialogDriver::Text(widget);
        if (shown != words[2])
            return "expected " + words[1] + " to show \"" + words[2] + "\", got \"" + shown + "\"";
    }
    return std::string();
}

}  // namespace

// A step at the head of the queue is done on the dialog, which stays up for the next entry.
bool TLModalAnswerer::Impl::stepNext(QWidget* dialog) {
    if (queue.empty() || queue.front().answer.empty() || queue.front().answer[0] != kStepMark)
        return false;
    const std::vector<std::string> words = stepWords(queue.front().answer);
    queue.pop_front();
    const std::string problem = words.size() == 3 ? doStep(dialog, words) : "a malformed step";
    if (!problem.empty() && stepListener) stepListener(problem);
    return true;
}

// The answer is given from a queued call, not from the timer's own slot: an answer may open
// another modal dialog (a file dialog warns of a missing file), and Qt does not fire a timer
// again inside its own slot, so that nested dialog would never be answered.
void TLModalAnswerer::Impl::poll() {
    QWidget* widget = QApplication::activeModalWidget();
    if (answering || !widget || !widget->isVisible()) return;
    answering = true;
    QMetaObject::invokeMethod(
        &timer, [this, guard = QPointer<QWidget>(widget)] { answerNow(guard); },
        Qt::QueuedConnection);
}

void TLModalAnswerer::Impl::answerNow(QPointer<QWidget> widget) {
    answering = false;
    if (!widget || !widget->isVisible() || widget != QApplication::activeModalWidget()) return;
    if (stepNext(widget)) return;
    attempts = widget == last ? attempts + 1 : 1;
    last = widget;
    Record record;
    record.title = widget->windowTitle().toStdString();
    Action act;
    if (attempts > kMostAttempts) {
        record.kind = "dialog";
        record.answer = "closed";
        record.queued = false;
        act = [widget] {
            if (auto* dialog = qobject_cast<QDialog*>(widget.data()))
                dialog->done(QDialog::Rejected);
            else if (widget)
                widget->hide();
        };
    } else {
        act = answer(widget, record);
    }
    records.push_back(record);
    if (listener) listener(record);
    act();
    // A dialog that closed starts afresh when it is shown again: tools keep their dialogs.
    if (!last || !last->isVisible()) {
        last = nullptr;
        attempts = 0;
    }
}

Action TLModalAnswerer::Impl::answer(QWidget* widget, Record& record) {
    Queued next;
    const std::string* queued = nullptr;
    if (!queue.empty()) {
        next = queue.front();
        queue.pop_front();
        queued = &next.answer;
    }
    record.queued = queued != nullptr;
    auto* chosen = qobject_cast<QDialog*>(widget);
    if (queued && !next.combo.empty() && chosen)
        return answerChoice(chosen, next.combo, next.answer, record);
    if (auto* box = qobject_cast<QMessageBox*>(widget))
        return answerMessageBox(box, queued, record);
    if (auto* files = qobject_cast<QFileDialog*>(widget))
        return answerFileDialog(files, queued, record);
    if (auto* input = qobject_cast<QInputDialog*>(widget))
        return answerInputDialog(input, queued, record);
    if (auto* dialog = qobject_cast<QDialog*>(widget)) return answerDialog(dialog, queued, record);
    record.kind = "window";
    record.answer = "closed";
    return [widget] { widget->hide(); };
}

TLModalAnswerer::TLModalAnswerer() : mImpl(std::make_unique<Impl>()) {
    mImpl->timer.setInterval(0);
    QObject::connect(&mImpl->timer, &QTimer::timeout, [impl = mImpl.get()] { impl->poll(); });
}

TLModalAnswerer::~TLModalAnswerer() = default;

void TLModalAnswerer::Queue(const std::string& answer) {
    mImpl->queue.push_back({answer, std::string()});
}

void TLModalAnswerer::QueueChoice(const std::string& combo, const std::string& item) {
    mImpl->queue.push_back({item, combo});
}

int TLModalAnswerer::Pending() const {
    return int(mImpl->queue.size());
}

void TLModalAnswerer::ClearQueue() {
    mImpl->queue.clear();
}

void TLModalAnswerer::Start() {
    mImpl->timer.start();
}

void TLModalAnswerer::Stop() {
    mImpl->timer.stop();
}

const std::vector<TLModalAnswerer::Record>& TLModalAnswerer::Records() const {
    return mImpl->records;
}

void TLModalAnswerer::SetListener(Listener listener) {
    mImpl->listener = std::move(listener);
}

void TLModalAnswerer::QueueStep(const std::string& verb, const std::string& object,
                                const std::string& value) {
    mImpl->queue.push_back(
        {std::string(1, kStepMark) + verb + kStepMark + object + kStepMark + value, std::string()});
}

void TLModalAnswerer::SetStepListener(StepListener listener) {
    mImpl->stepListener = std::move(listener);
}

}  // namespace TMObjects
