#pragma once

#include "annotation/TMDialogAnnoAttributes.h"

namespace TMObjects {
class TLGeometry;
}

// A new annotation at the point the add tool was pressed: OK builds its geometry from the text's
// box at the layer's reference scale and writes the feature with its fields, as the operation
// "Add Feature".
class TMDialogAddAnnotation : public TMDialogAnnoAttributes {
public:
    explicit TMDialogAddAnnotation(QWidget* parent = nullptr);

    void applyToLayer() override;

private:
    // The subclass named by the layer's filter ("SUBCLASSID = 12" gives 12), else 0.
    int subclassOfFilter() const;
};
