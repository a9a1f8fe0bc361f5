#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <map>
#include <vector>

#include "tlmap/TLEditor.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

class TLMap;
class TLFeatureLayer;

// Says in the command history what each editor step wrote: "roads: feature 3 added.",
// "parcels: feature 7 changed.", "wells: 2 features deleted.", and what undo and redo took back
// or did again. It listens to the tables of the map's feature layers and to the editor, and
// sums each step's changes per layer and kind when the step is committed.
//
// A point added to the survey tools' scratch point layer is told with its coordinates
// ("Point P: 1234.567, 890.123"), in the history where they can be selected and copied.
class TLEditReporter : public QObject, private TLEditorListener, private TLFeatureTableListener {
    Q_OBJECT

public:
    explicit TLEditReporter(TLMap* map, QObject* parent = nullptr);
    ~TLEditReporter() override;

    // Listens to the tables of the map's layers as they are now: after layers came or went.
    void Attach();
    // Where the id of the survey tools' scratch point layer is asked, whose points are told
    // with their coordinates (the buddy keeps it; -1 for none).
    void SetScratchPointLayerSource(std::function<int()> source) {
        mScratchPoint = std::move(source);
    }
    // "1234.567, 890.123": coordinates as the shell shows them, with as many decimals as the
    // layer's system wants (8 for degrees, 3 for metres and feet).
    static QString FormatPoint(double x, double y, bool geographic);

Q_SIGNALS:
    // One line for the history.
    void reported(const QString& line);
    // A point was written to the scratch point layer; its coordinates as FormatPoint shows them.
    void surveyPointAdded(const QString& coordinates);

private:
    struct Count {
        std::vector<int> added, changed, deleted;
    };

    void detach();
    void flush(const QString& prefix);
    void reportLayer(TLFeatureLayer* layer, const Count& count, const QString& prefix);
    void reportSurveyPoints(TLFeatureLayer* layer, const std::vector<int>& ids);

    // TLEditorListener
    void OnOperationCommitted(const TLString& label) override;
    void OnOperationAborted(const TLString& label) override;
    void OnUndo(const TLString& label) override;
    void OnRedo(const TLString& label) override;
    // TLFeatureTableListener
    void OnFeatureChanged(TLFeatureTable* table, Change change, int id) override;

    TLMap* mMap;
    std::map<TLFeatureTable*, TLFeatureLayer*> mTables;
    std::map<TLFeatureTable*, Count> mPending;
    std::function<int()> mScratchPoint;
};

}  // namespace TMObjects
