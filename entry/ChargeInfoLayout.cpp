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
constexpr int kBillTop = 97;
constexpr int kOrderTop = 227;
constexpr int kCheckTop = 371;
constexpr int kButtonTop = 398;

constexpr int row(int frameTop, int number) {
    return frameTop + 20 + number * 28;
}

/// The state's row leaves room above it for the state's name.
constexpr int kStateNameHeight = 16;
constexpr int kMoreRoom = kStateNameHeight - (28 - kBoxHeight);
constexpr int kStateTop = row(kBillTop, 2) + kMoreRoom;

constexpr Bounds withMoreRoom(Bounds frame) {
    frame.height += kMoreRoom;
    return frame;
}

constexpr ControlDescription captioned(ControlKind kind, std::string_view name,
                                       std::string_view caption, Bounds at,
                                       std::string_view toolTip = {}) {
    return {.kind = kind, .name = name, .caption = caption, .at = at, .toolTip = toolTip};
}

constexpr ControlDescription transactionType(int index, std::string_view caption, int left,
                                             std::string_view toolTip) {
    ControlDescription button =
        captioned(optionButton, "optTransType", caption, {left, 30, 90, 21}, toolTip);
    button.index = index;
    return button;
}

constexpr ControlDescription entryBox(ControlKind kind, std::string_view name, Bounds at,
                                      std::string_view toolTip = {}) {
    return captioned(kind, name, {}, at, toolTip);
}

constexpr ControlDescription moneyBox(std::string_view name, Bounds at,
                                      std::string_view toolTip = {}) {
    ControlDescription box = captioned(textBox, name, "$0.00", at, toolTip);
    box.rightAligned = true;
    return box;
}

constexpr ControlDescription hidden(ControlDescription control) {
    control.visible = false;
    return control;
}

/// Holds a card's track. It is not only hidden: the system lays out the text of a hidden box too,
/// and leaves copies of its parts about, but of a masked box only the bullets.
constexpr ControlDescription trackBox(std::string_view name) {
    ControlDescription box = hidden(entryBox(textBox, name, {0, 0, 10, 10}));
    box.masked = true;
    return box;
}

/// Never refused by the field that the operator leaves: the way out stays open.
constexpr ControlDescription unvalidated(ControlDescription control) {
    control.causesValidation = false;
    return control;
}

constexpr ControlDescription tagged(ControlDescription control, std::string_view tag) {
    control.tag = tag;
    return control;
}

constexpr std::array kControls{
    captioned(frame, "fraKind", "&Kind of transaction", {kLeft, kKindTop, kColumn, 58}),
    transactionType(0, "Charge", kLeft + 12, "Charge an amount to the customer's card"),
    transactionType(1, "Refund", kLeft + 114, "Give money back for an earlier charge"),
    transactionType(2, "Void", kLeft + 216, "Cancel an earlier charge that has not been settled"),

    captioned(frame, "fraCard", "Card", frameAt(kLeft, kCardTop, 4)),
    captioned(label, "lblCardName", "Card ho&lder", labelAt(kLeft, row(kCardTop, 0))),
    entryBox(textBox, "txtCardName", boxAt(kLeft, row(kCardTop, 0)),
             "Name as it stands on the card"),
    captioned(label, "lblCardNumber", "Card n&umber", labelAt(kLeft, row(kCardTop, 1))),
    entryBox(textBox, "txtCardNumber", boxAt(kLeft, row(kCardTop, 1)),
             "Swipe the card or key its number, digits only"),
    captioned(label, "lblCardCode", "Card &code", labelAt(kLeft, row(kCardTop, 2))),
    entryBox(textBox, "txtCardCode", boxAt(kLeft, row(kCardTop, 2), 64),
             "The 3 or 4 digits from the back of the card"),
    captioned(label, "lblExpires", "&Good thru", labelAt(kLeft, row(kCardTop, 3))),
    entryBox(comboBox, "cboExpMonth", boxAt(kLeft, row(kCardTop, 3), 118),
             "Month in which the card expires"),
    entryBox(comboBox, "cboExpYear", {kLeft + 246, row(kCardTop, 3), 74, kBoxHeight},
             "Year in which the card expires"),

    captioned(frame, "fraAmount", "Amount", frameAt(kLeft, kAmountTop, 2)),
    captioned(label, "lblAmount", "&Amount", labelAt(kLeft, row(kAmountTop, 0))),
    moneyBox("txtAmount", boxAt(kLeft, row(kAmountTop, 0), 104)),
    captioned(checkBox, "chkTaxExempt", "Tax &Exempt",
              {kLeft + 236, row(kAmountTop, 0) + 1, 90, 21},
              "Check this box if the transaction is tax exempt"),
    captioned(label, "lblTaxAmount", "Ta&x", labelAt(kLeft, row(kAmountTop, 1))),
    moneyBox("txtTaxAmount", boxAt(kLeft, row(kAmountTop, 1), 104),
             "Enter the tax amount (-) if a credit"),

    captioned(frame, "fraAuthorization", "Authorization", frameAt(kLeft, kAuthTop, 3)),
    captioned(checkBox, "chkVoiceAuth", "Authori&zed by telephone",
              {kLeft + 12, row(kAuthTop, 0) + 1, 250, 21},
              "Check this box to capture a charge that was authorized by telephone"),
    captioned(label, "lblAuthNum", "Approval code", labelAt(kLeft, row(kAuthTop, 1))),
    entryBox(textBox, "txtAuthNum", boxAt(kLeft, row(kAuthTop, 1), 104),
             "The 6 characters of a telephone authorization; an approval is shown here"),
    captioned(label, "lblTransactionNumber", "Transaction &ID", labelAt(kLeft, row(kAuthTop, 2))),
    entryBox(textBox, "txtTransactionNumber", boxAt(kLeft, row(kAuthTop, 2))),

    captioned(picture, "picIcon", {}, {kRight, 12, 32, 32}),
    captioned(label, "lblCompanyInfo", {}, {kRight + 44, 10, kColumn - 44, 84}),

    captioned(frame, "fraBillTo", "Billing address", withMoreRoom(frameAt(kRight, kBillTop, 3))),
    captioned(label, "lblBillToStreet", "S&treet", labelAt(kRight, row(kBillTop, 0))),
    entryBox(textBox, "txtBillToStreet", boxAt(kRight, row(kBillTop, 0)),
             "Street of the address to which the card's bills are sent"),
    captioned(label, "lblBillToCity", "Cit&y", labelAt(kRight, row(kBillTop, 1))),
    entryBox(textBox, "txtBillToCity", boxAt(kRight, row(kBillTop, 1)),
             "City of the billing address"),
    captioned(label, "lblBillToState", "State", labelAt(kRight, kStateTop)),
    entryBox(comboBox, "cboBillToState", boxAt(kRight, kStateTop, 70),
             "State of the billing address"),
    captioned(label, "lblBillToZip", "Zip", secondLabelAt(kRight, kStateTop)),
    entryBox(textBox, "txtBillToZip", secondBoxAt(kRight, kStateTop),
             "Zip code of the billing address"),

    captioned(frame, "fraOrder", "Order", frameAt(kRight, kOrderTop, 4)),
    captioned(label, "lblEMail", "E-&mail", labelAt(kRight, row(kOrderTop, 0))),
    entryBox(textBox, "txtEMail", boxAt(kRight, row(kOrderTop, 0)),
             "The customer's e-mail address"),
    captioned(label, "lblDescription", "&Description", labelAt(kRight, row(kOrderTop, 1))),
    entryBox(textBox, "txtDescription", boxAt(kRight, row(kOrderTop, 1)),
             "What the customer pays for"),
    captioned(label, "lblInvoiceNumber", "In&voice number", labelAt(kRight, row(kOrderTop, 2))),
    entryBox(textBox, "txtInvoiceNumber", boxAt(kRight, row(kOrderTop, 2)),
             "Number of the invoice that is paid"),
    captioned(label, "lblPONumber", "PO &number", labelAt(kRight, row(kOrderTop, 3))),
    entryBox(textBox, "txtPONumber", boxAt(kRight, row(kOrderTop, 3)),
             "The customer's purchase order number"),

    // The card holder's own address, asked for only by gateways that check it apart from the bill.
    hidden(captioned(label, "Label6", "Holder's street", labelAt(kRight, kCheckTop))),
    hidden(
        entryBox(textBox, "txtStAddr", boxAt(kRight, kCheckTop, 80), "The card holder's street")),
    hidden(captioned(label, "Label7", "Zip", secondLabelAt(kRight, kCheckTop))),
    hidden(entryBox(textBox, "txtZipCode", secondBoxAt(kRight, kCheckTop),
                    "The card holder's zip code")),

    captioned(button, "cmdSubmit", "&Submit", {kRight + 12, kButtonTop, 108, 28},
              "Send the transaction to the card processor"),
    unvalidated(captioned(button, "cmdCancel", "Cancel", {kRight + 128, kButtonTop, 92, 28},
                          "Close the program")),
    tagged(captioned(button, "cmdModify", "Con&figure", {kRight + 228, kButtonTop, 92, 28},
                     "Change the gateway or its settings"),
           kNoFocus),

    trackBox("txtMagStripe"),
    trackBox("txtKbBuffer"),
    hidden(captioned(label, "lblStateName", {},
                     {kRight + 60, kStateTop - kStateNameHeight, 190, kStateNameHeight})),
    ControlDescription{.kind = timer, .name = "tmrDisplay", .interval = 3000},
    ControlDescription{.kind = timer, .name = "tmrSwipe", .interval = 300},
    ControlDescription{.kind = timer, .name = "tmrKbBuffer", .interval = 2001},
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
