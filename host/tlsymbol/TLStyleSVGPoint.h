#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

// A scalable vector picture drawn at the point. The library keeps where the picture comes from
// (a kind code), the file path with its parameters behind a "?", and the picture's text when
// it was embedded.
class TLStyleSVGPoint : public TLStylePoint {
public:
    TLStyleSVGPoint() = default;
    ~TLStyleSVGPoint() override;

    int GetTypeID() const override { return SVGPointType; }
    void GetSvgSrc(int& kind, TLString& file, TLString& content) const;
    void SetSvgSrc(int kind, const TLString& file, const TLString& content);

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    int mKind = 0;
    TLString mFile;
    TLString mContent;
};

}  // namespace TMObjects
