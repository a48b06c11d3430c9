#include "tests/proof/faults/FaultyObject.h"

#include "platform/Error.h"
#include "tests/desktop/FakeAutomation.h"
#include "tests/desktop/FakeCharge.h"

#include <utility>

namespace tollvane::test {

namespace {

[[noreturn]] void noSuchMember(std::string_view member) {
    throw Error(errornumber::memberNotFound, std::string(member),
                "Object doesn't support this property or method");
}

/// The process that an object lives in, named after the component that was created there.
std::string processOf(const std::string& object) {
    const std::string kind = object.substr(0, object.find(' '));
    if (kind == "field") {
        return "charge";
    }
    for (const char* one : {"options", "login", "user", "person"}) {
        if (kind == one) {
            return "environment";
        }
    }
    return kind == "payment" || kind == "item" ? "hostdata" : kind;
}

ObjectRef unwrapped(const ObjectRef& object) {
    const auto* ours = dynamic_cast<const FaultyObject*>(object.get());
    return ours == nullptr ? object : ours->inner();
}

Variant unwrapped(Variant value) {
    if (const auto* object = std::get_if<ObjectRef>(&value)) {
        return unwrapped(*object);
    }
    return value;
}

} // namespace

Variant StrangeObject::call(std::string_view member, std::vector<Argument>) {
    noSuchMember(member);
}
Variant StrangeObject::get(std::string_view member, std::vector<Argument>) {
    noSuchMember(member);
}
void StrangeObject::put(std::string_view member, Variant) {
    noSuchMember(member);
}
void StrangeObject::putReference(std::string_view member, ObjectRef) {
    noSuchMember(member);
}

FaultyObject::FaultyObject(ObjectRef inner, Sabotage& sabotage)
    : inner_(std::move(inner)), sabotage_(sabotage) {
    const auto* fake = dynamic_cast<const FakeObject*>(inner_.get());
    name_ = fake == nullptr ? "object" : fake->name();
    process_ = processOf(name_);
    ++sabotage_.liveObjects;
}

FaultyObject::~FaultyObject() {
    --sabotage_.liveObjects;
}

Variant FaultyObject::wrapped(Variant answer) {
    if (const auto* object = std::get_if<ObjectRef>(&answer); object != nullptr && *object) {
        return ObjectRef(std::make_shared<FaultyObject>(*object, sabotage_));
    }
    return answer;
}

Variant FaultyObject::perform(const std::string& call, const std::function<Variant()>& work) {
    const Mode* mode = sabotage_.strike(Callee::member, name_ + "." + call);
    if (sabotage_.isDead(process_)) {
        throw Error(kServerGone, name_, kServerGoneText);
    }
    if (mode == nullptr) {
        return wrapped(work());
    }
    if (mode->how == Mode::How::loses || mode->how == Mode::How::answers) {
        work();
    }
    if (mode->how == Mode::How::answers) {
        return mode->answer;
    }
    if (mode->how != Mode::How::raises) {
        sabotage_.kill(process_);
    }
    throw Error(mode->number, name_, mode->description);
}

Variant FaultyObject::call(std::string_view member, std::vector<Argument> arguments) {
    for (Argument& argument : arguments) {
        argument.value = unwrapped(std::move(argument.value));
    }
    return perform(std::string(member), [&] { return inner_->call(member, arguments); });
}

Variant FaultyObject::get(std::string_view member, std::vector<Argument> arguments) {
    return perform(std::string(member), [&] { return inner_->get(member, arguments); });
}

void FaultyObject::put(std::string_view member, Variant value) {
    perform(std::string(member) + " =", [&]() -> Variant {
        inner_->put(member, unwrapped(std::move(value)));
        return {};
    });
}

void FaultyObject::putReference(std::string_view member, ObjectRef object) {
    perform(std::string(member) + " =", [&]() -> Variant {
        inner_->putReference(member, unwrapped(object));
        return {};
    });
}

ObjectRef FaultyAutomation::created(const std::string& id,
                                    const std::function<ObjectRef()>& create) {
    if (const Mode* mode = sabotage_.strike(Callee::creation, "create " + id)) {
        throw Error(mode->number, id, mode->description);
    }
    const ObjectRef made = create();
    if (const auto* fake = dynamic_cast<const FakeObject*>(made.get())) {
        sabotage_.revive(processOf(fake->name()));
    }
    return std::make_shared<FaultyObject>(made, sabotage_);
}

ObjectRef FaultyAutomation::create(const std::string& progId, const std::string& computer) {
    return created(progId, [&] { return inner_.create(progId, computer); });
}

ObjectRef FaultyAutomation::createClass(const std::string& classId,
                                        const std::string& interfaceId) {
    return created(classId == FakeChecker::classId ? "checker" : classId,
                   [&] { return inner_.createClass(classId, interfaceId); });
}

} // namespace tollvane::test
