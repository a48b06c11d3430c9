#include "platform/win32/FormCore.h"

#include "platform/win32/NativeControl.h"

#include <algorithm>

namespace tollvane::win32 {

FormCore::FormCore(Ui& ui, FormEvents& events, const FormDescription& description)
    : resizable(description.resizable), defaultButton(description.defaultButton),
      cancelButton(description.cancelButton), ui_(ui), on_(events), name_(description.name),
      width_(description.width), height_(description.height), dpi_(systemDpi()),
      fonts_(std::make_unique<UiFonts>(dpi_)) {}

FormCore::~FormCore() = default;

void FormCore::setWindow(HWND window) {
    window_ = window;
    if (window_ && windowDpi(window_) != dpi_) {
        dpi_ = windowDpi(window_);
        fonts_ = std::make_unique<UiFonts>(dpi_);
    }
}

void FormCore::setDpi(int dpi) {
    dpi_ = dpi;
    // The controls let go of the old fonts before those are deleted.
    const auto old = std::exchange(fonts_, std::make_unique<UiFonts>(dpi));
    for (const auto& control : controls_) {
        control->applyFont();
    }
    layOut();
}

RECT FormCore::pixels(const Bounds& bounds) const {
    return {scaled(bounds.left, dpi_), scaled(bounds.top, dpi_),
            scaled(bounds.left + bounds.width, dpi_), scaled(bounds.top + bounds.height, dpi_)};
}

void FormCore::resized() {
    RECT client{};
    if (resizable && GetClientRect(window_, &client)) {
        const int width = MulDiv(client.right, designDpi, dpi_);
        const int height = MulDiv(client.bottom, designDpi, dpi_);
        const int wider = width - std::exchange(width_, width);
        const int taller = height - std::exchange(height_, height);
        for (const auto& control : controls_) {
            control->follow(wider, taller);
        }
    }
    layOut();
}

void FormCore::activated() {
    activationDue_ = true;
    PostMessageA(window_, kActivated, 0, 0);
}

void FormCore::deliverActivation() {
    if (std::exchange(activationDue_, false) && window_ && on_.activate) {
        ui_.guarded(on_.activate);
    }
}

void FormCore::layOut() {
    for (const auto& control : controls_) {
        control->place();
    }
    InvalidateRect(window_, nullptr, TRUE);
}

void FormCore::add(std::unique_ptr<NativeControl> control) {
    controls_.push_back(std::move(control));
}

NativeControl* FormCore::controlOf(HWND child) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(),
                     [child](const auto& control) { return child && control->window() == child; });
    return found == controls_.end() ? nullptr : found->get();
}

NativeControl* FormCore::controlNamed(std::string_view name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [name](const auto& one) { return one->controlName() == name; });
    return found == controls_.end() ? nullptr : found->get();
}

} // namespace tollvane::win32
