#pragma once

#include <string>

class QWidget;

namespace TMObjects {

// Reads and clicks the items of the item views of the dialogs on screen (trees, tables, lists),
// as a user sees and clicks them. Kept apart from TLDialogDriver, which types and picks values.
class TLItemViewDriver {
public:
    // The view's items as they show in their first column: top-level items joined by "; ", an
    // item with children followed by them in parentheses, joined by ", ":
    // "wells:NAME (W-1, W-2); roads:NAME (A1)". Items of a collapsed branch are read too.
    // False with the reason for a widget that is no item view.
    static bool TreeText(QWidget* widget, std::string& text, std::string& error);
    // The text of the cell at ROW and COLUMN (from 0, of the top level); false with the reason
    // when there is no such cell.
    static bool CellText(QWidget* widget, int row, int column, std::string& text,
                         std::string& error);
    // Clicks the item whose first-column text is `path`: the first such item, depth first; or
    // "PARENT > CHILD" for an item under an item. The press and release reach the view as the
    // mouse's would, so it selects the item and tells clicked().
    static bool ClickItem(QWidget* widget, const std::string& path, std::string& error);
    // Clicks the cell at ROW and COLUMN of the top level in the same way.
    static bool ClickCell(QWidget* widget, int row, int column, std::string& error);
};

}  // namespace TMObjects
