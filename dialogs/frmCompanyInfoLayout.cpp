#include "dialogs/frmCompanyInfoLayout.h"

#include <array>

namespace tollvane {

namespace {

using enum ControlKind;

constexpr int kWidth = 420;
constexpr int kLabelLeft = 14;
constexpr int kBoxLeft = 144;
constexpr int kBoxHeight = 23;
constexpr int kRowHeight = 30;
constexpr int kTop = 16;
constexpr int kStateRow = 4;
constexpr int kStateNameHeight = 16;
/// Above the state's row there is room for the state's name.
constexpr int kMoreRoom = kStateNameHeight - (kRowHeight - kBoxHeight);

constexpr int rowTop(int row) {
    return kTop + row * kRowHeight + (row >= kStateRow ? kMoreRoom : 0);
}

constexpr int kButtonTop = rowTop(7) + 14;

constexpr ControlDescription caption(std::string_view name, std::string_view text, Bounds at) {
    return {.kind = label, .name = name, .caption = text, .at = at};
}

constexpr ControlDescription rowCaption(std::string_view name, std::string_view text, int row) {
    return caption(name, text, {kLabelLeft, rowTop(row) + 4, kBoxLeft - kLabelLeft - 8, 16});
}

constexpr ControlDescription box(std::string_view name, int row, int width,
                                 std::string_view toolTip = {}) {
    return {.kind = textBox,
            .name = name,
            .at = {kBoxLeft, rowTop(row), width, kBoxHeight},
            .toolTip = toolTip};
}

constexpr ControlDescription wideBox(std::string_view name, int row, std::string_view toolTip) {
    ControlDescription control = box(name, row, kWidth - kBoxLeft - kLabelLeft, toolTip);
    control.follow = {.growRight = true};
    return control;
}

constexpr ControlDescription hidden(ControlDescription control) {
    control.visible = false;
    return control;
}

constexpr ControlDescription dialogButton(std::string_view name, std::string_view text, int place,
                                          bool causesValidation = true) {
    return {.kind = button,
            .name = name,
            .caption = text,
            .at = {kWidth - kLabelLeft - 268 + place * 92, kButtonTop, 84, 26},
            .follow = {.moveRight = true, .moveDown = true},
            .causesValidation = causesValidation};
}

constexpr std::array kControls{
    rowCaption("lblCompanyName", "Company &Name", 0),
    wideBox("txtCompanyName", 0, "Name to print on receipts"),
    rowCaption("lblCompanyStreet", "&Street Address", 1),
    wideBox("txtCompanyStreet", 1, "Street Address to print on receipts"),
    rowCaption("lblCompanyAddAddr", "A&dditional Address", 2),
    wideBox("txtCompanyAddAddr", 2, "Additional address information (PO Box #, Suite #, ect.)"),
    rowCaption("lblCompanyCity", "&City", 3),
    wideBox("txtCompanyCity", 3, "City to print on receipts"),
    rowCaption("lblState", "State", kStateRow),
    ControlDescription{
        .kind = comboBox, .name = "cboState", .at = {kBoxLeft, rowTop(kStateRow), 70, kBoxHeight}},
    caption("lblCompanyZip", "&Zip Code", {kBoxLeft + 86, rowTop(kStateRow) + 4, 64, 16}),
    // The tip is the phone number's, and has always been.
    ControlDescription{.kind = textBox,
                       .name = "txtCompanyZip",
                       .at = {kBoxLeft + 152, rowTop(kStateRow), 110, kBoxHeight},
                       .toolTip = "Phone number to print on receipt",
                       .follow = {.growRight = true}},
    rowCaption("lblCompanyPhone", "&Phone Number", 5),
    wideBox("txtCompanyPhone", 5, "Phone number to print on receipt"),
    rowCaption("lblLocation", "&Loc.", 6),
    box("txtLocation", 6, 70),

    dialogButton("cmdOK", "OK", 0),
    dialogButton("cmdCancel", "Cancel", 1, false),
    dialogButton("cmdApply", "&Apply", 2),

    hidden(caption("lblStateName", "",
                   {kBoxLeft - 60, rowTop(kStateRow) - kStateNameHeight, 190, kStateNameHeight})),
    ControlDescription{.kind = timer, .name = "tmrDisplay", .interval = 3000},
};

} // namespace

const FormDescription& companyInfoLayout() {
    static const FormDescription description{
        .name = "frmCompanyInfo",
        .caption = "Company Information",
        .width = kWidth,
        .height = kButtonTop + 40,
        .controls = kControls,
        .defaultButton = "cmdOK",
        .cancelButton = "cmdCancel",
        .resizable = true,
        .dialog = true,
    };
    return description;
}

} // namespace tollvane
