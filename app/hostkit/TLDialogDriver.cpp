#include "hostkit/TLDialogDriver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>
#include <memory>

namespace TMObjects {

namespace {

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

bool setCombo(QComboBox* combo, const QString& value, std::string& error) {
    const int index = combo->findText(value);
    if (index >= 0) {
        // As a pick from the list: the combo tells of it like a user's choice.
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
        return true;
    }
    if (combo->isEditable()) {
        combo->setEditText(value);
        return true;
    }
    error = "the list " + combo->objectName().toStdString() + " has no entry \"" +
            value.toStdString() + "\"";
    return false;
}

bool setNumber(QAbstractSpinBox* box, const QString& value, std::string& error) {
    bool read = false;
    bool inRange = false;
    if (auto* spin = qobject_cast<QSpinBox*>(box)) {
        const int number = value.toInt(&read);
        inRange = read && number >= spin->minimum() && number <= spin->maximum();
        if (inRange) spin->setValue(number);
    } else if (auto* real = qobject_cast<QDoubleSpinBox*>(box)) {
        const double number = value.toDouble(&read);
        inRange = read && number >= real->minimum() && number <= real->maximum();
        if (inRange) real->setValue(number);
    }
    if (!inRange)
        error = "\"" + value.toStdString() + "\" is no number the box " +
                box->objectName().toStdString() + " takes";
    return inRange;
}

// "ROW COLUMN TEXT": the text goes into that cell as its editor would hand it over, so that the
// dialog hears dataChanged.
bool setCell(QAbstractItemView* view, const QString& value, std::string& error) {
    const QStringList words = value.split(' ');
    bool rowRead = false, columnRead = false;
    const int row = words.value(0).toInt(&rowRead);
    const int column = words.value(1).toInt(&columnRead);
    QAbstractItemModel* model = view->model();
    const QModelIndex cell =
        model && rowRead && columnRead ? model->index(row, column) : QModelIndex();
    if (!cell.isValid() || words.size() < 3) {
        error = "the table " + view->objectName().toStdString() + " has no cell \"" +
                value.toStdString() + "\"; a cell is set as \"ROW COLUMN TEXT\"";
        return false;
    }
    if (!(model->flags(cell) & Qt::ItemIsEditable)) {
        error = "the cell " + std::to_string(row) + " " + std::to_string(column) + " of " +
                view->objectName().toStdString() + " cannot be edited";
        return false;
    }
    model->setData(cell, words.mid(2).join(' '), Qt::EditRole);
    return true;
}

// Rows joined by "; ", the cells of the columns shown joined by ", ".
QString tableText(QAbstractItemView* view) {
    QAbstractItemModel* model = view->model();
    auto* table = qobject_cast<QTableView*>(view);
    QStringList rows;
    for (int row = 0; model && row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            if (!table || !table->isColumnHidden(column))
                cells << model->index(row, column).data().toString();
        rows << cells.join(", ");
    }
    return rows.join("; ");
}

// "&Compute" shows as "Compute"; "&&" is a shown ampersand.
QString withoutMnemonic(QString text) {
    return text.replace("&&", QChar(1)).remove('&').replace(QChar(1), '&');
}

// A date as yyyy-MM-dd, as the user types it into the edit.
bool setDate(QDateTimeEdit* edit, const QString& value, std::string& error) {
    const QDate date = QDate::fromString(value, Qt::ISODate);
    if (!date.isValid()) {
        error = "\"" + value.toStdString() + "\" is no date (yyyy-MM-dd)";
        return false;
    }
    edit->setDate(date);
    return true;
}

// A page by its title, or by its number when no title fits.
bool setTab(QTabWidget* tabs, const QString& value, std::string& error) {
    for (int i = 0; i < tabs->count(); ++i)
        if (withoutMnemonic(tabs->tabText(i)) == value) {
            tabs->setCurrentIndex(i);
            return true;
        }
    bool read = false;
    const int index = value.toInt(&read);
    if (read && index >= 0 && index < tabs->count()) {
        tabs->setCurrentIndex(index);
        return true;
    }
    error = "the tab widget " + tabs->objectName().toStdString() + " has no page \"" +
            value.toStdString() + "\"";
    return false;
}

// Top rows joined by "; ", each with its children in brackets.
QString treeText(QAbstractItemModel* model) {
    QStringList rows;
    for (int row = 0; model && row < model->rowCount(); ++row) {
        const QModelIndex top = model->index(row, 0);
        QString text = top.data().toString();
        QStringList children;
        for (int child = 0; child < model->rowCount(top); ++child)
            children << model->index(child, 0, top).data().toString();
        if (!children.isEmpty()) text += " [" + children.join(", ") + "]";
        rows << text;
    }
    return rows.join("; ");
}

// The first item, depth first, that shows the text.
QModelIndex itemShowing(QAbstractItemModel* model, const QModelIndex& parent, const QString& text) {
    for (int row = 0; model && row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data().toString() == text) return index;
        const QModelIndex inside = itemShowing(model, index, text);
        if (inside.isValid()) return inside;
    }
    return QModelIndex();
}

}  // namespace

QWidget* TLDialogDriver::Find(const std::string& objectName, std::string& error) {
    const QString name = qt(objectName);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        if (window->objectName() == name) return window;
        for (QWidget* child : window->findChildren<QWidget*>(name))
            if (child->isVisible()) return child;
    }
    error = "no widget \"" + objectName + "\" is on screen";
    return nullptr;
}

bool TLDialogDriver::Set(QWidget* widget, const std::string& value, std::string& error) {
    const QString text = qt(value);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
        // Typed over what was there: the dialog hears textEdited as from the keyboard.
        edit->setFocus(Qt::OtherFocusReason);
        edit->selectAll();
        edit->insert(text);
        return true;
    }
    if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
        plain->setPlainText(text);
        return true;
    }
    if (auto* rich = qobject_cast<QTextEdit*>(widget)) {
        rich->setPlainText(text);
        return true;
    }
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return setCombo(combo, text, error);
    if (auto* date = qobject_cast<QDateTimeEdit*>(widget)) return setDate(date, text, error);
    if (auto* tabs = qobject_cast<QTabWidget*>(widget)) return setTab(tabs, text, error);
    if (auto* box = qobject_cast<QAbstractSpinBox*>(widget)) return setNumber(box, text, error);
    if (auto* button = qobject_cast<QAbstractButton*>(widget); button && button->isCheckable()) {
        if (value != "on" && value != "off") {
            error = "a box is set on or off, not \"" + value + "\"";
            return false;
        }
        // A click, as the user's, when the state is to change: the dialog hears clicked too.
        if (button->isChecked() != (value == "on")) button->click();
        return true;
    }
    if (auto* table = qobject_cast<QAbstractItemView*>(widget)) return setCell(table, text, error);
    error = "the widget " + widget->objectName().toStdString() + " takes no value";
    return false;
}

bool TLDialogDriver::Click(QWidget* widget, std::string& error) {
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (!button) {
        error = "the widget " + widget->objectName().toStdString() + " is no button";
        return false;
    }
    if (!button->isEnabled()) {
        error = "the button " + widget->objectName().toStdString() + " is disabled";
        return false;
    }
    button->click();
    return true;
}

std::string TLDialogDriver::Text(QWidget* widget) {
    QString text;
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        text = edit->text();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget))
        text = plain->toPlainText();
    else if (auto* rich = qobject_cast<QTextEdit*>(widget))
        text = rich->toPlainText();
    else if (auto* label = qobject_cast<QLabel*>(widget))
        text = label->text();
    else if (auto* combo = qobject_cast<QComboBox*>(widget))
        text = combo->currentText();
    else if (auto* box = qobject_cast<QAbstractSpinBox*>(widget))
        text = box->text();
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        text = button->isCheckable() ? QString(button->isChecked() ? "on" : "off")
                                     : withoutMnemonic(button->text());
    else if (auto* tree = qobject_cast<QTreeView*>(widget))
        text = treeText(tree->model());
    else if (auto* table = qobject_cast<QAbstractItemView*>(widget))
        text = tableText(table);
    else if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        text = withoutMnemonic(tabs->tabText(tabs->currentIndex()));
    else
        text = widget->windowTitle();
    return text.toStdString();
}

bool TLDialogDriver::EditCell(QWidget* widget, int row, int column, const std::string& text,
                              std::string& error) {
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    QAbstractItemModel* model = view ? view->model() : nullptr;
    const QModelIndex cell = model ? model->index(row, column) : QModelIndex();
    if (!cell.isValid()) {
        error = widget->objectName().toStdString() + " has no cell " + std::to_string(row) + " " +
                std::to_string(column);
        return false;
    }
    if (!(model->flags(cell) & Qt::ItemIsEditable)) {
        error = "the cell " + std::to_string(row) + " " + std::to_string(column) + " of " +
                widget->objectName().toStdString() + " cannot be edited";
        return false;
    }
    QAbstractItemDelegate* delegate = view->itemDelegate(cell);
    QStyleOptionViewItem option;
    option.rect = view->visualRect(cell);
    QWidget* editor = delegate->createEditor(view->viewport(), option, cell);
    if (!editor) {
        error = "the delegate of " + widget->objectName().toStdString() + " gives no editor";
        return false;
    }
    delegate->setEditorData(editor, cell);
    const bool given = Set(editor, text, error);
    // The delegate checks the value here, and may show its own warning and keep the cell.
    if (given) delegate->setModelData(editor, model, cell);
    delete editor;
    return given;
}

bool TLDialogDriver::ContextMenu(QWidget* widget, const std::string& item, const std::string& entry,
                                 std::string& error) {
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    const QModelIndex index =
        view ? itemShowing(view->model(), QModelIndex(), qt(item)) : QModelIndex();
    if (!index.isValid()) {
        error = widget->objectName().toStdString() + " shows no item \"" + item + "\"";
        return false;
    }
    view->setCurrentIndex(index);
    // The menu runs its own loop: the entry is picked from a call queued before it opens. A call
    // that comes after no menu opened finds the gesture over and does nothing.
    struct Pick {
        bool over = false, opened = false, picked = false;
        QStringList entries;
    };
    auto pick = std::make_shared<Pick>();
    const QString wanted = qt(entry);
    QTimer::singleShot(0, view, [pick, wanted] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (pick->over || !menu) return;
        pick->opened = true;
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            const QString shown = withoutMnemonic(action->text());
            pick->entries << shown;
            if (shown == wanted && action->isEnabled()) chosen = action;
        }
        menu->close();
        if (chosen) {
            pick->picked = true;
            chosen->trigger();
        }
    });
    Q_EMIT view->customContextMenuRequested(view->visualRect(index).center());
    pick->over = true;
    if (!pick->opened)
        error = "no menu opened over \"" + item + "\"";
    else if (!pick->picked)
        error = "the menu over \"" + item + "\" has no entry \"" + entry + "\", only \"" +
                pick->entries.join("\", \"").toStdString() + "\"";
    return pick->opened && pick->picked;
}

QWidget* TLDialogDriver::FindIn(QWidget* dialog, const std::string& objectName,
                                std::string& error) {
    if (QWidget* child = dialog->findChild<QWidget*>(qt(objectName))) return child;
    error = "the dialog \"" + dialog->windowTitle().toStdString() + "\" has no widget \"" +
            objectName + "\"";
    return nullptr;
}

}  // namespace TMObjects
