#include "tlmap/TLAnnoStyleString.h"

#include <charconv>
#include <map>
#include <string>

namespace TMObjects {

namespace {

const char kHead[] = "TMZJKZ1";

// The shortest text that reads back as the same double, whatever the process's locale.
std::string number(double value) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    return std::string(text, end);
}

template <typename T>
T parsed(const std::string& text) {
    T value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string escaped(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '%')
            out += "%25";
        else if (c == ';')
            out += "%3B";
        else if (c == '=')
            out += "%3D";
        else
            out += c;
    }
    return out;
}

std::string unescaped(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            const std::string code = text.substr(i + 1, 2);
            if (code == "25" || code == "3B" || code == "3D") {
                out += code == "25" ? '%' : code == "3B" ? ';' : '=';
                i += 2;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

}  // namespace

TLString TLAnnoStyleString::Pack(const TLAnnotation& a) {
    double px = 0, py = 0;
    a.get_TextPos(px, py);
    std::string s = kHead;
    auto put = [&s](const char* key, const std::string& value) {
        s += ';';
        s += key;
        s += '=';
        s += value;
    };
    put("TT", std::to_string(a.get_TextType()));
    put("FN", escaped(a.get_FontName().toStdString()));
    put("FW", number(PixelsToMillimetres(a.get_FontWidth(0))));
    put("WT", std::to_string(a.get_FontWeight()));
    put("IT", std::to_string(a.get_FontItalic()));
    put("UL", a.get_FontUnderline() ? "1" : "0");
    put("SO", a.get_FontStrikeThrough() ? "1" : "0");
    put("FC", std::to_string(a.get_FontColor()));
    put("AP", std::to_string(a.get_AnchorPoint()));
    put("OR", std::to_string(a.get_WordOrientation()));
    put("LD", number(a.get_LineSpace()));
    put("HA", std::to_string(a.get_TextHorizAlign()));
    put("VA", std::to_string(a.get_TextVertAlign()));
    put("BS", std::to_string(a.get_BackgroundStyle()));
    put("BC", std::to_string(a.get_BackColor()));
    put("LC", std::to_string(a.get_BoundColor()));
    put("LW", number(a.get_BoundWidth()));
    put("OW", number(a.get_FontPathWidth()));
    put("OC", std::to_string(a.get_FontPathColor()));
    put("PX", number(px));
    put("PY", number(py));
    put("XO", number(a.get_xOff()));
    put("YO", number(a.get_yOff()));
    put("AT", std::to_string(a.mArrowHeadType));
    return TLString(s);
}

bool TLAnnoStyleString::Unpack(const TLString& packed, TLAnnotation& a) {
    const std::string s = packed.toStdString();
    if (s.compare(0, 6, "TMZJKZ") != 0) return false;
    std::map<std::string, std::string> values;
    std::size_t at = s.find(';');
    while (at != std::string::npos) {
        const std::size_t next = s.find(';', at + 1);
        const std::string entry =
            s.substr(at + 1, next == std::string::npos ? next : next - at - 1);
        const std::size_t equals = entry.find('=');
        if (equals != std::string::npos && equals > 0)
            values[entry.substr(0, equals)] = entry.substr(equals + 1);
        at = next;
    }
    auto has = [&values](const char* key) { return values.count(key) != 0; };
    auto real = [&values](const char* key) { return parsed<double>(values[key]); };
    auto whole = [&values](const char* key) { return parsed<int>(values[key]); };
    auto colour = [&values](const char* key) { return parsed<unsigned>(values[key]); };
    if (has("TT")) a.put_TextType(whole("TT"));
    if (has("FN")) a.put_FontName(TLString(unescaped(values["FN"])));
    if (has("FW")) a.put_FontWidth(MillimetresToPixels(real("FW")), 0);
    if (has("WT")) a.put_FontWeight(whole("WT"));
    if (has("IT")) a.put_FontItalic(whole("IT"));
    if (has("UL")) a.put_FontUnderline(whole("UL") != 0);
    if (has("SO")) a.put_FontStrikeThrough(whole("SO") != 0);
    if (has("FC")) a.put_FontColor(colour("FC"));
    if (has("AP")) a.put_AnchorPoint(whole("AP"));
    if (has("OR")) a.put_WordOrientation(whole("OR"));
    if (has("LD")) a.put_LineSpace(real("LD"));
    if (has("HA")) a.put_TextHorizAlign(whole("HA"));
    if (has("VA")) a.put_TextVertAlign(whole("VA"));
    if (has("BS")) a.put_BackgroundStyle(whole("BS"));
    if (has("BC")) a.put_BackColor(colour("BC"));
    if (has("LC")) a.put_BoundColor(colour("LC"));
    if (has("LW")) a.put_BoundWidth(real("LW"));
    if (has("OW")) a.put_FontPathWidth(real("OW"));
    if (has("OC")) a.put_FontPathColor(colour("OC"));
    double px = 0, py = 0;
    a.get_TextPos(px, py);
    if (has("PX")) px = real("PX");
    if (has("PY")) py = real("PY");
    a.put_TextPos(px, py);
    double xo = a.get_xOff(), yo = a.get_yOff();
    if (has("XO")) xo = real("XO");
    if (has("YO")) yo = real("YO");
    a.put_Offset(xo, yo);
    if (has("AT")) a.put_ArrowHeadType(whole("AT"));
    return true;
}

}  // namespace TMObjects
