#pragma once

#include "annotation/TMDialogAnnoAttributes.h"
#include "tlbase/TLRefBase.h"

namespace TMObjects {
class TLGeometry;
}

// The attributes of the one annotation selected on the layer, stored back into its fields as the
// operation "Edit Annotation".
class TMDialogEditAnnoAttributes : public TMDialogAnnoAttributes {
public:
    // mMode after construction; the advanced annotation tool opens the dialog in kAdvancedMode,
    // which does not refuse a selection of several.
    static const int kPlainMode = 100;
    static const int kAdvancedMode = 101;

    explicit TMDialogEditAnnoAttributes(QWidget* parent = nullptr);

    bool loadFromAnnotation() override;
    void applyToLayer() override;

    void setMode(int mode) { mMode = mode; }

    // Opens the dialog for the selected annotation of the layer, as the editing tools do: the
    // buddy, the main window as parent, at (250, 80), run and deleted.
    static void editIn(TMObjects::TLTool* tool, TMObjects::TLToolBuddy* buddy,
                       TMObjects::TLAnnotationLayer* layer);

protected:
    TMObjects::TLRefPtr<TMObjects::TLGeometry> mGeometry;
    int mFeatureId = -1;
    int mMode = kPlainMode;
};
