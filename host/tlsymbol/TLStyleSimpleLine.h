#pragma once

#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

// A plain pen line; the dash style is a pen style (1 solid, 2 dash, 3 dot and so on).
class TLStyleSimpleLine : public TLStyleLine {
public:
    TLStyleSimpleLine() = default;
    ~TLStyleSimpleLine() override;

    int GetTypeID() const override { return SimpleLineType; }
    int GetDashStyle() const { return mDashStyle; }
    void SetDashStyle(int style) { mDashStyle = style; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    int mDashStyle = 1;
};

}  // namespace TMObjects
