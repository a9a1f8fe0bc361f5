#include "tlsymbol/TLStyleSVGPoint.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleSVGPoint::~TLStyleSVGPoint() = default;

// The file always comes back with the "?" that separates it from its parameters, also when
// there are none, as the library stores it.
void TLStyleSVGPoint::GetSvgSrc(int& kind, TLString& file, TLString& content) const {
    kind = mKind;
    file = mFile.Contains(TLString("?")) ? mFile : mFile + TLString("?");
    content = mContent;
}

void TLStyleSVGPoint::SetSvgSrc(int kind, const TLString& file, const TLString& content) {
    mKind = kind;
    mFile = file;
    mContent = content;
}

void TLStyleSVGPoint::save(TLFileFunc& file) const {
    TLStylePoint::save(file);
    file.WriteInt(mKind);
    file.WriteString(mFile);
    file.WriteString(mContent);
}

bool TLStyleSVGPoint::open(TLFileFunc& file) {
    return TLStylePoint::open(file) && file.ReadInt(mKind) && file.ReadString(mFile) &&
           file.ReadString(mContent);
}

}  // namespace TMObjects
