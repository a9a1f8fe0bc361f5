#pragma once

#include <string>

class QWidget;

namespace TMObjects {

// Acts on the widgets of the dialogs that are on screen as a user would: finds a widget by its
// object name (mLineEdit..., mPushButton...), types a value into it or picks it, clicks a button,
// and reads what it shows. Modal dialogs are answered by TLModalAnswerer instead; this is for the
// dialogs that tools keep open beside the map. Needs a QApplication.
class TLDialogDriver {
public:
    // The visible widget of that object name, in the windows on screen; null with the reason when
    // there is none.
    static QWidget* Find(const std::string& objectName, std::string& error);
    // Gives the widget a value as typing or picking would, so that the dialog hears of it: the
    // text of a line edit or text box, the entry of a combo box, the number of a spin box, "on" or
    // "off" of a check box or radio button, "ROW COLUMN TEXT" for an editable cell of a table,
    // yyyy-MM-dd for a date edit, a page's title (or number) for a tab widget.
    // False with the reason when the widget takes no value or not this one.
    static bool Set(QWidget* widget, const std::string& value, std::string& error);
    // Clicks a button. False with the reason for a widget that is no button or is disabled.
    static bool Click(QWidget* widget, std::string& error);
    // What the widget shows: its text (a button's without the mnemonic's "&"), the entry picked,
    // the number, "on" or "off"; a table's rows joined by "; ", with the cells of its shown
    // columns joined by ", "; a tree's top rows joined by "; ", each followed by its children
    // in brackets joined by ", " ("parcels [1, 2]; roads [5]"); the title of a tab widget's page.
    static std::string Text(QWidget* widget);

    // Edits a cell of an item view as the user does, through the view's delegate for that column:
    // the delegate's editor is made, given the text (typed into a line edit, picked in a combo
    // box, read as yyyy-MM-dd by a date edit) and handed back with setModelData, so that the
    // delegate's checks run and may refuse it. False with the reason for no such cell.
    static bool EditCell(QWidget* view, int row, int column, const std::string& text,
                         std::string& error);
    // Opens the view's context menu over the item that shows `item` and picks the entry of that
    // text. False with the reason when there is no such item, no menu opens or it lacks the entry.
    static bool ContextMenu(QWidget* view, const std::string& item, const std::string& entry,
                            std::string& error);
    // The widget of that object name inside `dialog`, shown or not (a page of a tab may be
    // hidden); null with the reason when there is none.
    static QWidget* FindIn(QWidget* dialog, const std::string& objectName, std::string& error);
};

}  // namespace TMObjects
