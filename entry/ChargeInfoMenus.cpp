#include "entry/ChargeInfoMenus.h"

#include <array>

namespace tollvane {

namespace {

constexpr std::array kMenus{
    MenuDescription{.level = 0, .name = "mnuProgram", .caption = "&Program"},
    MenuDescription{.level = 1, .name = "mnu_CompanyInfo", .caption = "&Company Info ..."},
    MenuDescription{.level = 1, .name = "mnu_Report", .caption = "Run &Transaction Browser"},
    MenuDescription{.level = 1, .name = "mnuPSep1", .caption = "-"},
    MenuDescription{.level = 1, .name = "mnu_POptions", .caption = "&Options"},
    MenuDescription{.level = 2, .name = "mnu_POMore", .caption = "&More Options ..."},
    MenuDescription{.level = 1, .name = "mnuPSep2", .caption = "-"},
    MenuDescription{.level = 1, .name = "mnuExit", .caption = "E&xit"},
    MenuDescription{.level = 0, .name = "mnuPopup", .caption = "Popup", .visible = false},
    MenuDescription{.level = 1, .name = "mnu_PGateway", .caption = "Modify &Gateway"},
    MenuDescription{.level = 1, .name = "mnu_PSettings", .caption = "Modify &Settings"},
};

} // namespace

std::span<const MenuDescription> chargeInfoMenus() {
    return kMenus;
}

} // namespace tollvane
