// The host data server as the environment uses it.
#pragma once

#include "components/environment/Automation.h"
#include "components/environment/Password.h"

#include <string>
#include <vector>

namespace tollvane::environment {

// The server's kind of data object that is a payment record.
constexpr LONG kPaymentRecord = 17;

// The privileges that the dialogs offer, by the numbers of the host data server.
namespace privilege {
constexpr LONG manageOperators = 1;
constexpr LONG acceptCardPayments = 4;
} // namespace privilege

struct NewOperator {
    std::wstring first;
    std::wstring last;
    std::wstring userName;
};

struct OperatorRow {
    LONG id = 0;
    std::wstring userName;
    std::wstring first;
    std::wstring last;
    bool enabled = false;
    bool acceptsPayments = false;
    bool managesOperators = false;
};

struct SignInAnswer {
    bool succeeded = false;
    LONG waitMilliseconds = 0;
    std::wstring token;
    std::wstring userName;
    std::wstring first;
    std::wstring last;
};

// Everything raises ComponentError as the server gave it.
class HostDataClient {
public:
    explicit HostDataClient(com::ComPtr<IDispatch> server) : server_(std::move(server)) {}

    [[nodiscard]] bool hasOperators() const { return server_.number(L"OperatorCount") > 0; }
    void createFirst(const NewOperator& data, const Password& password) const;
    [[nodiscard]] SignInAnswer signIn(const std::wstring& userName, const Password& password) const;
    void signOut(const std::wstring& token) const;
    [[nodiscard]] bool hasPrivilege(const std::wstring& token, LONG number) const;

    [[nodiscard]] std::vector<OperatorRow> operators(const std::wstring& token) const;
    LONG add(const std::wstring& token, const NewOperator& data, const Password& password) const;
    void setEnabled(const std::wstring& token, LONG id, bool enabled) const;
    void setPrivilege(const std::wstring& token, LONG id, LONG number, bool granted) const;
    void resetPassword(const std::wstring& token, LONG id, const Password& password) const;

    // A data object of the kind; it knows the operator when the token is not empty and the server
    // keeps such records.
    [[nodiscard]] com::ComPtr<IDispatch> createObject(LONG kind, const std::wstring& token) const;
    // What was stored in the last days: a line each, with transaction, tab and amount times 10,000.
    [[nodiscard]] std::wstring storedPayments(LONG days) const {
        return server_.text(L"StoredPayments", {argument(days)});
    }
    [[nodiscard]] std::wstring dataPath() const { return server_.text(L"Data_Path"); }
    [[nodiscard]] std::wstring location() const { return server_.text(L"Location"); }

private:
    Remote server_;
};

} // namespace tollvane::environment
