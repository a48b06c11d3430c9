#pragma once

#include "platform/Surroundings.h"

#include <map>
#include <string>

namespace tollvane::test {

class FaultPlan;

/// Locale numbers that the fake knows.
namespace localeid {
inline constexpr std::uint32_t unitedStates = 0x0409;
inline constexpr std::uint32_t germany = 0x0407;
inline constexpr std::uint32_t japan = 0x0411;
inline constexpr std::uint32_t switzerland = 0x0807;
inline constexpr std::uint32_t unitedKingdom = 0x0809;
inline constexpr std::uint32_t india = 0x4009;
inline constexpr std::uint32_t kuwait = 0x3401;
} // namespace localeid

/// A small locale database with the system's own item numbers, the United States by default.
class FakeLocale : public Locale {
public:
    explicit FakeLocale(FaultPlan& faults);

    std::uint32_t systemDefault() override { return system; }
    std::uint32_t userDefault() override { return user; }
    int info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) override;

    /// Makes one locale both the user's and the system's.
    void use(std::uint32_t locale) { system = user = locale; }
    /// Changes one item of the user's locale, as a user can in the control panel.
    void set(std::uint32_t item, const std::string& value) { items_[user][item] = value; }
    /// Makes an item unknown.
    void remove(std::uint32_t item) { items_[user].erase(item); }

    std::uint32_t system = localeid::unitedStates;
    std::uint32_t user = localeid::unitedStates;

private:
    FaultPlan& faults_;
    std::map<std::uint32_t, std::map<std::uint32_t, std::string>> items_;
};

/// The system's numbers of the items that the fake fills.
namespace localeitem {
inline constexpr std::uint32_t decimal = 0x0E;
inline constexpr std::uint32_t thousand = 0x0F;
inline constexpr std::uint32_t grouping = 0x10;
inline constexpr std::uint32_t digits = 0x11;
inline constexpr std::uint32_t leadingZero = 0x12;
inline constexpr std::uint32_t currency = 0x14;
inline constexpr std::uint32_t internationalSymbol = 0x15;
inline constexpr std::uint32_t moneyDecimal = 0x16;
inline constexpr std::uint32_t moneyThousand = 0x17;
inline constexpr std::uint32_t moneyGrouping = 0x18;
inline constexpr std::uint32_t moneyDigits = 0x19;
inline constexpr std::uint32_t internationalMoneyDigits = 0x1A;
inline constexpr std::uint32_t positiveOrder = 0x1B;
inline constexpr std::uint32_t negativeOrder = 0x1C;
inline constexpr std::uint32_t dateSeparator = 0x1D;
inline constexpr std::uint32_t timeSeparator = 0x1E;
inline constexpr std::uint32_t shortDate = 0x1F;
inline constexpr std::uint32_t longDate = 0x20;
inline constexpr std::uint32_t dateOrder = 0x21;
inline constexpr std::uint32_t positiveSign = 0x50;
inline constexpr std::uint32_t negativeSign = 0x51;
inline constexpr std::uint32_t timeFormat = 0x1003;
} // namespace localeitem

} // namespace tollvane::test
