#pragma once

#include <QDoubleValidator>
#include <QHash>
#include <QIntValidator>
#include <QItemDelegate>
#include <QRegExp>
#include <QRegExpValidator>

class QStandardItemModel;

namespace TMObjects {
class TLField;
}

// The cell editors of the attribute table's value column: a list of names for a field with a
// domain, a date edit for a date, a line edit for everything else. A value is checked against
// the field (length, integer, floating number and its precision, date) and the validator of its
// type before it goes into the cell; what fails is refused with a message and the cell keeps its
// text.
class TMEditAttributeDelegate : public QItemDelegate {
public:
    TMEditAttributeDelegate(QStandardItemModel* model,
                            const QHash<QString, TMObjects::TLField*>* fields,
                            QObject* parent = nullptr);

    // The dialog hands over its model and field map again at each load.
    void setSources(QStandardItemModel* model, const QHash<QString, TMObjects::TLField*>* fields);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    // True when the text may go into the field; may rewrite it ("" is "0" for an integer, "12"
    // for "012"). Refusals and the precision notice are shown as message boxes.
    bool checkInput(TMObjects::TLField* field, QString& text) const;

private:
    TMObjects::TLField* fieldOf(const QModelIndex& index) const;
    bool validate(TMObjects::TLField* field, QString value) const;
    void warn(const QString& text) const;

    QStandardItemModel* mModel;
    const QHash<QString, TMObjects::TLField*>* mFieldMap;
    QRegExp mIntegerRegExp;
    QRegExp mFloatRegExp;
    QRegExp mDateRegExp;
    QIntValidator mIntValidator;
    QRegExpValidator mLongValidator;
    QRegExpValidator mDateValidator;
    QDoubleValidator mDoubleValidator;
};
