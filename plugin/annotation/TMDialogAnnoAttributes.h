#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QRgb>
#include <memory>

#include "annotation/Ui_TMDialogAnnoAttributes.h"
#include "tlsde/TLAnnotation.h"

class QLineEdit;
class TMColorBtn;

namespace TMObjects {
class TLAnnotationLayer;
class TLLayer;
class TLTool;
class TLToolBuddy;
}  // namespace TMObjects

// Every attribute of one annotation record, in one dialog: text and its type, anchor,
// orientation and rotation, alignment, spacing, font, outline, background box and guide line.
// The subclasses store the record: TMDialogAddAnnotation as a new feature,
// TMDialogEditAnnoAttributes into the feature picked. OK collects the widgets into the record, then
// applyToLayer; Cancel runs cancelHook.
class TMDialogAnnoAttributes : public QDialog, protected Ui_TMDialogAnnoAttributes {
public:
    explicit TMDialogAnnoAttributes(QWidget* parent = nullptr);
    ~TMDialogAnnoAttributes() override;

    virtual bool loadFromAnnotation();
    virtual void applyToLayer();
    virtual void cancelHook();

    void setBuddy(TMObjects::TLToolBuddy* buddy) { mBuddy = buddy; }
    void setTool(TMObjects::TLTool* tool) { mTool = tool; }
    // The record to start from and the guide kind, for a new annotation.
    void setInitValue(const TMObjects::TLTextElement& text, int arrowType);
    // False, with a warning, when the layer is no annotation layer; else what loading gave.
    bool setLayer(TMObjects::TLLayer* layer);
    const TMObjects::TLAnnotation& annotation() const { return *mAnnotation; }

    void on_pushButton_ok_clicked();
    void on_pushButton_cancel_clicked();
    void on_lineEdit_fontcolor_returnPressed();
    void on_lineEdit_bgcolor_returnPressed();
    void on_lineEdit_bglinecolor_returnPressed();
    void on_lineEdit_outlinecolor_returnPressed();
    void on_fontcolorChanged(const QRgb& color);
    void on_bgcolorChanged(const QRgb& color);
    void on_bglinecolorChanged(const QRgb& color);
    void on_outlinecolorChanged(const QRgb& color);
    void onChangeOrientation();
    void onChangeMode();
    void onChangeGuideMode(int id);
    void on_comboBox_bgstyle_currentIndexChanged(int index);
    void on_checkBox_isfillback_clicked(bool checked);

protected:
    void fillWidgets(const TMObjects::TLAnnotation& annotation);
    void collectFromWidgets();

    TMObjects::TLTool* mTool = nullptr;
    TMObjects::TLAnnotationLayer* mLayer = nullptr;
    std::unique_ptr<TMObjects::TLAnnotation> mAnnotation;
    int mFieldKind = 0;
    bool mSignalsLive = false;
    TMObjects::TLToolBuddy* mBuddy = nullptr;
    QButtonGroup* mOrientationGroup = nullptr;
    QButtonGroup* mModeGroup = nullptr;
    QButtonGroup* mGuideGroup = nullptr;

private:
    void buildGroups();
    void setValidators();
    void connectWidgets();
    void updateBackgroundWidgets(int index, bool filled);
    void colorToEdit(const QRgb& color, QLineEdit* edit);
    void editToColor(QLineEdit* edit, TMColorBtn* button);
    void showColor(unsigned stored, TMColorBtn* button, QLineEdit* edit);
    void fillText(const TMObjects::TLAnnotation& annotation);
    void fillFont(const TMObjects::TLAnnotation& annotation);
    void fillLayout(const TMObjects::TLAnnotation& annotation);
    void fillBoxAndOutline(const TMObjects::TLAnnotation& annotation);
    void collectText();
    void collectLayout();
    void collectFont();
    void collectBoxAndOutline();
};
