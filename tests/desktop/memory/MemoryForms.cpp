#include "tests/desktop/memory/MemoryForms.h"

#include "tests/desktop/FakeClock.h"
#include "tests/desktop/FaultPlan.h"
#include "tests/desktop/memory/MemoryControls.h"
#include "tests/desktop/memory/MemoryForm.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tollvane::test {

std::unique_ptr<Form> MemoryForms::create(const FormDescription& description) {
    auto form = std::make_unique<MemoryForm>(*this, description);
    forms_.push_back(form.get());
    return form;
}

bool MemoryForms::takesInput(const MemoryForm& form) const {
    return form.isOpen() && (modals_.empty() || modals_.back() == &form);
}

void MemoryForms::opened(MemoryForm& form) {
    std::erase(order_, &form);
    order_.push_back(&form);
}

void MemoryForms::activate(MemoryForm& form) {
    if (active_ == &form || !takesInput(form)) {
        return;
    }
    opened(form);
    active_ = &form;
    form.becameActive();
}

void MemoryForms::closed(MemoryForm& form) {
    std::erase(order_, &form);
    std::erase(modals_, &form);
    if (active_ != &form) {
        return;
    }
    active_ = nullptr;
    const auto next = std::find_if(order_.rbegin(), order_.rend(),
                                   [this](const MemoryForm* f) { return takesInput(*f); });
    if (next != order_.rend()) {
        activate(**next);
    }
}

void MemoryForms::destroyed(MemoryForm& form) {
    std::erase(forms_, &form);
    std::erase(order_, &form);
    std::erase(modals_, &form);
    if (active_ == &form) {
        active_ = nullptr;
    }
}

void MemoryForms::runModal(MemoryForm& form) {
    modals_.push_back(&form);
    form.show();
    if (!form.isOpen()) {
        std::erase(modals_, &form);
        return;
    }
    if (modalPlans.empty()) {
        ADD_FAILURE() << "nobody planned what happens while " << form.name() << " is open";
    } else {
        const auto plan = modalPlans.front();
        modalPlans.pop_front();
        plan(form);
        if (form.isOpen()) {
            ADD_FAILURE() << "the plan left " << form.name() << " open";
        }
    }
    form.close();
}

void MemoryForms::runHandler(const std::string& where, const std::function<void()>& body) {
    ++handlerDepth_;
    try {
        body();
    } catch (...) {
        setup_.escaped.note(where, currentError());
    }
    --handlerDepth_;
}

void MemoryForms::changing(const std::string& what) {
    if (handlerDepth_ > 0) {
        setup_.faults.hit(Port::controls, what);
    }
}

void MemoryForms::letTimePass(int milliseconds) {
    FakeClock& clock = setup_.clock;
    const std::uint64_t end = clock.milliseconds() + static_cast<std::uint64_t>(milliseconds);
    while (true) {
        MemoryTimer* next = nullptr;
        for (MemoryForm* form : forms_) {
            for (MemoryTimer* timer : form->timers()) {
                if (timer->runs() && timer->due() <= end &&
                    (next == nullptr || timer->due() < next->due())) {
                    next = timer;
                }
            }
        }
        if (next == nullptr) {
            break;
        }
        if (next->due() > clock.milliseconds()) {
            clock.advance(next->due() - clock.milliseconds());
        }
        next->fire();
    }
    if (end > clock.milliseconds()) {
        clock.advance(end - clock.milliseconds());
    }
}

} // namespace tollvane::test
