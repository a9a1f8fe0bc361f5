#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyleFill.h"

namespace TMObjects {

// An area drawn by a script of the symbol library.
class TLStyleScriptFill : public TLStyleFill {
public:
    TLStyleScriptFill() = default;
    ~TLStyleScriptFill() override;

    int GetTypeID() const override { return ScriptFillType; }
    TLString GetScript() const { return mScript; }
    void SetScript(const TLString& script) { mScript = script; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    TLString mScript;
};

}  // namespace TMObjects
