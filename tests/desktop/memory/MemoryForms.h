#pragma once

#include "platform/Form.h"
#include "tests/desktop/TestForms.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tollvane::test {

class MemoryForm;

/// The in-memory window system: which form is active, which is modal, what time it is.
class MemoryForms : public Forms {
public:
    explicit MemoryForms(const TestFormsSetup& setup) : setup_(setup) {}

    std::unique_ptr<Form> create(const FormDescription& description) override;

    /// The form that gets the keys; null while another program is active.
    MemoryForm* active() const { return active_; }
    /// False while a modal form stands in front of it.
    bool takesInput(const MemoryForm& form) const;
    void activate(MemoryForm& form);
    void leave() { active_ = nullptr; }
    /// Shows the form as the modal one until it has been closed.
    void runModal(MemoryForm& form);

    void opened(MemoryForm& form);
    /// Ends modality and gives the activation to the form that had it before.
    void closed(MemoryForm& form);
    void destroyed(MemoryForm& form);

    /// Runs a handler; an error that leaves it is noted.
    void runHandler(const std::string& where, const std::function<void()>& body);
    /// A handler changes something: a planned failure is raised here.
    void changing(const std::string& what);

    void letTimePass(int milliseconds);
    /// A handle for a new form.
    WindowNumber newHandle() { return ++lastHandle_; }
    FakeClock& clock() { return setup_.clock; }

    std::deque<std::function<void(Form&)>> modalPlans;
    std::string popUpPlan;
    std::string clipboard;

private:
    struct DueTimer;

    TestFormsSetup setup_;
    std::vector<MemoryForm*> forms_; ///< every living form
    std::vector<MemoryForm*> order_; ///< open forms, the one active last at the end
    std::vector<MemoryForm*> modals_;
    MemoryForm* active_ = nullptr;
    WindowNumber lastHandle_ = 0x10000;
    int handlerDepth_ = 0;
};

} // namespace tollvane::test
