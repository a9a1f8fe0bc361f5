#pragma once

#include "tlbase/TLColor.h"
#include "tlbase/TLRefBase.h"
#include "tlsymbol/TLStyleLength.h"

namespace TMObjects {

// One drawing style of the symbol library. A style knows its family (point, line, fill), the
// kind of symbol within it, the unit its sizes are given in, and its main colour.
class TLStyle : public TLRefBase {
public:
    enum ClassType { PointClass = 0, LineClass = 1, FillClass = 2 };
    // The kinds as the symbol library numbers them; the gaps belong to kinds the library keeps
    // for itself.
    enum TypeId {
        MultiLayerType = 1,
        SimplePointType = 4,
        CharacterPointType = 5,
        BitmapPointType = 6,
        SimpleLineType = 8,
        BrinkLineType = 9,
        PatternLineType = 10,
        PointDecorateLineType = 11,
        LineDecorateLineType = 12,
        ScriptLineType = 13,
        SimpleFillType = 14,
        PointFillType = 15,
        LineFillType = 16,
        ScriptFillType = 17,
        SVGPointType = 27,
    };

    ~TLStyle() override;

    virtual int GetClassType() const = 0;
    virtual int GetTypeID() const = 0;
    virtual int GetUnits() const { return mUnits; }
    virtual TLColor GetColor() const { return mColor; }

    void SetUnits(int units) { mUnits = units; }
    void SetColor(const TLColor& color) { mColor = color; }

protected:
    TLStyle() = default;

private:
    int mUnits = TLStyleLength::Millimeter;
    TLColor mColor;
};

}  // namespace TMObjects
