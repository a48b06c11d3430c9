#include "components/environment/dialogs/frmLogin.h"

#include "components/common/ComFailure.h"
#include "components/environment/dialogs/frmOperators.h"

namespace tollvane::environment {

namespace {

using com::DialogItem;

enum Id { lblMessage = 100, txtUserName, txtPassword, cmdOperators };

const com::DialogControl controls[] = {
    {DialogItem::Note, lblMessage, L"lblMessage", L"Sign in to take card payments.", 7, 7, 196, 18},
    {DialogItem::Label, -1, L"", L"&User name:", 7, 33, 56, 8},
    {DialogItem::TextBox, txtUserName, L"txtUserName", L"", 66, 31, 137, 13, 40},
    {DialogItem::Label, -1, L"", L"&Password:", 7, 51, 56, 8},
    {DialogItem::PasswordBox, txtPassword, L"txtPassword", L"", 66, 49, 137, 13, 128},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 99, 74, 50, 14},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 153, 74, 50, 14},
    {DialogItem::Button, cmdOperators, L"cmdOperators", L"&Operators...", 7, 74, 60, 14},
};

const com::DialogLayout layout{L"frmLogin", L"Sign In", 210, 95, controls};

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTick = 100;
constexpr const char* kUnchecked = "The sign-in could not be checked.";
constexpr const char* kWrong = "The user name or the password is not right.";

} // namespace

frmLogin::frmLogin(EnvironmentState& state) : EnvironmentDialog(layout), state_(state) {}

void frmLogin::onShow() {
    comeToFront();
    setBoxText(txtUserName, state_.loginName());
    if (!state_.loginName().empty())
        focus(txtPassword);
}

bool frmLogin::complete() {
    if (GetWindowTextLengthW(item(txtUserName)) == 0) {
        setText(lblMessage, "Enter your user name.");
        focus(txtUserName);
        return false;
    }
    if (GetWindowTextLengthW(item(txtPassword)) == 0) {
        setText(lblMessage, "Enter your password.");
        focus(txtPassword);
        return false;
    }
    return true;
}

void frmLogin::setButtonsEnabled(bool enabled) {
    setEnabled(IDOK, enabled);
    setEnabled(cmdOperators, enabled);
}

// Messages are handled while the server is asked: nothing may be pressed meanwhile.
class frmLogin::ButtonsOff {
public:
    explicit ButtonsOff(frmLogin& dialog) : dialog_(dialog) { set(false); }
    ButtonsOff(const ButtonsOff&) = delete;
    ButtonsOff& operator=(const ButtonsOff&) = delete;
    ~ButtonsOff() { set(true); }

private:
    void set(bool enabled) {
        dialog_.setButtonsEnabled(enabled);
        dialog_.setEnabled(IDCANCEL, enabled);
    }

    frmLogin& dialog_;
};

SignInAnswer frmLogin::attempt(const Ask& ask) {
    if (waitUntil_ != 0 || !complete())
        return {};
    const Password password = Password::typedInto(item(txtPassword));
    wipeBox(item(txtPassword));
    setText(lblMessage, "Checking...");
    focus(txtPassword);
    SignInAnswer answer;
    try {
        const ButtonsOff off(*this);
        const WaitPointer wait;
        UpdateWindow(window());
        answer = ask(boxText(txtUserName), password);
        setText(lblMessage, answer.succeeded ? "" : kWrong);
    } catch (const com::ComponentError& error) {
        setText(lblMessage, kUnchecked);
        complain(error.description(), txtPassword);
    } catch (...) {
        setText(lblMessage, kUnchecked);
        throw; // the dialog's own last resort tells what it was
    }
    if (answer.waitMilliseconds > 0)
        beginWait(answer.waitMilliseconds);
    return answer;
}

void frmLogin::beginWait(LONG milliseconds) {
    waitUntil_ = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    setButtonsEnabled(false);
    SetTimer(window(), kTimer, kTick, nullptr);
    onTimer();
}

void frmLogin::onTimer() {
    const ULONGLONG now = GetTickCount64();
    if (waitUntil_ > now) {
        const auto seconds = (waitUntil_ - now + 999) / 1000;
        const std::string text = std::string(kWrong) + "\r\nPlease wait " +
                                 std::to_string(seconds) +
                                 (seconds == 1 ? " second." : " seconds.");
        if (com::narrow(std::wstring_view(boxText(lblMessage))) != text)
            setText(lblMessage, text);
        return;
    }
    KillTimer(window(), kTimer);
    waitUntil_ = 0;
    setText(lblMessage, std::string(kWrong) + "\r\nTry again.");
    setButtonsEnabled(true);
}

bool frmLogin::onOk() {
    return attempt([this](const std::wstring& name, const Password& password) {
               return state_.signIn(name, password);
           })
        .succeeded;
}

void frmLogin::onCommand(int id, int notification) {
    if (id == cmdOperators && notification == BN_CLICKED)
        manageOperators();
}

void frmLogin::manageOperators() {
    const HostDataClient server = state_.hostData();
    const SignInAnswer answer = attempt([&](const std::wstring& name, const Password& password) {
        return server.signIn(name, password);
    });
    if (!answer.succeeded)
        return;
    struct SigningOut {
        const HostDataClient& server;
        const std::wstring& token;
        ~SigningOut() {
            try {
                server.signOut(token);
            } catch (...) {
                // The server ends the session by itself.
            }
        }
    };
    const SigningOut signingOut{server, answer.token};
    if (server.hasPrivilege(answer.token, privilege::manageOperators))
        frmOperators(server, answer.token).run(window());
    else
        setText(lblMessage, "You do not have the privilege to manage operators.");
    focus(txtPassword);
}

} // namespace tollvane::environment
