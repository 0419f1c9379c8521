// The C++17 view of composing.
#include "composing.hpp"

#include <Varnel/documents.hpp>

#include <gtest/gtest.h>

namespace {

TEST(ComposeCpp, AZone) {
  const varnel::composition zone = varnel::compose(composing::document(VARNEL_LAYOUT_TD2));
  ASSERT_TRUE(zone);
  EXPECT_TRUE(zone.ok());
  ASSERT_EQ(zone.lines(), 2U);
  EXPECT_EQ(zone.line(0), "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<");
  EXPECT_EQ(zone.line(1), "D231458907UTO7408122F1204159<<<<<<<6");
  EXPECT_EQ(zone.error().reason, VARNEL_COMPOSE_NO_REASON);
}

TEST(ComposeCpp, ARefusal) {
  varnel_compose_fields fields = composing::document(VARNEL_LAYOUT_TD3);
  fields.primary_identifier = "Ж名";
  const varnel::composition refused = varnel::compose(fields);
  EXPECT_FALSE(refused);
  EXPECT_EQ(refused.lines(), 0U);
  EXPECT_EQ(varnel::field_name(refused.error().field), "primaryIdentifier");
  EXPECT_EQ(varnel::compose_reason_name(refused.error().reason), "badCharacter");
  EXPECT_EQ(refused.error().position, 1U);
  EXPECT_EQ(refused.error().offset, 2U);
}

TEST(ComposeCpp, ALanguage) {
  varnel_compose_fields fields = composing::document(VARNEL_LAYOUT_TD3);
  fields.primary_identifier = "Гнатюк";
  EXPECT_EQ(varnel::compose(fields).line(0).substr(5, 7), "GNATIUK");
  EXPECT_EQ(varnel::compose(fields, "uk").line(0).substr(5, 7), "HNATIUK");
}

TEST(ComposeCpp, NamesOfFieldsAndReasons) {
  EXPECT_EQ(varnel::field_name(VARNEL_DOCUMENT_CODE), "documentCode");
  EXPECT_EQ(varnel::field_name(VARNEL_COMPOSITE), "composite");
  EXPECT_EQ(varnel::field_name(VARNEL_FIELD_NONE), "");
  EXPECT_EQ(varnel::field_name(VARNEL_DOCUMENT_FIELD_END), "");
  EXPECT_EQ(varnel::compose_reason_name(VARNEL_COMPOSE_MISSING), "missing");
  EXPECT_EQ(varnel::compose_reason_name(VARNEL_COMPOSE_UNKNOWN_LANGUAGE), "unknownLanguage");
  EXPECT_EQ(varnel::compose_reason_name(VARNEL_COMPOSE_NO_REASON), "");
  EXPECT_EQ(varnel::compose_reason_name(VARNEL_COMPOSE_REASON_END), "");
}

} // namespace
