#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

// A line drawn by a script of the symbol library.
class TLStyleScriptLine : public TLStyleLine {
public:
    TLStyleScriptLine() = default;
    ~TLStyleScriptLine() override;

    int GetTypeID() const override { return ScriptLineType; }
    TLString GetScript() const { return mScript; }
    void SetScript(const TLString& script) { mScript = script; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    TLString mScript;
};

}  // namespace TMObjects
