#pragma once

#include "platform/LocaleStyle.h"
#include "platform/win32/Win32Surroundings.h"

#include <windows.h>

namespace tollvane::test {

/// The system's locale database with another locale in the user's place.
class SystemLocale final : public Locale {
public:
    explicit SystemLocale(LCID user) : user_(user) {}

    std::uint32_t systemDefault() override { return user_; }
    std::uint32_t userDefault() override { return user_; }
    int info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) override {
        return system_.info(locale, item, buffer, size);
    }

private:
    win32::Win32Locale system_;
    LCID user_;
};

/// Locales whose texts the process's western code page can hold.
namespace lcid {
inline constexpr LCID unitedStates = 0x0409;
inline constexpr LCID unitedKingdom = 0x0809;
inline constexpr LCID germany = 0x0407;
inline constexpr LCID netherlands = 0x0413;
inline constexpr LCID brazil = 0x0416;
inline constexpr LCID france = 0x040C;
inline constexpr LCID denmark = 0x0406;
inline constexpr LCID switzerland = 0x0807;
} // namespace lcid

} // namespace tollvane::test
