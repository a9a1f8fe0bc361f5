#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

// One glyph of a font, by its character code.
class TLStyleCharacterPoint : public TLStylePoint {
public:
    TLStyleCharacterPoint() = default;
    ~TLStyleCharacterPoint() override;

    int GetTypeID() const override { return CharacterPointType; }
    TLString GetFontName() const { return mFontName; }
    int GetCharIndex() const { return mCharIndex; }
    void SetFontName(const TLString& name) { mFontName = name; }
    void SetCharIndex(int index) { mCharIndex = index; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    TLString mFontName;
    int mCharIndex = 0;
};

}  // namespace TMObjects
