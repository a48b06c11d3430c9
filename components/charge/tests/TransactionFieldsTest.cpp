#include "components/charge/core/TransactionFields.h"

#include "components/charge/core/Failure.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tollvane::charge {
namespace {

TEST(TransactionFields, MaximumLengthsAreThoseOfTheGateway) {
    const std::map<std::string, int> expected = {
        {"x_first_name", 50},   {"x_last_name", 50},   {"x_card_num", 19}, {"x_card_code", 4},
        {"x_amount", 15},       {"x_zip", 20},         {"x_tax", 15},      {"x_auth_code", 6},
        {"x_trans_id", 20},     {"x_address", 60},     {"x_city", 40},     {"x_email", 255},
        {"x_description", 255}, {"x_invoice_num", 20}, {"x_po_num", 25},   {"x_exp_date", 10},
        {"x_tax_exempt", 5},    {"x_state", 40},       {"x_track1", 200}};
    EXPECT_EQ(expected.size(), fieldDefinitions().size());
    for (const auto& [name, length] : expected)
        EXPECT_EQ(length, fieldByName(name).maximumLength) << name;
}

TEST(TransactionFields, TheTableStandsInTheOrderOfTheFields) {
    std::size_t index = 0;
    for (const FieldDefinition& each : fieldDefinitions())
        EXPECT_EQ(index++, static_cast<std::size_t>(each.field)) << each.name;
}

TEST(TransactionFields, NamesAreFoundWithoutRegardToCase) {
    EXPECT_EQ(Field::CardNumber, fieldByName("X_Card_NUM").field);
    EXPECT_EQ(Field::TrackOne, fieldByName("X_TRACK1").field);
    EXPECT_THROW(fieldByName("x_trackQ"), com::ComponentError);
    EXPECT_THROW(fieldByName("X@CARD@NUM"), com::ComponentError);
}

TEST(TransactionFields, AnUnknownNameIsAnErrorThatNamesIt) {
    try {
        fieldByName("x_nonsense");
        FAIL() << "no error";
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::unknownField, error.number());
        EXPECT_EQ("Zendacard.Fields", error.source());
        EXPECT_EQ("The gateway has no field named \"x_nonsense\".", error.description());
    }
    EXPECT_THROW(fieldByName(""), com::ComponentError);
    EXPECT_THROW(fieldByName("x_card_nu"), com::ComponentError);
}

TEST(TransactionFields, ValuesStayUntilTheyAreCleared) {
    TransactionFields fields;
    fields.set(Field::City, "Springfield");
    fields.set(Field::CardNumber, "4111111111111111");
    EXPECT_EQ("Springfield", fields.get(Field::City));
    fields.clear(Field::CardNumber);
    EXPECT_EQ("", fields.get(Field::CardNumber));
    EXPECT_EQ("Springfield", fields.get(Field::City));
    fields.clear();
    for (const FieldDefinition& each : fieldDefinitions())
        EXPECT_EQ("", fields.get(each.field)) << each.name;
}

TEST(TransactionFields, MoneyAndItsFieldAreTheSame) {
    TransactionFields fields;
    fields.setMoney(Field::Amount, Money::fromScaled(125'000));
    EXPECT_EQ("12.50", fields.get(Field::Amount));
    fields.set(Field::Amount, "7.25");
    EXPECT_EQ(72'500, fields.money(Field::Amount).scaled());
    fields.set(Field::Amount, "nonsense");
    EXPECT_THROW(fields.money(Field::Amount), com::ComponentError);
}

TEST(TransactionFields, AFlagIsTrueOrFalse) {
    TransactionFields fields;
    EXPECT_FALSE(fields.flag(Field::TaxExempt));
    fields.setFlag(Field::TaxExempt, true);
    EXPECT_TRUE(fields.flag(Field::TaxExempt));
    EXPECT_EQ("TRUE", fields.get(Field::TaxExempt));
    fields.setFlag(Field::TaxExempt, false);
    EXPECT_FALSE(fields.flag(Field::TaxExempt));
}

TEST(TransactionFields, TheFirstValueThatIsTooLongIsNamed) {
    TransactionFields fields;
    fields.set(Field::City, std::string(40, 'x'));
    EXPECT_EQ(nullptr, fields.firstTooLong());
    fields.set(Field::City, std::string(41, 'x'));
    ASSERT_NE(nullptr, fields.firstTooLong());
    EXPECT_EQ(Field::City, fields.firstTooLong()->field);
}

} // namespace
} // namespace tollvane::charge
