#include "TLAttributeTableModel.h"

#include <QDate>
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "TLShellText.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects {

namespace {

bool numeric(TLField::FieldType type) {
    return type == TLField::FieldShort || type == TLField::FieldInt ||
           type == TLField::FieldFloat || type == TLField::FieldDouble ||
           type == TLField::FieldInt64;
}

}  // namespace

TLAttributeTableModel::TLAttributeTableModel(TLEditor* editor, QObject* parent)
    : QAbstractTableModel(parent), mEditor(editor) {}

TLAttributeTableModel::~TLAttributeTableModel() {
    detach();
}

void TLAttributeTableModel::detach() {
    if (mTable) mTable->RemoveListener(this);
    mTable = nullptr;
}

void TLAttributeTableModel::SetLayer(TLFeatureLayer* layer, const QStringList& required) {
    beginResetModel();
    detach();
    mLayer = layer;
    mRequired = required;
    mColumns.clear();
    if (mLayer) {
        mTable = mLayer->GetDatasource();
        const TLFields& fields = mTable->GetFields();
        for (int i = 0; i < fields.GetFieldCount(); ++i)
            if (!fields.GetField(i)->IsGeoField()) mColumns.push_back(i);
        mTable->AddListener(this);
    }
    mIds = mTable ? mTable->GetIds() : std::vector<int>();
    endResetModel();
}

void TLAttributeTableModel::reload() {
    mReloadDue = false;
    beginResetModel();
    mIds = mTable ? mTable->GetIds() : std::vector<int>();
    endResetModel();
}

int TLAttributeTableModel::RowOf(int id) const {
    const auto found = std::lower_bound(mIds.begin(), mIds.end(), id);
    return found != mIds.end() && *found == id ? int(found - mIds.begin()) : -1;
}

int TLAttributeTableModel::ColumnOf(const QString& name) const {
    for (std::size_t c = 0; c < mColumns.size(); ++c)
        if (ToQString(field(int(c))->GetName()).compare(name, Qt::CaseInsensitive) == 0)
            return int(c);
    return -1;
}

TLField* TLAttributeTableModel::field(int column) const {
    return mTable->GetFields().GetField(mColumns[std::size_t(column)]);
}

int TLAttributeTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(mIds.size());
}

int TLAttributeTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(mColumns.size());
}

QVariant TLAttributeTableModel::data(const QModelIndex& index, int role) const {
    if (!mTable || !index.isValid()) return QVariant();
    const int id = mIds[std::size_t(index.row())];
    if (role == IdRole) return id;
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != SortRole) return QVariant();
    const TLFeature* feature = mTable->PeekFeature(id);
    if (!feature) return QVariant();
    const TLField* f = field(index.column());
    const TLVariant value = feature->GetValue(mColumns[std::size_t(index.column())]);
    if (value.IsNull()) return QVariant();
    if (role == SortRole && numeric(f->GetFieldType())) return value.GetDouble();
    return ToQString(value.ToString());
}

QVariant TLAttributeTableModel::headerData(int section, Qt::Orientation orientation,
                                           int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return QVariant();
    if (orientation == Qt::Vertical)
        return section < int(mIds.size()) ? QVariant(mIds[std::size_t(section)]) : QVariant();
    if (!mTable || section >= int(mColumns.size())) return QVariant();
    const TLField* f = field(section);
    if (role == Qt::ToolTipRole)
        return mRequired.contains(ToQString(f->GetName()), Qt::CaseInsensitive)
                   ? tr("%1 (required)").arg(ToQString(f->GetAliasName()))
                   : ToQString(f->GetAliasName());
    return ToQString(f->GetAliasName());
}

Qt::ItemFlags TLAttributeTableModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (mLayer && index.isValid() && mLayer->IsEditable() && field(index.column())->GetEditable())
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool TLAttributeTableModel::Parse(const TLField& field, const QString& text, TLVariant& value,
                                  QString& why) {
    const QString t = text.trimmed();
    if (t.isEmpty()) {
        value = TLVariant();
        return true;
    }
    bool ok = false;
    switch (field.GetFieldType()) {
        case TLField::FieldShort:
        case TLField::FieldInt:
        case TLField::FieldInt64: {
            const qlonglong n = t.toLongLong(&ok);
            const bool fits =
                field.GetFieldType() == TLField::FieldInt64 ||
                (field.GetFieldType() == TLField::FieldShort ? n >= -32768 && n <= 32767
                                                             : n >= INT32_MIN && n <= INT32_MAX);
            if (!ok || !fits) {
                why =
                    tr("%1 takes a whole number%2.")
                        .arg(ToQString(field.GetAliasName()), ok ? tr(" in its range") : QString());
                return false;
            }
            value = TLVariant::FromInt(n);
            return true;
        }
        case TLField::FieldFloat:
        case TLField::FieldDouble: {
            const double d = t.toDouble(&ok);
            if (!ok || !std::isfinite(d)) {
                why = tr("%1 takes a number.").arg(ToQString(field.GetAliasName()));
                return false;
            }
            value = d;
            return true;
        }
        case TLField::FieldDate:
            if (!QDate::fromString(t.left(10), Qt::ISODate).isValid()) {
                why = tr("%1 takes a date as 2024-05-31.").arg(ToQString(field.GetAliasName()));
                return false;
            }
            value = TLVariant::FromDate(ToTLString(t));
            return true;
        default:
            if (field.GetFieldLength() > 0 && t.size() > field.GetFieldLength()) {
                why = tr("%1 holds at most %2 characters.")
                          .arg(ToQString(field.GetAliasName()))
                          .arg(field.GetFieldLength());
                return false;
            }
            value = TLVariant(ToTLString(text));
            return true;
    }
}

bool TLAttributeTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const TLField* f = field(index.column());
    TLVariant parsed;
    QString why;
    if (!Parse(*f, value.toString(), parsed, why)) {
        Q_EMIT refused(why);
        return false;
    }
    const int id = mIds[std::size_t(index.row())];
    const TLFeature* feature = mTable->PeekFeature(id);
    if (feature && feature->GetValue(mColumns[std::size_t(index.column())]) == parsed) return true;
    mEditor->StartOperation(TLString("edit attribute"));
    const bool written =
        mLayer->layer_edit_buffer()->ChangeAttribute(id, f->GetName(), parsed, true);
    mEditor->CommitOperation(true);
    if (!written) Q_EMIT refused(tr("The value could not be written to feature %1.").arg(id));
    return written;
}

void TLAttributeTableModel::OnFeatureChanged(TLFeatureTable*, Change change, int id) {
    if (change == Added || change == Deleted) {
        // An undo of a large step adds or deletes many features at once: the rows are read
        // again once, when the step is over.
        if (!mReloadDue) {
            mReloadDue = true;
            // Read once, unless the rows were read in between (a cell opened on a new row).
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (mReloadDue) reload();
                },
                Qt::QueuedConnection);
        }
        return;
    }
    if (mReloadDue) return;
    const int row = RowOf(id);
    if (row >= 0) Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

}  // namespace TMObjects
