#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <vector>

#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;
class TLField;

// The features of one layer as rows of a table, their fields (all but the geometry) as
// columns. It reads the layer's table as it is now and follows its changes. A cell that is
// edited is written through the map's editor, one undoable step "edit attribute" per cell, so
// that undo in the Edit menu takes it back like any other edit. Cells of a layer that is not
// editable, and of system fields, cannot be edited.
class TLAttributeTableModel : public QAbstractTableModel, private TLFeatureTableListener {
    Q_OBJECT

public:
    static constexpr int IdRole = Qt::UserRole + 1;
    // The value for sorting: numbers as numbers, so that 10 sorts after 9.
    static constexpr int SortRole = Qt::UserRole + 2;

    TLAttributeTableModel(TLEditor* editor, QObject* parent = nullptr);
    ~TLAttributeTableModel() override;

    // The layer and the names of its fields that must hold a value (their headers say so).
    void SetLayer(TLFeatureLayer* layer, const QStringList& required = QStringList());
    // Reads the rows again now, rather than when the event loop comes round to it.
    void Reload() { reload(); }
    TLFeatureLayer* Layer() const { return mLayer; }
    // The row of a feature; -1 when it is not in the table.
    int RowOf(int id) const;
    int IdAt(int row) const { return mIds[std::size_t(row)]; }
    // The column of a field by name; -1 when there is none.
    int ColumnOf(const QString& field) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // The typed text as a value of the field's type; false, with the reason, when it is none.
    // An empty text is the null value.
    static bool Parse(const TLField& field, const QString& text, TLVariant& value, QString& why);

Q_SIGNALS:
    // A typed value the field cannot hold, with the reason.
    void refused(const QString& why);

private:
    void OnFeatureChanged(TLFeatureTable* table, Change change, int id) override;
    void reload();
    void detach();
    TLField* field(int column) const;

    TLEditor* mEditor;
    TLFeatureLayer* mLayer = nullptr;
    TLRefPtr<TLFeatureTable> mTable;
    std::vector<int> mIds;      // ascending, as the table gives them
    std::vector<int> mColumns;  // field indexes shown
    bool mReloadDue = false;
    QStringList mRequired;
};

}  // namespace TMObjects
