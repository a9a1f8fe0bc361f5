#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

// A picture file drawn at the point.
class TLStyleBitmapPoint : public TLStylePoint {
public:
    TLStyleBitmapPoint() = default;
    ~TLStyleBitmapPoint() override;

    int GetTypeID() const override { return BitmapPointType; }
    TLString GetFileName() const { return mFileName; }
    void SetFileName(const TLString& path) { mFileName = path; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    TLString mFileName;
};

}  // namespace TMObjects
