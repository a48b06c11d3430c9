// The platform's own conversions judge ours.

#include "platform/Error.h"
#include "platform/Money.h"
#include "platform/win32/SystemText.h"
#include "tests/win32/SystemLocale.h"

#include <oleauto.h>

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace tollvane::test {
namespace {

constexpr int kTexts = 20'000;

/// An amount, or the number of the error that stood in its way.
struct Verdict {
    std::int64_t scaled = 0;
    long error = 0;
    bool operator==(const Verdict&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Verdict& verdict) {
    return verdict.error == 0 ? out << verdict.scaled : out << "error " << verdict.error;
}

Verdict systemVerdict(const std::string& text, LCID locale) {
    std::wstring wide = win32::widened(text);
    CY amount{};
    const HRESULT result = VarCyFromStr(wide.data(), locale, 0, &amount);
    switch (result) {
    case S_OK: return {amount.int64, 0};
    case DISP_E_OVERFLOW: return {0, 6};
    case DISP_E_TYPEMISMATCH: return {0, 13};
    default: return {0, result};
    }
}

Verdict ourVerdict(const std::string& text, const MoneyStyle& style) {
    try {
        return {moneyFromText(text, style).scaled(), 0};
    } catch (const Error& error) {
        return {0, error.number()};
    }
}

class MoneyJudge : public testing::TestWithParam<LCID> {
protected:
    template <class Element>
    Element oneOf(const std::vector<Element>& elements) {
        return elements[random() % elements.size()];
    }

    /// Up to three pieces in random order.
    std::string decorations(const std::vector<std::string>& pieces) {
        std::string text;
        for (std::size_t left = random() % 4; left > 0; --left) {
            text += oneOf(pieces);
        }
        return text;
    }

    std::string number() {
        std::string text = oneOf<std::string>({"0", "1", "007", "12", "99", "1234", ""});
        if (random() % 3 == 0) {
            text += style.groupSeparator + oneOf<std::string>({"5", "678", "0000"});
        }
        if (random() % 2 == 0) {
            return text + style.decimalSeparator +
                   oneOf<std::string>({"", "5", "50", "9999", "0001", "5e2"});
        }
        return text + oneOf<std::string>({"", "", "", "e2", "E3"});
    }

    /// An amount with decorations that may or may not go together, some with a flaw. Left out is
    /// what Wine is known to convert otherwise than Windows: radix literals, exponents marked "d",
    /// more than four places, and amounts for which a double is too coarse.
    std::string anyText() {
        const std::string& symbol = style.currencySymbol;
        std::string text = decorations({"-", "+", "(", symbol, " ", "\t"}) + number() +
                           decorations({"-", "+", ")", symbol, " ", "\r\n", style.groupSeparator});
        if (random() % 8 == 0) {
            text.insert(random() % (text.size() + 1),
                        oneOf<std::string>({"x", "%", style.decimalSeparator, " ", "(", "-"}));
        }
        return text;
    }

    /// Wine overlooks a decoration that stands twice behind the number and some brackets that stay
    /// open.
    bool isKnownDifference(const std::string& text) const {
        const auto standsTwice = [&text](const std::string& piece) {
            return text.find(piece) != text.rfind(piece);
        };
        return standsTwice("-") || standsTwice("+") || standsTwice(style.currencySymbol) ||
               standsTwice(")") || (text.find('(') == text.npos) != (text.find(')') == text.npos);
    }

    MoneyStyle systemStyle() {
        SystemLocale locale(GetParam());
        return moneyStyle(locale);
    }

    std::mt19937 random{20261121}; // NOLINT: the same texts each time
    MoneyStyle style = systemStyle();
};

TEST_P(MoneyJudge, TextsConvertAsTheSystemConvertsThem) {
    int amounts = 0;
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = anyText();
        if (isKnownDifference(text)) {
            continue;
        }
        const Verdict expected = systemVerdict(text, GetParam());
        ASSERT_EQ(ourVerdict(text, style), expected) << '"' << text << '"';
        amounts += expected.error == 0 ? 1 : 0;
    }
    EXPECT_GT(amounts, kTexts / 50) << "the texts should not all be refused";
}

TEST_P(MoneyJudge, OurCurrencyTextsReadAsTheSameAmountInTheSystem) {
    std::uniform_int_distribution<std::int64_t> cents(-99'999'999, 99'999'999);
    for (int i = 0; i < kTexts / 10; ++i) {
        const Money amount = Money::fromScaled(cents(random) * 100);
        const std::string text = currencyText(amount, style);
        ASSERT_EQ(systemVerdict(text, GetParam()), (Verdict{amount.scaled(), 0})) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Locales, MoneyJudge,
                         testing::Values(lcid::unitedStates, lcid::unitedKingdom, lcid::germany,
                                         lcid::netherlands, lcid::brazil));

/// Grouping as the formatting call takes it: "3;0" is 3, "3;2;0" is 32.
UINT packedGrouping(const std::string& grouping) {
    UINT packed = 0;
    for (const char c : grouping) {
        packed = c >= '1' && c <= '9' ? packed * 10 + static_cast<UINT>(c - '0') : packed;
    }
    return packed;
}

std::string systemCurrencyText(Money amount, MoneyStyle style, LCID locale) {
    CURRENCYFMTA format{};
    format.NumDigits = static_cast<UINT>(style.digits);
    format.LeadingZero = 1;
    format.Grouping = packedGrouping(style.moneyGrouping);
    format.lpDecimalSep = style.moneyDecimal.data();
    format.lpThousandSep = style.moneyGroup.data();
    format.NegativeOrder = static_cast<UINT>(style.negativeOrder);
    format.PositiveOrder = static_cast<UINT>(style.positiveOrder);
    format.lpCurrencySymbol = style.currencySymbol.data();
    MoneyStyle exact;
    exact.currencySymbol = exact.moneyGroup = "";
    exact.digits = 4;
    exact.negativeOrder = 1;
    char buffer[100] = "";
    GetCurrencyFormatA(locale, 0, currencyText(amount, exact).c_str(), &format, buffer,
                       sizeof buffer);
    return buffer;
}

class CurrencyFormatJudge : public testing::TestWithParam<LCID> {};

TEST_P(CurrencyFormatJudge, AmountsAreWrittenAsTheSystemWritesThem) {
    SystemLocale locale(GetParam());
    const MoneyStyle style = moneyStyle(locale);
    std::mt19937_64 random(20261121); // NOLINT: the same amounts each time
    for (int i = 0; i < kTexts / 10; ++i) {
        const auto bits = static_cast<std::int64_t>(random());
        const Money amount = Money::fromScaled(bits >> (random() % 63));
        ASSERT_EQ(currencyText(amount, style), systemCurrencyText(amount, style, GetParam()))
            << amount.scaled();
    }
}

TEST_P(CurrencyFormatJudge, EveryOrderIsWrittenAsTheSystemWritesIt) {
    SystemLocale locale(GetParam());
    MoneyStyle style = moneyStyle(locale);
    for (int order = 0; order < 16; ++order) {
        style.negativeOrder = order;
        style.positiveOrder = order % 4;
        for (const std::int64_t scaled : {12'345'678LL, -12'345'678LL, -40LL, 0LL}) {
            const Money amount = Money::fromScaled(scaled);
            EXPECT_EQ(currencyText(amount, style), systemCurrencyText(amount, style, GetParam()))
                << "order " << order;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Locales, CurrencyFormatJudge,
                         testing::Values(lcid::unitedStates, lcid::unitedKingdom, lcid::germany,
                                         lcid::netherlands, lcid::brazil, lcid::france,
                                         lcid::denmark, lcid::switzerland));

std::string systemFormat(Money amount, const wchar_t* format) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = VT_CY;
    V_CY(&value).int64 = amount.scaled();
    std::wstring pattern = format;
    BSTR text = nullptr;
    constexpr int kFirstDayAndWeekOfTheSystem = 1;
    if (FAILED(VarFormat(&value, pattern.data(), kFirstDayAndWeekOfTheSystem,
                         kFirstDayAndWeekOfTheSystem, 0, &text))) {
        return "no text";
    }
    std::string narrow = win32::narrowed({text, SysStringLen(text)});
    SysFreeString(text);
    return narrow;
}

TEST(NamedFormatJudge, CurrencyAndPlainFormsAreTheSystemsForThisUser) {
    win32::Win32Locale locale;
    const MoneyStyle style = moneyStyle(locale);
    std::mt19937_64 random(20261121); // NOLINT: the same amounts each time
    for (int i = 0; i < kTexts / 10; ++i) {
        const auto bits = static_cast<std::int64_t>(random());
        const Money amount = Money::fromScaled(bits >> (random() % 63));
        ASSERT_EQ(currencyText(amount, style), systemFormat(amount, L"CURRENCY"));
        ASSERT_EQ(plainMoneyText(amount, style), systemFormat(amount, L"0.00"));
    }
}

} // namespace
} // namespace tollvane::test
