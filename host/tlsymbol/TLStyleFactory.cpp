#include "tlsymbol/TLStyleFactory.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleBitmapPoint.h"
#include "tlsymbol/TLStyleBrinkLine.h"
#include "tlsymbol/TLStyleCharacterPoint.h"
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

// Nested styles deeper than this come from a damaged file, never from a symbol.
constexpr int kMaxDepth = 64;

TLStyle* newStyle(int typeId) {
    switch (typeId) {
        case TLStyle::SimplePointType:
            return new TLStyleSimplePoint();
        case TLStyle::CharacterPointType:
            return new TLStyleCharacterPoint();
        case TLStyle::BitmapPointType:
            return new TLStyleBitmapPoint();
        case TLStyle::SVGPointType:
            return new TLStyleSVGPoint();
        case TLStyle::SimpleLineType:
            return new TLStyleSimpleLine();
        case TLStyle::BrinkLineType:
            return new TLStyleBrinkLine();
        case TLStyle::PatternLineType:
            return new TLStylePatternLine();
        case TLStyle::PointDecorateLineType:
            return new TLStylePointDecorateLine();
        case TLStyle::LineDecorateLineType:
            return new TLStyleLineDecorateLine();
        case TLStyle::ScriptLineType:
            return new TLStyleScriptLine();
        case TLStyle::SimpleFillType:
            return new TLStyleSimpleFill();
        case TLStyle::PointFillType:
            return new TLStylePointFill();
        case TLStyle::LineFillType:
            return new TLStyleLineFill();
        case TLStyle::ScriptFillType:
            return new TLStyleScriptFill();
        default:
            return nullptr;
    }
}

}  // namespace

TLRefPtr<TLStyle> TLStyleFactory::Create(int typeId, int classType) {
    if (typeId == TLStyle::MultiLayerType) {
        if (classType < TLStyle::PointClass || classType > TLStyle::FillClass)
            return TLRefPtr<TLStyle>();
        return TLRefPtr<TLStyle>(new TLStyleMultiLayer(TLStyle::ClassType(classType)));
    }
    return TLRefPtr<TLStyle>(newStyle(typeId));
}

const char* TLStyleFactory::TypeName(int typeId) {
    switch (typeId) {
        case TLStyle::MultiLayerType:
            return "MultiLayer";
        case TLStyle::SimplePointType:
            return "SimplePoint";
        case TLStyle::CharacterPointType:
            return "CharacterPoint";
        case TLStyle::BitmapPointType:
            return "BitmapPoint";
        case TLStyle::SVGPointType:
            return "SVGPoint";
        case TLStyle::SimpleLineType:
            return "SimpleLine";
        case TLStyle::BrinkLineType:
            return "BrinkLine";
        case TLStyle::PatternLineType:
            return "PatternLine";
        case TLStyle::PointDecorateLineType:
            return "PointDecorateLine";
        case TLStyle::LineDecorateLineType:
            return "LineDecorateLine";
        case TLStyle::ScriptLineType:
            return "ScriptLine";
        case TLStyle::SimpleFillType:
            return "SimpleFill";
        case TLStyle::PointFillType:
            return "PointFill";
        case TLStyle::LineFillType:
            return "LineFill";
        case TLStyle::ScriptFillType:
            return "ScriptFill";
        default:
            return "";
    }
}

void TLStyleFactory::Save(TLFileFunc& file, const TLRefPtr<TLStyle>& style) {
    if (!style) {
        file.WriteInt(0);
        file.WriteInt(0);
        return;
    }
    file.WriteInt(style->GetTypeID());
    file.WriteInt(style->GetClassType());
    style->save(file);
}

bool TLStyleFactory::Open(TLFileFunc& file, TLRefPtr<TLStyle>& style) {
    int typeId = 0, classType = 0;
    if (!file.ReadInt(typeId) || !file.ReadInt(classType)) return false;
    if (typeId == 0) {
        style = TLRefPtr<TLStyle>();
        return true;
    }
    TLRefPtr<TLStyle> made = Create(typeId, classType);
    if (!made || made->GetClassType() != classType || file.Depth() >= kMaxDepth) {
        file.Fail();
        return false;
    }
    file.EnterNested();
    const bool read = made->open(file);
    file.LeaveNested();
    if (!read) {
        file.Fail();
        return false;
    }
    style = made;
    return true;
}

}  // namespace TMObjects
