// The About box.
#pragma once

#include "components/about/ProductFiles.h"
#include "components/common/ModalDialog.h"

#include <memory>
#include <type_traits>

namespace tollvane::about {

class AboutDialog final : public com::ModalDialog {
public:
    AboutDialog(Product product, bool withComponents);

private:
    struct DeleteFont {
        void operator()(HFONT font) const noexcept { DeleteObject(font); }
    };
    struct DestroyIconHandle {
        void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
    };

    void onShow() override;
    void showIcon();
    void showName();
    void showComponents();

    Product product_;
    bool withComponents_;
    std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont> nameFont_;
    std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle> icon_;
};

} // namespace tollvane::about
