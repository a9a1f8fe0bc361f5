#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include "TLPluginExport.h"
#include "export/TLSldPaintWriter.h"

namespace TMObjects {

class TLFeatureLayer;
class TLLabelProperty;
class TLTextElement;

// The "sld:TextSymbolizer" of a labelled feature layer.
class TL_ACTIONEX_EXPORT TLSldLabelWriter {
public:
    explicit TLSldLabelWriter(QDomDocument& document) : mDocument(document), mPaint(document) {}

    // Appends the layer's label to `rule` when the layer shows labels and has a label property.
    void appendLabel(QDomElement& rule, const TLFeatureLayer& layer) const;

    // The weight's name as fonts are described, by steps of 100.
    static QString weightName(int weight);
    // The font colour as the label's fill has always been written: the colour's bits read as a
    // signed number in upper-case hexadecimal, "#000000" when that is shorter than 6 digits.
    static QString fontColor(unsigned color);

private:
    void appendHalo(QDomElement& symbolizer, const TLTextElement& text) const;
    void appendFont(QDomElement& symbolizer, const TLTextElement& text) const;
    void appendPlacement(QDomElement& symbolizer, const TLTextElement& text) const;
    void appendBackground(QDomElement& symbolizer, const TLLabelProperty& property) const;
    void appendVendorOptions(QDomElement& symbolizer, const TLLabelProperty& property) const;

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
};

}  // namespace TMObjects
