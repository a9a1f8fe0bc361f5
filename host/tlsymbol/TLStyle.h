#pragma once

#include "tlbase/TLColor.h"
#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlsymbol/TLStyleLength.h"

namespace TMObjects {

class TLFileFunc;

// One drawing style of the symbol library. A style knows its family (point, line, fill), the
// kind of symbol within it, the unit its sizes are given in, and its main colour. A style may
// carry a name, under which a symbol library keeps it.
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
    TLString GetName() const { return mName; }
    void SetName(const TLString& name) { mName = name; }

    // Writes what the style holds, nested styles included, to `file`; `open` reads it back into
    // a style of the same kind. Each kind writes its base's part first, then its own. `open`
    // gives false when the stream ends early or holds what no style of this kind can be; the
    // style may then be half read and is to be dropped.
    virtual void save(TLFileFunc& file) const;
    virtual bool open(TLFileFunc& file);

protected:
    TLStyle() = default;

private:
    int mUnits = TLStyleLength::Millimeter;
    TLColor mColor;
    TLString mName;
};

}  // namespace TMObjects
