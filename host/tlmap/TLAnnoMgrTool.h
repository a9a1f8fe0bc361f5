#pragma once

#include <vector>

#include "tlbase/TLSize.h"
#include "tlsde/TLAnnotation.h"
#include "tlsde/TLField.h"

namespace TMObjects {

class TLFeature;
class TLFeatureEditBuffer;
class TLFont;
class TLLayerEditBuffer;

// Converts between an annotation record and the fields of an annotation layer's row. Two families
// of fields name the same quantities:
//
// Rv family (field kind 1), one field per attribute:
//   TEXTSTRING text, TEXTTYPE, FONTNAME, FONTSIZE and FONTWIDTH (mm), FONTWEIGHT, ITALIC,
//   UNDERLINE, STRIKEOUT, FONTCOLOR, ANGLE (degrees), ANCHOR, ORIENT, LEADING (line spacing),
//   CSPACING (letter spacing), HALIGN, VALIGN, BGSTYLE, BGCOLOR, BOUNDCOLOR, BOUNDWIDTH,
//   OUTLINEW, OUTLINECLR, TEXTPOSX, TEXTPOSY, XOFF, YOFF, ARROWTYPE, ARRIDXOFFX, ARRIDXOFFY.
// Tm family (field kind 2):
//   ZJNR text, GD font size (mm), JG letter spacing, ZJFX rotation (degrees), TMZJKZ the rest
//   packed (see TLAnnoStyleString), ARRIDXOFFX, ARRIDXOFFY.
//
// Sizes in millimetres are pixels * 25.4 / 96. Colours are 0xAARRGGBB as 64-bit integers. A
// write goes only to the fields the layer has; a read takes only the fields the row has and
// leaves the other attributes of the record as they were. Copy… followed by Set… of the same
// family gives back the record (font sizes up to the last bit of the millimetre conversion).
class TLAnnoMgrTool {
public:
    static bool SetZjInfoFromRvField(TLAnnotation& annotation, const TLFeature& feature);
    static bool SetZjInfoFromTmField(TLAnnotation& annotation, const TLFeature& feature);
    static bool CopyZjInfoToRvField(TLLayerEditBuffer* buffer, const TLAnnotation& annotation,
                                    int id);
    static bool CopyZjInfoToRvField(TLLayerEditBuffer* buffer, const TLAnnotation& annotation,
                                    TLFeatureEditBuffer* feature);
    static bool CopyZjInfoToTmField(TLLayerEditBuffer* buffer, const TLAnnotation& annotation,
                                    int id);
    static bool CopyZjInfoToTmField(TLLayerEditBuffer* buffer, const TLAnnotation& annotation,
                                    TLFeatureEditBuffer* feature);

    // By field kind: 1 the Rv family, 2 the Tm family, anything else both, the Rv family first,
    // so that on reading the Tm family wins.
    static void SetZjInfoFromField(int fieldKind, TLAnnotation& annotation,
                                   const TLFeature& feature);
    static void CopyZjInfoToField(int fieldKind, TLLayerEditBuffer* buffer,
                                  const TLAnnotation& annotation, int id);
    static void CopyZjInfoToField(int fieldKind, TLLayerEditBuffer* buffer,
                                  const TLAnnotation& annotation, TLFeatureEditBuffer* feature);

    // The packed style of "TMZJKZ" for the record.
    static bool ConstructTMZJKZFromTextElement(const TLAnnotation& annotation, TLString& packed);

    // The text's box in pixels, measured with the font (family, pixel height and width, letter
    // spacing) and the record's weight, slant, rows, orientation and line spacing. A null font
    // measures with one made from the record.
    static TLSize CalcAnnotationSize(const TLTextElement& text, TLFont* font);
    // The rows of the text as they are laid out: several rows and fractions are split at "||",
    // a single row at its line feeds.
    static std::vector<TLString> TextRows(const TLTextElement& text);

    // The fields a new annotation table of that kind is made with (both families for kinds other
    // than 1 and 2), and "SUBCLASSID".
    static void AddAnnotationFields(int fieldKind, TLFields& fields);
};

}  // namespace TMObjects
