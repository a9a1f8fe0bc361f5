#pragma once

#include "tlsde/TLTextElement.h"

namespace TMObjects {

// The kind of guide line that joins an annotation to what it names.
enum ArrowHeadType {
    ArrowNone = 0,
    ArrowSingleLine = 1,
    ArrowBorder = 2,
    ArrowLineUnderline = 3,
    ArrowLineNoUnderline = 4,
};

// An annotation: a text element with a guide line. The guide kind and the dirty flag are read
// and set directly on the record by the tools; a dirty annotation is drawn afresh from its
// fields.
class TLAnnotation : public TLTextElement {
public:
    TLAnnotation() = default;
    TLAnnotation(const TLAnnotation&) = default;
    TLAnnotation& operator=(const TLAnnotation&) = default;
    TLAnnotation& operator=(const TLTextElement& text);
    ~TLAnnotation() override;

    // Back to a fresh record: the text element's defaults, no guide, no offset, clean.
    virtual void reset();

    bool SameAs(const TLAnnotation& other) const;

    void put_ArrowHeadType(int type) { mArrowHeadType = type; }
    void GetGuideOffsetXY(double& x, double& y) const;
    void SetGuideOffsetXY(double x, double y);

    int mArrowHeadType = ArrowNone;
    bool mDirty = false;

private:
    double mGuideOffsetX = 0.0;
    double mGuideOffsetY = 0.0;
};

}  // namespace TMObjects
