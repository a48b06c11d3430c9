#include "entry/ChargeInfoMenus.h"

#include <array>

namespace tollvane {

namespace {

// The form's own access keys leave P, R and H to the bar.
constexpr std::array kMenus{
    MenuDescription{.level = 0, .name = "mnuProgram", .caption = "&Program"},
    MenuDescription{
        .level = 1, .name = "mnu_PZendaSettings", .caption = "&Zenda Data Settings ..."},
    MenuDescription{.level = 1, .name = "mnu_CompanyInfo", .caption = "&Company Info ..."},
    MenuDescription{.level = 1, .name = "mnuHistory", .caption = "&View History"},
    MenuDescription{.level = 2, .name = "mnu_Report", .caption = "Run &Transaction Browser"},
    MenuDescription{.level = 2, .name = "mnu_HSep", .caption = "-"},
    MenuDescription{.level = 2, .name = "mnuPrinter", .caption = "&Printer"},
    MenuDescription{.level = 2, .name = "mnuWindow", .caption = "&Window"},
    MenuDescription{.level = 1, .name = "mnuPSep1", .caption = "-"},
    MenuDescription{.level = 1, .name = "mnu_POptions", .caption = "&Options"},
    MenuDescription{.level = 2, .name = "mnu_POAuto", .caption = "&Auto Format Text"},
    MenuDescription{.level = 3, .name = "mnu_POAnone", .caption = "(&none)"},
    MenuDescription{.level = 3, .name = "mnu_POALowerCase", .caption = "&Lower Case"},
    MenuDescription{.level = 3, .name = "mnu_POAUpperCase", .caption = "&UpperCase"},
    MenuDescription{.level = 3, .name = "mnu_POAProperCase", .caption = "&Proper Case"},
    MenuDescription{.level = 2, .name = "mnu_PODefault", .caption = "&Default Invoice Numbers"},
    MenuDescription{.level = 2, .name = "mnu_POMore", .caption = "&More Options ..."},
    MenuDescription{.level = 1, .name = "mnuPSep2", .caption = "-"},
    MenuDescription{.level = 1, .name = "mnuExit", .caption = "E&xit"},
    MenuDescription{.level = 0, .name = "mnu_Print", .caption = "P&rint"},
    MenuDescription{.level = 1, .name = "mnu_PrintReceipt", .caption = "Print &Receipt"},
    MenuDescription{.level = 0, .name = "mnuHelp", .caption = "&Help"},
    MenuDescription{.level = 1, .name = "mnu_HContents", .caption = "&Contents && Index"},
    MenuDescription{.level = 1, .name = "mnu_HData", .caption = "&Data Path"},
    MenuDescription{.level = 1, .name = "mnu_HSep1", .caption = "-"},
    MenuDescription{.level = 1, .name = "mnu_About", .caption = "&About"},
    MenuDescription{.level = 0, .name = "mnuPopup", .caption = "Popup", .visible = false},
    MenuDescription{.level = 1, .name = "mnu_PGateway", .caption = "Modify &Gateway"},
    MenuDescription{.level = 1, .name = "mnu_PSettings", .caption = "Modify &Settings"},
};

} // namespace

std::span<const MenuDescription> chargeInfoMenus() {
    return kMenus;
}

} // namespace tollvane
