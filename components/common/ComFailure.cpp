#include "components/common/ComFailure.h"

#include "components/common/ComPtr.h"
#include "components/common/ComText.h"

#include <new>

namespace tollvane::com {

std::string systemText(DWORD code) {
    char buffer[512] = {};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, code, 0, buffer, sizeof buffer, nullptr);
    std::string text(buffer, length);
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' '))
        text.pop_back();
    return text.empty() ? "The system reported an error." : text;
}

namespace {

void setErrorObject(const IID& interfaceId, const std::string& source,
                    const std::string& description) {
    ComPtr<ICreateErrorInfo> creation;
    if (FAILED(CreateErrorInfo(creation.put())))
        return;
    Bstr sourceText{std::string_view(source)};
    Bstr descriptionText{std::string_view(description)};
    creation->SetGUID(interfaceId);
    creation->SetSource(sourceText.get());
    creation->SetDescription(descriptionText.get());
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(creation->QueryInterface(IID_IErrorInfo, info.putVoid())))
        SetErrorInfo(0, info.get());
}

HRESULT report(const IID& interfaceId, const char* defaultSource) {
    try {
        throw;
    } catch (const ComponentError& error) {
        setErrorObject(interfaceId, error.source().empty() ? defaultSource : error.source(),
                       error.description());
        return static_cast<HRESULT>(error.number());
    } catch (const std::bad_alloc&) {
        setErrorObject(interfaceId, defaultSource, "There is not enough memory.");
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        setErrorObject(interfaceId, defaultSource,
                       std::string("An unexpected problem came up: ") + error.what());
        return E_FAIL;
    } catch (...) {
        setErrorObject(interfaceId, defaultSource, "An unexpected problem came up.");
        return E_FAIL;
    }
}

} // namespace

void throwFailure(HRESULT result) {
    throw ComponentError(static_cast<std::uint32_t>(result), {},
                         systemText(static_cast<DWORD>(result)));
}

void throwLastError(DWORD status) {
    throwFailure(HRESULT_FROM_WIN32(status));
}

void check(HRESULT result) {
    if (FAILED(result))
        throwFailure(result);
}

HRESULT reportCurrentException(const IID& interfaceId, const char* defaultSource) noexcept {
    try {
        return report(interfaceId, defaultSource);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

} // namespace tollvane::com
