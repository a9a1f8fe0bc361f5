#include "TLStyleSpec.h"

#include <map>
#include <sstream>

#include "tlsymbol/TLStyleBitmapPoint.h"
#include "tlsymbol/TLStyleCharacterPoint.h"
#include "tlsymbol/TLStyleFactory.h"
#include "tlsymbol/TLStyleLineDecorateLine.h"
#include "tlsymbol/TLStyleLineFill.h"
#include "tlsymbol/TLStyleMultiLayer.h"
#include "tlsymbol/TLStylePatternLine.h"
#include "tlsymbol/TLStylePointDecorateLine.h"
#include "tlsymbol/TLStylePointFill.h"
#include "tlsymbol/TLStyleSVGPoint.h"
#include "tlsymbol/TLStyleScriptFill.h"
#include "tlsymbol/TLStyleScriptLine.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

namespace {

bool number(const std::string& text, double& value) {
    std::istringstream in(text);
    in >> value;
    return !in.fail() && in.eof();
}

bool integer(const std::string& text, int& value) {
    double number_ = 0;
    if (!number(text, number_) || number_ != double(int(number_))) return false;
    value = int(number_);
    return true;
}

bool onOff(const std::string& text, bool& value) {
    if (text != "on" && text != "off") return false;
    value = text == "on";
    return true;
}

// A word of a table, by its place; -1 when it is not there.
int indexOf(const std::string& word, const std::vector<std::string>& words) {
    for (size_t i = 0; i < words.size(); ++i)
        if (words[i] == word) return int(i);
    return -1;
}

struct Kind {
    int typeId;
    int family;
};

const std::map<std::string, Kind>& kinds() {
    static const std::map<std::string, Kind> table = {
        {"simple-point", {TLStyle::SimplePointType, TLStyle::PointClass}},
        {"character-point", {TLStyle::CharacterPointType, TLStyle::PointClass}},
        {"bitmap-point", {TLStyle::BitmapPointType, TLStyle::PointClass}},
        {"svg-point", {TLStyle::SVGPointType, TLStyle::PointClass}},
        {"simple-line", {TLStyle::SimpleLineType, TLStyle::LineClass}},
        {"brink-line", {TLStyle::BrinkLineType, TLStyle::LineClass}},
        {"pattern-line", {TLStyle::PatternLineType, TLStyle::LineClass}},
        {"point-decorate-line", {TLStyle::PointDecorateLineType, TLStyle::LineClass}},
        {"line-decorate-line", {TLStyle::LineDecorateLineType, TLStyle::LineClass}},
        {"script-line", {TLStyle::ScriptLineType, TLStyle::LineClass}},
        {"simple-fill", {TLStyle::SimpleFillType, TLStyle::FillClass}},
        {"point-fill", {TLStyle::PointFillType, TLStyle::FillClass}},
        {"line-fill", {TLStyle::LineFillType, TLStyle::FillClass}},
        {"script-fill", {TLStyle::ScriptFillType, TLStyle::FillClass}},
        {"multi-point", {TLStyle::MultiLayerType, TLStyle::PointClass}},
        {"multi-line", {TLStyle::MultiLayerType, TLStyle::LineClass}},
        {"multi-fill", {TLStyle::MultiLayerType, TLStyle::FillClass}},
    };
    return table;
}

}  // namespace

bool TLStyleSpec::Color(const std::string& text, TLColor& color) {
    if ((text.size() != 7 && text.size() != 9) || text[0] != '#') return false;
    unsigned parts[4] = {0, 0, 0, 255};
    for (size_t i = 0; i + 1 < text.size(); i += 2) {
        const std::string pair = text.substr(i + 1, 2);
        if (pair.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) return false;
        parts[i / 2] = unsigned(std::stoul(pair, nullptr, 16));
    }
    color = TLColor(int(parts[0]), int(parts[1]), int(parts[2]), int(parts[3]));
    return true;
}

bool TLStyleSpec::Numbers(const std::string& text, std::vector<double>& numbers) {
    numbers.clear();
    std::istringstream in(text);
    std::string part;
    while (std::getline(in, part, ',')) {
        double value = 0;
        if (!number(part, value)) return false;
        numbers.push_back(value);
    }
    return !numbers.empty();
}

TLRefPtr<TLStyle> TLStyleSpec::Make(const std::string& kind, const std::vector<std::string>& keys,
                                    const Lookup& lookup, std::string& error) {
    const auto found = kinds().find(kind);
    if (found == kinds().end()) {
        error = "no style kind \"" + kind + "\"";
        return TLRefPtr<TLStyle>();
    }
    TLRefPtr<TLStyle> style = TLStyleFactory::Create(found->second.typeId, found->second.family);
    for (const std::string& word : keys) {
        const size_t equals = word.find('=');
        if (equals == std::string::npos) {
            error = "\"" + word + "\" is no KEY=VALUE";
            return TLRefPtr<TLStyle>();
        }
        if (!setKey(*style, word.substr(0, equals), word.substr(equals + 1), lookup, error)) {
            if (error.empty()) error = "\"" + word + "\" does not fit a " + kind + " style";
            return TLRefPtr<TLStyle>();
        }
    }
    return style;
}

bool TLStyleSpec::setKey(TLStyle& style, const std::string& key, const std::string& value,
                         const Lookup& lookup, std::string& error) {
    if (key == "name") {
        style.SetName(TLString(value));
        return true;
    }
    if (key == "color") {
        TLColor color;
        if (!Color(value, color)) return false;
        style.SetColor(color);
        return true;
    }
    if (key == "units") {
        const int unit = indexOf(value, {"px", "pt", "mm", "cm", "in"});
        if (unit < 0) return false;
        style.SetUnits(unit);
        return true;
    }
    if (key == "layers") {
        auto* multi = dynamic_cast<TLStyleMultiLayer*>(&style);
        std::istringstream in(value);
        std::string id;
        while (multi && std::getline(in, id, ',')) {
            TLRefPtr<TLStyle> layer;
            if (!lookup(id, layer, error)) return false;
            if (!multi->AddLayer(layer)) {
                error = "style " + id + " is of another family than the multi-layer style";
                return false;
            }
        }
        return multi != nullptr;
    }
    int set = setPointKey(style, key, value);
    if (set == 0) set = setLineKey(style, key, value, lookup, error);
    if (set == 0) set = setFillKey(style, key, value, lookup, error);
    return set == 1;
}

int TLStyleSpec::setPointKey(TLStyle& style, const std::string& key, const std::string& value) {
    auto* point = dynamic_cast<TLStylePoint*>(&style);
    if (!point) return 0;
    double n = 0;
    int i = 0;
    if (key == "width" && number(value, n)) return point->SetWidth(n), 1;
    if (key == "height" && number(value, n)) return point->SetHeight(n), 1;
    if (key == "degree" && number(value, n)) return point->SetDegree(n), 1;
    if (auto* simple = dynamic_cast<TLStyleSimplePoint*>(point)) {
        TLColor color;
        const int shape = indexOf(value, {"square", "circle", "diamond", "triangle"});
        if (key == "shape" && shape >= 0) return simple->SetShapeType(shape), 1;
        if (key == "outline-color" && Color(value, color)) return simple->SetOutlineColor(color), 1;
        if (key == "outline-width" && number(value, n)) return simple->SetOutlineWidth(n), 1;
    }
    if (auto* glyph = dynamic_cast<TLStyleCharacterPoint*>(point)) {
        if (key == "font") return glyph->SetFontName(TLString(value)), 1;
        if (key == "char" && integer(value, i)) return glyph->SetCharIndex(i), 1;
    }
    if (auto* bitmap = dynamic_cast<TLStyleBitmapPoint*>(point))
        if (key == "file") return bitmap->SetFileName(TLString(value)), 1;
    if (auto* svg = dynamic_cast<TLStyleSVGPoint*>(point))
        if (key == "svg") return svg->SetSvgSrc(0, TLString(value), TLString()), 1;
    return 0;
}

int TLStyleSpec::setLineKey(TLStyle& style, const std::string& key, const std::string& value,
                            const Lookup& lookup, std::string& error) {
    auto* line = dynamic_cast<TLStyleLine*>(&style);
    if (!line) return 0;
    double n = 0;
    int i = 0;
    std::vector<double> numbers;
    const int cap = indexOf(value, {"round", "square", "butt"});
    const int join = indexOf(value, {"bevel", "round", "mitre"});
    if (key == "width" && number(value, n)) return line->SetWidth(n), 1;
    if (key == "offset" && number(value, n)) return line->SetOffset(n), 1;
    if (key == "shift" && number(value, n)) return line->SetShift(n), 1;
    if (key == "cap" && cap >= 0) {
        line->SetCap(cap == 0   ? TLStyleLine::CapRound
                     : cap == 1 ? TLStyleLine::CapSquare
                                : TLStyleLine::CapButt);
        return 1;
    }
    if (key == "join" && join >= 0) {
        line->SetJoin(join == 0   ? TLStyleLine::JoinBevel
                      : join == 1 ? TLStyleLine::JoinRound
                                  : TLStyleLine::JoinMitre);
        return 1;
    }
    if (auto* simple = dynamic_cast<TLStyleSimpleLine*>(line))
        if (key == "dash" && integer(value, i)) return simple->SetDashStyle(i), 1;
    if (auto* pattern = dynamic_cast<TLStylePatternLine*>(line))
        if (key == "steps" && Numbers(value, numbers)) return pattern->SetSteps(numbers), 1;
    if (auto* script = dynamic_cast<TLStyleScriptLine*>(line))
        if (key == "script") return script->SetScript(TLString(value)), 1;
    auto* points = dynamic_cast<TLStylePointDecorateLine*>(line);
    auto* lines = dynamic_cast<TLStyleLineDecorateLine*>(line);
    if (points || lines) {
        TLRefPtr<TLStyle> decorate;
        if (key == "decorate") {
            if (!lookup(value, decorate, error)) return -1;
            points ? points->SetDecorateStyle(decorate) : lines->SetDecorateStyle(decorate);
            return 1;
        }
        if (key == "placement" && integer(value, i)) {
            points ? points->SetPlacementType(i) : lines->SetPlacementType(i);
            return 1;
        }
        if (key == "steps" && Numbers(value, numbers)) {
            points ? points->SetSteps(numbers) : lines->SetSteps(numbers);
            return 1;
        }
    }
    return 0;
}

int TLStyleSpec::setFillKey(TLStyle& style, const std::string& key, const std::string& value,
                            const Lookup& lookup, std::string& error) {
    auto* fill = dynamic_cast<TLStyleFill*>(&style);
    if (!fill) return 0;
    double n = 0;
    int i = 0;
    bool b = false;
    TLColor color;
    TLRefPtr<TLStyle> nested;
    if (key == "background" && Color(value, color)) return fill->SetBackgroundColor(color), 1;
    if (key == "fill-background" && onOff(value, b)) return fill->SetFillBackground(b), 1;
    if (key == "gradient" && onOff(value, b)) return fill->SetGradientFillBackground(b), 1;
    if (key == "outline") {
        if (!lookup(value, nested, error)) return -1;
        return fill->SetOutlineStyle(nested), 1;
    }
    if (auto* lines = dynamic_cast<TLStyleLineFill*>(fill)) {
        if (key == "degree" && number(value, n)) return lines->SetDegree(n), 1;
        if (key == "separate" && number(value, n)) return lines->SetSeperate(n), 1;
        if (key == "decorate") {
            if (!lookup(value, nested, error)) return -1;
            return lines->SetDecorateLineStyle(nested), 1;
        }
    }
    if (auto* points = dynamic_cast<TLStylePointFill*>(fill)) {
        if (key == "separate-x" && number(value, n)) return points->SetSeperateX(n), 1;
        if (key == "separate-y" && number(value, n)) return points->SetSeperateY(n), 1;
        if (key == "fill-type" && integer(value, i)) return points->SetFillType(i), 1;
        if (key == "decorate") {
            if (!lookup(value, nested, error)) return -1;
            return points->SetDecoratePointStyle(nested), 1;
        }
    }
    if (auto* script = dynamic_cast<TLStyleScriptFill*>(fill))
        if (key == "script") return script->SetScript(TLString(value)), 1;
    return 0;
}

}  // namespace TMObjects
