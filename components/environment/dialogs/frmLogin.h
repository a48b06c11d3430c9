// The operator's sign-in.
#pragma once

#include "components/environment/EnvironmentState.h"
#include "components/environment/dialogs/EnvironmentDialog.h"

#include <functional>

namespace tollvane::environment {

// After a wrong answer the next attempt waits as long as the server says; the dialog counts the
// seconds down and can be cancelled all the while. It never says which half was wrong.
class frmLogin final : public EnvironmentDialog {
public:
    explicit frmLogin(EnvironmentState& state);

private:
    void onShow() override;
    bool onOk() override;
    void onCommand(int id, int notification) override;
    void onTimer() override;

    class ButtonsOff;

    using Ask = std::function<SignInAnswer(const std::wstring&, const Password&)>;
    // Asks with what was typed; an answer that did not succeed is shown.
    SignInAnswer attempt(const Ask& ask);
    [[nodiscard]] bool complete();
    void setButtonsEnabled(bool enabled);
    void beginWait(LONG milliseconds);
    void manageOperators();

    EnvironmentState& state_;
    // System ticks; 0 when there is nothing to wait for.
    ULONGLONG waitUntil_ = 0;
};

} // namespace tollvane::environment
