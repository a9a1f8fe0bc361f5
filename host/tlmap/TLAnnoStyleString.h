#pragma once

#include "tlbase/TLString.h"
#include "tlsde/TLAnnotation.h"

namespace TMObjects {

// The packed style string of an annotation, kept in the single field "TMZJKZ" of the Tm family.
//
// Syntax: "TMZJKZ1" followed by entries ";KEY=VALUE", in any order:
//   TT text type            FN font name            FW font width (mm)      WT weight
//   IT italic mode          UL underline (0|1)      SO strike-through (0|1) FC font colour
//   AP anchor               OR orientation          LD line spacing         HA horizontal align
//   VA vertical align       BS background style     BC box fill colour      LC box/guide colour
//   LW box/guide width      OW outline width        OC outline colour       PX, PY text position
//   XO, YO offset           AT guide kind
// Colours are unsigned decimal 0xAARRGGBB; numbers are written in their shortest exact form, so a
// record packed and unpacked is the same record. In the font name "%", ";" and "=" are written
// as "%25", "%3B" and "%3D". The text itself, the font size ("GD"), the letter spacing ("JG") and
// the rotation ("ZJFX") have fields of their own and are not packed. Reading ignores unknown keys
// and malformed entries and leaves the attributes whose key is missing as they were.
class TLAnnoStyleString {
public:
    static TLString Pack(const TLAnnotation& annotation);
    // False when the string is not a packed style (it does not begin with "TMZJKZ"); the record
    // is then left alone.
    static bool Unpack(const TLString& packed, TLAnnotation& annotation);

    // Millimetres of a length in pixels at 96 dots per inch, and back.
    static double PixelsToMillimetres(double pixels) { return pixels * 25.4 / 96.0; }
    static double MillimetresToPixels(double millimetres) { return millimetres * 96.0 / 25.4; }
};

}  // namespace TMObjects
