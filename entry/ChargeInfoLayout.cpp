#include "entry/ChargeInfoLayout.h"

#include "entry/ChargeInfoMenus.h"

#include <array>

namespace tollvane {

namespace {

using enum ControlKind;

// Two columns of frames; the operator works down the left one, then down the right one. Inside a
// frame a row is 28 units high, a box 23, and labels stand 4 units lower to share the boxes' base
// line.
constexpr int kLeft = 12;
constexpr int kRight = 356;
constexpr int kColumn = 332;
constexpr int kLabelWidth = 108;
constexpr int kBoxHeight = 23;
constexpr int kBoxWidth = kColumn - kLabelWidth - 24;

constexpr Bounds frameAt(int column, int top, int rows) {
    return {column, top, kColumn, 28 + rows * 28};
}
constexpr Bounds labelAt(int column, int top) {
    return {column + 12, top + 4, kLabelWidth, 16};
}
constexpr Bounds boxAt(int column, int top, int width = kBoxWidth) {
    return {column + 12 + kLabelWidth, top, width, kBoxHeight};
}
/// A second label and box in the same row.
constexpr Bounds secondLabelAt(int column, int top) {
    return {column + 206, top + 4, 28, 16};
}
constexpr Bounds secondBoxAt(int column, int top) {
    return {column + 234, top, 86, kBoxHeight};
}

constexpr int kKindTop = 8;
constexpr int kCardTop = 74;
constexpr int kAmountTop = 222;
constexpr int kAuthTop = 314;
constexpr int kBillTop = 98;
constexpr int kOrderTop = 218;
constexpr int kCheckTop = 370;
constexpr int kButtonTop = 398;

constexpr int row(int frameTop, int number) {
    return frameTop + 20 + number * 28;
}

constexpr std::array kControls{
    ControlDescription{.kind = frame,
                       .name = "fraKind",
                       .caption = "&Kind of transaction",
                       .at = {kLeft, kKindTop, kColumn, 58}},
    ControlDescription{.kind = optionButton,
                       .name = "optTransType",
                       .index = 0,
                       .caption = "Charge",
                       .at = {kLeft + 12, 30, 90, 21},
                       .toolTip = "Charge an amount to the customer's card"},
    ControlDescription{.kind = optionButton,
                       .name = "optTransType",
                       .index = 1,
                       .caption = "Refund",
                       .at = {kLeft + 114, 30, 90, 21},
                       .toolTip = "Give money back for an earlier charge"},
    ControlDescription{.kind = optionButton,
                       .name = "optTransType",
                       .index = 2,
                       .caption = "Void",
                       .at = {kLeft + 216, 30, 90, 21},
                       .toolTip = "Cancel an earlier charge that has not been settled"},

    ControlDescription{
        .kind = frame, .name = "fraCard", .caption = "Card", .at = frameAt(kLeft, kCardTop, 4)},
    ControlDescription{.kind = label,
                       .name = "lblCardName",
                       .caption = "Card ho&lder",
                       .at = labelAt(kLeft, row(kCardTop, 0))},
    ControlDescription{.kind = textBox,
                       .name = "txtCardName",
                       .at = boxAt(kLeft, row(kCardTop, 0)),
                       .toolTip = "Name as it stands on the card"},
    ControlDescription{.kind = label,
                       .name = "lblCardNumber",
                       .caption = "Card n&umber",
                       .at = labelAt(kLeft, row(kCardTop, 1))},
    ControlDescription{.kind = textBox,
                       .name = "txtCardNumber",
                       .at = boxAt(kLeft, row(kCardTop, 1)),
                       .toolTip = "Swipe the card or key its number, digits only"},
    ControlDescription{.kind = label,
                       .name = "lblCardCode",
                       .caption = "Card &code",
                       .at = labelAt(kLeft, row(kCardTop, 2))},
    ControlDescription{.kind = textBox,
                       .name = "txtCardCode",
                       .at = boxAt(kLeft, row(kCardTop, 2), 64),
                       .toolTip = "The 3 or 4 digits from the back of the card"},
    ControlDescription{.kind = label,
                       .name = "lblExpires",
                       .caption = "&Good thru",
                       .at = labelAt(kLeft, row(kCardTop, 3))},
    ControlDescription{.kind = comboBox,
                       .name = "cboExpMonth",
                       .at = boxAt(kLeft, row(kCardTop, 3), 118),
                       .toolTip = "Month in which the card expires"},
    ControlDescription{.kind = comboBox,
                       .name = "cboExpYear",
                       .at = {kLeft + 246, row(kCardTop, 3), 74, kBoxHeight},
                       .toolTip = "Year in which the card expires"},

    ControlDescription{.kind = frame,
                       .name = "fraAmount",
                       .caption = "Amount",
                       .at = frameAt(kLeft, kAmountTop, 2)},
    ControlDescription{.kind = label,
                       .name = "lblAmount",
                       .caption = "&Amount",
                       .at = labelAt(kLeft, row(kAmountTop, 0))},
    ControlDescription{.kind = textBox,
                       .name = "txtAmount",
                       .caption = "$0.00",
                       .at = boxAt(kLeft, row(kAmountTop, 0), 104),
                       .rightAligned = true},
    ControlDescription{.kind = checkBox,
                       .name = "chkTaxExempt",
                       .caption = "Tax &Exempt",
                       .at = {kLeft + 236, row(kAmountTop, 0) + 1, 90, 21},
                       .toolTip = "Check this box if the transaction is tax exempt"},
    ControlDescription{.kind = label,
                       .name = "lblTaxAmount",
                       .caption = "Ta&x",
                       .at = labelAt(kLeft, row(kAmountTop, 1))},
    ControlDescription{.kind = textBox,
                       .name = "txtTaxAmount",
                       .caption = "$0.00",
                       .at = boxAt(kLeft, row(kAmountTop, 1), 104),
                       .toolTip = "Enter the tax amount (-) if a credit",
                       .rightAligned = true},

    ControlDescription{.kind = frame,
                       .name = "fraAuthorization",
                       .caption = "Authorization",
                       .at = frameAt(kLeft, kAuthTop, 3)},
    ControlDescription{.kind = checkBox,
                       .name = "chkVoiceAuth",
                       .caption = "Authori&zed by telephone",
                       .at = {kLeft + 12, row(kAuthTop, 0) + 1, 250, 21},
                       .toolTip = "Check this box to capture a charge that was authorized by "
                                  "telephone"},
    ControlDescription{.kind = label,
                       .name = "lblAuthNum",
                       .caption = "Approval code",
                       .at = labelAt(kLeft, row(kAuthTop, 1))},
    ControlDescription{.kind = textBox,
                       .name = "txtAuthNum",
                       .at = boxAt(kLeft, row(kAuthTop, 1), 104),
                       .toolTip = "The 6 characters of a telephone authorization; an approval is "
                                  "shown here"},
    ControlDescription{.kind = label,
                       .name = "lblTransactionNumber",
                       .caption = "Transaction &ID",
                       .at = labelAt(kLeft, row(kAuthTop, 2))},
    ControlDescription{
        .kind = textBox, .name = "txtTransactionNumber", .at = boxAt(kLeft, row(kAuthTop, 2))},

    ControlDescription{.kind = picture, .name = "picIcon", .at = {kRight, 12, 32, 32}},
    ControlDescription{
        .kind = label, .name = "lblCompanyInfo", .at = {kRight + 44, 10, kColumn - 44, 84}},

    ControlDescription{.kind = frame,
                       .name = "fraBillTo",
                       .caption = "Billing address",
                       .at = frameAt(kRight, kBillTop, 3)},
    ControlDescription{.kind = label,
                       .name = "lblBillToStreet",
                       .caption = "S&treet",
                       .at = labelAt(kRight, row(kBillTop, 0))},
    ControlDescription{.kind = textBox,
                       .name = "txtBillToStreet",
                       .at = boxAt(kRight, row(kBillTop, 0)),
                       .toolTip = "Street of the address to which the card's bills are sent"},
    ControlDescription{.kind = label,
                       .name = "lblBillToCity",
                       .caption = "Cit&y",
                       .at = labelAt(kRight, row(kBillTop, 1))},
    ControlDescription{.kind = textBox,
                       .name = "txtBillToCity",
                       .at = boxAt(kRight, row(kBillTop, 1)),
                       .toolTip = "City of the billing address"},
    ControlDescription{.kind = label,
                       .name = "lblBillToState",
                       .caption = "State",
                       .at = labelAt(kRight, row(kBillTop, 2))},
    ControlDescription{.kind = comboBox,
                       .name = "cboBillToState",
                       .at = boxAt(kRight, row(kBillTop, 2), 70),
                       .toolTip = "State of the billing address"},
    ControlDescription{.kind = label,
                       .name = "lblBillToZip",
                       .caption = "Zip",
                       .at = secondLabelAt(kRight, row(kBillTop, 2))},
    ControlDescription{.kind = textBox,
                       .name = "txtBillToZip",
                       .at = secondBoxAt(kRight, row(kBillTop, 2)),
                       .toolTip = "Zip code of the billing address"},

    ControlDescription{
        .kind = frame, .name = "fraOrder", .caption = "Order", .at = frameAt(kRight, kOrderTop, 4)},
    ControlDescription{.kind = label,
                       .name = "lblEMail",
                       .caption = "E-&mail",
                       .at = labelAt(kRight, row(kOrderTop, 0))},
    ControlDescription{.kind = textBox,
                       .name = "txtEMail",
                       .at = boxAt(kRight, row(kOrderTop, 0)),
                       .toolTip = "The customer's e-mail address"},
    ControlDescription{.kind = label,
                       .name = "lblDescription",
                       .caption = "&Description",
                       .at = labelAt(kRight, row(kOrderTop, 1))},
    ControlDescription{.kind = textBox,
                       .name = "txtDescription",
                       .at = boxAt(kRight, row(kOrderTop, 1)),
                       .toolTip = "What the customer pays for"},
    ControlDescription{.kind = label,
                       .name = "lblInvoiceNumber",
                       .caption = "In&voice number",
                       .at = labelAt(kRight, row(kOrderTop, 2))},
    ControlDescription{.kind = textBox,
                       .name = "txtInvoiceNumber",
                       .at = boxAt(kRight, row(kOrderTop, 2)),
                       .toolTip = "Number of the invoice that is paid"},
    ControlDescription{.kind = label,
                       .name = "lblPONumber",
                       .caption = "PO &number",
                       .at = labelAt(kRight, row(kOrderTop, 3))},
    ControlDescription{.kind = textBox,
                       .name = "txtPONumber",
                       .at = boxAt(kRight, row(kOrderTop, 3)),
                       .toolTip = "The customer's purchase order number"},

    // The card holder's own address, asked for only by gateways that check it apart from the bill.
    ControlDescription{.kind = label,
                       .name = "Label6",
                       .caption = "Holder's street",
                       .at = labelAt(kRight, kCheckTop),
                       .visible = false},
    ControlDescription{.kind = textBox,
                       .name = "txtStAddr",
                       .at = {kRight + 120, kCheckTop, 80, kBoxHeight},
                       .toolTip = "The card holder's street",
                       .visible = false},
    ControlDescription{.kind = label,
                       .name = "Label7",
                       .caption = "Zip",
                       .at = secondLabelAt(kRight, kCheckTop),
                       .visible = false},
    ControlDescription{.kind = textBox,
                       .name = "txtZipCode",
                       .at = secondBoxAt(kRight, kCheckTop),
                       .toolTip = "The card holder's zip code",
                       .visible = false},

    ControlDescription{.kind = button,
                       .name = "cmdSubmit",
                       .caption = "&Submit",
                       .at = {kRight + 12, kButtonTop, 108, 28},
                       .toolTip = "Send the transaction to the card processor"},
    ControlDescription{.kind = button,
                       .name = "cmdCancel",
                       .caption = "Cancel",
                       .at = {kRight + 128, kButtonTop, 92, 28},
                       .toolTip = "Close the program"},
    ControlDescription{.kind = button,
                       .name = "cmdModify",
                       .caption = "Con&figure",
                       .at = {kRight + 228, kButtonTop, 92, 28},
                       .toolTip = "Change the gateway or its settings",
                       .tag = kNoFocus},

    ControlDescription{
        .kind = textBox, .name = "txtMagStripe", .at = {0, 0, 10, 10}, .visible = false},
    ControlDescription{
        .kind = textBox, .name = "txtKbBuffer", .at = {0, 0, 10, 10}, .visible = false},
    ControlDescription{.kind = label,
                       .name = "lblStateName",
                       .at = {kRight + 100, row(kBillTop, 2) - 18, 190, 16},
                       .visible = false},
    ControlDescription{.kind = timer, .name = "tmrDisplay", .interval = 3000},
    ControlDescription{.kind = statusBar, .name = "sbrStatus"},
};

constexpr std::array kPanels{PanelDescription{.key = kStatusPanel}};

} // namespace

const FormDescription& chargeInfoLayout() {
    static const FormDescription description{
        .name = "ChargeInfo",
        .caption = "Credit Card Charge/Credit",
        .width = kRight + kColumn + 12,
        .height = 464,
        .controls = kControls,
        .menus = chargeInfoMenus(),
        .panels = kPanels,
    };
    return description;
}

} // namespace tollvane
