#include "tlmap/TLAnnoMgrTool.h"

#include <map>
#include <memory>

#include "tlgraphics/TLFont.h"
#include "tlmap/TLAnnoStyleString.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

namespace {

using Values = std::map<TLString, TLVariant>;

TLVariant integer(long long value) {
    return TLVariant::FromInt(value);
}

double mm(double pixels) {
    return TLAnnoStyleString::PixelsToMillimetres(pixels);
}

double px(double millimetres) {
    return TLAnnoStyleString::MillimetresToPixels(millimetres);
}

Values rvValues(const TLAnnotation& a) {
    double x = 0, y = 0, gx = 0, gy = 0;
    a.get_TextPos(x, y);
    a.GetGuideOffsetXY(gx, gy);
    return {{"TEXTSTRING", TLVariant(a.get_Text())},
            {"TEXTTYPE", integer(a.get_TextType())},
            {"FONTNAME", TLVariant(a.get_FontName())},
            {"FONTSIZE", TLVariant(mm(a.get_FontHeight(0)))},
            {"FONTWIDTH", TLVariant(mm(a.get_FontWidth(0)))},
            {"FONTWEIGHT", integer(a.get_FontWeight())},
            {"ITALIC", integer(a.get_FontItalic())},
            {"UNDERLINE", integer(a.get_FontUnderline() ? 1 : 0)},
            {"STRIKEOUT", integer(a.get_FontStrikeThrough() ? 1 : 0)},
            {"FONTCOLOR", integer(a.get_FontColor())},
            {"ANGLE", TLVariant(a.get_FontAngle())},
            {"ANCHOR", integer(a.get_AnchorPoint())},
            {"ORIENT", integer(a.get_WordOrientation())},
            {"LEADING", TLVariant(a.get_LineSpace())},
            {"CSPACING", TLVariant(a.get_WordSpace())},
            {"HALIGN", integer(a.get_TextHorizAlign())},
            {"VALIGN", integer(a.get_TextVertAlign())},
            {"BGSTYLE", integer(a.get_BackgroundStyle())},
            {"BGCOLOR", integer(a.get_BackColor())},
            {"BOUNDCOLOR", integer(a.get_BoundColor())},
            {"BOUNDWIDTH", TLVariant(a.get_BoundWidth())},
            {"OUTLINEW", TLVariant(a.get_FontPathWidth())},
            {"OUTLINECLR", integer(a.get_FontPathColor())},
            {"TEXTPOSX", TLVariant(x)},
            {"TEXTPOSY", TLVariant(y)},
            {"XOFF", TLVariant(a.get_xOff())},
            {"YOFF", TLVariant(a.get_yOff())},
            {"ARROWTYPE", integer(a.mArrowHeadType)},
            {"ARRIDXOFFX", TLVariant(gx)},
            {"ARRIDXOFFY", TLVariant(gy)}};
}

Values tmValues(const TLAnnotation& a) {
    double gx = 0, gy = 0;
    a.GetGuideOffsetXY(gx, gy);
    TLString packed;
    TLAnnoMgrTool::ConstructTMZJKZFromTextElement(a, packed);
    return {{"ZJNR", TLVariant(a.get_Text())},    {"GD", TLVariant(mm(a.get_FontHeight(0)))},
            {"JG", TLVariant(a.get_WordSpace())}, {"ZJFX", TLVariant(a.get_FontAngle())},
            {"TMZJKZ", TLVariant(packed)},        {"ARRIDXOFFX", TLVariant(gx)},
            {"ARRIDXOFFY", TLVariant(gy)}};
}

// Only the fields the layer has: a layer of one family does not carry the other's.
Values present(TLLayerEditBuffer* buffer, const Values& values) {
    if (!buffer || !buffer->GetLayer()) return {};
    const TLFields& fields = buffer->GetLayer()->GetDatasource()->GetFields();
    Values kept;
    for (const auto& [name, value] : values)
        if (fields.FindField(name) >= 0) kept.emplace(name, value);
    return kept;
}

bool write(TLLayerEditBuffer* buffer, const Values& values, int id) {
    const Values kept = present(buffer, values);
    return !kept.empty() && buffer->ChangeAttributes(id, kept, false);
}

bool write(TLLayerEditBuffer* buffer, const Values& values, TLFeatureEditBuffer* feature) {
    if (!feature) return false;
    bool all = true;
    for (const auto& [name, value] : present(buffer, values))
        all = feature->SetValue(name, value) && all;
    return all;
}

// The value of a field the row carries; false for a field it lacks or leaves empty.
bool read(const TLFeature& feature, const char* field, TLVariant& value) {
    value = feature.GetValue(TLString(field));
    return !value.IsNull();
}

}  // namespace

bool TLAnnoMgrTool::SetZjInfoFromRvField(TLAnnotation& a, const TLFeature& f) {
    TLVariant v;
    bool any = false;
    auto take = [&](const char* field) { return read(f, field, v) ? (any = true) : false; };
    if (take("TEXTSTRING")) a.put_Text(v.ToString());
    if (take("TEXTTYPE")) a.put_TextType(v.GetInt32());
    if (take("FONTNAME")) a.put_FontName(v.ToString());
    if (take("FONTSIZE")) a.put_FontHeight(px(v.GetDouble()), 0);
    if (take("FONTWIDTH")) a.put_FontWidth(px(v.GetDouble()), 0);
    if (take("FONTWEIGHT")) a.put_FontWeight(v.GetInt32());
    if (take("ITALIC")) a.put_FontItalic(v.GetInt32());
    if (take("UNDERLINE")) a.put_FontUnderline(v.GetInt64() != 0);
    if (take("STRIKEOUT")) a.put_FontStrikeThrough(v.GetInt64() != 0);
    if (take("FONTCOLOR")) a.put_FontColor(unsigned(v.GetInt64()));
    if (take("ANGLE")) a.put_FontAngle(v.GetDouble());
    if (take("ANCHOR")) a.put_AnchorPoint(v.GetInt32());
    if (take("ORIENT")) a.put_WordOrientation(v.GetInt32());
    if (take("LEADING")) a.put_LineSpace(v.GetDouble());
    if (take("CSPACING")) a.put_WordSpace(v.GetDouble());
    if (take("HALIGN")) a.put_TextHorizAlign(v.GetInt32());
    if (take("VALIGN")) a.put_TextVertAlign(v.GetInt32());
    if (take("BGSTYLE")) a.put_BackgroundStyle(v.GetInt32());
    if (take("BGCOLOR")) a.put_BackColor(unsigned(v.GetInt64()));
    if (take("BOUNDCOLOR")) a.put_BoundColor(unsigned(v.GetInt64()));
    if (take("BOUNDWIDTH")) a.put_BoundWidth(v.GetDouble());
    if (take("OUTLINEW")) a.put_FontPathWidth(v.GetDouble());
    if (take("OUTLINECLR")) a.put_FontPathColor(unsigned(v.GetInt64()));
    double x = 0, y = 0, gx = 0, gy = 0;
    a.get_TextPos(x, y);
    if (take("TEXTPOSX")) x = v.GetDouble();
    if (take("TEXTPOSY")) y = v.GetDouble();
    a.put_TextPos(x, y);
    double xo = a.get_xOff(), yo = a.get_yOff();
    if (take("XOFF")) xo = v.GetDouble();
    if (take("YOFF")) yo = v.GetDouble();
    a.put_Offset(xo, yo);
    if (take("ARROWTYPE")) a.put_ArrowHeadType(v.GetInt32());
    a.GetGuideOffsetXY(gx, gy);
    if (take("ARRIDXOFFX")) gx = v.GetDouble();
    if (take("ARRIDXOFFY")) gy = v.GetDouble();
    a.SetGuideOffsetXY(gx, gy);
    return any;
}

bool TLAnnoMgrTool::SetZjInfoFromTmField(TLAnnotation& a, const TLFeature& f) {
    TLVariant v;
    bool any = false;
    auto take = [&](const char* field) { return read(f, field, v) ? (any = true) : false; };
    if (take("TMZJKZ")) TLAnnoStyleString::Unpack(v.ToString(), a);
    if (take("ZJNR")) a.put_Text(v.ToString());
    if (take("GD")) a.put_FontHeight(px(v.GetDouble()), 0);
    if (take("JG")) a.put_WordSpace(v.GetDouble());
    if (take("ZJFX")) a.put_FontAngle(v.GetDouble());
    double gx = 0, gy = 0;
    a.GetGuideOffsetXY(gx, gy);
    if (take("ARRIDXOFFX")) gx = v.GetDouble();
    if (take("ARRIDXOFFY")) gy = v.GetDouble();
    a.SetGuideOffsetXY(gx, gy);
    return any;
}

bool TLAnnoMgrTool::CopyZjInfoToRvField(TLLayerEditBuffer* buffer, const TLAnnotation& a, int id) {
    return write(buffer, rvValues(a), id);
}

bool TLAnnoMgrTool::CopyZjInfoToRvField(TLLayerEditBuffer* buffer, const TLAnnotation& a,
                                        TLFeatureEditBuffer* feature) {
    return write(buffer, rvValues(a), feature);
}

bool TLAnnoMgrTool::CopyZjInfoToTmField(TLLayerEditBuffer* buffer, const TLAnnotation& a, int id) {
    return write(buffer, tmValues(a), id);
}

bool TLAnnoMgrTool::CopyZjInfoToTmField(TLLayerEditBuffer* buffer, const TLAnnotation& a,
                                        TLFeatureEditBuffer* feature) {
    return write(buffer, tmValues(a), feature);
}

void TLAnnoMgrTool::SetZjInfoFromField(int kind, TLAnnotation& a, const TLFeature& f) {
    if (kind != 2) SetZjInfoFromRvField(a, f);
    if (kind != 1) SetZjInfoFromTmField(a, f);
}

void TLAnnoMgrTool::CopyZjInfoToField(int kind, TLLayerEditBuffer* buffer, const TLAnnotation& a,
                                      int id) {
    if (kind != 2) CopyZjInfoToRvField(buffer, a, id);
    if (kind != 1) CopyZjInfoToTmField(buffer, a, id);
}

void TLAnnoMgrTool::CopyZjInfoToField(int kind, TLLayerEditBuffer* buffer, const TLAnnotation& a,
                                      TLFeatureEditBuffer* feature) {
    if (kind != 2) CopyZjInfoToRvField(buffer, a, feature);
    if (kind != 1) CopyZjInfoToTmField(buffer, a, feature);
}

bool TLAnnoMgrTool::ConstructTMZJKZFromTextElement(const TLAnnotation& a, TLString& packed) {
    packed = TLAnnoStyleString::Pack(a);
    return true;
}

TLSize TLAnnoMgrTool::CalcAnnotationSize(const TLTextElement& text, TLFont* font) {
    std::unique_ptr<TLFont> own;
    if (!font) {
        own = std::make_unique<TLFont>();
        own->SetHeight(int(text.get_FontHeight(0)));
        own->SetWidth(int(text.get_FontWidth(0)));
        own->SetFamily(text.get_FontName());
        own->SetLetterSpacing(text.get_WordSpace(), text.get_WordSpace());
        font = own.get();
    }
    font->SetWeight(text.get_FontWeight());
    font->SetItalic(text.get_FontItalic() != 0);
    return font->MeasureRows(TextRows(text), text.get_WordOrientation() == OrientationVertical,
                             text.get_LineSpace());
}

std::vector<TLString> TLAnnoMgrTool::TextRows(const TLTextElement& text) {
    const std::wstring whole = text.get_Text().toStdWString();
    const std::wstring separator = text.get_TextType() == TextSingleRow ? L"\n" : L"||";
    std::vector<TLString> rows;
    std::size_t from = 0;
    for (std::size_t at; (at = whole.find(separator, from)) != std::wstring::npos;
         from = at + separator.size())
        rows.emplace_back(whole.substr(from, at - from));
    rows.emplace_back(whole.substr(from));
    return rows;
}

void TLAnnoMgrTool::AddAnnotationFields(int kind, TLFields& fields) {
    auto add = [&fields](const Values& values) {
        for (const auto& [name, value] : values) {
            if (fields.FindField(name) >= 0) continue;
            const TLVariant::Kind k = value.GetKind();
            fields.AddField(name, k == TLVariant::String   ? TLField::FieldString
                                  : k == TLVariant::Double ? TLField::FieldDouble
                                                           : TLField::FieldInt64);
        }
    };
    if (kind != 2) add(rvValues(TLAnnotation()));
    if (kind != 1) add(tmValues(TLAnnotation()));
    if (fields.FindField("SUBCLASSID") < 0) fields.AddField("SUBCLASSID", TLField::FieldInt);
}

}  // namespace TMObjects
