#pragma once

#include <QString>
#include <QStringList>

namespace TMObjects {

class TLFeatureLayer;

// Fields a layer's store requires a value in (NOT NULL), and the first feature about to be saved
// without one. The store would refuse the whole save with a message of its own database; the
// shell asks first, so that it can name the feature and the field and take the user there.
class TLRequiredValues {
public:
    struct Missing {
        int id = -1;
        QString field;
    };

    // The required fields of the layer's store, as the store's schema says; none for a layer
    // kept in memory or in a format without the notion.
    static QStringList RequiredFields(TLFeatureLayer* layer);
    // The first added or changed feature (by id) that lacks a required value; id -1 when none.
    static Missing FirstMissing(TLFeatureLayer* layer, const QStringList& required);
};

}  // namespace TMObjects
