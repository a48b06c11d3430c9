#include "components/charge/shell/GatewayDialog.h"

#include <cstdlib>
#include <utility>

namespace tollvane::charge {

namespace {

enum ControlId { idTestMode = 101, idMerchant, idDuplicates };

using com::DialogItem;

constexpr com::DialogControl controls[] = {
    {DialogItem::Group, -1, L"fraMode", L"Mode", 7, 7, 272, 43},
    {DialogItem::CheckBox, idTestMode, L"chkTestMode", L"&Test mode", 16, 19, 254, 11},
    {DialogItem::Note, -1, L"lblTestMode",
     L"In test mode no card is charged and no payment is posted.", 28, 33, 242, 9},
    {DialogItem::Group, -1, L"fraProcessor", L"Processor", 7, 56, 272, 64},
    {DialogItem::Label, -1, L"lblMerchantId", L"&Merchant account:", 16, 71, 120, 9},
    {DialogItem::TextBox, idMerchant, L"txtMerchantId", L"", 140, 68, 130, 14, 40},
    {DialogItem::Label, -1, L"lblDuplicateWindow", L"&Refuse repetitions for (seconds):", 16, 90,
     120, 9},
    {DialogItem::NumberBox, idDuplicates, L"txtDuplicateWindow", L"", 140, 87, 40, 14, 5},
    {DialogItem::Note, -1, L"lblDuplicateNote", L"0 accepts every repetition of a charge.", 140,
     104, 130, 9},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 170, 127, 52, 15},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 227, 127, 52, 15},
};

constexpr com::DialogLayout layout{L"frmGateway", L"Gateway Setup", 286, 149, controls};

} // namespace

GatewayDialog::GatewayDialog(Settings settings)
    : ModalDialog(layout), settings_(std::move(settings)) {}

void GatewayDialog::onShow() {
    setChecked(idTestMode, settings_.testMode);
    setText(idMerchant, settings_.merchantId);
    setText(idDuplicates, std::to_string(settings_.duplicateWindowSeconds));
}

bool GatewayDialog::onOk() {
    const std::string seconds = text(idDuplicates);
    const long value = std::strtol(seconds.c_str(), nullptr, 10);
    if (seconds.empty() || value > longestDuplicateWindowSeconds) {
        complain("Enter a number of seconds from 0 to " +
                     std::to_string(longestDuplicateWindowSeconds) + ".",
                 idDuplicates);
        return false;
    }
    settings_.testMode = checked(idTestMode);
    settings_.merchantId = text(idMerchant);
    settings_.duplicateWindowSeconds = static_cast<int>(value);
    return true;
}

} // namespace tollvane::charge
