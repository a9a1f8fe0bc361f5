#include "TLStyleSetup.h"

#include "TLStyleSpec.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLImageClassRenderInfo.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLRuleBasedSymbolRender.h"
#include "tlmap/TLSingleBandImageRender.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlmap/TLSpecifiedSymbolRender.h"

namespace TMObjects {

namespace {

const char* const kRenderUsage =
    "render NAME single|categorized|rules|specified|none|stretch|classes|rgb|image-none ...";

// "KEY=VALUE" split at its first "="; false when there is none.
bool pair(const std::string& word, std::string& key, std::string& value) {
    const size_t equals = word.find('=');
    if (equals == std::string::npos) return false;
    key = word.substr(0, equals);
    value = word.substr(equals + 1);
    return true;
}

bool isRasterKind(const std::string& kind) {
    return kind == "stretch" || kind == "classes" || kind == "rgb" || kind == "image-none";
}

}  // namespace

bool TLStyleSetup::Knows(const std::string& verb) {
    return verb == "style" || verb == "render" || verb == "scales" || verb == "alpha" ||
           verb == "raise";
}

bool TLStyleSetup::Run(const TLSessionCommand& c, std::string& error) {
    if (c.verb == "style") return style(c, error);
    if (c.verb == "render") return render(c, error);
    if (c.verb == "raise") return raise(c, error);
    return layerNumbers(c, error);
}

bool TLStyleSetup::styleNamed(const std::string& id, TLRefPtr<TLStyle>& style,
                              std::string& error) const {
    if (id == "none") {
        style = TLRefPtr<TLStyle>();
        return true;
    }
    const auto found = mSession.Styles().find(id);
    if (found == mSession.Styles().end()) {
        error = "no style \"" + id + "\" was made by the script";
        return false;
    }
    style = found->second;
    return true;
}

bool TLStyleSetup::style(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(2, 1000, "style ID KIND [KEY=VALUE ...]", error)) return false;
    const std::vector<std::string> keys(c.words.begin() + 2, c.words.end());
    // Styles are host objects the script owns: made in the dry pass as well, so that the
    // commands after this one can name it.
    TLRefPtr<TLStyle> made = TLStyleSpec::Make(
        c.words[1], keys,
        [this](const std::string& id, TLRefPtr<TLStyle>& style, std::string& why) {
            return styleNamed(id, style, why);
        },
        error);
    if (!made) return false;
    mSession.Styles()[c.words[0]] = made;
    return true;
}

bool TLStyleSetup::render(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(2, 1000, kRenderUsage, error)) return false;
    const bool raster = isRasterKind(c.words[1]);
    if (!mSession.HasLayer(c.words[0], !raster, error)) return false;
    return raster ? rasterRender(c, error) : featureRender(c, error);
}

bool TLStyleSetup::featureRender(const TLSessionCommand& c, std::string& error) {
    const std::string& kind = c.words[1];
    TLRefPtr<TLFeatureRender> made;
    TLRefPtr<TLStyle> style;
    std::string key, value;
    if (kind == "single") {
        if (!c.Expect(3, 3, "render NAME single ID", error) ||
            !styleNamed(c.words[2], style, error))
            return false;
        made = new TLSingleSymbolRender(style);
    } else if (kind == "categorized" || kind == "specified") {
        if (!c.Expect(3, 1000, "render NAME categorized|specified FIELD VALUE=ID ...", error))
            return false;
        TLRefPtr<TLCategorizedSymbolRender> categories(
            new TLCategorizedSymbolRender(TLString(c.words[2])));
        TLRefPtr<TLSpecifiedSymbolRender> specified(
            new TLSpecifiedSymbolRender(TLString(c.words[2])));
        for (size_t i = 3; i < c.words.size(); ++i) {
            if (!pair(c.words[i], key, value)) {
                error = "\"" + c.words[i] + "\" is no VALUE=ID";
                return false;
            }
            if (!styleNamed(value, style, error)) return false;
            if (kind == "specified" && key == "default")
                specified->SetDefaultStyle(style);
            else if (kind == "specified")
                specified->SetSymbol(TLString(key), style);
            else
                categories->AddItem(TLRefPtr<TLCategoryRenderItem>(
                    new TLCategoryRenderItem(TLString(key), TLString(key), style)));
        }
        made = kind == "specified" ? TLRefPtr<TLFeatureRender>(specified)
                                   : TLRefPtr<TLFeatureRender>(categories);
    } else if (kind == "rules") {
        if (c.words.size() % 3 != 2) {
            error = "usage: render NAME rules \"EXPRESSION\" \"LABEL\" ID|none ...";
            return false;
        }
        TLRefPtr<TLRuleBasedSymbolRender> rules(new TLRuleBasedSymbolRender());
        for (size_t i = 2; i < c.words.size(); i += 3) {
            if (!styleNamed(c.words[i + 2], style, error)) return false;
            rules->AddRule(TLRefPtr<TLSymbolRule>(
                new TLSymbolRule(TLString(c.words[i]), TLString(c.words[i + 1]), style)));
        }
        made = rules;
    } else if (kind == "none") {
        made = new TLFeatureRender();
    } else {
        error = std::string("usage: ") + kRenderUsage;
        return false;
    }
    if (mSession.Dry()) return true;
    mSession.FeatureLayer(c.words[0], error)->SetSymbolRender(made);
    return true;
}

bool TLStyleSetup::rasterRender(const TLSessionCommand& c, std::string& error) {
    const std::string& kind = c.words[1];
    TLRefPtr<TLRasterRender> made;
    std::string key, value;
    int band = 1;
    if (kind == "rgb") {
        int bands[3] = {1, 2, 3};
        if (!c.Expect(5, 6, "render NAME rgb R G B [use=rgb]", error) ||
            !c.Integer(2, bands[0], error) || !c.Integer(3, bands[1], error) ||
            !c.Integer(4, bands[2], error))
            return false;
        TLRefPtr<TLMultiBandImageRender> rgb(
            new TLMultiBandImageRender(bands[0], bands[1], bands[2]));
        if (c.words.size() == 6) {
            if (!pair(c.words[5], key, value) || key != "use") {
                error = "usage: render NAME rgb R G B [use=rgb]";
                return false;
            }
            rgb->setUseBands(value.find('r') != std::string::npos,
                             value.find('g') != std::string::npos,
                             value.find('b') != std::string::npos);
        }
        made = rgb;
    } else if (kind == "stretch") {
        TLRefPtr<TLImageStretchRenderInfo> stretch(new TLImageStretchRenderInfo());
        for (size_t i = 2; i < c.words.size(); ++i) {
            std::vector<double> numbers;
            if (!pair(c.words[i], key, value)) key.clear();
            if (key == "algorithm" && TLStyleSpec::Numbers(value, numbers) && numbers.size() == 1)
                stretch->SetAlgoType(int(numbers[0]));
            else if (key == "gray" && TLStyleSpec::Numbers(value, numbers) && numbers.size() == 1)
                stretch->SetGrayRamp(int(numbers[0]));
            else if (key == "band" && TLStyleSpec::Numbers(value, numbers) && numbers.size() == 1)
                band = int(numbers[0]);
            else if (key == "colors") {
                std::vector<TLColor> colors;
                size_t start = 0;
                while (start <= value.size()) {
                    const size_t comma = std::min(value.find(',', start), value.size());
                    TLColor color;
                    if (!TLStyleSpec::Color(value.substr(start, comma - start), color)) {
                        error = "\"" + value + "\" is no list of colours #rrggbb";
                        return false;
                    }
                    colors.push_back(color);
                    start = comma + 1;
                }
                stretch->SetColors(colors);
            } else {
                error = "\"" + c.words[i] + "\" is no algorithm=N, gray=N, colors=... or band=B";
                return false;
            }
        }
        TLRefPtr<TLSingleBandImageRender> single(new TLSingleBandImageRender(band));
        single->setRenderInfo(stretch);
        made = single;
    } else if (kind == "classes") {
        TLRefPtr<TLImageClassRenderInfo> classes(new TLImageClassRenderInfo());
        for (size_t i = 2; i < c.words.size(); ++i) {
            const std::string& word = c.words[i];
            std::vector<double> numbers;
            const size_t last = word.rfind(':');
            TLColor color;
            if (pair(word, key, value) && key == "band" && TLStyleSpec::Numbers(value, numbers)) {
                band = int(numbers[0]);
                continue;
            }
            std::string range = last == std::string::npos ? "" : word.substr(0, last);
            for (char& ch : range)
                if (ch == ':') ch = ',';
            if (!TLStyleSpec::Numbers(range, numbers) || numbers.size() != 2 ||
                !TLStyleSpec::Color(word.substr(last + 1), color)) {
                error = "\"" + word + "\" is no VALUE:UPPER:#rrggbb";
                return false;
            }
            classes->AddClassItem(numbers[0], numbers[1], color);
        }
        TLRefPtr<TLSingleBandImageRender> single(new TLSingleBandImageRender(band));
        single->setRenderInfo(classes);
        made = single;
    } else {
        made = new TLRasterRender();
    }
    if (mSession.Dry()) return true;
    auto* layer = dynamic_cast<TLRasterLayer*>(mSession.Layer(c.words[0], error));
    if (!layer) {
        error = c.words[0] + " is no raster layer";
        return false;
    }
    layer->SetRender(made);
    return true;
}

bool TLStyleSetup::raise(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "raise NAME", error) || !mSession.HasLayer(c.words[0], false, error))
        return false;
    if (mSession.Dry()) return true;
    TLRefPtr<TLLayer> layer(mSession.Layer(c.words[0], error));
    mSession.Map()->RemoveLayer(layer.get());
    mSession.Map()->InsertLayer(-1, layer.get(), true);
    return true;
}

bool TLStyleSetup::layerNumbers(const TLSessionCommand& c, std::string& error) {
    const bool scales = c.verb == "scales";
    double first = 0, second = 0;
    if (!c.Expect(scales ? 3 : 2, scales ? 3 : 2, scales ? "scales NAME MIN MAX" : "alpha NAME A",
                  error) ||
        !c.Number(1, first, error) || (scales && !c.Number(2, second, error)) ||
        !mSession.HasLayer(c.words[0], false, error))
        return false;
    if (mSession.Dry()) return true;
    TLLayer* layer = mSession.Layer(c.words[0], error);
    if (scales)
        layer->SetVisibleScales(first, second);
    else
        layer->SetAlpha(first);
    return true;
}

}  // namespace TMObjects
