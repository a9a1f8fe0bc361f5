#pragma once

#include "tlbase/TLString.h"

namespace TMObjects {

// How a piece of map text looks: font, size, weight, slant, colour, outline, angle, anchor and
// offset. Heights are kept in pixels and given in points on request.
class TLTextElement {
public:
    enum FontUnit { Pixels = 0, Points = 1 };

    TLTextElement() = default;
    TLTextElement(const TLTextElement&) = default;
    TLTextElement& operator=(const TLTextElement&) = default;
    virtual ~TLTextElement();

    TLString get_FontName() const { return mFontName; }
    void put_FontName(const TLString& name) { mFontName = name; }
    double get_FontHeight(int unit) const;
    void put_FontHeight(double value, int unit);
    int get_FontWeight() const { return mWeight; }
    void put_FontWeight(int weight) { mWeight = weight; }
    // 0 upright, 1 right oblique, 2 left oblique.
    int get_FontItalic() const { return mItalic; }
    void put_FontItalic(int italic) { mItalic = italic; }
    bool get_FontUnderline() const { return mUnderline; }
    void put_FontUnderline(bool underline) { mUnderline = underline; }
    bool get_FontStrikeThrough() const { return mStrikeThrough; }
    void put_FontStrikeThrough(bool strike) { mStrikeThrough = strike; }
    unsigned get_FontColor() const { return mColor; }
    void put_FontColor(unsigned color) { mColor = color; }
    double get_FontAngle() const { return mAngle; }
    void put_FontAngle(double degrees) { mAngle = degrees; }
    // On which side of its point the text lies, 0 to 8; 8 centres it.
    int get_AnchorPoint() const { return mAnchor; }
    void put_AnchorPoint(int anchor) { mAnchor = anchor; }
    // The outline drawn around the letters, in pixels; 0 draws none.
    double get_FontPathWidth() const { return mPathWidth; }
    void put_FontPathWidth(double width) { mPathWidth = width; }
    unsigned get_FontPathColor() const { return mPathColor; }
    void put_FontPathColor(unsigned color) { mPathColor = color; }
    double get_xOff() const { return mXOff; }
    double get_yOff() const { return mYOff; }
    void put_Offset(double x, double y);

private:
    TLString mFontName{"Arial"};
    double mHeightPixels = 16.0;
    int mWeight = 400;
    int mItalic = 0;
    bool mUnderline = false;
    bool mStrikeThrough = false;
    unsigned mColor = 0;
    double mAngle = 0.0;
    int mAnchor = 8;
    double mPathWidth = 0.0;
    unsigned mPathColor = 0xFFFFFF;
    double mXOff = 0.0;
    double mYOff = 0.0;
};

}  // namespace TMObjects
