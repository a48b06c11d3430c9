// The server's settings as a person sees them: where the store is, what is in it, and two buttons
// that look after it.
#pragma once

#include "components/common/ModalDialog.h"

#include <string>

namespace tollvane::hostdata {

class HostDataDialog final : public com::ModalDialog {
public:
    // storePath is UTF-8.
    explicit HostDataDialog(std::string storePath);

private:
    void onShow() override;
    void onCommand(int id, int notification) override;

    void showFacts();
    void check();
    void backUp();
    void setWideText(int id, const std::wstring& text);
    void tell(const std::wstring& message, UINT icon);
    // Runs the work under the hourglass; a failure is told, and the dialog stays.
    template <class Work>
    void attempt(Work&& work);

    std::string storePath_;
};

} // namespace tollvane::hostdata
