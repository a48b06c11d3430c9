#include "output/Receipt.h"

#include "gateway/TransactionType.h"
#include "platform/LocaleStyle.h"
#include "platform/Printer.h"
#include "platform/Text.h"
#include "settings/AppProperties.h"

#include <cmath>
#include <memory>
#include <string>
#include <string_view>

namespace tollvane {

namespace {

// Twips and points.
constexpr double kIndent = 300;
constexpr double kValueGap = 400;
constexpr int kTitlePoints = 13;
constexpr int kCopyPoints = 8;
constexpr int kTextPoints = 11;
constexpr int kBlockGapLines = 3;

constexpr const char* kReceipt = " Receipt";
constexpr std::string_view kWidestLabel = "Transaction ID";

std::string receiptDate(const DateTime& date) {
    return zeroPadded(date.month, 2) + "-" + zeroPadded(date.day, 2) + "-" +
           zeroPadded(date.year, 4);
}

/// The copies of one receipt, printed one below the other. Whatever the shop's settings and the
/// component say is asked for when its row's turn comes.
class ReceiptPage {
public:
    ReceiptPage(const Desktop& desktop, const ChargeComponent& charge, int transactionType,
                const AppProperties& settings, PrintJob& job)
        : desktop_(desktop), charge_(charge), transactionType_(transactionType),
          settings_(settings), job_(job), productName_(desktop.program.productName()) {}

    void printCopy(std::string_view copyLabel) {
        left_ = std::nearbyint(job_.left());
        printHeading(copyLabel);
        printCompany();
        printTransaction();
    }
    /// Parts the copies: the next one starts just below the middle of the page.
    void printRule() {
        const double middle = job_.height() / 2;
        job_.setCurrentY(middle);
        job_.drawLine(left_, middle, job_.width(), middle);
        job_.printEmptyLine();
    }

private:
    void printHeading(std::string_view copyLabel);
    void printCompany();
    void printTransaction();
    void printCard();
    void printAmount();

    void setBold(bool on) {
        font_.bold = on;
        job_.setFont(font_);
    }
    void setItalic(bool on) {
        font_.italic = on;
        job_.setFont(font_);
    }
    void printCentred(std::string_view text) {
        job_.setCurrentX(job_.width() / 2 - job_.textWidth(text) / 2);
        job_.print(text);
    }
    void printIndented(std::string_view text) {
        job_.setCurrentX(left_ + kIndent);
        job_.print(text);
    }
    void leaveBlockGap() {
        job_.setCurrentY(job_.currentY() + kBlockGapLines * job_.textHeight(productName_));
    }
    double valueColumn() { return left_ + job_.textWidth(kWidestLabel) + kValueGap; }
    /// A label and its value on one line.
    void printRow(std::string_view label, std::string_view value) {
        const double y = job_.currentY();
        printIndented(label);
        job_.setCurrentX(valueColumn());
        job_.setCurrentY(y);
        job_.print(value);
    }

    const Desktop& desktop_;
    const ChargeComponent& charge_;
    int transactionType_;
    const AppProperties& settings_;
    PrintJob& job_;
    std::string productName_;
    PrintFont font_;
    double left_ = 0;
};

void ReceiptPage::printHeading(std::string_view copyLabel) {
    font_ = {.name = "Times New Roman", .points = kTitlePoints, .bold = true};
    job_.setFont(font_);
    printCentred(productName_ + kReceipt);
    font_ = {.name = font_.name, .points = kCopyPoints, .italic = true};
    job_.setFont(font_);
    printCentred(copyLabel);
    font_ = {.name = font_.name, .points = kCopyPoints, .bold = true};
    job_.setFont(font_);
    leaveBlockGap();
    job_.setCurrentX(left_);
    font_ = {.name = "Arial", .points = kTextPoints, .bold = true};
    job_.setFont(font_);
    job_.print("Date " + receiptDate(desktop_.clock.now()));
    job_.printEmptyLine();
}

void ReceiptPage::printCompany() {
    printIndented(settings_.CompanyName());
    printIndented(settings_.CompanyStreet());
    if (const std::string address = settings_.CompanyAdditionalAddress(); !address.empty()) {
        printIndented(address);
    }
    printIndented(settings_.CompanyCity() + ", " + settings_.CompanyState() + " " +
                  settings_.CompanyZip());
    job_.printEmptyLine();
    printIndented(settings_.CompanyPhone());
    leaveBlockGap();
    setBold(false);
}

void ReceiptPage::printTransaction() {
    printRow("Name", charge_.FirstName() + " " + charge_.LastName());
    printCard();
    printAmount();
    if (const std::string id = charge_.TransactionID(); !id.empty()) {
        printRow("Transaction ID", id);
    }
}

void ReceiptPage::printCard() {
    const SecretText pan = charge_.CardNumber();
    printRow("Card Number", pan.empty() ? "** VOID TRANSACTION **" : pan.masked());
    // The place of the expiry date, which no receipt shows.
    job_.setCurrentX(valueColumn());
    setItalic(true);
    job_.print("Information suppressed for security");
    setItalic(false);
}

void ReceiptPage::printAmount() {
    const auto amount = [this] {
        return currencyText(charge_.Amount(), moneyStyle(desktop_.locale));
    };
    switch (transactionType_) {
    case transtype::charge:
        printRow("Amount", amount());
        printRow("Authorized", trimmed(charge_.ApprovalCode()));
        break;
    case transtype::refund: printRow("Amount", amount() + " - credit"); break;
    case transtype::voiding: printRow("Amount", "** VOID **"); break;
    default: printIndented("Amount"); break;
    }
}

} // namespace

void printReceipt(const Desktop& desktop, const ChargeComponent& charge, int transactionType) {
    // Not for the paper: a component that cannot answer any more is noticed before the printer
    // starts.
    std::string expiry = charge.ExpirationDate();
    wipe(expiry);
    const AppProperties settings(desktop);
    const std::string productName = desktop.program.productName();
    const std::unique_ptr<PrintJob> job = desktop.printers.defaultPrinter(productName + kReceipt);
    job->printEmptyLine(); // opens the document
    ReceiptPage page(desktop, charge, transactionType, settings, *job);
    page.printCopy("(customer)");
    page.printRule();
    page.printCopy("(store)");
    job->endDocument();
}

} // namespace tollvane
