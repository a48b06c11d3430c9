#include "tests/desktop/FakeAutomation.h"

#include "tests/desktop/FaultPlan.h"

#include <algorithm>
#include <sstream>
#include <type_traits>
#include <utility>

namespace tollvane::test {

namespace {

constexpr long kNoInterface = static_cast<long>(static_cast<int>(0x8000'4002U));

std::string dateText(const DateTime& date) {
    std::ostringstream out;
    out << date.year << "-" << date.month << "-" << date.day;
    return out.str();
}

std::string moneyText(Money amount) {
    std::ostringstream out;
    out << static_cast<double>(amount.scaled()) / static_cast<double>(Money::scale);
    return out.str();
}

Error noMember(std::string_view source) {
    return {errornumber::memberNotFound, std::string(source),
            "Object doesn't support this property or method"};
}

Error noObject(const std::string& id) {
    return {errornumber::cannotCreateObject, id, "ActiveX component can't create object"};
}

} // namespace

std::string variantText(const Variant& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return "empty";
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, Money>) {
                return moneyText(held);
            } else if constexpr (std::is_same_v<Held, DateTime>) {
                return dateText(held);
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return "\"" + held + "\"";
            } else if constexpr (std::is_same_v<Held, SecretText>) {
                return "secret(" + std::to_string(held.size()) + ")";
            } else if constexpr (std::is_same_v<Held, ObjectRef>) {
                return held ? "object" : "nothing";
            } else {
                std::ostringstream out;
                out << held;
                return out.str();
            }
        },
        value);
}

std::string AutomationCall::text() const {
    std::string text = object + "." + member;
    std::string list;
    for (const Argument& argument : arguments) {
        list += (list.empty() ? "" : ", ") + std::string(argument.byReference ? "&" : "") +
                variantText(argument.value);
    }
    switch (access) {
    case Access::call: return text + "(" + list + ")";
    case Access::get: return list.empty() ? text : text + "[" + list + "]";
    case Access::put: return text + " = " + list;
    case Access::putReference: return "Set " + text + " = " + list;
    }
    return text;
}

void AutomationRecord::note(AutomationCall call) {
    const std::string member = call.object + "." + call.member;
    calls_.push_back(std::move(call));
    faults_->hit(Port::automation, member);
    auto& waiting = failures_[member];
    if (!waiting.empty()) {
        const Error error = waiting.front();
        waiting.erase(waiting.begin());
        throw error;
    }
}

std::vector<std::string> AutomationRecord::texts(std::string_view prefix) const {
    std::vector<std::string> texts;
    for (const AutomationCall& call : calls_) {
        std::string text = call.text();
        if (text.starts_with(prefix)) {
            texts.push_back(std::move(text));
        }
    }
    return texts;
}

void AutomationRecord::failNext(const std::string& objectAndMember, const Error& error) {
    failures_[objectAndMember].push_back(error);
}

std::string FakeObject::key(std::string_view member) {
    std::string lower(member);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

void FakeObject::method(std::string_view member, Method body) {
    members_[key(member)].call = std::move(body);
}

void FakeObject::property(std::string_view member, Variant value) {
    members_[key(member)].stored = std::move(value);
}

void FakeObject::property(std::string_view member, Getter getter, Setter setter) {
    Member& made = members_[key(member)];
    made.get = std::move(getter);
    made.put = std::move(setter);
}

void FakeObject::readOnly(std::string_view member, Getter getter) {
    members_[key(member)].get = std::move(getter);
}

void FakeObject::indexed(std::string_view member, Method body) {
    Member& made = members_[key(member)];
    made.call = body;
    made.indexed = std::move(body);
}

Variant FakeObject::value(std::string_view member) const {
    const auto found = members_.find(key(member));
    if (found == members_.end()) {
        throw noMember(name_);
    }
    if (found->second.stored) {
        return *found->second.stored;
    }
    return found->second.get ? found->second.get() : Variant();
}

void FakeObject::setValue(std::string_view member, Variant value) {
    members_[key(member)].stored = std::move(value);
}

FakeObject::Member& FakeObject::find(std::string_view member) {
    const auto found = members_.find(key(member));
    if (found == members_.end()) {
        throw noMember(name_);
    }
    return found->second;
}

Variant FakeObject::call(std::string_view member, std::vector<Argument> arguments) {
    record_->note({name_, Access::call, std::string(member), arguments});
    const Method body = find(member).call;
    if (!body) {
        throw noMember(name_);
    }
    return body(arguments);
}

Variant FakeObject::get(std::string_view member, std::vector<Argument> arguments) {
    record_->note({name_, Access::get, std::string(member), arguments});
    Member& found = find(member);
    if (found.indexed) {
        return found.indexed(arguments);
    }
    if (found.stored) {
        return *found.stored;
    }
    if (!found.get || !arguments.empty()) {
        throw noMember(name_);
    }
    return found.get();
}

void FakeObject::put(std::string_view member, Variant value) {
    record_->note({name_, Access::put, std::string(member), {{value}}});
    assign(member, std::move(value));
}

void FakeObject::putReference(std::string_view member, ObjectRef object) {
    record_->note({name_, Access::putReference, std::string(member), {{Variant(object)}}});
    assign(member, std::move(object));
}

void FakeObject::assign(std::string_view member, Variant value) {
    Member& found = find(member);
    if (found.put) {
        found.put(std::move(value));
    } else if (found.stored) {
        found.stored = std::move(value);
    } else {
        throw noMember(name_);
    }
}

void FakeAutomation::registerProgId(const std::string& progId, Factory factory) {
    classes_[progId] = {{}, std::move(factory)};
}

void FakeAutomation::registerClass(const std::string& classId, const std::string& interfaceId,
                                   Factory factory) {
    classes_[classId] = {interfaceId, std::move(factory)};
}

FakeAutomation::Class& FakeAutomation::find(const std::string& id) {
    faults_.hit(Port::automation, "create " + id);
    auto& planned = failures_[id];
    if (planned) {
        const Error error = *planned;
        planned.reset();
        throw error;
    }
    const auto found = classes_.find(id);
    if (found == classes_.end()) {
        throw noObject(id);
    }
    return found->second;
}

ObjectRef FakeAutomation::create(const std::string& progId, const std::string& computer) {
    created.push_back({progId, computer, {}});
    return find(progId).factory();
}

ObjectRef FakeAutomation::createClass(const std::string& classId, const std::string& interfaceId) {
    created.push_back({classId, {}, interfaceId});
    Class& found = find(classId);
    if (found.interfaceId != interfaceId) {
        throw Error(kNoInterface, classId, "No such interface supported");
    }
    return found.factory();
}

} // namespace tollvane::test
