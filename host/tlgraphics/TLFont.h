#pragma once

#include <vector>

#include "tlbase/TLSize.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// A font to measure text with: family, pixel height and width, letter spacing, weight and slant.
// Measuring uses the toolkit's font metrics when a GUI application is running; without one (a
// plain console program) it estimates each character as 0.6 of the height wide, so that callers
// always get a usable box.
class TLFont {
public:
    TLFont() = default;
    virtual ~TLFont();

    void SetFamily(const TLString& family) { mFamily = family; }
    TLString GetFamily() const { return mFamily; }
    // Pixels; a width of 0 keeps the font's own proportions.
    void SetHeight(int height) { mHeight = height; }
    int GetHeight() const { return mHeight; }
    void SetWidth(int width) { mWidth = width; }
    int GetWidth() const { return mWidth; }
    // Extra pixels after each letter, across and down (vertical text).
    void SetLetterSpacing(double across, double down);
    double GetLetterSpacing() const { return mSpacingAcross; }
    void SetWeight(int weight) { mWeight = weight; }
    void SetItalic(bool italic) { mItalic = italic; }

    // The box of the rows set one under the other (or, vertical, one beside the other with the
    // letters of each row stacked), with `lineSpace` extra pixels between rows.
    TLSize MeasureRows(const std::vector<TLString>& rows, bool vertical, double lineSpace) const;

    // The English family name of a font the host knows under a local name ("宋体" is "SimSun");
    // an English name the host knows is given back as it is; any other name gives an empty string.
    static TLString GetEnglishNameForKnownFont(const TLString& name);

private:
    TLString mFamily{"Arial"};
    int mHeight = 16;
    int mWidth = 0;
    double mSpacingAcross = 0.0;
    double mSpacingDown = 0.0;
    int mWeight = 400;
    bool mItalic = false;
};

// Hands out fonts of the graphics engine named; the host has one engine, whatever the name.
class TLGraphicsEngineManager {
public:
    static TLGraphicsEngineManager* instance(const char* engine);
    // A new font, owned by the caller.
    TLFont* NewFont() const { return new TLFont; }

private:
    TLGraphicsEngineManager() = default;
};

}  // namespace TMObjects
