#include "TLDialogChecks.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <cmath>
#include <cstdlib>

#include "hostkit/TLDialogDriver.h"
#include "hostkit/TLItemViewDriver.h"
#include "hostkit/TLToolTable.h"

namespace TMObjects {

namespace {

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

// The shown top-level window of that object name or title.
QWidget* shownWindow(const std::string& name) {
    const QString wanted = QString::fromStdString(name);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() &&
            (window->objectName() == wanted || window->windowTitle() == wanted))
            return window;
    return nullptr;
}

// The first number in the text, and whether there is one.
bool leadingNumber(const std::string& text, double& value) {
    const char* start = text.c_str();
    while (*start == ' ') ++start;
    char* end = nullptr;
    value = std::strtod(start, &end);
    return end != start;
}

}  // namespace

bool TLDialogChecks::Knows(const std::string& what) {
    return what == "dialog" || what == "no-dialog" || what == "enabled" || what == "disabled" ||
           what == "placeholder" || what == "tree" || what == "cell" || what == "tool";
}

bool TLDialogChecks::Run(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const std::string& what = c.words[0];
    if (what == "dialog" || what == "no-dialog") return dialog(c, failure, error);
    if (what == "enabled" || what == "disabled") return enabled(c, failure, error);
    if (what == "placeholder") return placeholder(c, failure, error);
    if (what == "tree") return tree(c, failure, error);
    if (what == "cell") return cell(c, failure, error);
    return tool(c, failure, error);
}

QWidget* TLDialogChecks::widget(const std::string& name, std::string& failure) const {
    std::string why;
    QWidget* found = TLDialogDriver::Find(name, why);
    if (!found) failure = "expected a widget " + inQuotes(name) + " on screen, got none";
    return found;
}

bool TLDialogChecks::dialog(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const bool wanted = c.words[0] == "dialog";
    if (!c.Expect(2, 1000,
                  wanted ? "expect dialog NAME|\"TITLE\"" : "expect no-dialog NAME|\"TITLE\"",
                  error))
        return false;
    if (mSession.Dry()) return true;
    const std::string name = c.Rest(1);
    QWidget* shown = shownWindow(name);
    if (wanted && !shown) failure = "expected the dialog " + inQuotes(name) + " shown, got none";
    if (!wanted && shown)
        failure = "expected no dialog " + inQuotes(name) + ", got " +
                  inQuotes(shown->windowTitle().toStdString()) + " shown";
    return true;
}

bool TLDialogChecks::enabled(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const bool wanted = c.words[0] == "enabled";
    if (!c.Expect(2, 2, wanted ? "expect enabled OBJECT" : "expect disabled OBJECT", error))
        return false;
    if (mSession.Dry()) return true;
    QWidget* found = widget(c.words[1], failure);
    if (found && found->isEnabled() != wanted)
        failure = "expected " + c.words[1] + " " + c.words[0] + ", got it " +
                  (wanted ? "disabled" : "enabled");
    return true;
}

bool TLDialogChecks::placeholder(const TLSessionCommand& c, std::string& failure,
                                 std::string& error) {
    if (!c.Expect(3, 1000, "expect placeholder OBJECT \"TEXT\"", error)) return false;
    if (mSession.Dry()) return true;
    QWidget* found = widget(c.words[1], failure);
    if (!found) return true;
    QString have;
    if (auto* edit = qobject_cast<QLineEdit*>(found))
        have = edit->placeholderText();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(found))
        have = plain->placeholderText();
    else if (auto* rich = qobject_cast<QTextEdit*>(found))
        have = rich->placeholderText();
    else {
        failure = "expected " + c.words[1] + " to be a text box with a hint, got another widget";
        return true;
    }
    const std::string want = c.Rest(2);
    if (have.toStdString() != want)
        failure = "expected the hint of " + c.words[1] + " " + inQuotes(want) + ", got " +
                  inQuotes(have.toStdString());
    return true;
}

bool TLDialogChecks::tree(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(3, 1000, "expect tree OBJECT \"ITEMS\"", error)) return false;
    if (mSession.Dry()) return true;
    QWidget* found = widget(c.words[1], failure);
    if (!found) return true;
    std::string have, why;
    if (!TLItemViewDriver::TreeText(found, have, why)) {
        failure = "expected items in " + c.words[1] + ", got: " + why;
        return true;
    }
    const std::string want = c.Rest(2);
    if (have != want)
        failure = "expected the items of " + c.words[1] + " to be " + inQuotes(want) + ", got " +
                  inQuotes(have);
    return true;
}

bool TLDialogChecks::cell(const TLSessionCommand& c, std::string& failure, std::string& error) {
    int row = 0, column = 0;
    if (!c.Expect(5, 1000, "expect cell OBJECT ROW COLUMN \"TEXT\"", error) ||
        !c.Integer(2, row, error) || !c.Integer(3, column, error))
        return false;
    if (mSession.Dry()) return true;
    QWidget* found = widget(c.words[1], failure);
    if (!found) return true;
    std::string have, why;
    const std::string want = c.Rest(4);
    if (!TLItemViewDriver::CellText(found, row, column, have, why))
        failure = "expected " + inQuotes(want) + " in " + c.words[1] + ", got: " + why;
    else if (have != want)
        failure = "expected the cell " + std::to_string(row) + " " + std::to_string(column) +
                  " of " + c.words[1] + " to show " + inQuotes(want) + ", got " + inQuotes(have);
    return true;
}

bool TLDialogChecks::tool(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(2, 2, "expect tool NAME|none", error)) return false;
    const bool none = c.words[1] == "none";
    if (!none && !mSession.Tool(c.words[1])) {
        error = "the plugin has no tool " + inQuotes(c.words[1]);
        return false;
    }
    if (mSession.Dry()) return true;
    TLTool* active = mSession.Dispatcher()->ActiveTool();
    std::string have = active ? "another tool" : "none";
    for (const TLToolTable::Entry& entry : TLToolTable::Entries())
        if (active && TLToolTable::IsOfClass(active, entry.className)) have = entry.className;
    if (none ? active != nullptr : active != mSession.Tool(c.words[1]))
        failure = "expected " + (none ? std::string("no tool") : "the tool " + c.words[1]) +
                  " in use, got " + have;
    return true;
}

bool TLDialogChecks::NumericWidget(const TLSessionCommand& c, std::string& failure,
                                   std::string& error) {
    if (c.words.size() < 3 || c.words[2].size() < 2 || c.words[2][0] != '~') return false;
    double want = 0, tolerance = 0;
    if (!c.Expect(4, 4, "expect widget OBJECT ~VALUE TOL", error)) return true;
    const std::string value = c.words[2].substr(1);
    char* end = nullptr;
    want = std::strtod(value.c_str(), &end);
    if (end == value.c_str() || *end != '\0' || !std::isfinite(want)) {
        error = inQuotes(value) + " is no number";
        return true;
    }
    if (!c.Number(3, tolerance, error) || tolerance < 0) {
        if (error.empty()) error = inQuotes(c.words[3]) + " is no tolerance";
        return true;
    }
    if (mSession.Dry()) return true;
    QWidget* found = widget(c.words[1], failure);
    if (!found) return true;
    const std::string have = TLDialogDriver::Text(found);
    double shown = 0;
    if (!leadingNumber(have, shown) || !(std::fabs(shown - want) <= tolerance))
        failure = "expected " + c.words[1] + " to show " + c.words[2].substr(1) + " within " +
                  c.words[3] + ", got " + inQuotes(have);
    return true;
}

}  // namespace TMObjects
