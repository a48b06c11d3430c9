#include "platform/win32/AutomationErrors.h"

#include "platform/win32/ComHandles.h"
#include "platform/win32/SystemText.h"

#include <algorithm>
#include <iterator>

namespace tollvane::win32 {

namespace {

struct KnownResult {
    HRESULT result;
    long number;
    const char* description;
};

constexpr const char* kServerGone = "The remote server machine does not exist or is unavailable";
constexpr const char* kNoMember = "Object doesn't support this property or method";
constexpr const char* kCannotCreate = "ActiveX component can't create object";

const KnownResult kKnownResults[] = {
    {REGDB_E_CLASSNOTREG, errornumber::cannotCreateObject, kCannotCreate},
    {CO_E_CLASSSTRING, errornumber::cannotCreateObject, kCannotCreate},
    {DISP_E_UNKNOWNNAME, errornumber::memberNotFound, kNoMember},
    {DISP_E_MEMBERNOTFOUND, errornumber::memberNotFound, kNoMember},
    {DISP_E_TYPEMISMATCH, errornumber::typeMismatch, "Type mismatch"},
    {DISP_E_OVERFLOW, errornumber::overflow, "Overflow"},
    {DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
    {DISP_E_PARAMNOTOPTIONAL, 449, "Argument not optional"},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), 462, kServerGone},
    {HRESULT_FROM_WIN32(RPC_S_CALL_FAILED), 462, kServerGone},
    {RPC_E_DISCONNECTED, 462, kServerGone},
    {RPC_E_SERVER_DIED, 462, kServerGone},
    {RPC_E_SERVER_DIED_DNE, 462, kServerGone},
    {CO_E_OBJNOTCONNECTED, 462, kServerGone},
};

const KnownResult* known(HRESULT result) {
    const auto* found =
        std::find_if(std::begin(kKnownResults), std::end(kKnownResults),
                     [result](const KnownResult& row) { return row.result == result; });
    return found == std::end(kKnownResults) ? nullptr : found;
}

/// Results of the control facility carry a plain number in their low word.
long numberOf(HRESULT result) {
    return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : result;
}

std::string textOf(BSTR text) {
    return text ? narrowed({text, SysStringLen(text)}) : std::string();
}

std::string orElse(const std::string& text, std::string_view fallback) {
    return text.empty() ? std::string(fallback) : text;
}

} // namespace

Error automationError(HRESULT result, std::string_view source) {
    if (const KnownResult* row = known(result)) {
        return {row->number, std::string(source), row->description};
    }
    return {numberOf(result), std::string(source),
            orElse(systemText(static_cast<DWORD>(result)), "Automation error")};
}

Error componentError(EXCEPINFO& raised, std::string_view source) {
    if (raised.pfnDeferredFillIn) {
        raised.pfnDeferredFillIn(&raised);
    }
    const std::string itsSource = orElse(textOf(raised.bstrSource), source);
    const std::string itsText = textOf(raised.bstrDescription);
    Bstr::freeWiped(std::exchange(raised.bstrSource, nullptr));
    Bstr::freeWiped(std::exchange(raised.bstrDescription, nullptr));
    Bstr::freeWiped(std::exchange(raised.bstrHelpFile, nullptr));
    if (raised.wCode != 0) {
        return {raised.wCode, itsSource, orElse(itsText, "Automation error")};
    }
    const Error plain = automationError(raised.scode, itsSource);
    return {plain.number(), itsSource, orElse(itsText, plain.description())};
}

Error callError(HRESULT result, std::string_view source) {
    Error plain = automationError(result, source);
    ComRef<IErrorInfo> left;
    if (known(result) || GetErrorInfo(0, reinterpret_cast<IErrorInfo**>(left.receive())) != S_OK) {
        return plain;
    }
    Bstr itsSource;
    Bstr itsText;
    left->GetSource(itsSource.receive());
    left->GetDescription(itsText.receive());
    return {plain.number(), orElse(textOf(itsSource.get()), source),
            orElse(textOf(itsText.get()), plain.description())};
}

} // namespace tollvane::win32
