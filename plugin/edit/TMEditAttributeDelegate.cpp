#include "edit/TMEditAttributeDelegate.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardItemModel>

#include "TLToolText.h"
#include "tlsde/TLField.h"

using namespace TMObjects;

namespace {

const int kValueColumn = 2;

QWidget* dialogOf(const QObject* delegate) {
    return qobject_cast<QWidget*>(delegate->parent());
}

void checkBox(const QObject* delegate, const char* text) {
    QMessageBox::warning(dialogOf(delegate), QObject::tr("Check the validity of input"),
                         QObject::tr(text));
}

}  // namespace

TMEditAttributeDelegate::TMEditAttributeDelegate(QStandardItemModel* model,
                                                 const QHash<QString, TLField*>* fields,
                                                 QObject* parent)
    : QItemDelegate(parent),
      mModel(model),
      mFieldMap(fields),
      // Patterns are copied off the library's own data: the toolkit caches them past its
      // unloading.
      mIntegerRegExp(QString::fromLatin1("^-?[0-9]*$")),
      mFloatRegExp(QString::fromLatin1("^-?([0-9]*)(.?)([0-9]*)$")),
      mDateRegExp(QString::fromLatin1("^([0-9]{1,4})-([01]?\\d)-([0123]?\\d)$")),
      mLongValidator(mIntegerRegExp),
      mDateValidator(mDateRegExp) {}

void TMEditAttributeDelegate::setSources(QStandardItemModel* model,
                                         const QHash<QString, TLField*>* fields) {
    mModel = model;
    mFieldMap = fields;
}

TLField* TMEditAttributeDelegate::fieldOf(const QModelIndex& index) const {
    const QString name = index.sibling(index.row(), 0).data().toString();
    return mFieldMap ? mFieldMap->value(name, nullptr) : nullptr;
}

QWidget* TMEditAttributeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                               const QModelIndex& index) const {
    if (index.column() != kValueColumn) return nullptr;
    TLField* field = fieldOf(index);
    if (field && field->GetDoMain()) {
        auto* combo = new QComboBox(parent);
        const TLDoMain* domain = field->GetDoMain();
        for (int i = 0; i < domain->GetCount(); ++i) combo->addItem(toQString(domain->GetName(i)));
        combo->setCurrentText(index.data().toString());
        return combo;
    }
    if (field && field->GetFieldType() == TLField::FieldDate) {
        // It starts on today's date, not on the field's.
        auto* date = new QDateEdit(QDate::currentDate(), parent);
        date->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        date->setCalendarPopup(true);
        return date;
    }
    auto* edit = new QLineEdit(parent);
    edit->setFrame(false);
    edit->setClearButtonEnabled(true);
    (void)option;
    return edit;
}

void TMEditAttributeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (index.column() != kValueColumn) return;
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) edit->setText(index.data().toString());
}

void TMEditAttributeDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                           const QModelIndex& index) const {
    if (index.column() != kValueColumn) return;
    TLField* field = fieldOf(index);
    QString text;
    auto* combo = qobject_cast<QComboBox*>(editor);
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) text = edit->text();
    if (combo) text = combo->currentText();
    if (auto* date = qobject_cast<QDateEdit*>(editor)) text = date->text();
    if (!combo && field && !checkInput(field, text)) {
        const QString old = index.data().toString();
        if (old.isEmpty()) return;
        text = old;
    }
    if (field && !validate(field, text)) return;
    model->setData(index, text, Qt::DisplayRole);
}

void TMEditAttributeDelegate::warn(const QString& text) const {
    QMessageBox::warning(dialogOf(this), tr("Warning"), text);
}

bool TMEditAttributeDelegate::validate(TLField* field, QString value) const {
    int at = 0;
    switch (field->GetFieldType()) {
        case TLField::FieldShort:
        case TLField::FieldInt:
            if (mIntValidator.validate(value, at) != QValidator::Invalid) return true;
            warn(tr("Please input valid integer!"));
            return false;
        case TLField::FieldFloat:
        case TLField::FieldDouble:
            if (mDoubleValidator.validate(value, at) != QValidator::Invalid) return true;
            warn(tr("Please input valid floating number!"));
            return false;
        case TLField::FieldDate:
            if (mDateValidator.validate(value, at) != QValidator::Invalid) return true;
            warn(tr("Please input valid date type!"));
            return false;
        case TLField::FieldInt64:
            if (mLongValidator.validate(value, at) != QValidator::Invalid) return true;
            warn(tr("Please input valid integer!"));
            return false;
        default:
            return true;
    }
}

bool TMEditAttributeDelegate::checkInput(TLField* field, QString& text) const {
    const int type = field->GetFieldType();
    if (type == TLField::FieldString && field->GetFieldLength() < text.length()) {
        checkBox(this,
                 "The length of input is more than the max length of field, please input again!");
        return false;
    }
    if (type == TLField::FieldShort || type == TLField::FieldInt || type == TLField::FieldInt64) {
        if (text.isEmpty()) {
            text = QStringLiteral("0");
            return true;
        }
        bool read = false;
        QString number;
        if (type == TLField::FieldShort) number = QString::number(text.toShort(&read));
        if (type == TLField::FieldInt64) number = QString::number(text.toLongLong(&read));
        if (type == TLField::FieldInt) number = QString::number(text.toInt(&read));
        if (mIntegerRegExp.exactMatch(text) && read) {
            text = number;
            return true;
        }
        checkBox(this, "Your input does not meet the requirement of interger!");
        return false;
    }
    if (type == TLField::FieldFloat || type == TLField::FieldDouble) {
        if (text.isEmpty()) {
            text = QStringLiteral("0.0");
            return true;
        }
        const int point = text.lastIndexOf('.');
        if (point >= 0 && text.size() - point - 1 > field->GetPrecision())
            checkBox(this,
                     "The precision of your input is bigger than the precision of floating field, "
                     "please notice!");
        const QRegExp floating(QString::fromLatin1("^-?[0-9]*.?[0-9]*$"));
        bool read = false;
        if (type == TLField::FieldFloat)
            text.toFloat(&read);
        else
            text.toDouble(&read);
        if (floating.exactMatch(text) && read) return true;
        checkBox(this, "Your input does not meet the requirement of floating number!");
        return false;
    }
    if (type == TLField::FieldDate) {
        if (text.isEmpty() || mDateRegExp.exactMatch(text)) return true;
        checkBox(this, "Your input does not meet the requirement of date!");
        return false;
    }
    return true;
}

void TMEditAttributeDelegate::updateEditorGeometry(QWidget* editor,
                                                   const QStyleOptionViewItem& option,
                                                   const QModelIndex& index) const {
    if (index.column() == kValueColumn) editor->setGeometry(option.rect);
}
