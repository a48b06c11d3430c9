#include "tests/desktop/memory/MemoryForm.h"

#include <algorithm>

namespace tollvane::test {

namespace {

constexpr long kControlNotFound = 730;
constexpr long kCannotShow = 400;

} // namespace

MemoryForm::MemoryForm(MemoryForms& host, const FormDescription& description)
    : host_(host), handle_(host.newHandle()), name_(description.name),
      caption_(description.caption), defaultButton_(description.defaultButton),
      cancelButton_(description.cancelButton), resizable_(description.resizable) {
    addControls(description);
    addMenus(description);
    for (const auto& core : cores_) {
        view_.push_back(&core->control());
    }
}

MemoryForm::~MemoryForm() {
    closed_ = true; // nothing fires any more
    host_.destroyed(*this);
}

void MemoryForm::addControls(const FormDescription& description) {
    for (const ControlDescription& row : description.controls) {
        cores_.push_back(makeControl(*this, row, description.panels));
        cores_.back()->position = cores_.size() - 1;
        if (auto* timer = dynamic_cast<MemoryTimer*>(cores_.back().get())) {
            timers_.push_back(timer);
        }
    }
}

void MemoryForm::addMenus(const FormDescription& description) {
    for (const MenuDescription& row : description.menus) {
        ControlDescription item;
        item.kind = ControlKind::menuItem;
        item.name = row.name;
        item.caption = row.caption;
        item.visible = row.visible;
        auto made = std::make_unique<MemoryMenuItem>(*this, item, row.level);
        made->position = cores_.size();
        menus_.push_back(made.get());
        cores_.push_back(std::move(made));
    }
}

ControlCore& MemoryForm::core(std::string_view name, int index) {
    for (const auto& candidate : cores_) {
        if (candidate->name == name && candidate->index == index) {
            return *candidate;
        }
    }
    throw Error(kControlNotFound, name_, "Control '" + std::string(name) + "' not found");
}

std::vector<MemoryOptionButton*> MemoryForm::optionArray(const std::string& name) const {
    std::vector<MemoryOptionButton*> buttons;
    for (const auto& candidate : cores_) {
        auto* button = dynamic_cast<MemoryOptionButton*>(candidate.get());
        if (button != nullptr && candidate->name == name) {
            buttons.push_back(button);
        }
    }
    return buttons;
}

void MemoryForm::runHandler(const std::string& where, const std::function<void()>& body) {
    if (!closed_) {
        host_.runHandler(name_ + "." + where, body);
    }
}

void MemoryForm::setCaption(const std::string& caption) {
    host_.changing(name_ + ".setCaption");
    caption_ = caption;
}

void MemoryForm::move(int left, int top) {
    host_.changing(name_ + ".move");
    left_ = left;
    top_ = top;
}

void MemoryForm::show() {
    if (closed_) {
        throw Error(kCannotShow, name_, "The form has been closed");
    }
    if (!loaded_) {
        loaded_ = true;
        if (on.load) {
            runHandler("Load", on.load);
        }
    }
    if (closed_) {
        return; // load decided against it
    }
    shown_ = true;
    host_.opened(*this);
    host_.activate(*this);
}

void MemoryForm::dragCorner(int right, int down) {
    if (!resizable_) {
        return;
    }
    const int wider = std::max(wider_ + right, 0) - wider_;
    const int taller = std::max(taller_ + down, 0) - taller_;
    wider_ += wider;
    taller_ += taller;
    for (const auto& core : cores_) {
        core->bounds.left += core->follow.moveRight ? wider : 0;
        core->bounds.top += core->follow.moveDown ? taller : 0;
        core->bounds.width += core->follow.growRight ? wider : 0;
        core->bounds.height += core->follow.growDown ? taller : 0;
    }
}

void MemoryForm::showModal(Form* /*owner*/) {
    host_.runModal(*this);
}

void MemoryForm::close() {
    if (closing_ || closed_) {
        return;
    }
    closing_ = true;
    if (on.unload) {
        runHandler("Unload", on.unload);
    }
    closed_ = true;
    host_.closed(*this);
}

} // namespace tollvane::test
