#include "TLEditReporter.h"

#include <algorithm>

#include "TLShellText.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

TLEditReporter::TLEditReporter(TLMap* map, QObject* parent) : QObject(parent), mMap(map) {
    mMap->editor()->AddListener(this);
    Attach();
}

TLEditReporter::~TLEditReporter() {
    detach();
    mMap->editor()->RemoveListener(this);
}

void TLEditReporter::detach() {
    for (const auto& [table, layer] : mTables) table->RemoveListener(this);
    mTables.clear();
}

void TLEditReporter::Attach() {
    detach();
    for (const TLRefPtr<TLLayer>& layer : mMap->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        TLRefPtr<TLFeatureTable> table = features ? features->GetDatasource() : nullptr;
        if (!table || mTables.count(table.get())) continue;
        table->AddListener(this);
        mTables[table.get()] = features;
    }
    // What was counted on a table that is gone can no longer be named.
    for (auto it = mPending.begin(); it != mPending.end();)
        it = mTables.count(it->first) ? std::next(it) : mPending.erase(it);
}

QString TLEditReporter::FormatPoint(double x, double y, bool geographic) {
    const int decimals = geographic ? 8 : 3;
    return QStringLiteral("%1, %2").arg(QString::number(x, 'f', decimals),
                                        QString::number(y, 'f', decimals));
}

void TLEditReporter::OnFeatureChanged(TLFeatureTable* table, Change change, int id) {
    Count& count = mPending[table];
    switch (change) {
        case Added:
            count.added.push_back(id);
            return;
        case Deleted: {
            // A feature made and dropped within one step was never there for the user.
            const auto made = std::find(count.added.begin(), count.added.end(), id);
            if (made != count.added.end()) {
                count.added.erase(made);
                return;
            }
            count.changed.erase(std::remove(count.changed.begin(), count.changed.end(), id),
                                count.changed.end());
            count.deleted.push_back(id);
            return;
        }
        case GeometryChanged:
        case AttributesChanged:
            if (std::find(count.added.begin(), count.added.end(), id) == count.added.end() &&
                std::find(count.changed.begin(), count.changed.end(), id) == count.changed.end())
                count.changed.push_back(id);
            return;
    }
}

void TLEditReporter::OnOperationCommitted(const TLString&) {
    flush(QString());
}

void TLEditReporter::OnOperationAborted(const TLString&) {
    mPending.clear();
}

void TLEditReporter::OnUndo(const TLString& label) {
    Q_EMIT reported(tr("Undone: %1.").arg(ToQString(label)));
    flush(tr("undo: "));
}

void TLEditReporter::OnRedo(const TLString& label) {
    Q_EMIT reported(tr("Redone: %1.").arg(ToQString(label)));
    flush(tr("redo: "));
}

void TLEditReporter::flush(const QString& prefix) {
    // Layers in the map's order, so that the lines of one step always come in the same order.
    const std::map<TLFeatureTable*, Count> pending = std::move(mPending);
    mPending.clear();
    for (const TLRefPtr<TLLayer>& layer : mMap->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        TLRefPtr<TLFeatureTable> table = features ? features->GetDatasource() : nullptr;
        const auto found = table ? pending.find(table.get()) : pending.end();
        if (found != pending.end()) reportLayer(features, found->second, prefix);
    }
}

void TLEditReporter::reportLayer(TLFeatureLayer* layer, const Count& count, const QString& prefix) {
    const QString name = ToQString(layer->GetLayerName());
    const auto say = [&](const std::vector<int>& ids, const QString& one, const QString& many) {
        if (ids.empty()) return;
        const QString what = ids.size() == 1 ? one.arg(ids.front()) : many.arg(ids.size());
        Q_EMIT reported(QStringLiteral("%1%2: %3").arg(prefix, name, what));
    };
    say(count.added, tr("feature %1 added."), tr("%1 features added."));
    say(count.changed, tr("feature %1 changed."), tr("%1 features changed."));
    say(count.deleted, tr("feature %1 deleted."), tr("%1 features deleted."));
    if (prefix.isEmpty() && mScratchPoint && layer->GetLayerId() == mScratchPoint())
        reportSurveyPoints(layer, count.added);
}

void TLEditReporter::reportSurveyPoints(TLFeatureLayer* layer, const std::vector<int>& ids) {
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    TLRefPtr<TLCoordinateSystem> system = layer->GetSpatialReference();
    const bool geographic = system && system->IsGeographic();
    for (int id : ids) {
        const TLFeature* feature = table->PeekFeature(id);
        auto* point = feature ? dynamic_cast<TLGeoPoint*>(feature->GetGeometry().get()) : nullptr;
        if (!point) continue;
        double x = 0, y = 0;
        point->QueryCoords(&x, &y);
        const QString coordinates = FormatPoint(x, y, geographic);
        Q_EMIT reported(tr("Point P: %1").arg(coordinates));
        Q_EMIT surveyPointAdded(coordinates);
    }
}

}  // namespace TMObjects
