#pragma once

#include "tlbase/TLString.h"

namespace TMObjects {

// How text is laid out in the element: one row, several rows held in one string with "||" between
// them, or a fraction whose numerator and denominator are separated by "||".
enum TLTextElementTextType { TextSingleRow = 0, TextMultiRow = 1, TextFraction = 2 };
// 0 upright, 1 right oblique, 2 left oblique.
enum TLTextElementItalicMode { ItalicNone = 0, ItalicRight = 1, ItalicLeft = 2 };
enum TLTextElementTextOrientation { OrientationHorizontal = 0, OrientationVertical = 1 };
// The side of its point on which the text lies; 8 centres it.
enum TLPointPositionEnum {
    PositionUpperLeft = 0,
    PositionUpperRight = 1,
    PositionRightDown = 2,
    PositionLeftDown = 3,
    PositionUpperMiddle = 4,
    PositionRightMiddle = 5,
    PositionDownMiddle = 6,
    PositionLeftMiddle = 7,
    PositionMiddle = 8,
};
// The box behind the text: none, a rectangle or a rounded one, filled (1, 2) or drawn only as a
// border (3, 4).
enum eBackgroundStyle {
    BackgroundNone = 0,
    BackgroundRectangle = 1,
    BackgroundRoundedRectangle = 2,
    BackgroundRectangleFrame = 3,
    BackgroundRoundedRectangleFrame = 4,
};

// One piece of map text and how it looks: the text, font, size, weight, slant, colour, outline,
// rotation, anchor, spacing, alignment, background box and offset. Heights are kept in pixels and
// given in points on request. Colours are packed as 0xAARRGGBB.
class TLTextElement {
public:
    enum FontUnit { Pixels = 0, Points = 1 };

    TLTextElement() = default;
    TLTextElement(const TLTextElement&) = default;
    TLTextElement& operator=(const TLTextElement&) = default;
    virtual ~TLTextElement();

    // Every attribute equal (used to check that a stored record reads back the same).
    bool SameAs(const TLTextElement& other) const;

    TLString get_Text() const { return mText; }
    void put_Text(const TLString& text) { mText = text; }
    int get_TextType() const { return mTextType; }
    void put_TextType(int type) { mTextType = type; }
    int get_AnchorPoint() const { return mAnchor; }
    void put_AnchorPoint(int anchor) { mAnchor = anchor; }

    TLString get_FontName() const { return mFontName; }
    void put_FontName(const TLString& name) { mFontName = name; }
    double get_FontHeight(int unit) const;
    void put_FontHeight(double value, int unit);
    // 0 is the font's natural width for its height.
    double get_FontWidth(int unit) const;
    void put_FontWidth(double value, int unit);
    // 700 bold, 400 regular; 700 or more reads as bold.
    int get_FontWeight() const { return mWeight; }
    void put_FontWeight(int weight) { mWeight = weight; }
    int get_FontItalic() const { return mItalic; }
    void put_FontItalic(int italic) { mItalic = italic; }
    bool get_FontUnderline() const { return mUnderline; }
    void put_FontUnderline(bool underline) { mUnderline = underline; }
    bool get_FontStrikeThrough() const { return mStrikeThrough; }
    void put_FontStrikeThrough(bool strike) { mStrikeThrough = strike; }
    unsigned get_FontColor() const { return mColor; }
    void put_FontColor(unsigned color) { mColor = color; }
    // Degrees, counter-clockwise.
    double get_FontAngle() const { return mAngle; }
    void put_FontAngle(double degrees) { mAngle = degrees; }
    int get_WordOrientation() const { return mOrientation; }
    void put_WordOrientation(int orientation) { mOrientation = orientation; }
    // Extra space between rows and between letters, in pixels.
    double get_LineSpace() const { return mLineSpace; }
    void put_LineSpace(double space) { mLineSpace = space; }
    double get_WordSpace() const { return mWordSpace; }
    void put_WordSpace(double space) { mWordSpace = space; }
    // Horizontal 1 left, 2 middle, 3 right; vertical 0 top, 1 middle, 3 bottom.
    int get_TextHorizAlign() const { return mHorizAlign; }
    void put_TextHorizAlign(int align) { mHorizAlign = align; }
    int get_TextVertAlign() const { return mVertAlign; }
    void put_TextVertAlign(int align) { mVertAlign = align; }

    int get_BackgroundStyle() const { return mBackgroundStyle; }
    void put_BackgroundStyle(int style) { mBackgroundStyle = style; }
    unsigned get_BackColor() const { return mBackColor; }
    void put_BackColor(unsigned color) { mBackColor = color; }
    // The colour and width (pixels) of the box's border, or of the guide line.
    unsigned get_BoundColor() const { return mBoundColor; }
    void put_BoundColor(unsigned color) { mBoundColor = color; }
    double get_BoundWidth() const { return mBoundWidth; }
    void put_BoundWidth(double width) { mBoundWidth = width; }
    // The outline drawn around the letters, in pixels; 0 draws none.
    double get_FontPathWidth() const { return mPathWidth; }
    void put_FontPathWidth(double width) { mPathWidth = width; }
    unsigned get_FontPathColor() const { return mPathColor; }
    void put_FontPathColor(unsigned color) { mPathColor = color; }

    void get_TextPos(double& x, double& y) const;
    void put_TextPos(double x, double y);
    double get_xOff() const { return mXOff; }
    double get_yOff() const { return mYOff; }
    void put_Offset(double x, double y);

private:
    TLString mText;
    int mTextType = TextSingleRow;
    TLString mFontName{"Arial"};
    double mHeightPixels = 16.0;
    double mWidthPixels = 0.0;
    int mWeight = 400;
    int mItalic = ItalicNone;
    bool mUnderline = false;
    bool mStrikeThrough = false;
    unsigned mColor = 0xFF000000u;
    double mAngle = 0.0;
    int mAnchor = PositionMiddle;
    int mOrientation = OrientationHorizontal;
    double mLineSpace = 0.0;
    double mWordSpace = 0.0;
    int mHorizAlign = 1;
    int mVertAlign = 0;
    int mBackgroundStyle = BackgroundNone;
    unsigned mBackColor = 0xFFFFFFFFu;
    unsigned mBoundColor = 0xFF000000u;
    double mBoundWidth = 1.0;
    double mPathWidth = 0.0;
    unsigned mPathColor = 0xFFFFFFFFu;
    double mTextX = 0.0;
    double mTextY = 0.0;
    double mXOff = 0.0;
    double mYOff = 0.0;
};

}  // namespace TMObjects
