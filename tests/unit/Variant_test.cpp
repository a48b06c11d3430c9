#include "platform/Automation.h"
#include "platform/Error.h"
#include "platform/Variant.h"

#include <gtest/gtest.h>
#include <limits>

namespace tollvane {
namespace {

/// The number that the conversion raises, 0 when it converts.
long failure(const auto& conversion) {
    try {
        conversion();
        return 0;
    } catch (const Error& error) {
        EXPECT_EQ(error.description(), error.number() == 13 ? "Type mismatch" : "Overflow");
        return error.number();
    }
}

Variant text(const char* characters) {
    return std::string(characters);
}

TEST(VariantConversion, EmptyReadsAsNothingOfEveryKind) {
    const Variant empty;
    EXPECT_FALSE(asBool(empty));
    EXPECT_EQ(asInt(empty), 0);
    EXPECT_EQ(asText(empty), "");
    EXPECT_TRUE(asSecret(empty).empty());
    EXPECT_EQ(asMoney(empty, {}), Money());
    EXPECT_EQ(failure([&] { asObject(empty); }), 13);
}

TEST(VariantConversion, NumbersRoundHalfToEven) {
    EXPECT_EQ(asInt(12.5), 12);
    EXPECT_EQ(asInt(13.5), 14);
    EXPECT_EQ(asInt(-12.5), -12);
    EXPECT_EQ(asInt(text("12.5")), 12);
    EXPECT_EQ(asInt(text("13.5")), 14);
    EXPECT_EQ(asInt(Money::fromScaled(125'000)), 12);
    EXPECT_EQ(asInt(Money::fromScaled(135'000)), 14);
    EXPECT_EQ(asInt(Money::fromScaled(-135'000)), -14);
    EXPECT_EQ(asInt(Money::fromScaled(-134'999)), -13);
    EXPECT_EQ(asMoney(0.03125, {}).scaled(), 312);
    EXPECT_EQ(asMoney(0.09375, {}).scaled(), 938);
    EXPECT_EQ(asMoney(-0.03125, {}).scaled(), -312);
}

TEST(VariantConversion, TextsReadAsTheNumbersThatTheyHold) {
    EXPECT_EQ(asInt(text("  12 ")), 12);
    EXPECT_EQ(asInt(text("-$1,000")), -1000);
    EXPECT_EQ(asInt(text("(5)")), -5);
    EXPECT_EQ(asInt(text("&HFFFF")), 65'535);
    EXPECT_EQ(asInt(text("&HFFFFFFFF")), -1);
    EXPECT_EQ(failure([] { asInt(text("")); }), 13);
    EXPECT_EQ(failure([] { asInt(text("abc")); }), 13);
    EXPECT_EQ(failure([] { asInt(text("True")); }), 13);
}

TEST(VariantConversion, NumbersBeyondThirtyTwoBitsOverflow) {
    EXPECT_EQ(asInt(2147483647.4), 2147483647);
    EXPECT_EQ(failure([] { asInt(2147483647.5); }), 6);
    EXPECT_EQ(asInt(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(failure([] { asInt(text("2147483648")); }), 6);
    EXPECT_EQ(failure([] { asInt(text("&H1FFFFFFFF")); }), 6);
    EXPECT_EQ(failure([] { asInt(Money::fromUnits(3'000'000'000)); }), 6);
    EXPECT_EQ(failure([] { asInt(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(failure([] { asInt(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(failure([] { asMoney(1e15, {}); }), 6);
    EXPECT_EQ(failure([] { asMoney(std::numeric_limits<double>::quiet_NaN(), {}); }), 6);
}

TEST(VariantConversion, TrueIsMinusOneAsANumber) {
    EXPECT_EQ(asInt(true), -1);
    EXPECT_EQ(asInt(false), 0);
    EXPECT_EQ(asMoney(true, {}), Money::fromUnits(-1));
}

TEST(VariantConversion, AnythingButZeroIsTrue) {
    EXPECT_TRUE(asBool(-1));
    EXPECT_TRUE(asBool(2));
    EXPECT_FALSE(asBool(0));
    EXPECT_TRUE(asBool(0.1));
    EXPECT_TRUE(asBool(Money::fromScaled(1)));
    EXPECT_FALSE(asBool(Money()));
}

TEST(VariantConversion, TextsReadAsTruthValues) {
    for (const char* yes : {"True", "true", "TRUE", "#TRUE#", "-1", " 2 ", "0.5"}) {
        EXPECT_TRUE(asBool(text(yes))) << yes;
    }
    for (const char* no : {"False", "false", "#FALSE#", "0", " 0.0 "}) {
        EXPECT_FALSE(asBool(text(no))) << no;
    }
    for (const char* neither : {"", "yes", "truth", "T"}) {
        EXPECT_EQ(failure([&] { asBool(text(neither)); }), 13) << neither;
    }
}

TEST(VariantConversion, EveryValueButSecretsAndObjectsHasAText) {
    EXPECT_EQ(asText(true), "True");
    EXPECT_EQ(asText(false), "False");
    EXPECT_EQ(asText(-12), "-12");
    EXPECT_EQ(asText(0.1), "0.1");
    EXPECT_EQ(asText(1e15), "1E+15");
    EXPECT_EQ(asText(1e-5), "1E-05");
    EXPECT_EQ(asText(-0.0), "0");
    EXPECT_EQ(asText(Money::fromScaled(12'345'000)), "1234.5");
    EXPECT_EQ(asText(Money::fromUnits(100)), "100");
    EXPECT_EQ(asText(Money::fromScaled(-1)), "-0.0001");
    EXPECT_EQ(asText(Money::fromScaled(std::numeric_limits<std::int64_t>::min())),
              "-922337203685477.5808");
    EXPECT_EQ(asText(DateTime{2027, 3, 1, 9, 5, 3}), "2027-03-01 09:05:03");
    EXPECT_EQ(asText(text("as it is ")), "as it is ");
}

TEST(VariantConversion, ASecretConvertsToNothingButASecret) {
    const Variant secret = SecretText("4111111111111111");
    EXPECT_EQ(asSecret(secret).view(), "4111111111111111");
    EXPECT_EQ(failure([&] { asText(secret); }), 13);
    EXPECT_EQ(failure([&] { asInt(secret); }), 13);
    EXPECT_EQ(failure([&] { asBool(secret); }), 13);
    EXPECT_EQ(failure([&] { asMoney(secret, {}); }), 13);
}

TEST(VariantConversion, TextsAndNumbersBecomeSecrets) {
    EXPECT_EQ(asSecret(text("4111")).view(), "4111");
    EXPECT_EQ(asSecret(123).view(), "123");
    EXPECT_EQ(failure([] { asSecret(ObjectRef()); }), 13);
}

TEST(VariantConversion, MoneyTextsFollowTheGivenLocale) {
    MoneyStyle style;
    style.decimalSeparator = style.moneyDecimal = ",";
    style.groupSeparator = style.moneyGroup = ".";
    EXPECT_EQ(asMoney(text("1.234,5"), style), Money::fromScaled(12'345'000));
    EXPECT_EQ(asMoney(5, style), Money::fromUnits(5));
    EXPECT_EQ(failure([&] { asMoney(text("five"), style); }), 13);
}

TEST(VariantConversion, ADateIsNoNumber) {
    const Variant date = DateTime{2027, 3, 1, 0, 0, 0};
    EXPECT_EQ(failure([&] { asInt(date); }), 13);
    EXPECT_EQ(failure([&] { asMoney(date, {}); }), 13);
    EXPECT_EQ(failure([&] { asBool(date); }), 13);
}

class NoObject : public AutomationObject {
public:
    Variant call(std::string_view, std::vector<Argument>) override { return {}; }
    Variant get(std::string_view, std::vector<Argument>) override { return {}; }
    void put(std::string_view, Variant) override {}
    void putReference(std::string_view, ObjectRef) override {}
};

TEST(VariantConversion, OnlyAnObjectIsAnObject) {
    const ObjectRef object = std::make_shared<NoObject>();
    EXPECT_EQ(asObject(object), object);
    EXPECT_EQ(failure([] { asObject(ObjectRef()); }), 13);
    EXPECT_EQ(failure([] { asObject(1); }), 13);
    EXPECT_EQ(failure([&] { asText(object); }), 13);
}

} // namespace
} // namespace tollvane
