#pragma once

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A symbol drawn along a line. The offset moves the whole line to its side, the shift moves
// the start of its pattern along it. Cap and join are the library's own pen values.
class TLStyleLine : public TLStyle {
public:
    enum Join { JoinBevel = 0, JoinRound = 0x100, JoinMitre = 0x2000 };
    enum Cap { CapRound = 0, CapSquare = 0x100, CapButt = 0x200 };

    ~TLStyleLine() override;

    int GetClassType() const override { return LineClass; }
    double GetOffset() const { return mOffset; }
    double GetShift() const { return mShift; }
    int GetCap() const { return mCap; }
    int GetJoin() const { return mJoin; }
    double GetWidth() const { return mWidth; }
    void SetOffset(double offset) { mOffset = offset; }
    void SetShift(double shift) { mShift = shift; }
    void SetCap(int cap) { mCap = cap; }
    void SetJoin(int join) { mJoin = join; }
    void SetWidth(double width) { mWidth = width; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

protected:
    TLStyleLine() = default;

private:
    double mOffset = 0.0;
    double mShift = 0.0;
    int mCap = CapRound;
    int mJoin = JoinRound;
    double mWidth = 0.26;
};

}  // namespace TMObjects
