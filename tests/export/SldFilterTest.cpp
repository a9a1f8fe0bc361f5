#include <gtest/gtest.h>

#include "SldShape.h"
#include "export/TLSldFilterWriter.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLRuleBasedSymbolRender.h"
#include "tlsymbol/TLStyleSimpleLine.h"

namespace TMObjects {
namespace {

TLRefPtr<TLStyle> thinRed() {
    TLRefPtr<TLStyleSimpleLine> line(new TLStyleSimpleLine());
    line->SetUnits(TLStyleLength::Pixel);
    line->SetWidth(1);
    line->SetColor(TLColor(255, 0, 0));
    return line;
}

const QString kThinRed =
    "sld:LineSymbolizer(sld:Stroke(sld:CssParameter[name=stroke]'#ff0000',"
    "sld:CssParameter[name=stroke-width]'1',sld:CssParameter[name=stroke-linejoin]'round',"
    "sld:CssParameter[name=stroke-linecap]'round'))";

QString comparison(const QString& name, const QString& field, const QString& literal) {
    return name + "(ogc:PropertyName'" + field + "',ogc:Literal'" + literal + "')";
}

QString filteredRule(const QString& value, const QString& filter) {
    return "sld:Rule(sld:Name'" + value + "',sld:Title'" + value + "',ogc:Filter(" + filter + ")," +
           kThinRed + ")";
}

QStringList categoryRules(const QStringList& values) {
    TLRefPtr<TLCategorizedSymbolRender> render(new TLCategorizedSymbolRender("CLASS"));
    for (const QString& value : values)
        render->AddItem(TLRefPtr<TLCategoryRenderItem>(
            new TLCategoryRenderItem(value.toStdWString(), "legend text", thinRed())));
    return rulesOf(*layerWith("roads", TLLayer::LineLayer, render));
}

QStringList ruleRules(const QStringList& expressions) {
    TLRefPtr<TLRuleBasedSymbolRender> render(new TLRuleBasedSymbolRender());
    for (const QString& expression : expressions)
        render->AddRule(TLRefPtr<TLSymbolRule>(
            new TLSymbolRule(expression.toStdWString(), "LABEL", thinRed())));
    return rulesOf(*layerWith("roads", TLLayer::LineLayer, render));
}

TEST(SldFilter, CategoriesCompareTheRenderFieldWithTheirValue) {
    EXPECT_EQ(
        categoryRules({"10,20", "NOT", "motorway", "<3"}),
        (QStringList{
            filteredRule("10,20",
                         "ogc:PropertyIsBetween(ogc:PropertyName'CLASS',"
                         "ogc:LowerBoundary(ogc:Literal'10'),"
                         "ogc:UpperBoundary(ogc:Literal'20'))"),
            filteredRule("NOT", comparison("ogc:PropertyIsNull", "CLASS", "NOT")),
            filteredRule("motorway", comparison("ogc:PropertyIsEqualTo", "CLASS", "motorway")),
            filteredRule("<3", comparison("ogc:PropertyIsLessThan", "CLASS", "<3")),
        }));
}

TEST(SldFilter, RulesSplitTheirExpressionAndReadComparisonsAsWritten) {
    EXPECT_EQ(
        ruleRules({"a >= 5", "NOT a > 5", "b<=3", "kind != 2", "name LIKE 'x%'"}),
        (QStringList{
            filteredRule("a >= 5", comparison("ogc:PropertyIsGreaterThan", "a", "5")),
            filteredRule("NOT a > 5", comparison("ogc:PropertyIsGreaterThan", "a", "5")),
            filteredRule("b<=3", comparison("ogc:PropertyIsLessThan", "b", "3")),
            filteredRule("kind != 2", comparison("ogc:PropertyIsNotEqualTo", "kind", "2")),
            filteredRule("name LIKE 'x%'", comparison("ogc:PropertyIsEqualTo", "name", "'x%'")),
        }));
}

TEST(SldFilter, AndLosesItsComparisonsAndLeavesTheFilterEmpty) {
    const QString empty = "sld:Rule(sld:Name'%1',sld:Title'%1',ogc:Filter," + kThinRed + ")";
    EXPECT_EQ(ruleRules({"a > 1 AND b < 2"}), QStringList(empty.arg("a > 1 AND b < 2")));
    // Any value with "and" in it goes the same way.
    EXPECT_EQ(categoryRules({"Highland"}), QStringList(empty.arg("Highland")));
}

TEST(SldFilter, MissingItemsAndStylesLeaveNoRule) {
    TLRefPtr<TLCategorizedSymbolRender> categories(new TLCategorizedSymbolRender("CLASS"));
    categories->AddItem(nullptr);
    categories->AddItem(
        TLRefPtr<TLCategoryRenderItem>(new TLCategoryRenderItem("1", "one", nullptr)));
    categories->AddItem(
        TLRefPtr<TLCategoryRenderItem>(new TLCategoryRenderItem("2", "two", thinRed())));
    TLRefPtr<TLFeatureLayer> layer = layerWith("roads", TLLayer::LineLayer, categories);
    layer->SetVisibleScales(500, 5000);
    EXPECT_EQ(
        rulesOf(*layer),
        QStringList("sld:Rule(sld:MinScaleDenominator'5000',sld:MaxScaleDenominator'500',"
                    "sld:Name'2',sld:Title'2',ogc:Filter(" +
                    comparison("ogc:PropertyIsEqualTo", "CLASS", "2") + ")," + kThinRed + ")"));

    TLRefPtr<TLRuleBasedSymbolRender> rules(new TLRuleBasedSymbolRender());
    rules->AddRule(nullptr);
    rules->AddRule(TLRefPtr<TLSymbolRule>(new TLSymbolRule("a = 1", "one", nullptr)));
    EXPECT_TRUE(rulesOf(*layerWith("roads", TLLayer::LineLayer, rules)).isEmpty());
}

TEST(SldFilter, ExpressionSplitCountsNegationsAndNamesTheOperator) {
    QStringList items;
    TLSldFilterWriter::splitExpression("NOT NOT a = 1", items);
    EXPECT_EQ(items, (QStringList{"a ", " 1", "=="}));
    items.clear();
    TLSldFilterWriter::splitExpression("not a in (1,2)", items);
    EXPECT_EQ(items, (QStringList{"a ", " (1,2)", "!in"}));
    items.clear();
    TLSldFilterWriter::splitExpression("a <= 1", items);
    EXPECT_EQ(items, (QStringList{"a ", " 1", "<="}));
    items.clear();
    TLSldFilterWriter::splitExpression("abc", items);
    EXPECT_TRUE(items.isEmpty());
}

}  // namespace
}  // namespace TMObjects
