#pragma once

#include "platform/win32/FormMenus.h"

#include <memory>
#include <optional>
#include <vector>

namespace tollvane::win32 {

/// A top-level window.
class Win32Form final : public Form {
public:
    Win32Form(Ui& ui, const FormDescription& description);
    ~Win32Form() override;

    Control& find(std::string_view name, int index) override;
    std::span<Control* const> controls() override { return ports_; }
    Control* activeControl() override;

    WindowNumber handle() const override { return HandleToLong(core_.window()); }
    std::string caption() const override { return caption_; }
    void setCaption(const std::string& caption) override;
    int left() const override;
    int top() const override;
    void move(int left, int top) override;
    WindowState windowState() const override;
    MousePointer mousePointer() const override { return core_.pointer; }
    void setMousePointer(MousePointer pointer) override;
    void setKeyPreview(bool wanted) override { core_.keyPreview = wanted; }

    void show() override;
    void showModal(Form* owner) override;
    bool isOpen() const override { return shown_ && core_.window() != nullptr; }
    void close() override;
    void popUpMenu(std::string_view menuName) override { menus_->popUp(menuName); }
    void refresh() override;

    HWND window() const { return core_.window(); }
    const FormMenus& menus() const { return *menus_; }

    static void registerClass(HINSTANCE instance);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT received(UINT message, WPARAM first, LPARAM second);
    std::optional<LRESULT> keyMessage(UINT message, WPARAM first, LPARAM second);
    std::optional<LRESULT> paintMessage(UINT message, WPARAM first, LPARAM second);
    std::optional<LRESULT> windowMessage(UINT message, WPARAM first, LPARAM second);

    void createWindow(const FormDescription& description);
    void createControls(const FormDescription& description);
    void putFramesBelow();
    void command(WPARAM first, LPARAM second);
    void activation(bool active);
    void limitSize(MINMAXINFO& limits) const;
    void activateNext();
    bool isBackground(POINT place) const;
    std::optional<LRESULT> pointerShape(HWND over) const;
    void dpiChanged(WPARAM dpi, const RECT& suggested);
    void centreOver(const Form* owner);
    void raise(const std::function<void()>& handler);

    FormCore core_;
    std::unique_ptr<FormMenus> menus_;
    std::vector<Control*> ports_;
    std::string caption_;
    std::vector<HWND> heldByModal_; ///< windows that wait for this modal form to close
    SIZE smallest_{};               ///< pixels at the DPI that the form was made for
    int smallestDpi_ = designDpi;
    bool loaded_ = false;
    bool shown_ = false;
    bool showing_ = false;
    bool closing_ = false;
    bool leftForBox_ = false;
};

} // namespace tollvane::win32
