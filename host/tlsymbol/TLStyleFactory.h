#pragma once

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

class TLFileFunc;

// Makes styles by their kind, and saves and opens a style whose kind the reader does not know
// beforehand: the nested styles of fills, decorated lines and multi-layer styles, and the styles
// of a symbol library.
//
// A saved style is its type id (32-bit; 0 for no style at all), its family (32-bit, the class
// type), then what the style's own `save` writes.
class TLStyleFactory {
public:
    // A new style of that kind with its defaults; a multi-layer style of the family. Null for a
    // kind without a class here and for a family that is no family.
    static TLRefPtr<TLStyle> Create(int typeId, int classType);
    // A readable name of the kind ("SimpleLine"), for people who look into a library file;
    // empty for an unknown kind.
    static const char* TypeName(int typeId);

    static void Save(TLFileFunc& file, const TLRefPtr<TLStyle>& style);
    // Reads one saved style into `style` (null for a saved "no style"). False, with the stream
    // failed, when the stream ends early, names an unknown kind, nests deeper than 64 levels, or
    // the style's part does not read.
    static bool Open(TLFileFunc& file, TLRefPtr<TLStyle>& style);
};

}  // namespace TMObjects
