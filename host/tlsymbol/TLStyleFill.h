#pragma once

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A symbol that covers an area: a background (plain or a gradient) under an outline line
// style. The outline may be empty.
class TLStyleFill : public TLStyle {
public:
    ~TLStyleFill() override;

    int GetClassType() const override { return FillClass; }
    TLRefPtr<TLStyle> GetOutlineStyle() const { return mOutline; }
    bool GetFillBackground() const { return mFillBackground; }
    TLColor GetBackgroundColor() const { return mBackgroundColor; }
    bool GetGradientFillBackground() const { return mGradient; }
    void SetOutlineStyle(TLRefPtr<TLStyle> outline) { mOutline = outline; }
    void SetFillBackground(bool fill) { mFillBackground = fill; }
    void SetBackgroundColor(const TLColor& color) { mBackgroundColor = color; }
    void SetGradientFillBackground(bool gradient) { mGradient = gradient; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

protected:
    TLStyleFill() = default;

private:
    TLRefPtr<TLStyle> mOutline;
    bool mFillBackground = true;
    TLColor mBackgroundColor{255, 255, 255};
    bool mGradient = false;
};

}  // namespace TMObjects
