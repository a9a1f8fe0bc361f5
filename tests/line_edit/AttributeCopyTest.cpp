#include <gtest/gtest.h>

#include <memory>

#include "edit/TLAttributeCopy.h"
#include "tlsde/TLFeature.h"

using namespace TMObjects;

TEST(AttributeCopy, CopiesEveryFieldButGeometryAndSystemFields) {
    auto fields = std::make_shared<TLFields>();
    fields->AddField("fid", TLField::FieldOID);
    fields->AddField("shape", TLField::FieldGeometry);
    fields->AddField("name", TLField::FieldString);
    fields->AddField("lanes", TLField::FieldShort);
    fields->AddField("note", TLField::FieldString);

    TLFeature old;
    old.SetFields(fields);
    old.SetId(4);
    old.SetValue(2, TLVariant(TLString("Mill Road")));
    old.SetValue(3, TLVariant::FromInt(2));

    TLFeature piece;
    piece.SetValue("note", TLVariant(TLString("kept unless copied")));
    TLAttributeCopy::Copy(old, piece);
    EXPECT_EQ(piece.GetId(), -1);
    EXPECT_EQ(piece.GetValue("name").ToString().toStdString(), "Mill Road");
    EXPECT_EQ(piece.GetValue("lanes").GetInt32(), 2);
    EXPECT_TRUE(piece.GetValue("note").IsNull());  // the old null is copied too
    EXPECT_TRUE(piece.GetValue("fid").IsNull());   // the old id reads 4, and is not copied

    TLFeature keeping;
    keeping.SetValue("note", TLVariant(TLString("kept")));
    TLAttributeCopy::Copy(old, keeping, true);
    EXPECT_EQ(keeping.GetValue("note").ToString().toStdString(), "kept");
    EXPECT_EQ(keeping.GetValue("name").ToString().toStdString(), "Mill Road");
}
