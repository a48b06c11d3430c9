#pragma once

#include "platform/Automation.h"
#include "platform/Money.h"
#include "platform/SecretText.h"
#include "platform/Surroundings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

/// The ProgID under which the charge component is created.
inline constexpr std::string_view kChargeComponentProgId = "ZendaSwiftill.Tollvane";

/// Names of the gateway fields that the program uses.
namespace gatewayfield {
inline constexpr std::string_view firstName = "x_first_name";
inline constexpr std::string_view lastName = "x_last_name";
inline constexpr std::string_view cardNumber = "x_card_num";
inline constexpr std::string_view cardCode = "x_card_code";
inline constexpr std::string_view amount = "x_amount";
inline constexpr std::string_view zip = "x_zip";
inline constexpr std::string_view tax = "x_tax";
inline constexpr std::string_view authorisationCode = "x_auth_code";
inline constexpr std::string_view transactionId = "x_trans_id";
inline constexpr std::string_view address = "x_address";
inline constexpr std::string_view city = "x_city";
inline constexpr std::string_view email = "x_email";
inline constexpr std::string_view description = "x_description";
inline constexpr std::string_view invoiceNumber = "x_invoice_num";
inline constexpr std::string_view purchaseOrderNumber = "x_po_num";
} // namespace gatewayfield

/// One field of the current transaction, as the component keeps it.
class TransactionField {
public:
    explicit TransactionField(ObjectRef field) : field_(std::move(field)) {}

    void setValue(Variant value);
    std::string value() const;
    /// The longest value that the gateway accepts, in characters.
    int maximumLength() const;

private:
    ObjectRef field_;
};

/// A typed view of the charge component: its contract, and nothing else. Holds a counted reference.
/// Every call raises what the component reports. Card data goes in and comes out as SecretText.
class ChargeComponent {
public:
    /// `locale` serves answers that arrive as text; it must outlive the view.
    ChargeComponent(ObjectRef component, Locale& locale);

    void ClearFields();
    tollvane::TransactionField TransactionField(std::string_view gatewayField) const;

    /// The four operations; true is an approval, whatever the response codes say, and anything else
    /// a failure. Numbers are truth values too, true being -1; what cannot be one raises 13.
    bool AuthorizeAndCapture();
    bool CaptureVoiceAuth(const std::string& authorisationCode);
    bool Credit(const std::string& transactionId);
    bool Void(const std::string& transactionId);

    void ConfigureGateway();
    void ConfigureSettings();
    void LogLoggedInUser(const std::string& displayName);
    /// Releases the component's resources; nothing may be called afterwards.
    void Free();

    Money Amount() const;
    void SetAmount(Money amount);
    SecretText CardNumber() const;
    void SetCardNumber(const SecretText& pan);
    void SetTrack1(const SecretText& track);
    std::string FirstName() const;
    void SetFirstName(const std::string& name);
    std::string LastName() const;
    void SetLastName(const std::string& name);
    std::string ExpirationDate() const;
    void SetExpirationDate(const std::string& monthAndYear);
    void SetExpirationDate(const DateTime& firstOfMonth);
    Money Tax() const;
    /// Handed over as text; the component converts it.
    void SetTax(const std::string& tax);
    void SetTaxExempt(bool exempt);
    std::string StreetAddress() const;
    void SetStreetAddress(const std::string& street);
    std::string City() const;
    void SetCity(const std::string& city);
    std::string State() const;
    void SetState(const std::string& state);
    std::string ZipCode() const;
    void SetZipCode(const std::string& zip);
    std::string InvoiceNumber() const;
    void SetInvoiceNumber(const std::string& number);
    void SetDescription(const std::string& description);
    void SetCustomerEmail(const std::string& email);

    /// The answer to the last operation.
    std::int32_t ResponseCode() const;
    std::int32_t ResponseReasonCode() const;
    std::int32_t ResponseSubCode() const;
    std::string ResponseReasonText() const;
    std::string ApprovalCode() const;
    std::string TransactionID() const;

    /// True while the component sends to the gateway's test system.
    bool TestMode() const;
    /// Folder and name of the transaction log.
    std::string LogFilePath() const;
    std::string LogFileName() const;
    /// Folder of the component's data.
    std::string Data_Path() const;

private:
    std::string text(std::string_view property) const;

    ObjectRef component_;
    Locale* locale_;
};

} // namespace tollvane
