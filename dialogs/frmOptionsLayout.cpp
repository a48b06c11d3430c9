#include "dialogs/frmOptionsLayout.h"

#include <array>

namespace tollvane {

namespace {

using enum ControlKind;

constexpr int kWidth = 436;
constexpr int kRowHeight = 24;
constexpr int kRequiredTop = 8;
constexpr int kOtherTop = 164;
constexpr int kButtonTop = 284;

constexpr Bounds requiredAt(int row) {
    return {24, kRequiredTop + 22 + row * kRowHeight, 184, 20};
}
constexpr Bounds formatAt(int row) {
    return {240, kRequiredTop + 22 + row * kRowHeight, 172, 20};
}
constexpr Bounds otherAt(int row) {
    return {24, kOtherTop + 14 + row * kRowHeight, kWidth - 48, 20};
}

constexpr ControlDescription row(ControlKind kind, std::string_view name, std::string_view caption,
                                 Bounds at, std::string_view toolTip = {}) {
    return {.kind = kind, .name = name, .caption = caption, .at = at, .toolTip = toolTip};
}

constexpr ControlDescription format(int index, std::string_view caption, std::string_view toolTip) {
    ControlDescription button = row(optionButton, "optFormat", caption, formatAt(index), toolTip);
    button.index = index;
    button.follow = {.growRight = true};
    return button;
}

constexpr ControlDescription growing(ControlDescription control) {
    control.follow = {.growRight = true};
    return control;
}

constexpr ControlDescription dialogButton(std::string_view name, std::string_view caption,
                                          int place) {
    ControlDescription button =
        row(ControlKind::button, name, caption, {kWidth - 284 + place * 92, kButtonTop, 84, 26});
    button.follow = {.moveRight = true, .moveDown = true};
    return button;
}

constexpr std::array kControls{
    row(frame, "Frame3", "Required Fields", {12, kRequiredTop, 208, 148}),
    row(checkBox, "chkRCardCode", "Card Code", requiredAt(0),
        "Require the security code from the back of the credit card? (not required if the card is "
        "swiped)"),
    row(checkBox, "chkRPONumber", "PO Number", requiredAt(1), "Require a purchase order number?"),
    row(checkBox, "chkRDescription", "Description", requiredAt(2),
        "Require a description of the transaction?"),
    row(checkBox, "chkRInvoiceNum", "Invoice number", requiredAt(3), "Require an invoice number?"),
    row(checkBox, "chkRBillingAddress", "Customer billing address", requiredAt(4),
        "Require the customer billing address?"),

    growing(
        row(frame, "Frame2", "Automatic Text Formatting", {228, kRequiredTop, kWidth - 240, 148})),
    format(0, "&None", "Text is entered as typed"),
    format(1, "&lower Case", "Text is entered as lower case"),
    format(2, "&UPPER Case", "Text is entered as UPPER CASE"),
    format(3, "&Proper Case", "Text is entered as Proper Case"),

    growing(row(frame, "Frame1", "", {12, kOtherTop, kWidth - 24, 112})),
    growing(
        row(checkBox, "chkDefaultInvoiceNumber", "Generate a default invoice number", otherAt(0))),
    growing(row(checkBox, "chkInvoiceForPONumber", "Use invoice number for PO number", otherAt(1),
                "Use the invoice number for the PO number when no PO number is specified")),
    growing(
        row(checkBox, "chkShopAddrForBlank", "Use shop's adress for blank address", otherAt(2))),
    growing(row(checkBox, "chkShowRefundVoidWarning", "Show refund/void warning", otherAt(3))),

    dialogButton("cmdOK", "OK", 0),
    dialogButton("cmdCancel", "Cancel", 1),
    dialogButton("cmdApply", "&Apply", 2),
};

} // namespace

const FormDescription& optionsLayout() {
    static const FormDescription description{
        .name = "frmOptions",
        .caption = "Program Options",
        .width = kWidth,
        .height = kButtonTop + 38,
        .controls = kControls,
        .defaultButton = "cmdOK",
        .cancelButton = "cmdCancel",
        .resizable = true,
        .dialog = true,
    };
    return description;
}

} // namespace tollvane
