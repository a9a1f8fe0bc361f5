#include "hostkit/TLDialogDriver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTableView>
#include <QTextEdit>

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
    else if (auto* table = qobject_cast<QAbstractItemView*>(widget))
        text = tableText(table);
    else
        text = widget->windowTitle();
    return text.toStdString();
}

}  // namespace TMObjects
