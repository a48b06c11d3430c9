#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <string>

namespace tollvane {

/// Where the main window stood, in twips.
struct WindowPosition {
    std::int32_t X = 0;
    std::int32_t Y = 0;
};

/// What the shop has configured. Holds nothing itself: every call reads or writes the machine-wide
/// settings at once.
///
/// Reading a text raises what cRegistry raises, except that a missing value reads as its default;
/// numbers and switches never raise. A Set operation shows its own failure in a message box and
/// returns normally.
class AppProperties {
public:
    explicit AppProperties(const Desktop& desktop) : desktop_(desktop) {}

    std::string CompanyName() const;
    void SetCompanyName(const std::string& vName);
    std::string CompanyStreet() const;
    void SetCompanyStreet(const std::string& vStreet);
    std::string CompanyAdditionalAddress() const;
    void SetCompanyAdditionalAddress(const std::string& vAddAddress);
    std::string CompanyCity() const;
    void SetCompanyCity(const std::string& vCity);
    std::string CompanyState() const;
    void SetCompanyState(const std::string& vState);
    std::string CompanyZip() const;
    void SetCompanyZip(const std::string& vZip);
    std::string CompanyPhone() const;
    void SetCompanyPhone(const std::string& vPhone);
    /// The code of the shop's location.
    std::int32_t CompanyLocation() const;
    void SetCompanyLocation(std::int32_t vLocation);

    /// How texts are formatted: 0 not at all, 1 lower case, 2 upper case, 3 proper case.
    std::int32_t FormatType() const;
    void SetFormatType(std::int32_t vFormatType);
    bool DefaultInvoiceNumber() const;
    void SetDefaultInvoiceNumber(bool vUseDefaultNumbers);
    bool InvoiceNumberForPONumber() const;
    void SetInvoiceNumberForPONumber(bool vInvoiceNumberForPONumber);
    bool ShopAddressForBillToAddress() const;
    void SetShopAddressForBillToAddress(bool vShopAddressForBillToAddress);

    bool InvoiceNumberRequired() const;
    void SetInvoiceNumberRequired(bool vRequired);
    bool PONumberRequired() const;
    void SetPONumberRequired(bool vRequired);
    bool CardCodeRequired() const;
    void SetCardCodeRequired(bool vRequired);
    bool BillToAddressRequired() const;
    void SetBillToAddressRequired(bool vRequired);
    bool DescriptionRequired() const;
    void SetDescriptionRequired(bool vRequired);
    bool ShowRefundVoidWarning() const;
    void SetShowRefundVoidWarning(bool vRequired);

    /// 0 in place of an edge that lies beyond the screen, or was never stored.
    WindowPosition GetWindowPosition() const;
    /// Raises and shows nothing.
    void SaveWindowPosition(std::int32_t X, std::int32_t Y);

private:
    Desktop desktop_;
};

} // namespace tollvane
