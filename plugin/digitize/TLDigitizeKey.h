#pragma once

#include "tlbase/TLString.h"

namespace TMObjects {

// The typed keys of the command-line digitizing tools. A key is the whole line in any case:
// blanks around it make it no key.
class TLDigitizeKey {
public:
    enum Key {
        NoKey,
        Finish,          // E
        GiveUp,          // U
        Interval,        // J
        CloseInterval,   // D
        Extension,       // YS
        Parallel,        // PL
        ParallelExtend,  // PY
        Reversion,       // FX
        Vertical,        // CZ
        MicroTraverse,   // AS
        Close,           // C
        SpecifyLength,   // LE
        Offset,          // OF
        ModifyLength,    // CL
    };

    static Key Parse(const TLString& text);
};

}  // namespace TMObjects
