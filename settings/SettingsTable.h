#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// Every stored setting, once: where it lies, what it is when it was never stored, and what the
/// operator reads when it cannot be stored.
namespace tollvane::settingstable {

inline constexpr std::string_view kBaseKey = "Software\\Norrow Programs\\Tollvane";
inline constexpr std::string_view kWindowKey = "\\Window";

/// `Value` is std::string_view, std::int32_t or bool, which also says how it is stored.
template <class Value>
struct Setting {
    std::string_view subKey; ///< appended to kBaseKey
    std::string_view valueName;
    Value fallback;
    std::string_view failure; ///< sentence of the message box
};

using TextSetting = Setting<std::string_view>;
using NumberSetting = Setting<std::int32_t>;
using Switch = Setting<bool>;

inline constexpr std::string_view kCompany = "\\Company Information";
inline constexpr std::string_view kOptions = "\\Options";
inline constexpr std::string_view kRequired = "\\Options\\Required Fields";

// clang-format off
inline constexpr TextSetting companyName{
    kCompany, "Name", "", "There was an error saving the company name."};
inline constexpr TextSetting companyStreet{
    kCompany, "Street", "", "There was an error saving the company street address."};
inline constexpr TextSetting companyAdditionalAddress{
    kCompany, "Additional Address", "", "There was an error saving the company addition address."};
inline constexpr TextSetting companyCity{
    kCompany, "City", "", "There was an error saving the company city."};
inline constexpr TextSetting companyState{
    kCompany, "State", "", "There was an error saving the company state."};
inline constexpr TextSetting companyZip{
    kCompany, "Zip", "", "There was an error saving the company zip code."};
inline constexpr TextSetting companyPhone{
    kCompany, "Phone", "", "There was an error saving the company phone."};
inline constexpr NumberSetting companyLocation{
    kCompany, "Location", 0, "There was an error saving the company location."};

inline constexpr NumberSetting formatType{
    kOptions, "FormatType", 0, "There was an error saving the format type."};
inline constexpr Switch defaultInvoiceNumber{
    kOptions, "DefaultInvoiceNumbers", true,
    "There was an error saving the default invoice number setting."};
inline constexpr Switch invoiceNumberForPONumber{
    kOptions, "InvoiceNumberForPONumber", true,
    "There was an error saving the invoice number for PO number setting."};
inline constexpr Switch shopAddressForBillToAddress{
    kOptions, "ShopAddressForBillToAddress", true,
    "There was an error saving the shop address for bill to address setting."};
inline constexpr Switch showRefundVoidWarning{
    kOptions, "ShowRefundVoidWarning", false,
    "There was an error saving the ShowRefundVoidWarning setting."};

inline constexpr Switch invoiceNumberRequired{
    kRequired, "InvoiceNumber", false,
    "There was an error saving the invoice number required setting."};
inline constexpr Switch poNumberRequired{
    kRequired, "PONumber", false, "There was an error saving the PO number required setting."};
inline constexpr Switch cardCodeRequired{
    kRequired, "CardCode", true, "There was an error saving the card code required setting."};
inline constexpr Switch billToAddressRequired{
    kRequired, "BillToAddress", false,
    "There was an error saving the bill to address required setting."};
inline constexpr Switch descriptionRequired{
    kRequired, "Description", false,
    "There was an error saving the description required setting."};

/// No failure sentence: a position that cannot be stored is not worth one.
inline constexpr NumberSetting windowX{kWindowKey, "X", 0, ""};
inline constexpr NumberSetting windowY{kWindowKey, "Y", 0, ""};
// clang-format on

} // namespace tollvane::settingstable
