#pragma once

#include <QList>

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// What the document writers read of a style beyond its own members: its layers and its sizes
// in pixels.
class TLSldStyleReader {
public:
    // The layers of a multi-layer style from the last down to the first, so that the bottom
    // layer is written first; a plain style is its one layer. Null layers are left out.
    static QList<TLRefPtr<TLStyle>> bottomFirst(const TLRefPtr<TLStyle>& style);
    // The same from the first layer up.
    static QList<TLRefPtr<TLStyle>> topFirst(const TLRefPtr<TLStyle>& style);
    // A size of the style in pixels at 96 dots per inch.
    static double pixels(const TLStyle& style, double value);
    // The size a point layer is drawn at, in pixels; 0 for a layer that is no point symbol.
    static double pointSize(const TLStyle& style);
};

}  // namespace TMObjects
