#include "components/about/ProductFiles.h"

#include "components/common/ModuleLock.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <filesystem>
#include <optional>
#include <system_error>

namespace tollvane::about {

namespace {

constexpr const wchar_t* kMaker = L"Norrow Programs";
constexpr const wchar_t* kProgram = L"Tollvane.exe";
constexpr const wchar_t* kProductName = L"Tollvane";

// The version resource of one file.
class VersionResource {
public:
    explicit VersionResource(const std::filesystem::path& file) {
        DWORD unused = 0;
        const DWORD size = GetFileVersionInfoSizeW(file.c_str(), &unused);
        data_.resize(size);
        if (size != 0 && !GetFileVersionInfoW(file.c_str(), 0, size, data_.data()))
            data_.clear();
    }

    [[nodiscard]] std::wstring text(const wchar_t* name) const {
        const auto* language = value<WORD>(L"\\VarFileInfo\\Translation");
        if (!language)
            return {};
        wchar_t path[96];
        swprintf(path, std::size(path), L"\\StringFileInfo\\%04x%04x\\%ls", language[0],
                 language[1], name);
        const auto* found = value<wchar_t>(path);
        return found ? found : L"";
    }

    // Three numbers, and the fourth when there is one.
    [[nodiscard]] std::wstring version() const {
        const auto* fixed = value<VS_FIXEDFILEINFO>(L"\\");
        if (!fixed)
            return {};
        std::wstring result = std::to_wstring(HIWORD(fixed->dwFileVersionMS)) + L"." +
                              std::to_wstring(LOWORD(fixed->dwFileVersionMS)) + L"." +
                              std::to_wstring(HIWORD(fixed->dwFileVersionLS));
        if (LOWORD(fixed->dwFileVersionLS) != 0)
            result += L"." + std::to_wstring(LOWORD(fixed->dwFileVersionLS));
        return result;
    }

private:
    template <class Value>
    [[nodiscard]] const Value* value(const wchar_t* path) const {
        void* found = nullptr;
        UINT length = 0;
        if (data_.empty() || !VerQueryValueW(data_.data(), path, &found, &length) || length == 0)
            return nullptr;
        return static_cast<const Value*>(found);
    }

    std::vector<BYTE> data_;
};

std::filesystem::path ownFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(com::thisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return std::filesystem::path(path.substr(0, length)).parent_path();
        path.resize(path.size() * 2);
    }
}

std::wstring lowered(std::wstring text) {
    for (wchar_t& each : text)
        each = static_cast<wchar_t>(std::towlower(each));
    return text;
}

bool isProgramFile(const std::filesystem::path& file) {
    const std::wstring ending = lowered(file.extension().native());
    return ending == L".exe" || ending == L".dll";
}

std::optional<ProductFile> componentIn(const std::filesystem::path& file) {
    if (!isProgramFile(file) || lowered(file.filename().native()) == lowered(kProgram))
        return std::nullopt;
    const VersionResource resource(file);
    if (resource.text(L"CompanyName") != kMaker)
        return std::nullopt;
    return ProductFile{resource.text(L"FileDescription"), file.filename().native(),
                       resource.version()};
}

} // namespace

Product readProduct() {
    const std::filesystem::path folder = ownFolder();
    Product product{kProductName, VersionResource(folder / kProgram).version(), {}};
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (auto component = componentIn(entry.path()))
            product.components.push_back(std::move(*component));
    std::sort(product.components.begin(), product.components.end(),
              [](const ProductFile& one, const ProductFile& other) {
                  return one.description < other.description;
              });
    return product;
}

} // namespace tollvane::about
