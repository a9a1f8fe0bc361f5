#pragma once

#include <map>

#include "tlbase/TLArray.h"
#include "tlbase/TLFlags.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

class TLToolBuddy;
class TLDisplayTransform;

enum TLMouseButton { TLNoButton = 0, TLLeftButton = 1, TLRightButton = 2, TLMidButton = 3 };

// Base of every map tool. The host runs Init(buddy), activate(), events, deactivate(). The
// virtual operations keep their order: tools are compiled against this table.
class TLTool : public TLRefBase {
public:
    enum Flag { NoFlags = 0, Transient = 1, EditTool = 2 };

    TLTool();
    explicit TLTool(TLToolBuddy* buddy);
    ~TLTool() override;

    virtual TLFlags<Flag> flags() const;
    virtual void activate();
    virtual void deactivate();
    virtual bool isActive();
    virtual bool Init(TLToolBuddy* buddy);
    virtual bool OnMouseDown(TLMouseButton button, int x, int y);
    virtual bool OnMouseUp(TLMouseButton button, int x, int y);
    virtual bool OnMouseMove(TLMouseButton button, int x, int y);
    virtual bool OnDblClick(TLMouseButton button, int x, int y);
    virtual bool processInformation(TLString& first, TLString& second);
    virtual bool processChildCmd(TLString text);
    virtual bool setInformation(TLString text);
    virtual bool setMultipleInformation(TLArray<TLString> texts);
    virtual bool IsCmd();
    virtual bool OnKeyDown(int key);
    virtual void clearCanvas();
    virtual TLString getName() const;
    virtual std::map<TLString, TLString>& getParams();
    virtual void setParam(TLString key, TLString value);
    virtual void setParams(const std::map<TLString, TLString>& params);
    virtual void removeParam(const TLString& key);
    virtual bool AddFirstPoint(TLPoint point);
    virtual bool AddInputPoint(TLPoint point);
    virtual bool stopInputPoint();
    virtual bool isHaveOnePoint();

    // Device pixels to map coordinates; a null transform means the view's own.
    TLPoint ToMapCoordinates(TLPoint device, TLDisplayTransform* transform);
    double ToMapDistance(double pixels, TLDisplayTransform* transform);
    double ToMapTolerance(const double& pixels);
    // Corrects `to` so that the segment from `from` runs horizontally or vertically, whichever
    // is nearer.
    void GetStraightLine(TLPoint from, TLPoint& to);
    void clearParams();

    // The process-wide count of selected features that selection tools keep.
    static int selectFeatureNum;

protected:
    TLString mName;
    TLToolBuddy* mBuddy = nullptr;
    bool mActive = false;
    std::map<TLString, TLString> mParams;

private:
    TLDisplayTransform* viewTransform();
};

}  // namespace TMObjects
