#include "components/environment/HostDataClient.h"

#include "components/common/ComFailure.h"

namespace tollvane::environment {

namespace {
using com::Bstr;
using Text = std::wstring_view;
} // namespace

void HostDataClient::createFirst(const NewOperator& data, const Password& password) const {
    const Bstr first{Text(data.first)};
    const Bstr last{Text(data.last)};
    const Bstr user{Text(data.userName)};
    server_.call(L"CreateFirstOperator",
                 {argument(first), argument(last), argument(user), argument(password.get())});
}

SignInAnswer HostDataClient::signIn(const std::wstring& userName, const Password& password) const {
    const Bstr user{Text(userName)};
    const Remote answer = server_.object(L"SignIn", {argument(user), argument(password.get())});
    return {answer.flag(L"Succeeded"), answer.number(L"WaitMilliseconds"),
            answer.text(L"Token"),     answer.text(L"UserName"),
            answer.text(L"First"),     answer.text(L"Last")};
}

void HostDataClient::signOut(const std::wstring& token) const {
    const Bstr text{Text(token)};
    server_.call(L"SignOut", {argument(text)});
}

bool HostDataClient::hasPrivilege(const std::wstring& token, LONG number) const {
    const Bstr text{Text(token)};
    return server_.flag(L"HasPrivilege", {argument(text), argument(number)});
}

std::vector<OperatorRow> HostDataClient::operators(const std::wstring& token) const {
    const Bstr text{Text(token)};
    const Remote list = server_.object(L"Operators", {argument(text)});
    std::vector<OperatorRow> rows;
    for (LONG i = 1, count = list.number(L"Count"); i <= count; ++i) {
        const Remote each = list.object(L"Item", {argument(i)});
        rows.push_back({each.number(L"Id"), each.text(L"UserName"), each.text(L"First"),
                        each.text(L"Last"), each.flag(L"Enabled"),
                        each.flag(L"HasPrivilege", {argument(privilege::acceptCardPayments)}),
                        each.flag(L"HasPrivilege", {argument(privilege::manageOperators)})});
    }
    return rows;
}

LONG HostDataClient::add(const std::wstring& token, const NewOperator& data,
                         const Password& password) const {
    const Bstr text{Text(token)};
    const Bstr first{Text(data.first)};
    const Bstr last{Text(data.last)};
    const Bstr user{Text(data.userName)};
    return server_.number(L"AddOperator", {argument(text), argument(first), argument(last),
                                           argument(user), argument(password.get())});
}

void HostDataClient::setEnabled(const std::wstring& token, LONG id, bool enabled) const {
    const Bstr text{Text(token)};
    server_.call(L"SetOperatorEnabled", {argument(text), argument(id), argument(enabled)});
}

void HostDataClient::setPrivilege(const std::wstring& token, LONG id, LONG number,
                                  bool granted) const {
    const Bstr text{Text(token)};
    server_.call(L"SetPrivilege",
                 {argument(text), argument(id), argument(number), argument(granted)});
}

void HostDataClient::resetPassword(const std::wstring& token, LONG id,
                                   const Password& password) const {
    const Bstr text{Text(token)};
    server_.call(L"ResetPassword", {argument(text), argument(id), argument(password.get())});
}

com::ComPtr<IDispatch> HostDataClient::createObject(LONG kind, const std::wstring& token) const {
    if (!token.empty()) {
        try {
            const Bstr text{Text(token)};
            return server_.pointer(L"CreateDataObject", {argument(kind), argument(text)});
        } catch (const com::ComponentError& error) {
            if (error.number() != static_cast<std::uint32_t>(DISP_E_UNKNOWNNAME))
                throw;
        }
    }
    return server_.pointer(L"SafeCreateObj", {argument(kind)});
}

} // namespace tollvane::environment
