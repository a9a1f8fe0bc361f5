#include "StyleSamples.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleBitmapPoint.h"
#include "tlsymbol/TLStyleBrinkLine.h"
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
#include "tlsymbol/TLStyleSimpleFill.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

namespace {

TLRefPtr<TLStyleSimplePoint> marker(int shape, const TLColor& color) {
    TLRefPtr<TLStyleSimplePoint> point(new TLStyleSimplePoint());
    point->SetShapeType(shape);
    point->SetColor(color);
    point->SetOutlineColor(TLColor(1, 2, 3, 200));
    point->SetOutlineWidth(0.35);
    point->SetDegree(-12.5);
    point->SetWidth(3.2);
    point->SetHeight(1e-3);
    point->SetUnits(TLStyleLength::Point);
    return point;
}

TLRefPtr<TLStyleSimpleLine> pen(double width, int dash) {
    TLRefPtr<TLStyleSimpleLine> line(new TLStyleSimpleLine());
    line->SetWidth(width);
    line->SetDashStyle(dash);
    line->SetColor(TLColor(10, 20, 30));
    line->SetCap(TLStyleLine::CapButt);
    line->SetJoin(TLStyleLine::JoinMitre);
    line->SetOffset(0.5);
    line->SetShift(1.25);
    return line;
}

}  // namespace

std::vector<TLRefPtr<TLStyle>> SampleStyles() {
    std::vector<TLRefPtr<TLStyle>> styles;
    styles.push_back(marker(TLStyleSimplePoint::Triangle, TLColor(255, 0, 0)));

    TLRefPtr<TLStyleCharacterPoint> glyph(new TLStyleCharacterPoint());
    glyph->SetFontName(TLString("DejaVu Sans 宋体"));
    glyph->SetCharIndex(0x4E2D);
    glyph->SetHeight(4);
    styles.push_back(glyph);

    TLRefPtr<TLStyleBitmapPoint> bitmap(new TLStyleBitmapPoint());
    bitmap->SetFileName(TLString("/symbols/well.PNG"));
    styles.push_back(bitmap);

    TLRefPtr<TLStyleSVGPoint> svg(new TLStyleSVGPoint());
    svg->SetSvgSrc(2, TLString("/symbols/tree.svg?fill=green"), TLString("<svg/>"));
    styles.push_back(svg);

    styles.push_back(pen(0.8, 3));

    TLRefPtr<TLStyleBrinkLine> brink(new TLStyleBrinkLine());
    brink->SetWidth(2.5);
    styles.push_back(brink);

    TLRefPtr<TLStylePatternLine> pattern(new TLStylePatternLine());
    pattern->SetSteps({2, 8, 0.5, 1e300});
    styles.push_back(pattern);

    TLRefPtr<TLStylePointDecorateLine> dotted(new TLStylePointDecorateLine());
    TLRefPtr<TLStyleMultiLayer> twoMarkers(new TLStyleMultiLayer(TLStyle::PointClass));
    twoMarkers->AddLayer(marker(TLStyleSimplePoint::Circle, TLColor(0, 0, 255)));
    twoMarkers->AddLayer(glyph);
    dotted->SetDecorateStyle(twoMarkers);
    dotted->SetPlacementType(1);
    dotted->SetSteps({6, 3});
    styles.push_back(dotted);

    TLRefPtr<TLStyleLineDecorateLine> ticks(new TLStyleLineDecorateLine());
    ticks->SetDecorateStyle(pen(0.2, 1));
    ticks->SetSteps({10});
    styles.push_back(ticks);

    TLRefPtr<TLStyleScriptLine> scriptLine(new TLStyleScriptLine());
    scriptLine->SetScript(TLString("move 0 0\nline 1 1"));
    styles.push_back(scriptLine);

    TLRefPtr<TLStyleSimpleFill> plain(new TLStyleSimpleFill());
    plain->SetBackgroundColor(TLColor(190, 207, 80, 128));
    plain->SetFillBackground(false);
    plain->SetGradientFillBackground(true);
    plain->SetOutlineStyle(pen(0.26, 1));
    styles.push_back(plain);

    TLRefPtr<TLStylePointFill> dots(new TLStylePointFill());
    dots->SetFillType(TLStylePointFill::StaggeredFill);
    dots->SetSeperateX(4.5);
    dots->SetSeperateY(7);
    dots->SetDecoratePointStyle(marker(TLStyleSimplePoint::Diamond, TLColor(0, 128, 0)));
    styles.push_back(dots);

    TLRefPtr<TLStyleLineFill> hatch(new TLStyleLineFill());
    hatch->SetDegree(135);
    hatch->SetSeperate(2.75);
    hatch->SetDecorateLineStyle(pattern);
    styles.push_back(hatch);

    TLRefPtr<TLStyleScriptFill> scriptFill(new TLStyleScriptFill());
    scriptFill->SetScript(TLString("fill"));
    styles.push_back(scriptFill);

    // A multi-layer fill whose layers nest outlines and decorations of their own.
    TLRefPtr<TLStyleMultiLayer> layered(new TLStyleMultiLayer(TLStyle::FillClass));
    layered->AddLayer(hatch);
    layered->AddLayer(dots);
    layered->AddLayer(plain);
    styles.push_back(layered);

    TLRefPtr<TLStyleMultiLayer> empty(new TLStyleMultiLayer(TLStyle::LineClass));
    styles.push_back(empty);

    for (size_t i = 0; i < styles.size(); ++i)
        styles[i]->SetName(TLString("sample " + std::to_string(i + 1)));
    return styles;
}

std::string SavedBytes(const TLRefPtr<TLStyle>& style) {
    TLFileFunc file;
    TLStyleFactory::Save(file, style);
    return file.Bytes();
}

}  // namespace TMObjects
