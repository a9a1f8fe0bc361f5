#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlmap/TLTool.h"

class TMIntersectionDialog;

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;
class TLRubberBand;

// What the intersection tools share: clicks become coordinate texts for the dialog, a pick is
// good for one click, and the finished P goes into the survey scratch layer, after which the
// tool ends. The dialog and the lines drawn while picking are each tool's own.
class TL_ACTIONEX_EXPORT TLSurveyIntersectionTool : public TLTool {
public:
    TLSurveyIntersectionTool();
    explicit TLSurveyIntersectionTool(TLToolBuddy* buddy);
    ~TLSurveyIntersectionTool() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    // The last left click as text, for the dialog; the pick is then used up.
    bool processInformation(TLString& x, TLString& y) override;
    bool setInformation(TLString text) override;
    // At the draw code, writes P from the first entry "x,y".
    bool setMultipleInformation(TLArray<TLString> texts) override;

    virtual void Reset();
    // The point, in map coordinates, into the survey scratch layer; its bound joins `rect`.
    bool EndEntity(TLPoint& point, TLRect& rect);

protected:
    // The tool's own dialog, made once.
    virtual TMIntersectionDialog* createDialog() = 0;
    // The code at which the list holds P.
    virtual int drawCode() const = 0;
    // A left click while the edit layer may be edited, at `pickCode`, after the texts are kept.
    virtual void onPicked(const TLPoint&) {}
    // After the edit layer is found.
    virtual void onLayerFound() {}
    // The end of "Draw P": refresh and reset, as each tool does it.
    virtual void afterDraw(bool drawn, const TLRect& rect);
    // The dialog goes once control is back in the event loop.
    void retireDialog();
    bool canEdit() const;
    TLPoint mapPoint(int x, int y);
    // A red line band with a faint red fill, on the map view, as the picks of angles and
    // distances show their construction.
    TLRubberBand* makeBand();
    // The band emptied and redrawn as the line through the three points.
    static void drawLine(TLRubberBand* band, const TLPoint& first, const TLPoint& second,
                         const TLPoint& third);
    // The texts "x,y" of the list's first two entries into A and B, as the dialog typed them.
    bool takeKnownPoints(const TLArray<TLString>& texts);
    // The point P of the list's first entry into the scratch layer, and the tool's own ending.
    bool drawP(const TLArray<TLString>& texts);

    TLString pickedX;
    TLString pickedY;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    int pickCode = 0;
    TLPoint pointA;
    TLPoint pointB;
    TLPoint pointP;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMIntersectionDialog> dialog;

private:
    void showDialog();
    // A dialog let go by deactivate, deleted at the latest with the tool.
    QPointer<TMIntersectionDialog> retired;
};

}  // namespace TMObjects
