#include "edit/NumberDataDelegate.h"

#include <QDoubleValidator>
#include <QLineEdit>

QWidget* NumberDataDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                          const QModelIndex&) const {
    auto* editor = new QLineEdit(parent);
    auto* validator = new QDoubleValidator(editor);
    // The cells hold numbers with a point, whatever the user's language: the table reads them so.
    validator->setLocale(QLocale::c());
    validator->setNotation(QDoubleValidator::StandardNotation);
    editor->setValidator(validator);
    return editor;
}

void NumberDataDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* line = qobject_cast<QLineEdit*>(editor))
        line->setText(index.data(Qt::EditRole).toString());
}

void NumberDataDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                      const QModelIndex& index) const {
    if (auto* line = qobject_cast<QLineEdit*>(editor))
        model->setData(index, line->text(), Qt::EditRole);
}

void NumberDataDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex&) const {
    editor->setGeometry(option.rect);
}
